// Script operations of the tree: open, select, popup, add-device, add-page,
// undo, redo, dump and tree.
#include <fstream>

#include "app/cli/document_json.h"
#include "app/cli/script_runner.h"
#include "core/document/open_command.h"
#include "core/tree/adding.h"
#include "core/tree/journal.h"
#include "core/tree/popup_menu.h"
#include "core/tree/tree_model.h"
#include "core/tree/tree_view.h"

namespace tesselo::cli {

namespace {

LineResult refused_unless(bool done) { return done ? LineResult::done : LineResult::refused; }

// An operation on the active document's tree, without arguments.
ScriptOperation on_active(void (*operation)(Application&))
{
    return [operation](CliContext& ctx, const ScriptArgs& args) {
        if (!args.empty() || !ctx.app.active()) return LineResult::bad_line;
        operation(ctx.app);
        return LineResult::done;
    };
}

}  // namespace

void add_tree_operations(ScriptOperations& ops)
{
    ops["open"] = [](CliContext& ctx, const ScriptArgs& args) {
        if (args.size() != 1) return LineResult::bad_line;
        ctx.ui.queue_answer_first("file:" + args[0]);
        return refused_unless(muOpen(ctx.app) >= 0);
    };
    ops["select"] = [](CliContext& ctx, const ScriptArgs& args) {
        if (args.size() != 1 || !ctx.app.active()) return LineResult::bad_line;
        const int slot = ctx.app.active()->slot;
        const int node = ctx.app.tree(slot).find(args[0]);
        if (node == 0) return LineResult::bad_line;
        click_node(ctx.app, slot, node);
        return LineResult::done;
    };
    ops["popup"] = [](CliContext& ctx, const ScriptArgs& args) {
        if (args.size() != 1 || !ctx.app.active()) return LineResult::bad_line;
        // Refused as the greyed item would be, or a node without a menu.
        for (const auto& item : build_popup(ctx.app, ctx.app.active()->slot))
            if (item.type != popup_divider && item.key == args[0]) {
                if (item.state == popup_greyed) return LineResult::refused;
                cPopup1_ItemClick(ctx.app, item.key);
                return LineResult::done;
            }
        return LineResult::refused;
    };
    ops["add-device"] = on_active(muInsertdevice);
    ops["add-page"] = on_active(muInsertPage);
    ops["undo"] = [](CliContext& ctx, const ScriptArgs& args) {
        if (!args.empty()) return LineResult::bad_line;
        muUndo_Click(ctx.app);
        return LineResult::done;
    };
    ops["redo"] = [](CliContext& ctx, const ScriptArgs& args) {
        if (!args.empty()) return LineResult::bad_line;
        muRedo_Click(ctx.app);
        return LineResult::done;
    };
    ops["dump"] = [](CliContext& ctx, const ScriptArgs& args) {
        if (args.size() != 1 || !ctx.app.active()) return LineResult::bad_line;
        std::ofstream out(args[0]);
        if (!out) return LineResult::refused;
        out << document_json(ctx.app, ctx.app.active_document()).dump() << '\n';
        return refused_unless(static_cast<bool>(out));
    };
    ops["tree"] = [](CliContext& ctx, const ScriptArgs& args) {
        if (!args.empty() || !ctx.app.active()) return LineResult::bad_line;
        print_tree(ctx.app, ctx.app.active()->slot, ctx.output);
        return LineResult::done;
    };
}

}  // namespace tesselo::cli
