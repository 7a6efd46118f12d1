// Script operations of the tree: open, select, popup, add-device, add-page,
// move-up, move-down, hide, drag, undo, redo, dump and tree.
#include <fstream>
#include <optional>

#include "app/cli/document_json.h"
#include "app/cli/script_runner.h"
#include "core/document/open_command.h"
#include "core/tree/adding.h"
#include "core/tree/journal.h"
#include "core/tree/popup_menu.h"
#include "core/tree/tree_drag.h"
#include "core/tree/tree_model.h"
#include "core/tree/tree_view.h"

namespace tesselo::cli {

namespace {

LineResult refused_unless(bool done) { return done ? LineResult::done : LineResult::refused; }

// A popup item of the selected node, refused as the greyed item would be, or
// on a node without a menu.
LineResult popup_item(CliContext& ctx, const std::string& key)
{
    if (!ctx.app.active()) return LineResult::bad_line;
    for (const auto& item : build_popup(ctx.app, ctx.app.active()->slot))
        if (item.type != popup_divider && item.key == key) {
            if (item.state == popup_greyed) return LineResult::refused;
            cPopup1_ItemClick(ctx.app, item.key);
            return LineResult::done;
        }
    return LineResult::refused;
}

std::optional<int> parse_slot(const std::string& word)
{
    if (word.size() != 1 || word[0] < '0' || word[0] > '9') return std::nullopt;
    return word[0] - '0';
}

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
        return popup_item(ctx, args[0]);
    };
    ops["move-up"] = [](CliContext& ctx, const ScriptArgs& args) {
        return args.empty() ? popup_item(ctx, "Move Up") : LineResult::bad_line;
    };
    ops["move-down"] = [](CliContext& ctx, const ScriptArgs& args) {
        return args.empty() ? popup_item(ctx, "Move Down") : LineResult::bad_line;
    };
    ops["hide"] = [](CliContext& ctx, const ScriptArgs& args) {
        if (!args.empty() || !ctx.app.active()) return LineResult::bad_line;
        const LineResult device = popup_item(ctx, "Hide Device");
        return device == LineResult::done ? device : popup_item(ctx, "Hide Page");
    };
    ops["drag"] = [](CliContext& ctx, const ScriptArgs& args) {
        if (args.empty() || args.size() > 2 || !ctx.app.active()) return LineResult::bad_line;
        const int source_slot = ctx.app.active()->slot;
        int target_slot = source_slot;
        if (args.size() == 2) {
            const auto slot = parse_slot(args[1]);
            if (!slot) return LineResult::bad_line;
            target_slot = *slot;
        }
        if (ctx.app.document_of_slot(target_slot) < 0) return LineResult::bad_line;
        const int source = ctx.app.tree(source_slot).selected();
        const int target = ctx.app.tree(target_slot).find(args[0]);
        if (target == 0) return LineResult::bad_line;
        return refused_unless(drag_treeview(ctx.app, source_slot, source, target_slot, target));
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
