#include "core/link/frames.h"

#include "core/image/checksum.h"

namespace tesselo {

Frame make_frame(Tag tag, std::uint16_t length, std::uint16_t sequence, std::uint8_t flags)
{
    Frame f{tag.first,
            tag.second,
            static_cast<std::uint8_t>(length >> 8),
            static_cast<std::uint8_t>(length & 0xFF),
            static_cast<std::uint8_t>(sequence >> 8),
            static_cast<std::uint8_t>(sequence & 0xFF),
            flags,
            0};
    f[7] = checksum(f.data(), 7);
    return f;
}

bool frame_checksum_good(const std::uint8_t* frame) { return frame[7] == checksum(frame, 7); }

}  // namespace tesselo
