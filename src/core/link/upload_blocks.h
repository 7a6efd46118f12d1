#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tesselo {

class Application;

// What the remote sent: the image, sized by block 1, and the bytes stored.
struct UploadedImage {
    std::vector<std::uint8_t> image;
    std::size_t total = 0;
};

// The upload's exchange after the wake-up: the opening frame 0xAE 0xDC, its
// reply, and the block loop until the remote says it has sent everything.
// True with the image when it came whole; false when the exchange failed
// (its words, if any, have been shown). The link stays open.
bool upload_blocks(Application& app, UploadedImage& uploaded);

inline constexpr const char* text_upload_failed_001 = "Upload Failed(Error #001)! ";
inline constexpr const char* text_upload_failed_002 = "Upload Failed(Error #002)! ";
inline constexpr const char* text_upload_failed_003 = "Upload Failed(Error #003)! ";
inline constexpr const char* text_upload_failed_004 = "Upload Failed(Error #004)! ";

}  // namespace tesselo
