#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tesselo {

class Application;

// The transfer of an image into the remote's flash, in blocks of 4096 bytes.
// Its only change to the image is the remote's four bytes at 100 to 103.
// True when it ended in "Send Complete!".
bool download_image(Application& app, std::vector<std::uint8_t>& image, std::size_t size);

// File > Download: the active document's image goes to the remote and stays
// behind in temp.trl, also when the transfer failed. True when the transfer
// ended in "Send Complete!".
bool muDownload_Click(Application& app);

// What the Download window says while block `block` of `blocks` goes out on
// its attempt `attempt` of three: "Block 3 of 42, attempt 1 of 3", and on a
// later attempt ": the remote did not confirm it" behind.
std::string download_block_activity(std::size_t block, std::size_t blocks, int attempt);

inline constexpr const char* download_caption = "Download";
inline constexpr const char* text_download_failed = "Download Failed(Error #001)! ";

}  // namespace tesselo
