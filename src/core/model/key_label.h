#pragma once

#include <array>
#include <cstdint>

#include "core/model/limits.h"

namespace tesselo {

// A label is a header byte and nine glyph codes, never text. In a soft key the
// header's low four bits are the glyph count and its high four bits the
// alignment; in a hard key it is the plain length. 255 marks a free pool slot.
struct KeyLabel {
    std::array<std::uint8_t, label_bytes> bytes{};

    std::uint8_t header() const { return bytes[0]; }
    bool is_free() const { return bytes[0] == free_byte; }
    int glyph_count() const { return bytes[0] & 0x0F; }
    int alignment() const { return bytes[0] >> 4; }
    bool operator==(const KeyLabel&) const = default;
};

// Soft key alignments held in the header's high four bits.
inline constexpr int align_centre = 0;
inline constexpr int align_left = 2;
inline constexpr int align_right = 3;

}  // namespace tesselo
