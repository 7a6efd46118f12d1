#pragma once

#include <array>
#include <vector>

namespace tesselo {

// One entry of the frame's menu. An entry without a caption is a divider.
struct MenuEntry {
    const char* name;
    const char* caption;
    const char* shortcut;  // "" for none
};

struct MenuDefinition {
    const char* name;
    const char* caption;
    std::vector<MenuEntry> entries;
};

// The frame's menu tree, top to bottom.
const std::vector<MenuDefinition>& frame_menus();

// The hidden popup of a key, in the frame's terms.
const MenuDefinition& key_popup_menu();

struct ToolbarButton {
    int number;
    const char* key;
    const char* tool_tip;
    const char* picture;  // the key of its picture
};

// Toolbar1, by number.
const std::array<ToolbarButton, 18>& toolbar_buttons();

// The order in which a toolbar click is compared with the buttons' keys.
const std::array<const char*, 17>& toolbar_dispatch_order();

}  // namespace tesselo
