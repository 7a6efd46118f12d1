#pragma once

#include <string>
#include <vector>

#include "core/tree/popup_menu.h"

namespace tesselo {

class Application;

// The popup of the selected key of a page canvas: "Cut", "Copy", "Paste",
// "Delete", a divider, "Label", "Properties". The title row and hard keys
// can't be cut, a HOME page's device keys neither cut nor deleted, Paste
// waits for a key in the clipboard that can land there, and an empty place
// offers nothing to copy or delete. Empty when no key is selected.
std::vector<PopupItem> build_key_popup(Application& app);

// cPopup2_ItemClick: runs the chosen item. "Copy" sets drag_mode to 2 so that
// the paste takes the label along.
void cPopup2_ItemClick(Application& app, const std::string& item);

}  // namespace tesselo
