// Script operations of the key clipboard and the canvas's drags: focus, cut,
// copy, paste, delete and drag-key.
#include "app/cli/script_runner.h"
#include "app/cli/script_targets.h"
#include "core/keys/key_drag.h"
#include "core/keys/key_edit.h"
#include "core/keys/page_canvas.h"
#include "core/tree/selection.h"
#include "core/tree/tree_model.h"

namespace tesselo::cli {

namespace {

// The Edit menu's entry; a greyed one (Paste after Delete, Cut of the title
// row, ...) is refused as the editor greys it.
ScriptOperation edit_entry(const std::string& entry, const std::string& caption)
{
    return [entry, caption](CliContext& ctx, const ScriptArgs& args) {
        if (!args.empty() || !ctx.app.active()) return LineResult::bad_line;
        if (!edit_entry_enabled(ctx.app, entry)) return greyed(ctx, "the Edit menu's " + caption + " is greyed here");
        return run_edit_entry(ctx.app, entry) ? LineResult::done : LineResult::refused;
    };
}

int drag_mode_word(const std::string& word)
{
    if (word == "move") return drag_move;
    if (word == "copy") return drag_copy;
    if (word == "action") return drag_action;
    if (word == "link") return drag_link;
    return -1;
}

}  // namespace

void add_key_operations(ScriptOperations& ops)
{
    ops["focus"] = [](CliContext& ctx, const ScriptArgs& args) {
        if (args.size() != 1 || !ctx.app.active()) return LineResult::bad_line;
        TreeSelection& s = ctx.app.selection();
        if (args[0] == "tree") {
            if (ctx.app.tree(ctx.app.active()->slot).selected() == 0) return LineResult::refused;
            s.selected_kind = TreeSelection::Kind::node;
            return LineResult::done;
        }
        if (args[0] != "key") return LineResult::bad_line;
        if (!key_target(ctx)) return LineResult::refused;
        s.selected_kind = TreeSelection::Kind::key;
        return LineResult::done;
    };
    ops["cut"] = edit_entry("muCut", "Cut");
    ops["copy"] = edit_entry("muCopy", "Copy");
    ops["paste"] = edit_entry("muPaste", "Paste");
    ops["delete"] = edit_entry("muDelete", "Delete");
    ops["drag-key"] = [](CliContext& ctx, const ScriptArgs& args) {
        const auto source = key_target(ctx);
        if (!source || args.size() < 3) return LineResult::bad_line;
        const int mode = drag_mode_word(args[0]);
        const int picture = key_picture(args, 1);
        if (mode < 0 || picture < 0) return LineResult::bad_line;
        const int from = ctx.app.key_selection.selected_index;
        const auto page = find_page(ctx.app.config(source->slot), source->page_key);
        // A drag never starts from a locked picture, nor a move from the title row.
        if (!page || !drag_starts(page->home, from, mode)) return LineResult::refused;
        return drop_key(ctx.app, {*source, from}, {*source, picture}, mode) ? LineResult::done : LineResult::refused;
    };
}

}  // namespace tesselo::cli
