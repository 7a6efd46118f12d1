#include "core/tree/popup_menu.h"

#include "core/app/application.h"
#include "core/model/configuration.h"
#include "core/tree/adding.h"
#include "core/tree/edit_state.h"
#include "core/tree/node_keys.h"
#include "core/tree/selection.h"
#include "core/tree/tree_commands.h"
#include "core/tree/tree_model.h"
#include "core/tree/tree_moves.h"
#include "core/tree/tree_view.h"

namespace tesselo {

namespace {

const std::string add_device_caption = "Add Device  ALT-D";
const std::string add_page_caption = "Add Page    ALT-P";
const std::string move_up_caption = "Move Up      Ctrl-Up";
const std::string move_down_caption = "Move Down  Ctrl-Down";

PopupItem divider() { return {"", "", popup_divider, popup_enabled}; }

// An item whose operation is not installed stays greyed.
int state_of(const TreeCommands::Command& command, int state)
{
    return command ? state : popup_greyed;
}

int greyed_if(bool condition) { return condition ? popup_greyed : popup_enabled; }

struct Place {
    int slot = -1;
    int node = 0;
};

Place selected_place(Application& app)
{
    const Document* doc = app.active();
    if (!doc) return {};
    return {doc->slot, app.tree(doc->slot).selected()};
}

void append_home_items(std::vector<PopupItem>& menu)
{
    menu.push_back({"Add Device", add_device_caption, 0, popup_enabled});
    menu.push_back(divider());
    menu.push_back({"Add Page", add_page_caption, 0, popup_greyed});
}

}  // namespace

std::vector<PopupItem> build_popup(Application& app, int slot)
{
    std::vector<PopupItem> menu;
    const TreeModel& tree = app.tree(slot);
    const int node = tree.selected();
    if (node == 0) return menu;
    const TreeNode& n = tree.node(node);
    const TreeCommands& commands = app.tree_commands();
    const EditState& state = app.edit_state();
    if (n.image == image_properties) return menu;

    if (n.text == "HOME" && n.parent == 0) {
        append_home_items(menu);
    } else if (n.key.rfind("HOME", 0) == 0) {
        menu.push_back({"Open Page", "Open Page", 0, popup_enabled});
        menu.push_back(divider());
        append_home_items(menu);
    } else if (is_device_image(n.image)) {
        const bool hidden = n.image == image_hidden_device;
        menu.push_back({"Add Device", add_device_caption, 0, popup_enabled});
        menu.push_back({"Add Page", add_page_caption, 0, popup_enabled});
        menu.push_back(divider());
        menu.push_back({"Open All Pages", "Open All Pages", 0, popup_enabled});
        menu.push_back(divider());
        menu.push_back({"Cut", "Cut", 0, state_of(commands.cut, popup_enabled)});
        menu.push_back({"Copy", "Copy", 0, state_of(commands.copy, popup_enabled)});
        menu.push_back({"Paste", "Paste", 0, state_of(commands.paste, greyed_if(!state.paste_button))});
        menu.push_back({"Delete", "Delete", 0, state_of(commands.remove, popup_enabled)});
        menu.push_back(divider());
        menu.push_back({"Expand", "Expand", 0, greyed_if(n.expanded)});
        menu.push_back({"Collapse", "Collapse", 0, greyed_if(!n.expanded)});
        menu.push_back(divider());
        menu.push_back({"Move Up", move_up_caption, 0, state_of(commands.move_up, greyed_if(!can_move_up(app, slot, node)))});
        menu.push_back({"Move Down", move_down_caption, 0,
                        state_of(commands.move_down, greyed_if(!can_move_down(app, slot, node)))});
        menu.push_back({"Hide Device", "Hide Device", 0, state_of(commands.hide_device, hidden ? popup_checked : popup_enabled)});
        menu.push_back(divider());
        menu.push_back({"Label", "Label", 0, state_of(commands.label, popup_enabled)});
        menu.push_back({"Properties", "Properties", 0, popup_enabled});
    } else if (is_page_image(n.image)) {
        const bool hidden = n.image == image_hidden_page;
        menu.push_back({"Open Page", "Open Page", 0, popup_enabled});
        menu.push_back(divider());
        menu.push_back({"Add Page", add_page_caption, 0, popup_enabled});
        menu.push_back(divider());
        menu.push_back({"Cut", "Cut", 0, state_of(commands.cut, popup_enabled)});
        menu.push_back({"Copy", "Copy", 0, state_of(commands.copy, popup_enabled)});
        menu.push_back({"Paste", "Paste", 0,
                        state_of(commands.paste, greyed_if(!(state.paste_button && state.clipboard_kind == 1)))});
        menu.push_back({"Delete", "Delete", 0, state_of(commands.remove, popup_enabled)});
        menu.push_back(divider());
        menu.push_back({"Move Up", move_up_caption, 0, state_of(commands.move_up, greyed_if(!can_move_up(app, slot, node)))});
        menu.push_back({"Move Down", move_down_caption, 0,
                        state_of(commands.move_down, greyed_if(!can_move_down(app, slot, node)))});
        menu.push_back({"Hide Page", "Hide Page", 0, state_of(commands.hide_page, hidden ? popup_checked : popup_enabled)});
    }
    return menu;
}

void open_allpage(Application& app)
{
    const Place at = selected_place(app);
    if (at.node == 0) return;
    TreeModel& tree = app.tree(at.slot);
    // HOME holds pages as a device does: on HOME, its properties or a page of it, HOME's pages open.
    const auto holds_pages = [&tree](int node) {
        return is_device_image(tree.node(node).image) || tree.node(node).image == image_home;
    };
    int device = at.node;
    if (!holds_pages(device)) device = tree.node(device).parent;
    if (device == 0 || !holds_pages(device)) return;
    const std::vector<int> children = tree.node(device).children;
    for (int child : children)
        if (is_page_image(tree.node(child).image) && !open_page(app, at.slot, child)) return;
}

void cPopup1_ItemClick(Application& app, const std::string& item)
{
    const Place at = selected_place(app);
    if (at.node == 0) return;
    TreeModel& tree = app.tree(at.slot);
    TreeCommands& commands = app.tree_commands();
    const auto run = [&app](const TreeCommands::Command& command) {
        if (command) command(app);
    };
    const auto ends_with = [&item](const std::string& tail) {
        return item.size() >= tail.size() && item.compare(item.size() - tail.size(), tail.size(), tail) == 0;
    };
    if (item == "Add Device") AddDevice(app, add_ordinary);
    else if (item == "Add Page") addpage(app, add_ordinary);
    else if (item == "Open All Pages") open_allpage(app);
    else if (item == "Move Up") run(commands.move_up);
    else if (item == "Move Down") run(commands.move_down);
    else if (item == "Open Page") open_page(app, at.slot, at.node);
    else if (item == "Properties") app.notify([](ApplicationListener& l) { l.properties_requested(); });
    else if (ends_with("Hide Device")) run(commands.hide_device);
    else if (ends_with("Hide Page")) run(commands.hide_page);
    else if (item == "Cut") {
        app.edit_state().clipboard_source = "treeview";
        run(commands.cut);
    } else if (item == "Delete") {
        run(commands.remove);
        app.edit_state().clipboard_kind = 0;
    } else if (item == "Copy") {
        app.selection().image = tree.node(at.node).image;
        app.selection().node_key = tree.node(at.node).key;
        run(commands.copy);
    } else if (item == "Paste") run(commands.paste);
    else if (item == "Expand" || item == "Collapse") {
        const bool expand = item == "Expand";
        tree.node(at.node).expanded = expand;
        if (expand)
            for (int child : tree.node(at.node).children) tree.node(child).expanded = true;
        const int slot = at.slot;
        app.notify([slot](ApplicationListener& l) { l.tree_changed(slot); });
    } else if (item == "Label") run(commands.label);
}

void tree_key_down(Application& app, TreeShortcut key)
{
    const Place at = selected_place(app);
    if (key == TreeShortcut::alt_d) {
        AddDevice(app, add_ordinary);
        return;
    }
    if (key == TreeShortcut::alt_p) {
        addpage(app, add_ordinary);
        return;
    }
    if (at.node == 0) return;
    // The same guards as the menu's states.
    if (key == TreeShortcut::ctrl_up) {
        if (can_move_up(app, at.slot, at.node) && app.tree_commands().move_up) app.tree_commands().move_up(app);
    } else if (can_move_down(app, at.slot, at.node) && app.tree_commands().move_down) {
        app.tree_commands().move_down(app);
    }
}

}  // namespace tesselo
