#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tesselo {

// Where a save puts its file. The program supplies it (on Linux the POSIX
// store of src/platform), so that the rules stay in standard C++.
class FileStore {
public:
    virtual ~FileStore() = default;

    // Puts `bytes` in the place of the file at `path`, whole or not at all: a
    // killed program or a power cut leaves the old file or the new one, never
    // a half file and never a scratch file beside it, and two saves to one
    // path at once leave one of them whole. An existing file keeps its mode;
    // a symbolic link is written through to its target and stays a link; a
    // file the user may not write, or that is no regular file, is refused and
    // left as it is. Returns the failure's words, or nothing when the file
    // was written.
    virtual std::optional<std::string> replace_file(const std::string& path,
                                                    const std::vector<std::uint8_t>& bytes) = 0;
};

}  // namespace tesselo
