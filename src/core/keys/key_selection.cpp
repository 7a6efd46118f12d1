#include "core/keys/key_selection.h"

#include "core/keys/hardkey_pictures.h"

namespace tesselo {

void KeySelection::select_picture(int index)
{
    selected_kind = is_side_button(index) ? kind_soft : kind_hard;
    selected_left = (is_side_button(index) && index % 2 == 0) ? 1 : 0;
    selected_index = index;
    selected_row = is_side_button(index) ? picture_row(index) * 3 : 0;
}

void KeySelection::clear() { *this = KeySelection{}; }

std::uint8_t KeySelection::position() const
{
    return static_cast<std::uint8_t>(row() + (selected_left ? 128 : 0));
}

}  // namespace tesselo
