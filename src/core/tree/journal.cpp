#include "core/tree/journal.h"

#include <utility>

#include "core/app/application.h"
#include "core/tree/edit_state.h"
#include "core/tree/selection.h"
#include "core/tree/tree_view.h"

namespace tesselo {

Journal::Journal()
{
    for (auto* side : {&undo, &redo})
        for (auto& s : side->snapshot) s = std::make_unique<Configuration>();
}

void restore_document_tables(Configuration& to, const Configuration& from)
{
    const auto keys = to.learning_keys;
    const auto pointers = to.section_pointers;
    to = from;
    to.learning_keys = keys;
    to.section_pointers = pointers;
}

namespace {

void edit_states_changed(Application& app)
{
    app.notify([](ApplicationListener& l) { l.edit_states_changed(); });
}

// Records `document`'s tables as the newest snapshot of `side`; a full
// journal forgets its oldest slot silently.
void record(Journal::Side& side, Configuration& document_tables, int document)
{
    if (side.count <= Journal::depth) ++side.count;
    if (side.count > Journal::depth) {
        // Rotating the storage drops the oldest without copying four slots.
        for (int i = 1; i < Journal::depth; ++i) {
            std::swap(side.snapshot[static_cast<std::size_t>(i - 1)], side.snapshot[static_cast<std::size_t>(i)]);
            side.document[static_cast<std::size_t>(i - 1)] = side.document[static_cast<std::size_t>(i)];
        }
        side.count = Journal::depth;
    }
    const auto at = static_cast<std::size_t>(side.count - 1);
    side.document[at] = static_cast<std::int16_t>(document);
    *side.snapshot[at] = document_tables;
}

int active_slot(Application& app)
{
    const Document* doc = app.active();
    return doc ? doc->slot : -1;
}

std::string active_caption(Application& app)
{
    const Document* doc = app.active();
    return doc ? doc->title : std::string{};
}

// Whether the newest snapshot of `side` belongs to an open document.
bool newest_is_open(Application& app, const Journal::Side& side)
{
    return side.count > 0 && app.document_of_slot(side.document[static_cast<std::size_t>(side.count - 1)]) >= 0;
}

// Takes the snapshots of document slot `slot` out of `side`, the others
// moving up in their order; the storage of the dropped ones goes behind them.
void drop_slot(Journal::Side& side, int slot)
{
    int kept = 0;
    for (int i = 0; i < side.count; ++i) {
        const auto from = static_cast<std::size_t>(i);
        if (side.document[from] == slot) continue;
        const auto to = static_cast<std::size_t>(kept++);
        if (to != from) {
            std::swap(side.snapshot[to], side.snapshot[from]);
            side.document[to] = side.document[from];
        }
    }
    side.count = static_cast<std::uint8_t>(kept);
}

// Undo and redo share every step but the journal they take from.
void restore(Application& app, Journal::Side& from, bool undo)
{
    EditState& state = app.edit_state();
    if (!newest_is_open(app, from)) {
        (undo ? state.undo_menu : state.redo_menu) = false;
        edit_states_changed(app);
        return;
    }
    const auto newest = static_cast<std::size_t>(from.count - 1);
    const int document = from.document[newest];
    if (undo) record_redorecord(app);
    else record_undorecord(app);
    app.write_log(std::string(undo ? "undo(start) - " : "redo(start) - ") + active_caption(app));
    // The journal's other side has just recorded, so newest still names this slot.
    restore_document_tables(app.config(document), *from.snapshot[newest]);
    --from.count;
    if (from.count == 0) (undo ? state.undo_button : state.redo_button) = false;

    rebuild_tree_from_tables(app, document);
    sync_page_windows(app, document);
    if (app.selection().selected_kind != TreeSelection::Kind::key) show_selected_node(app, document);
    else app.notify([document](ApplicationListener& l) { l.selection_changed(document); });

    // The clipboard may refer to what has just gone.
    state.clipboard_kind = 0;
    state.paste_state = 0;
    state.paste_button = false;
    edit_states_changed(app);
    app.write_log(std::string(undo ? "undo - " : "redo - ") + active_caption(app));
}

}  // namespace

void record_undorecord(Application& app)
{
    Journal& j = app.journal();
    int document = active_slot(app);
    // During redo the snapshot concerns the document that redo is about to change.
    if (j.redo.count > 0) document = j.redo.document[static_cast<std::size_t>(j.redo.count - 1)];
    if (document < 0) return;
    record(j.undo, app.config(document), document);
    app.edit_state().undo_button = true;
    app.edit_state().undo_menu = true;
    edit_states_changed(app);
}

void record_redorecord(Application& app)
{
    Journal& j = app.journal();
    int document = active_slot(app);
    if (j.undo.count > 0) document = j.undo.document[static_cast<std::size_t>(j.undo.count - 1)];
    if (document < 0) return;
    record(j.redo, app.config(document), document);
    app.edit_state().redo_button = true;
    app.edit_state().redo_menu = true;
    edit_states_changed(app);
}

void begin_edit(Application& app)
{
    record_undorecord(app);
    app.journal().redo.count = 0;
    app.edit_state().redo_button = false;
    edit_states_changed(app);
}

void forget_document(Application& app, int slot)
{
    Journal& j = app.journal();
    drop_slot(j.undo, slot);
    drop_slot(j.redo, slot);
    EditState& state = app.edit_state();
    state.undo_button = j.undo.count > 0;
    state.redo_button = j.redo.count > 0;
    edit_states_changed(app);
}

bool undo_enabled(Application& app) { return app.edit_state().undo_button && newest_is_open(app, app.journal().undo); }

bool redo_enabled(Application& app) { return app.edit_state().redo_button && newest_is_open(app, app.journal().redo); }

void muUndo_Click(Application& app) { restore(app, app.journal().undo, true); }

void muRedo_Click(Application& app) { restore(app, app.journal().redo, false); }

}  // namespace tesselo
