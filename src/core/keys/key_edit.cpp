#include "core/keys/key_edit.h"

#include "core/app/application.h"
#include "core/app/clipboards.h"
#include "core/document/ui.h"
#include "core/ir/edit_ir.h"
#include "core/keys/hardkey_pictures.h"
#include "core/keys/key_clipboard.h"
#include "core/keys/key_locator.h"
#include "core/keys/key_refresh.h"
#include "core/keys/key_removal.h"
#include "core/keys/key_selection.h"
#include "core/keys/properties_content.h"
#include "core/tree/edit_state.h"
#include "core/tree/journal.h"
#include "core/tree/selection.h"
#include "core/tree/tree_commands.h"
#include "core/tree/node_keys.h"
#include "core/tree/tree_model.h"

namespace tesselo {

namespace {

KeyClipRecord& key_record(Application& app) { return app.clipboards().key_clipboard[0]; }

std::optional<KeyPlace> place_of(Application& app, const KeyTarget& target)
{
    return locate_key(app.config(target.slot), target.page_key, app.key_selection);
}

bool holds_key(const KeyPlace& place) { return place.kind == kind_hard || place.slot >= 0; }

// The key's picture, its LCD row and the properties window are drawn again.
void refresh_key(Application& app, const KeyTarget& target, const KeyPlace& place)
{
    if (place.kind == kind_hard)
        refresh_hardkey(app, target.slot, place.device, app.key_selection.selected_index);
    else
        app.notify([&](ApplicationListener& l) { l.page_window_changed(target.slot, target.page_key); });
    app.notify([&](ApplicationListener& l) { l.selection_changed(target.slot); });
}

void clipboard_filled(Application& app, int paste_state)
{
    EditState& state = app.edit_state();
    state.clipboard_kind = clipboard_key;
    state.clipboard_source = clipboard_source_key;
    state.paste_state = paste_state;
    state.paste_button = true;
    app.notify([](ApplicationListener& l) { l.edit_states_changed(); });
}

void fill_clipboard(Application& app, const KeyTarget& target, const KeyPlace& place)
{
    copy_key_record(app.config(target.slot), place, target.slot, key_record(app));
}

}  // namespace

bool key_in_clipboard(Application& app)
{
    return app.edit_state().clipboard_kind == clipboard_key && app.edit_state().paste_button;
}

bool copy_key(Application& app, const KeyTarget& target)
{
    const auto place = place_of(app, target);
    if (!place || !holds_key(*place)) return false;
    // A copied key carries its label, as the popup's Copy has it.
    app.selection().drag_mode = drag_move;
    app.write_log("Copy key (start) " + target.page_key);
    fill_clipboard(app, target, *place);
    clipboard_filled(app, 3);
    app.write_log("copy key " + key_log_names(app, target.page_key));
    return true;
}

bool cut_key(Application& app, const KeyTarget& target)
{
    const auto place = place_of(app, target);
    if (!place || !holds_key(*place)) return false;
    WaitCursor wait(app.ui());
    app.selection().drag_mode = drag_move;
    begin_edit(app);
    fill_clipboard(app, target, *place);
    remove_key(app.config(target.slot), *place);
    clipboard_filled(app, 2);
    refresh_key(app, target, *place);
    app.write_log("cut key " + key_log_names(app, target.page_key));
    return true;
}

bool delete_key(Application& app, const KeyTarget& target, bool capture)
{
    const auto place = place_of(app, target);
    if (!place || !holds_key(*place)) return false;
    begin_edit(app);
    if (capture && app.selection().drag_mode == drag_move) {
        fill_clipboard(app, target, *place);
        clipboard_filled(app, 2);
    }
    remove_key(app.config(target.slot), *place);
    refresh_key(app, target, *place);
    app.write_log("delete key " + key_log_names(app, target.page_key));
    return true;
}

bool paste_key(Application& app, const KeyTarget& target)
{
    app.write_log("paste key (start) ");
    Configuration& config = app.config(target.slot);
    KeyClipRecord& record = key_record(app);
    drop_foreign_steps(record, target.slot);
    drop_dangling_steps(config, record);
    switch (paste_refusal(config, record)) {
    case PasteRefusal::none: break;
    case PasteRefusal::document_steps: app.ui().message(title_main, exceed_document_steps, Icon::exclamation); return false;
    case PasteRefusal::learning_memory: app.ui().message(title_main, learning_memory_full, Icon::exclamation); return false;
    case PasteRefusal::ir_storage: app.ui().message(title_alt, ir_store_fault, Icon::exclamation); return false;
    }
    auto place = place_of(app, target);
    if (!place || !softkey_can_be_made(config, *place)) return false;
    begin_edit(app);
    const int mode = app.selection().drag_mode;
    if (!paste_key_record(config, *place, record, mode == drag_move || mode == drag_copy)) return false;
    refresh_key(app, target, *place);
    app.write_log("Paste key " + key_log_names(app, target.page_key));
    return true;
}

void install_key_edit_commands(TreeCommands& commands)
{
    using Operation = bool (*)(Application&, const KeyTarget&);
    const auto on_selected = [](Operation operation) {
        return [operation](Application& app) {
            if (const auto target = selected_key_target(app)) operation(app, *target);
        };
    };
    commands.key_cut = on_selected(cut_key);
    commands.key_copy = on_selected(copy_key);
    commands.key_paste = on_selected(paste_key);
    commands.key_delete = on_selected([](Application& app, const KeyTarget& target) { return delete_key(app, target); });
}

bool edit_entry_enabled(Application& app, const std::string& entry)
{
    const bool paste = entry == "muPaste";
    if (app.selection().selected_kind == TreeSelection::Kind::key) {
        const auto allows = key_edit_enables(app, key_in_clipboard(app));
        if (!allows || !selected_key_target(app)) return false;
        return entry == "muCut" ? allows->cut : entry == "muCopy" ? allows->copy : paste ? allows->paste : allows->remove;
    }
    const Document* doc = app.active();
    if (!doc) return false;
    const TreeCommands& c = app.tree_commands();
    if (paste) return app.edit_state().paste_button && static_cast<bool>(c.paste);
    const TreeModel& tree = app.tree(doc->slot);
    const int node = tree.selected();
    const bool home = tree.valid(node) && (tree.node(node).image == image_home || tree.node(node).key.rfind("HOME", 0) == 0);
    const auto& command = entry == "muCut" ? c.cut : entry == "muCopy" ? c.copy : c.remove;
    return !home && static_cast<bool>(command);
}

bool run_edit_entry(Application& app, const std::string& entry)
{
    TreeCommands& c = app.tree_commands();
    using Member = TreeCommands::Command TreeCommands::*;
    Member tree_path = nullptr;
    bool (*key_path)(Application&, const KeyTarget&) = nullptr;
    if (entry == "muCut") tree_path = &TreeCommands::cut, key_path = cut_key;
    else if (entry == "muCopy") tree_path = &TreeCommands::copy, key_path = copy_key;
    else if (entry == "muPaste") tree_path = &TreeCommands::paste, key_path = paste_key;
    else if (entry == "muDelete")
        tree_path = &TreeCommands::remove, key_path = [](Application& a, const KeyTarget& t) { return delete_key(a, t); };
    else return false;
    if (!edit_entry_enabled(app, entry)) return false;
    if (app.selection().selected_kind == TreeSelection::Kind::key) return key_path(app, *selected_key_target(app));
    (c.*tree_path)(app);
    return true;
}

}  // namespace tesselo
