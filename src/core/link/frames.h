#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace tesselo {

// The remote on the bus: its device path holds both texts.
inline const std::string remote_vendor_text = "VID_1D5C";
inline const std::string remote_product_text = "PID_5100";
inline constexpr std::uint16_t remote_vendor_id = 0x1D5C;
inline constexpr std::uint16_t remote_product_id = 0x5100;

// Wake-up byte and its answer; the go-ahead of an upload block.
inline constexpr std::uint8_t wake_up_byte = 0xF8;
inline constexpr std::uint8_t wake_up_answer = 0xF6;
inline constexpr std::uint8_t go_ahead_byte = 0xFA;

inline constexpr std::size_t frame_size = 8;
inline constexpr std::size_t reply_size = 48;
inline constexpr std::size_t block_data_size = 4096;
// A frame, 4096 data bytes and the closing checksum.
inline constexpr std::size_t block_buffer_size = 4105;
inline constexpr std::size_t drain_size = 4096;
inline constexpr std::uint32_t write_timeout = 200;

// Byte 0 of an error answer; its byte 1 says what went wrong.
inline constexpr std::uint8_t error_answer = 0xEE;
inline constexpr std::uint8_t error_header = 6;
inline constexpr std::uint8_t error_id = 3;
inline constexpr std::uint8_t error_flash = 8;

struct Tag {
    std::uint8_t first;
    std::uint8_t second;
    bool operator==(const Tag&) const = default;
};

inline constexpr Tag tag_download{0xAF, 0xCF};
inline constexpr Tag tag_download_end{0xBD, 0xCF};
inline constexpr Tag tag_upload{0xAE, 0xDC};
inline constexpr Tag tag_upload_end{0xBF, 0xDC};
inline constexpr Tag tag_clock{0xAA, 0xCD};
inline constexpr Tag tag_clock_end{0xBA, 0xCD};
inline constexpr Tag tag_learn{0xAC, 0xCC};
inline constexpr Tag tag_learn_end{0xBC, 0xCC};
inline constexpr Tag tag_test{0xAB, 0xDD};
inline constexpr Tag tag_test_end{0xBB, 0xDD};
inline constexpr Tag tag_test_stop{0xAB, 0xCB};

using Frame = std::array<std::uint8_t, frame_size>;

// A command frame: tag, length and sequence number high byte first, flags,
// and the checksum of bytes 0 to 6.
Frame make_frame(Tag tag, std::uint16_t length = 0, std::uint16_t sequence = 0, std::uint8_t flags = 0);

// The number in bytes `at` and `at` + 1, high byte first.
inline unsigned big_endian(const std::uint8_t* bytes, std::size_t at)
{
    return static_cast<unsigned>(bytes[at]) * 256u + bytes[at + 1];
}

// True when byte 7 is the checksum of bytes 0 to 6.
bool frame_checksum_good(const std::uint8_t* frame);

}  // namespace tesselo
