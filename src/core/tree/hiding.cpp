#include "core/tree/hiding.h"

#include <string>

#include "core/app/application.h"
#include "core/model/configuration.h"
#include "core/tree/journal.h"
#include "core/tree/link_repair.h"
#include "core/tree/node_keys.h"
#include "core/tree/tree_model.h"
#include "core/tree/tree_view.h"

namespace tesselo {

namespace {

std::size_t at(int i) { return static_cast<std::size_t>(i); }

std::string bracketed(const std::string& text) { return "[" + text + "]"; }

// The brackets go by one character at each end, whatever they are.
std::string unbracketed(const std::string& text)
{
    if (text.empty() || text.front() != '[') return text;
    return text.size() >= 2 ? text.substr(1, text.size() - 2) : std::string{};
}

struct Selected {
    int slot = -1;
    int node = 0;
    std::string caption;
};

Selected selected_node(Application& app)
{
    const Document* doc = app.active();
    if (!doc) return {};
    return {doc->slot, app.tree(doc->slot).selected(), doc->title};
}

void tree_changed(Application& app, int slot)
{
    app.notify([slot](ApplicationListener& l) { l.tree_changed(slot); });
    app.notify([slot](ApplicationListener& l) { l.selection_changed(slot); });
}

}  // namespace

bool hide_device(Application& app)
{
    const Selected at_node = selected_node(app);
    if (at_node.node == 0) return false;
    const int slot = at_node.slot;
    TreeModel& tree = app.tree(slot);
    Configuration& config = app.config(slot);
    TreeNode& n = tree.node(at_node.node);
    if (!is_device_image(n.image)) return false;
    const int row = device_row_of_key(config, n.key);
    if (row < 1) return false;
    const bool hide = n.image == image_device;
    begin_edit(app);
    app.write_log(std::string(hide ? "hide device(start) " : "unhide device(start) ") + std::to_string(slot));
    n.image = hide ? image_hidden_device : image_device;
    n.text = hide ? bracketed(n.text) : unbracketed(n.text);
    // The first HOME slot that names the device carries the mark.
    bool marked = false;
    for (auto& home : config.home_pages)
        for (int s = 0; s < softkeys_per_page && !marked; ++s)
            if (home.node_key[at(s)] == n.key) {
                std::uint8_t& byte0 = home.slots[at(s)].key_state;
                byte0 = static_cast<std::uint8_t>(hide ? byte0 + 128 : byte0 - 128);
                marked = true;
            }
    config.device_table[at(row)].hidden = hide ? hidden_flag : 0;
    app.write_log(std::string(hide ? "hide device - " : "unhide device - ") + n.text + " - " + at_node.caption);
    tree_changed(app, slot);
    return true;
}

bool hide_page(Application& app)
{
    const Selected at_node = selected_node(app);
    if (at_node.node == 0) return false;
    const int slot = at_node.slot;
    TreeModel& tree = app.tree(slot);
    Configuration& config = app.config(slot);
    TreeNode& n = tree.node(at_node.node);
    // Pages of HOME have no hidden state.
    if (!is_page_image(n.image) || n.key.rfind("HOME", 0) == 0 || n.parent == 0) return false;
    const std::string device_key = tree.node(n.parent).key;
    const std::string device_text = tree.node(n.parent).text;
    const int row = device_row_of_key(config, device_key);
    const int entry = page_row_of_key(config, n.key);
    if (row < 1 || entry < 0) return false;
    const bool hide = n.image == image_page;
    begin_edit(app);
    app.write_log(std::string(hide ? "hide page(start) " : "unhide page(start) ") + std::to_string(slot));
    n.image = hide ? image_hidden_page : image_page;
    n.text = hide ? bracketed(n.text) : unbracketed(n.text);
    config.page_table[at(entry)].hidden = hide ? hidden_flag : 0;
    std::uint8_t& visible = config.device_table[at(row)].visible_pages;
    visible = static_cast<std::uint8_t>(hide ? visible - 1 : visible + 1);
    repoint_firstpage(config, device_key, row, n.key);
    app.write_log(std::string(hide ? "hide page - " : "unhide page - ") + device_text + "/" + n.text + " - " +
                  at_node.caption);
    tree_changed(app, slot);
    return true;
}

}  // namespace tesselo
