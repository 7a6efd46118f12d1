#pragma once

#include <cstdint>

namespace tesselo {

// selected_kind values.
inline constexpr int kind_none = 0;
inline constexpr int kind_hard = 1;
inline constexpr int kind_soft = 2;

// The key selected on a page canvas, one set for the application. Every key
// operation reads it afresh; the page is the node selected in the tree.
class KeySelection {
public:
    int selected_kind = kind_none;  // 1 hard key, 2 soft key
    int selected_index = -1;        // the picture index, 0 to 55
    int selected_row = 0;           // row * 3, the index of the row's label box
    int selected_left = 0;          // 1 for an even side button from 4 to 14

    // A click on picture `index`: sets the four values as the canvas does.
    void select_picture(int index);
    void clear();

    bool is_soft() const { return selected_kind == kind_soft; }
    bool is_hard() const { return selected_kind == kind_hard; }
    int row() const { return selected_row / 3; }
    // The position byte of the selected soft key: the row, plus 128 on the left.
    std::uint8_t position() const;
};

// Set while the Key_error window has been shown for the selected key's list,
// so that a list is not reported twice while its rows are built.
class KeyErrorState {
public:
    bool key_error_shown = false;
};

}  // namespace tesselo
