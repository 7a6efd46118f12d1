#include "core/tree/tree_moves.h"

#include <algorithm>
#include <vector>

#include "core/app/application.h"
#include "core/keys/key_behaviours.h"
#include "core/model/configuration.h"
#include "core/tree/device_removal.h"
#include "core/tree/journal.h"
#include "core/tree/link_repair.h"
#include "core/tree/node_keys.h"
#include "core/tree/page_windows.h"
#include "core/tree/tree_model.h"
#include "core/tree/tree_view.h"

namespace tesselo {

namespace {

std::size_t at(int i) { return static_cast<std::size_t>(i); }

bool is_home_node(const TreeNode& n) { return n.image == image_home || n.key.rfind("HOME", 0) == 0; }

bool movable(const TreeModel& tree, int node)
{
    if (!tree.valid(node)) return false;
    const TreeNode& n = tree.node(node);
    return !is_home_node(n) && (is_device_image(n.image) || is_page_image(n.image));
}

// A copy of node `from` beside `sibling`, with its fields and its children;
// the old node keeps its place under a temporary key.
int copy_node_beside(TreeModel& tree, int from, int sibling, bool behind, const std::string& prefix)
{
    const std::string key = tree.node(from).key;
    tree.node(from).key = prefix + key;
    const TreeNode old = tree.node(from);
    const int copy = tree.add_beside(sibling, behind, old.key.substr(prefix.size()), old.text, old.image);
    TreeNode& n = tree.node(copy);
    n.expanded = old.expanded;
    n.selected = old.selected;
    n.tag = old.tag;
    move_children(tree, from, copy, prefix);
    return copy;
}

bool move_node(Application& app, int direction)
{
    Document* doc = app.active();
    if (!doc) return false;
    const int slot = doc->slot;
    TreeModel& tree = app.tree(slot);
    const int node = tree.selected();
    const bool up = direction == move_direction_up;
    if (up ? !can_move_up(app, slot, node) : !can_move_down(app, slot, node)) return false;
    begin_edit(app);

    const int sibling = up ? tree.previous_sibling(node) : tree.next_sibling(node);
    const std::string prefix = up ? "TempKey" : "TemporaryNodeKey";
    const std::string key = tree.node(node).key;
    copy_node_beside(tree, node, sibling, !up, prefix);
    tree.remove(node);
    const int moved = tree.find(key);
    const TreeNode& n = tree.node(moved);
    if (!is_device_image(n.image)) {
        move_page(app, slot, n.key, tree.node(n.parent).key, direction);
    } else {
        update_softtable(app, slot);
        move_device(app, slot, n.key, direction);
    }
    update_softtable(app, slot);
    app.notify([slot](ApplicationListener& l) { l.tree_changed(slot); });
    app.write_log("move " + tree.node(tree.find(key)).text + (up ? " up - " : " down - ") + doc->title);
    return true;
}

void redraw_windows(Application& app, int slot, const std::string& prefix, bool recount)
{
    for (PageWindow& window : app.page_windows().all()) {
        if (window.slot != slot || window.caption.rfind(prefix, 0) != 0) continue;
        if (recount) window.pagelabel = page_counter(app, slot, window.caption);
        const std::string caption = window.caption;
        app.notify([slot, &caption](ApplicationListener& l) { l.page_window_changed(slot, caption); });
    }
}

// Jumps and links into `device` (or, with `page` set, its page `a` and `b`)
// exchange their numbers.
void exchange_targets(Configuration& config, int a, int b, int device)
{
    for (ActionStep& s : config.action_steps.steps) {
        if (s.step_type != step_jump && s.step_type != step_link) continue;
        if (device < 0) {
            if (s.param_low == a) s.param_low = static_cast<std::uint8_t>(b);
            else if (s.param_low == b) s.param_low = static_cast<std::uint8_t>(a);
        } else if (s.param_low == device && s.param_high != free_byte) {
            if (s.param_high == a) s.param_high = static_cast<std::uint8_t>(b);
            else if (s.param_high == b) s.param_high = static_cast<std::uint8_t>(a);
        }
    }
}

}  // namespace

bool can_move_up(Application& app, int slot, int node)
{
    const TreeModel& tree = app.tree(slot);
    if (!movable(tree, node)) return false;
    const int previous = tree.previous_sibling(node);
    // A page never goes above the properties node, a device never above HOME.
    return previous != 0 && is_device_image(tree.node(previous).image) == is_device_image(tree.node(node).image) &&
           tree.node(previous).image != image_properties;
}

bool can_move_down(Application& app, int slot, int node)
{
    const TreeModel& tree = app.tree(slot);
    return movable(tree, node) && tree.next_sibling(node) != 0;
}

bool Move_treeviewup(Application& app) { return move_node(app, move_direction_up); }

bool Move_treeviewdown(Application& app) { return move_node(app, move_direction_down); }

void move_children(TreeModel& tree, int from, int to, const std::string& prefix)
{
    const std::vector<int> children = tree.node(from).children;
    for (int child : children) {
        const std::string key = tree.node(child).key;
        tree.node(child).key = prefix + key;
        const TreeNode old = tree.node(child);
        const int copy = tree.add(to, key, old.text, old.image);
        TreeNode& n = tree.node(copy);
        n.expanded = old.expanded;
        n.selected = old.selected;
        n.tag = old.tag;
        move_children(tree, child, copy, prefix);
    }
}

void move_page(Application& app, int slot, const std::string& page_key, const std::string& device_key, int direction)
{
    Configuration& config = app.config(slot);
    const int R = device_row_of_key(config, device_key);
    if (R < 1) return;
    const int first = pages_before(config, R);
    const int pages = config.device_table[at(R)].page_count;
    int P = -1;
    for (int p = 0; p < pages && P < 0; ++p)
        if (config.page_table[at(first + p)].node_key == page_key) P = p;
    const int Q = direction == move_direction_up ? P - 1 : P + 1;
    if (P < 0 || Q < 0 || Q >= pages) return;
    std::swap(config.page_table[at(first + P)], config.page_table[at(first + Q)]);
    update_softtable(app, slot);
    // Every jump and link follows its page; the HOME key's jump is one of them.
    exchange_targets(config, P, Q, R);
    redraw_windows(app, slot, device_key + "\\", true);
}

void move_device(Application& app, int slot, const std::string& device_key, int direction)
{
    Configuration& config = app.config(slot);
    const int R = device_row_of_key(config, device_key);
    const int N = direction == move_direction_up ? R - 1 : R + 1;
    if (R < 1 || N < 1 || N > device_count(config)) return;
    const std::string neighbour = config.device_name_table[at(N)].node_key;

    // The two HOME keys change names and lists, but the grid stays: each
    // keeps its place and its position.
    SoftKey* key_r = nullptr;
    SoftKey* key_n = nullptr;
    HomePage* page_r = nullptr;
    HomePage* page_n = nullptr;
    int slot_r = 0, slot_n = 0;
    for (auto& home : config.home_pages)
        for (int s = 1; s < softkeys_per_page; ++s) {
            if (home.node_key[at(s)] == device_key && !key_r) key_r = &home.slots[at(s)], page_r = &home, slot_r = s;
            else if (home.node_key[at(s)] == neighbour && !key_n) key_n = &home.slots[at(s)], page_n = &home, slot_n = s;
        }
    if (key_r && key_n) {
        std::swap(*key_r, *key_n);
        std::swap(key_r->position, key_n->position);
        std::swap(page_r->node_index[at(slot_r)], page_n->node_index[at(slot_n)]);
        std::swap(page_r->node_key[at(slot_r)], page_n->node_key[at(slot_n)]);
    }

    std::swap(config.device_table[at(R)], config.device_table[at(N)]);
    std::swap(config.device_name_table[at(R)], config.device_name_table[at(N)]);
    std::swap(config.device_extra[at(R)], config.device_extra[at(N)]);
    for (int k = 0; k < hardkeys_per_device; ++k) {
        const auto r = at(R * hardkeys_per_device + k);
        const auto n = at(N * hardkeys_per_device + k);
        std::swap(config.hardkeys[r], config.hardkeys[n]);
        std::swap(config.hardkey_labels[r], config.hardkey_labels[n]);
        std::swap(config.hardkey_index[r], config.hardkey_index[n]);
    }
    // The two page blocks pass each other; blocks differ in size. The rows
    // are exchanged already, so the lower row's block now has the other's size.
    const int low = std::min(R, N);
    const int first = pages_before(config, low);
    const int upper_size = config.device_table[at(low)].page_count;
    const int lower_size = config.device_table[at(low + 1)].page_count;
    std::rotate(config.page_table.begin() + first, config.page_table.begin() + first + lower_size,
                config.page_table.begin() + first + lower_size + upper_size);
    exchange_targets(config, R, N, -1);
    follow_home_keys(config);
    renumber_punch_through(config, [R, N](int d) { return d == R ? N : d == N ? R : d; });
    update_softtable(app, slot);
    redraw_windows(app, slot, "HOME", false);
}

}  // namespace tesselo
