#pragma once

#include <cstdint>

namespace tesselo {

// The remote's picture has 56 keys, Picture2(0) to Picture2(55). Indices 3 to
// 14 are the twelve side buttons of the LCD, a right (odd) and a left (even)
// button per row; 15 to 17 are no key; all others are hard keys.
inline constexpr int key_pictures = 56;
inline constexpr int first_side_button = 3;
inline constexpr int last_side_button = 14;

// The hard key index (0 to 40) of a picture, or -1 for a picture that is no
// hard key (a side button, or 15 to 17).
int check_hardkeyindex(int picture);
// The picture of a hard key index, or -1 outside 0 to 40.
int check_actcualhardindex(int key);

bool is_side_button(int picture);
// The LCD row of a side button, (index - 3) / 2, 0 to 5.
int picture_row(int picture);
// The position byte of a side button: its row, plus 128 for a left button.
std::uint8_t picture_position(int picture);
// The side button of a position byte, or -1 for no such button.
int position_picture(std::uint8_t position);

}  // namespace tesselo
