#pragma once

#include <string>
#include <vector>

namespace tesselo {

class Application;

// One item of the tree's popup menu, as clsPopup's AddItem takes it.
struct PopupItem {
    std::string key;
    std::string caption;
    int type = 0;   // 2048 a divider
    int state = 0;  // 0 enabled, 3 greyed, 8 checked
};

inline constexpr int popup_divider = 2048;
inline constexpr int popup_enabled = 0;
inline constexpr int popup_greyed = 3;
inline constexpr int popup_checked = 8;

// The menu of the selected node of the tree of `slot`, built from nothing;
// empty for a properties node or with no selection.
std::vector<PopupItem> build_popup(Application& app, int slot);

// Runs a popup item by its key on the active document's selected node.
void cPopup1_ItemClick(Application& app, const std::string& item);

// The tree's keyboard shortcuts, with the menu's guards.
enum class TreeShortcut { alt_d, alt_p, ctrl_up, ctrl_down };
void tree_key_down(Application& app, TreeShortcut key);

// The main frame's open_allpage: opens every page of the selected device, or of HOME.
void open_allpage(Application& app);

}  // namespace tesselo
