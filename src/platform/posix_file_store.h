#pragma once

#include "core/document/file_store.h"

namespace tesselo {

// The file is written into a scratch file that no other save can share: an
// unnamed O_TMPFILE in the target's folder, or, where the file system has
// none, a new file of a random name. It is synced, linked under a fresh name,
// renamed over the target, and then the folder is synced, so that the rename
// itself survives a power cut.
class PosixFileStore : public FileStore {
public:
    std::optional<std::string> replace_file(const std::string& path, const std::vector<std::uint8_t>& bytes) override;

protected:
    // fsync(2); a seam, so that the order of the syncs can be checked.
    virtual int sync(int fd);
    // An unnamed file in `folder` (O_TMPFILE), or -1 with errno set; a seam,
    // so that the way without O_TMPFILE can be checked.
    virtual int open_unnamed(const std::string& folder);
};

}  // namespace tesselo
