#include "core/keys/step_commands.h"

#include "core/app/application.h"
#include "core/document/ui.h"
#include "core/keys/key_error.h"
#include "core/keys/key_locator.h"
#include "core/keys/step_text.h"
#include "core/model/action_chain.h"
#include "core/tree/journal.h"
#include "core/tree/selection.h"

namespace tesselo {

namespace {

std::optional<KeyPlace> selected_place(Application& app, const KeyTarget& target)
{
    return locate_key(app.config(target.slot), target.page_key, app.key_selection);
}

}  // namespace

std::string key_log_names(const Application& app, const std::string& page_key)
{
    const auto& s = app.key_selection;
    return page_key + " " +
           (s.is_hard() ? "hard " + std::to_string(s.selected_index)
                        : "row " + std::to_string(s.row()) + (s.selected_left ? " left" : ""));
}

void select_key(Application& app, int index)
{
    app.key_selection.select_picture(index);
    app.key_error.key_error_shown = false;
    // The last click was on a key: undo and redo select it again.
    app.selection().selected_kind = TreeSelection::Kind::key;
}

int append_step(Application& app, const KeyTarget& target, const StepFields& fields, const std::string& dialog_title)
{
    auto place = selected_place(app, target);
    if (!place) return -1;
    const AppendResult result = append_to_chain(app.config(target.slot), *place, fields);
    switch (result.outcome) {
    case AppendOutcome::appended: return result.step;
    case AppendOutcome::document_full: app.ui().message(title_main, exceed_document_steps, Icon::exclamation); break;
    case AppendOutcome::key_full: app.ui().message(dialog_title, exceed_key_steps, Icon::exclamation); break;
    case AppendOutcome::no_key: break;
    }
    return -1;
}

bool finish_step_dialog(Application& app, const KeyTarget& target, const StepFields& fields,
                        const std::string& dialog_title, const std::string& log_text)
{
    // Every OK journals first: the snapshot, the redo side emptied.
    begin_edit(app);
    bool done = false;
    if (app.step_edit.edit_flag) {
        rewrite_step(app.config(target.slot), app.step_edit.step, fields);
        done = true;
    } else {
        done = append_step(app, target, fields, dialog_title) >= 0;
    }
    app.step_edit.clear();
    if (done) app.write_log(log_text);
    return done;
}

std::vector<StepRow> load_step_rows(Application& app, const KeyTarget& target, const IrStepNames& ir)
{
    std::vector<StepRow> rows;
    auto place = selected_place(app, target);
    if (!place) return rows;
    Configuration& config = app.config(target.slot);
    bool broken = false;
    for (int step : steps_of_list(config, key_action_list(config, *place))) {
        if (auto text = display_marcostep(config, step, ir, &app.tree(target.slot))) rows.push_back({step, *text});
        else broken = true;
    }
    if (broken && !app.key_error.key_error_shown) {
        if (Key_error(app, target.slot, *place)) rows.clear();
    }
    return rows;
}

int begin_step_edit(Application& app, const KeyTarget& target, int row)
{
    auto place = selected_place(app, target);
    if (!place) return -1;
    const Configuration& config = app.config(target.slot);
    const auto steps = steps_of_list(config, key_action_list(config, *place));
    if (row < 1 || row > static_cast<int>(steps.size())) return -1;
    const int step = steps[static_cast<std::size_t>(row - 1)];
    const ActionStep& s = config.action_steps.steps[static_cast<std::size_t>(step)];
    if (s.step_type == step_free) return -1;
    app.step_edit.begin(step, s);
    return s.step_type;
}

std::string step_editor(std::uint8_t step_type)
{
    switch (step_type) {
    case step_ir_code: case step_mydatabase: return "EditIR";
    case step_rc5: case step_rc5x: case step_rc6: case step_rc6a: return "RC56Edit";
    case step_learning: case step_mydatabase_learning: return "Learning";
    case step_jump: return "Createjump";
    case step_delay: return "Delaytime";
    case step_link: return "CreateLink";
    case step_beep: return "Addbeep";
    default: return {};
    }
}

int row_after_delete(int row, int rows_left) { return row <= rows_left ? row : rows_left; }

bool DeleteBt(Application& app, const KeyTarget& target, int row)
{
    auto place = selected_place(app, target);
    if (!place) return false;
    Configuration& config = app.config(target.slot);
    const std::int32_t list = key_action_list(config, *place);
    if (row < 1 || row > static_cast<int>(steps_of_list(config, list).size())) return false;
    begin_edit(app);
    if (delete_marcostep_item(config, *place, row) < 0) return false;
    app.write_log("delete marco step " + key_log_names(app, target.page_key) + " " + std::to_string(list));
    app.write_log("-");
    app.write_log("delete marco step " + target.page_key);
    return true;
}

namespace {

// Move action Up and Move action down: Up does nothing on the first row,
// Down nothing on the last; neither takes a snapshot then.
bool move_row(Application& app, const KeyTarget& target, int row, bool up)
{
    auto place = selected_place(app, target);
    if (!place) return false;
    Configuration& config = app.config(target.slot);
    const int list = key_action_list(config, *place);
    const int count = static_cast<int>(steps_of_list(config, list).size());
    if (row < (up ? 2 : 1) || row > (up ? count : count - 1)) return false;
    begin_edit(app);
    if (up) move_marcostep_up(config, list, row);
    else move_marcostep_down(config, list, row);
    app.write_log(up ? "move marco step up" : "move marco step down");
    return true;
}

}  // namespace

bool MoveUPBt(Application& app, const KeyTarget& target, int row) { return move_row(app, target, row, true); }

bool MoveDownBt(Application& app, const KeyTarget& target, int row) { return move_row(app, target, row, false); }

}  // namespace tesselo
