#include "core/keys/hardkey_pictures.h"

#include <array>

namespace tesselo {

namespace {

// Hard key index by picture; -1 where the picture is no hard key. The
// numbering follows no order of the pictures.
constexpr std::array<std::int8_t, key_pictures> key_of_picture = {
    1,  2,  0,                                           // 0..2
    -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1,      // 3..14 side buttons
    -1, -1, -1,                                          // 15..17
    11, 30, 35, 14, 36, 31, 39, 40, 37, 32, 12, 10, 34,  // 18..30
    38, 29, 33, 13, 20, 27, 8,  15, 22, 3,  18, 25, 6,   // 31..43
    21, 28, 9,  17, 24, 5,  16, 23, 4,  7,  19, 26,      // 44..55
};

}  // namespace

int check_hardkeyindex(int picture)
{
    if (picture < 0 || picture >= key_pictures) return -1;
    return key_of_picture[static_cast<std::size_t>(picture)];
}

int check_actcualhardindex(int key)
{
    for (int p = 0; p < key_pictures; ++p)
        if (key >= 0 && key_of_picture[static_cast<std::size_t>(p)] == key) return p;
    return -1;
}

bool is_side_button(int picture) { return picture >= first_side_button && picture <= last_side_button; }

int picture_row(int picture) { return (picture - first_side_button) / 2; }

std::uint8_t picture_position(int picture)
{
    const int row = picture_row(picture);
    return static_cast<std::uint8_t>(picture % 2 == 0 ? row + 128 : row);
}

int position_picture(std::uint8_t position)
{
    const int row = position & 0x7F;
    if (row > 5 || (position >= 128 && position - 128 > 5)) return -1;
    return first_side_button + row * 2 + (position >= 128 ? 1 : 0);
}

}  // namespace tesselo
