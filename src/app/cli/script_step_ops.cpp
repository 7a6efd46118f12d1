// Script operations of a key's steps: key, add-delay, add-beep, add-jump,
// add-link, edit-step, delete-step, step-up, step-down and steps.
#include "app/cli/script_runner.h"
#include "app/cli/script_targets.h"
#include "core/keys/delay_beep_dialogs.h"
#include "core/keys/hardkey_pictures.h"
#include "core/keys/ir_step_names.h"
#include "core/keys/jump_dialog.h"
#include "core/keys/link_dialog.h"
#include "core/keys/properties_content.h"
#include "core/keys/step_commands.h"
#include "core/tree/selection.h"

namespace tesselo::cli {

namespace {

LineResult dialog_result(DialogOk outcome)
{
    return outcome == DialogOk::done || outcome == DialogOk::no_step ? LineResult::done : LineResult::refused;
}

// Types a text into a duration field, key by key, and leaves the field.
template <typename Dialog>
void type_duration(CliContext& ctx, Dialog& dialog, const std::string& text)
{
    dialog.Text1.clear();
    for (char c : text) dialog.key_press(c);
    dialog.leave_field(ctx.ui);
}

// A refused value leaves the dialog open; the script then closes it.
template <typename Dialog>
LineResult close_after(CliContext& ctx, DialogOk outcome)
{
    if (outcome == DialogOk::refused || outcome == DialogOk::limit) Dialog::cancel(ctx.app);
    return dialog_result(outcome);
}

LineResult add_link(CliContext& ctx, const KeyTarget& target, const std::string& node, int list_choice = -1)
{
    CreateLink dialog(ctx.app, target.slot, target.page_key, ctx.app.key_selection);
    return close_after<CreateLink>(ctx, dialog.ok(ctx.app, target, node, list_choice));
}

using RowButton = bool (*)(Application&, const KeyTarget&, int);

ScriptOperation row_button(RowButton button)
{
    return [button](CliContext& ctx, const ScriptArgs& args) {
        const StepKey selected = step_key(ctx);
        const auto& target = selected.target;
        const int row = args.size() == 1 ? number_in(args[0], 1, steps_per_list) : -1;
        if (!target) return selected.refusal;
        if (row < 0) return LineResult::bad_line;
        return button(ctx.app, *target, row) ? LineResult::done : LineResult::refused;
    };
}

}  // namespace

void add_step_operations(ScriptOperations& ops)
{
    ops["key"] = [](CliContext& ctx, const ScriptArgs& args) {
        const auto target = page_target(ctx);
        const int picture = key_picture(args, 0);
        if (!target || picture < 0) return LineResult::bad_line;
        select_key(ctx.app, picture);
        load_step_rows(ctx.app, *target, LibraryStepNames(ctx.app.home(), &ctx.app.my_database()));
        return LineResult::done;
    };
    ops["add-delay"] = [](CliContext& ctx, const ScriptArgs& args) {
        const StepKey selected = step_key(ctx);
        const auto& target = selected.target;
        if (!target) return selected.refusal;
        if (args.size() != 1) return LineResult::bad_line;
        Delaytime dialog(ctx.app.step_edit);
        type_duration(ctx, dialog, args[0]);
        return close_after<Delaytime>(ctx, dialog.ok(ctx.app, *target));
    };
    ops["add-beep"] = [](CliContext& ctx, const ScriptArgs& args) {
        const StepKey selected = step_key(ctx);
        const auto& target = selected.target;
        const int slider = args.size() == 2 ? number_in(args[1], Addbeep::slider_min, Addbeep::slider_max) : -1;
        if (!target) return selected.refusal;
        if (slider < 0) return LineResult::bad_line;
        Addbeep dialog(ctx.app.step_edit);
        dialog.move_slider(slider);
        type_duration(ctx, dialog, args[0]);
        return close_after<Addbeep>(ctx, dialog.ok(ctx.app, *target));
    };
    ops["add-jump"] = [](CliContext& ctx, const ScriptArgs& args) {
        const StepKey selected = step_key(ctx);
        const auto& target = selected.target;
        if (!target) return selected.refusal;
        if (args.size() != 1) return LineResult::bad_line;
        Createjump dialog(ctx.app, target->slot, target->page_key);
        return close_after<Createjump>(ctx, dialog.ok(ctx.app, *target, args[0]));
    };
    ops["add-link"] = [](CliContext& ctx, const ScriptArgs& args) {
        const StepKey selected = step_key(ctx);
        const auto& target = selected.target;
        if (!target) return selected.refusal;
        if (args.size() < 3) return LineResult::bad_line;
        if (args[0] == "hard" && args.size() == 3) {
            const int picture = number_in(args[2], 0, key_pictures - 1);
            const int key = picture < 0 ? -1 : check_hardkeyindex(picture);
            if (key < 0) return LineResult::bad_line;
            return add_link(ctx, *target, CreateLink::hardkey_node_key(args[1], key));
        }
        if (args[0] == "soft" && (args.size() == 3 || (args.size() == 4 && args[3] == "left"))) {
            const int row = number_in(args[2], 0, 5);
            if (row < 0) return LineResult::bad_line;
            const int position = row + (args.size() == 4 ? 128 : 0);
            return add_link(ctx, *target, position == 0 ? args[1] : CreateLink::softkey_node_key(args[1], position));
        }
        return LineResult::bad_line;
    };
    ops["edit-step"] = [](CliContext& ctx, const ScriptArgs& args) {
        const StepKey selected = step_key(ctx);
        const auto& target = selected.target;
        const int row = args.size() == 1 ? number_in(args[0], 1, steps_per_list) : -1;
        if (!target) return selected.refusal;
        if (row < 0) return LineResult::bad_line;
        return begin_step_edit(ctx.app, *target, row) >= 0 ? LineResult::done : LineResult::bad_line;
    };
    ops["delete-step"] = row_button(DeleteBt);
    ops["step-up"] = row_button(MoveUPBt);
    ops["step-down"] = row_button(MoveDownBt);
    ops["steps"] = [](CliContext& ctx, const ScriptArgs& args) {
        const auto target = key_target(ctx);
        if (!target || !args.empty()) return LineResult::bad_line;
        const LibraryStepNames names(ctx.app.home(), &ctx.app.my_database());
        // The list as the Action tab shows it: a punched key's "Punch from " row.
        const auto rows = selected_key_target(ctx.app) ? properties_content(ctx.app, names).action.rows
                                                       : load_step_rows(ctx.app, *target, names);
        for (const auto& row : rows) ctx.output << row.text << '\n';
        return LineResult::done;
    };
}

}  // namespace tesselo::cli
