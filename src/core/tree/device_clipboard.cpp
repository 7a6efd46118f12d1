#include "core/tree/device_clipboard.h"

#include <string>

#include "core/app/application.h"
#include "core/app/clipboards.h"
#include "core/document/ui.h"
#include "core/ir/edit_ir.h"
#include "core/keys/key_behaviours.h"
#include "core/keys/key_edit.h"
#include "core/keys/step_commands.h"
#include "core/model/configuration.h"
#include "core/tree/adding.h"
#include "core/tree/device_removal.h"
#include "core/tree/edit_state.h"
#include "core/tree/hiding.h"
#include "core/tree/journal.h"
#include "core/tree/node_keys.h"
#include "core/tree/selection.h"
#include "core/tree/tree_commands.h"
#include "core/tree/tree_model.h"
#include "core/tree/tree_moves.h"
#include "core/tree/tree_view.h"

namespace tesselo {

namespace {

const std::string source_treeview = "treeview";

std::size_t at(int i) { return static_cast<std::size_t>(i); }

void edit_states_changed(Application& app)
{
    app.notify([](ApplicationListener& l) { l.edit_states_changed(); });
}

void set_paste_state(Application& app, int kind, int paste_state)
{
    EditState& state = app.edit_state();
    state.clipboard_kind = kind;
    state.clipboard_source = source_treeview;
    state.paste_state = paste_state;
    state.paste_button = paste_state != 0;
    edit_states_changed(app);
}

bool is_home_node(const TreeNode& n) { return n.image == image_home || n.key.rfind("HOME", 0) == 0; }

// The device node a tree node stands for: itself, or the parent of its
// properties node or page. 0 for HOME and its nodes.
int device_node_of(const TreeModel& tree, int node)
{
    if (!tree.valid(node) || is_home_node(tree.node(node))) return 0;
    if (is_device_image(tree.node(node).image)) return node;
    const int parent = tree.node(node).parent;
    return tree.valid(parent) && is_device_image(tree.node(parent).image) ? parent : 0;
}

bool refuse(Application& app, PasteRefusal refusal)
{
    switch (refusal) {
    case PasteRefusal::none: return false;
    case PasteRefusal::document_steps: app.ui().message(title_main, exceed_document_steps, Icon::exclamation); break;
    case PasteRefusal::learning_memory: app.ui().message(title_main, learning_memory_full, Icon::exclamation); break;
    case PasteRefusal::ir_storage: app.ui().message(title_alt, ir_store_fault, Icon::exclamation); break;
    }
    return true;
}

// After a removal the node in front of the one that went is selected: the
// page before it or its device, the device before it or HOME.
void select_after_removal(Application& app, int slot, const std::string& previous)
{
    TreeModel& tree = app.tree(slot);
    int node = tree.find(previous);
    if (node == 0 || tree.node(node).image == image_properties) node = tree.valid(node) ? tree.node(node).parent : 1;
    click_node(app, slot, tree.valid(node) ? node : 1);
}

// Fills the new page `page_node` from a page buffer; each label row's move
// is added to `moves`, and the lists the page's keys got to `lists`.
void fill_new_page(Application& app, int slot, int page_node, const PageBuffer& buffer, std::vector<LabelMove>& moves,
                   std::vector<std::int32_t>& lists)
{
    Configuration& config = app.config(slot);
    const std::string& key = app.tree(slot).node(page_node).key;
    const int page_row = page_row_of_key(config, key);
    const int slots_row = page_slots_row_of_key(config, key);
    if (page_row < 0 || slots_row < 0) return;
    fill_page_from_buffer(config, page_row, slots_row, buffer, &moves);
    for (const SoftKey& k : config.device_pages[at(slots_row)].slots) lists.push_back(k.action_list);
}

}  // namespace

bool copy_devicepage(Application& app)
{
    const Document* doc = app.active();
    if (!doc) return false;
    const int slot = doc->slot;
    const TreeModel& tree = app.tree(slot);
    TreeSelection& s = app.selection();
    int node = tree.find(s.node_key);
    if (node == 0) node = tree.selected();
    if (!tree.valid(node) || is_home_node(tree.node(node))) return false;
    const std::string image = tree.node(node).image;
    const Configuration& config = app.config(slot);
    Clipboards& clip = app.clipboards();
    if (is_page_image(image)) {
        const int device = tree.node(node).parent;
        app.write_log("Copy page (start) - " + doc->title);
        if (!copy_pagebuffer(config, tree.node(node).key, slot, clip.page_buffer)) return false;
        app.write_log("Copy page " + tree.node(device).text + "/" + tree.node(node).text + " - " + doc->title);
        set_paste_state(app, clipboard_page, 3);
        return true;
    }
    const int device = device_node_of(tree, node);
    if (device == 0) return false;
    app.write_log("Copy device (start) - " + doc->title);
    if (!copy_devicebuffer(config, device_row_of_key(config, tree.node(device).key), slot, clip.device_buffer)) return false;
    app.write_log("Copy device " + tree.node(device).text + " - " + doc->title);
    set_paste_state(app, clipboard_device, 3);
    return true;
}

bool cut_devicepage(Application& app, int mode)
{
    const Document* doc = app.active();
    if (!doc) return false;
    const int slot = doc->slot;
    const std::string caption = doc->title;
    TreeModel& tree = app.tree(slot);
    const int node = tree.selected();
    const int device = device_node_of(tree, node);
    if (device == 0) return false;
    const bool cut = mode == cut_mode_cut;
    Configuration& config = app.config(slot);
    Clipboards& clip = app.clipboards();
    app.selection().image = tree.node(node).image;
    app.selection().node_key = tree.node(node).key;
    begin_edit(app);
    WaitCursor wait(app.ui());
    app.edit_state().clipboard_source = source_treeview;

    // A device always has a page: its only page takes the device with it.
    if (is_page_image(tree.node(node).image) && tree.child_count(device) > 2) {
        const std::string device_text = tree.node(device).text;
        const std::string page_text = tree.node(node).text;
        const int before = tree.previous_sibling(node);
        const std::string previous = before ? tree.node(before).key : tree.node(device).key;
        app.write_log((cut ? "cut page(start) " : "delete page(start) ") + caption);
        if (cut) copy_pagebuffer(config, tree.node(node).key, slot, clip.page_buffer);
        delete_page(app, slot, node);
        app.write_log((cut ? "cut page " : "delete page ") + device_text + "/" + page_text + " - " + caption);
        set_paste_state(app, cut ? clipboard_page : app.edit_state().clipboard_kind, cut ? 2 : 0);
        select_after_removal(app, slot, previous);
        return true;
    }
    const std::string key = tree.node(device).key;
    const std::string text = tree.node(device).text;
    const int before = tree.previous_sibling(device);
    const std::string previous = before ? tree.node(before).key : tree.node(1).key;
    app.write_log((cut ? "cut device(start) " : "delete device(start) ") + std::to_string(slot));
    if (cut) copy_devicebuffer(config, device_row_of_key(config, key), slot, clip.device_buffer);
    delete_device(app, slot, key);
    app.write_log((cut ? "cut device " : "Delete device ") + text + " - " + caption);
    set_paste_state(app, cut ? clipboard_device : app.edit_state().clipboard_kind, cut ? 2 : 0);
    select_after_removal(app, slot, previous);
    return true;
}

bool paste_devicepage(Application& app)
{
    EditState& state = app.edit_state();
    if (state.clipboard_kind == clipboard_device) return paste_device(app);
    const Document* doc = app.active();
    if (!doc || state.clipboard_kind != clipboard_page) return false;
    const int slot = doc->slot;
    const TreeModel& tree = app.tree(slot);
    // Only a page may be pasted on a device: the selected one, or the selected page's.
    const int device = device_node_of(tree, tree.selected());
    if (device == 0) return false;
    Configuration& config = app.config(slot);
    PageBuffer buffer = app.clipboards().page_buffer;
    const bool foreign = buffer.slots[0].record.clip_source_document != slot;
    drop_foreign_links(buffer, foreign);
    // In its own document the page's jumps and links keep their targets, and
    // those into the page itself, when it was cut, follow it behind the pages
    // of the device it lands on.
    OwnPlaces own;
    if (!foreign) {
        own.device_row = device_row_of_key(config, tree.node(device).key);
        own.page_keys = {buffer.page_key};
        own.page_places = {own.device_row > 0 ? config.device_table[at(own.device_row)].page_count : 0};
        aim_buffer_targets(config, buffer, own);
    }
    PasteNeeds needs;
    add_paste_needs(config, buffer, needs);
    if (refuse(app, needs.refusal(config, action_steps_accepted))) return false;
    if (count_allpages(tree) > 127 || label_rows_needed(buffer) > label_rows_free(config)) {
        app.ui().message(title_alt, exceed_devices_pages, Icon::exclamation);
        return false;
    }
    app.write_log("paste page(start) - " + doc->title);
    begin_edit(app);
    const int page = addpage(app, add_page_paste, device);
    if (page == 0) return false;
    std::vector<LabelMove> moves;
    std::vector<std::int32_t> lists;
    fill_new_page(app, slot, page, buffer, moves, lists);
    if (!foreign) relink_own_keys(config, lists, own, moves);
    const TreeModel& after = app.tree(slot);
    app.write_log("paste page " + after.node(after.node(page).parent).text + "/" + after.node(page).text + " - " +
                  doc->title);
    app.notify([slot](ApplicationListener& l) { l.tree_changed(slot); });
    return true;
}

bool room_for_devices(Application& app, int slot, int devices, int pages, int labels)
{
    const Configuration& config = app.config(slot);
    return count_allpages(app.tree(slot)) + pages <= 127 && device_count(config) + devices <= max_devices &&
           labels <= label_rows_free(config);
}

int add_device_from_buffer(Application& app, int slot, const DeviceBuffer& buffer, const OwnPlaces* own)
{
    Configuration& config = app.config(slot);
    TreeModel& tree = app.tree(slot);
    AddDevice(app, add_device_paste, &buffer.name);
    const int row = device_count(config);
    const int node = tree.find(config.device_name_table[at(row)].node_key);
    if (node == 0) return 0;
    std::vector<LabelMove> moves;
    std::vector<std::int32_t> lists;
    for (const PageBuffer& page : buffer.pages) {
        const int page_node = addpage(app, add_page_paste, node);
        if (page_node == 0) break;
        fill_new_page(app, slot, page_node, page, moves, lists);
    }
    fill_hardkeys_from_buffer(config, row, buffer);
    if (own) {
        for (int k = 0; k < hardkeys_per_device; ++k) lists.push_back(config.hardkeys[at(row * hardkeys_per_device + k)].action_list);
        relink_own_keys(config, lists, *own, moves);
    }
    // A pasted device is never hidden.
    config.device_table[at(row)].hidden = 0;
    // Its hard keys with steps play them, where others are punched through.
    keep_own_steps_unpunched(config, row);
    return row;
}

bool paste_device(Application& app)
{
    const Document* doc = app.active();
    if (!doc) return false;
    const int slot = doc->slot;
    const std::string caption = doc->title;
    Configuration& config = app.config(slot);
    TreeModel& tree = app.tree(slot);
    DeviceBuffer buffer = app.clipboards().device_buffer;
    if (!room_for_devices(app, slot, 1, static_cast<int>(buffer.pages.size()), label_rows_needed(buffer))) {
        app.ui().message(title_alt, exceed_devices_pages, Icon::exclamation);
        return false;
    }
    const bool foreign = buffer.source_document != slot;
    drop_foreign_links(buffer, foreign);
    // In its own document the device's jumps and links keep their targets,
    // and those into the device itself, when it was cut, follow it to the
    // row it lands on, the last.
    OwnPlaces own;
    if (!foreign) {
        own.device_key = buffer.device_key;
        own.device_row = device_count(config) + 1;
        for (std::size_t p = 0; p < buffer.pages.size(); ++p) {
            own.page_keys.push_back(buffer.pages[p].page_key);
            own.page_places.push_back(static_cast<int>(p));
        }
        aim_buffer_targets(config, buffer, own);
    }
    PasteNeeds needs;
    add_paste_needs(config, buffer, needs);
    needs.steps += 1;  // the HOME key's jump
    if (refuse(app, needs.refusal(config, action_steps_accepted))) return false;

    app.write_log("paste device(start) - " + caption);
    begin_edit(app);
    const int row = add_device_from_buffer(app, slot, buffer, foreign ? nullptr : &own);
    if (row == 0) return false;
    // A key it owned as punched through in this document is its own again,
    // where no other device took it since.
    if (!foreign)
        for (int k = 0; k < hardkeys_per_device; ++k)
            if (buffer.punch_owned[at(k)] && config.punch_through[at(k)][0] == free_byte) own_punch_through(config, k, row);
    update_softtable(app, slot);
    app.notify([slot](ApplicationListener& l) { l.tree_changed(slot); });
    app.write_log("paste device " + tree.node(tree.find(config.device_name_table[at(row)].node_key)).text + " - " +
                  caption);
    return true;
}

void install_tree_edit_commands(TreeCommands& commands)
{
    commands.cut = [](Application& app) { cut_devicepage(app, cut_mode_cut); };
    commands.remove = [](Application& app) { cut_devicepage(app, cut_mode_delete); };
    commands.copy = [](Application& app) { copy_devicepage(app); };
    commands.paste = [](Application& app) { paste_devicepage(app); };
    commands.move_up = [](Application& app) { Move_treeviewup(app); };
    commands.move_down = [](Application& app) { Move_treeviewdown(app); };
    commands.hide_device = [](Application& app) { hide_device(app); };
    commands.hide_page = [](Application& app) { hide_page(app); };
}

}  // namespace tesselo
