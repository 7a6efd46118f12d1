#include "core/keys/key_drag.h"

#include "core/app/application.h"
#include "core/app/clipboards.h"
#include "core/document/ui.h"
#include "core/keys/hardkey_pictures.h"
#include "core/keys/key_clipboard.h"
#include "core/keys/key_edit.h"
#include "core/keys/key_locator.h"
#include "core/keys/key_selection.h"
#include "core/keys/link_dialog.h"
#include "core/keys/page_canvas.h"
#include "core/tree/journal.h"
#include "core/tree/selection.h"
#include "core/tree/tree_model.h"
#include "core/tree/tree_view.h"

namespace tesselo {

namespace {

bool is_title_row(int picture) { return picture == first_side_button || picture == first_side_button + 1; }

bool home_page(Application& app, const KeyEnd& end)
{
    const auto page = find_page(app.config(end.page.slot), end.page.page_key);
    return page && page->home;
}

// The selection moves to a key as a click on it does: its document is the
// active one, its page the tree's selected node.
void select_end(Application& app, const KeyEnd& end)
{
    const int document = app.document_of_slot(end.page.slot);
    if (document >= 0 && document != app.active_document()) app.activate(document);
    const int node = app.tree(end.page.slot).find(end.page.page_key);
    if (node != 0) click_node(app, end.page.slot, node);
    select_key(app, end.picture);
}

std::optional<KeyPlace> place_at(Application& app, const KeyEnd& end)
{
    KeySelection s;
    s.select_picture(end.picture);
    return locate_key(app.config(end.page.slot), end.page.page_key, s);
}

std::string end_names(Application& app, const KeyEnd& end)
{
    select_end(app, end);
    return key_log_names(app, end.page.page_key);
}

// A move takes the key away before it is written again: everything that
// could refuse the paste is asked first, so the key is never lost.
bool move_fits(Application& app, const KeyEnd& source, const KeyEnd& target, const KeyPlace& from)
{
    const Configuration& config = app.config(target.page.slot);
    const auto to = place_at(app, target);
    if (!to) return false;
    const bool same_page = source.page.slot == target.page.slot && source.page.page_key == target.page.page_key;
    // The source's own slot frees room on its page for the key made at the target.
    if (!softkey_can_be_made(config, *to) && !(same_page && from.kind == kind_soft)) return false;
    if (to->home && to->kind == kind_soft) return false;
    if (source.page.slot == target.page.slot) return true;
    KeyClipRecord record;
    copy_key_record(app.config(source.page.slot), from, source.page.slot, record);
    drop_foreign_steps(record, target.page.slot);
    drop_dangling_steps(config, record);
    return paste_refusal(config, record) == PasteRefusal::none;
}

bool drop_link(Application& app, const KeyEnd& source, const KeyEnd& target)
{
    app.write_log("Drag link(start) - " + target.page.page_key);
    Configuration& config = app.config(target.page.slot);
    if (config.action_steps.step_total > action_steps_accepted - 1) {
        app.ui().message(title_main, exceed_document_steps, Icon::exclamation);
        return false;
    }
    // The link names the source in the target's document: a key of another
    // document has no numbers there.
    const auto from = place_at(app, source);
    if (!from || source.page.slot != target.page.slot) return false;
    StepFields fields;
    fields.step_type = step_link;
    fields.param_low = static_cast<std::uint8_t>(from->device);
    if (from->kind == kind_hard) {
        const int key = from->hard_entry % hardkeys_per_device;
        fields.param_high = free_byte;
        fields.value = static_cast<std::uint16_t>(key + 1);
        fields.extra = static_cast<std::uint8_t>(key + 1);
    } else {
        // The soft key's number is its label entry; the title row's key has
        // none (its label is the device's name), so it is no key to link to.
        const SoftKey* key = softkey_at(app.config(source.page.slot), *from);
        if (!key || key->label_index == no_index) {
            app.ui().message(title_main, no_key_linkable, Icon::exclamation);
            return false;
        }
        fields.param_high = static_cast<std::uint8_t>(from->page_row - pages_before(config, from->device));
        fields.value = static_cast<std::uint16_t>(key->label_index);
        fields.extra = key->position;
    }
    select_end(app, target);
    const auto to = place_at(app, target);
    if (!to || !softkey_can_be_made(config, *to)) return false;
    if (key_step_count(config, *to) > steps_per_list - 1) {
        app.ui().message(create_link_title, exceed_key_steps, Icon::exclamation);
        return false;
    }
    begin_edit(app);
    if (append_step(app, target.page, fields, create_link_title) < 0) return false;
    app.notify([&](ApplicationListener& l) { l.page_window_changed(target.page.slot, target.page.page_key); });
    app.notify([&](ApplicationListener& l) { l.selection_changed(target.page.slot); });
    return true;
}

}  // namespace

int drag_mode_of_shift(int shift)
{
    switch (shift) {
    case shift_shift_alt: return drag_link;
    case shift_alt: return drag_action;
    case shift_ctrl: return drag_copy;
    default: return drag_move;
    }
}

bool drag_locked(bool home, int picture)
{
    if (picture < 0 || picture >= key_pictures) return true;
    if (picture >= 15 && picture <= 17) return true;
    return home && (picture >= 18 || picture <= 2);
}

bool drag_starts(bool home, int picture, int mode)
{
    return !drag_locked(home, picture) && !(mode == drag_move && is_title_row(picture));
}

bool drop_key(Application& app, const KeyEnd& source, const KeyEnd& target, int mode)
{
    if (source.page.slot == target.page.slot && source.page.page_key == target.page.page_key &&
        source.picture == target.picture)
        return false;
    if (drag_locked(home_page(app, source), source.picture) || drag_locked(home_page(app, target), target.picture))
        return false;
    const auto from = place_at(app, source);
    if (!from) return false;
    app.selection().drag_mode = mode;
    bool done = false;
    const char* word = "copy";
    switch (mode) {
    case drag_move: {
        word = "move";
        app.write_log("Drag move(start) - " + target.page.page_key);
        if (is_title_row(source.picture) || is_title_row(target.picture)) return false;
        const bool holds = from->kind == kind_hard || from->slot >= 0;
        if (!holds || (from->home && from->kind == kind_soft) || !move_fits(app, source, target, *from)) return false;
        select_end(app, source);
        if (!delete_key(app, source.page, true)) return false;
        select_end(app, target);
        done = paste_key(app, target.page);
        break;
    }
    case drag_copy:
    case drag_action: {
        if (mode == drag_copy) app.write_log("Drag copy (start) ");
        else app.write_log("Drag action(start) - " + target.page.page_key);
        word = mode == drag_copy ? "copy" : "action";
        if (from->kind == kind_soft && from->slot < 0) return false;
        const auto to = place_at(app, target);
        if (!to || (to->home && to->kind == kind_soft)) return false;
        select_end(app, source);
        copy_key_record(app.config(source.page.slot), *from, source.page.slot, app.clipboards().key_clipboard[0]);
        select_end(app, target);
        done = paste_key(app, target.page);
        break;
    }
    case drag_link: word = "link"; done = drop_link(app, source, target); break;
    default: return false;
    }
    if (!done) return false;
    const std::string from_names = end_names(app, source);
    const std::string to_names = end_names(app, target);
    app.write_log(std::string("Drag(") + word + ") from " + from_names + " to " + to_names);
    return true;
}

}  // namespace tesselo
