#include "core/ir/edit_ir.h"

#include <algorithm>
#include <cmath>

#include "core/app/application.h"
#include "core/document/ui.h"
#include "core/ir/ir_storage.h"
#include "core/ir/learn_test_ir.h"
#include "core/ir/my_database_forms.h"
#include "core/keys/delay_beep_dialogs.h"
#include "core/keys/ir_step_names.h"
#include "core/keys/key_locator.h"
#include "core/keys/page_canvas.h"
#include "core/keys/step_chain.h"
#include "core/keys/step_text.h"
#include "core/model/action_chain.h"
#include "core/model/softkey_labels.h"
#include "core/tree/journal.h"

namespace tesselo {

namespace {

std::size_t at(int i) { return static_cast<std::size_t>(i); }

bool learned_type(std::uint8_t type) { return type == ir_type_learned || type == ir_type_mydatabase_learned; }

std::string format_seconds(int hundredths) { return format_decimal(hundredths / 100.0); }

// The step that sends a stored code: its kind, the record or slot, the
// duration; a library code names its code in `value` and `extra` instead.
StepFields ir_step_fields(const CurrentIrCode& code, int stored, int duration)
{
    StepFields f;
    f.step_type = code.current_ir_type;
    f.param_high = static_cast<std::uint8_t>(stored / 256);
    f.param_low = static_cast<std::uint8_t>(stored - f.param_high * 256);
    if (code.current_ir_type == ir_type_library) {
        f.value = static_cast<std::uint16_t>(code.library_code);
        f.extra = static_cast<std::uint8_t>(std::max(code.library_key, 0));
    } else {
        f.value = static_cast<std::uint16_t>(duration);
    }
    return f;
}

// Where the step lands, as the log line names it: the device, the page and
// the key; "(hardkey)" for a key of the remote, "HOME" for the home device.
std::string key_place_words(const Configuration& config, const KeyPlace& place, const KeySelection& selection)
{
    const std::string device = place.device == 0 ? "HOME" : device_name_text(config, place.device);
    std::string page = config.page_table[at(place.page_row)].node_key;
    if (const auto cut = page.rfind('\\'); cut != std::string::npos) page = page.substr(cut + 1);
    if (place.kind == kind_hard)
        return device + "-" + page + "/(hardkey)" + std::to_string(check_hardkeyindex(selection.selected_index));
    return device + "-" + page + "/row " + std::to_string(selection.row()) + (selection.selected_left ? " left" : "");
}

}  // namespace

bool load_step_code(Application& app, const Configuration& config, int step)
{
    if (step < 0 || step >= action_step_rows || !is_ir_step(config.action_steps.steps[at(step)].step_type)) return false;
    const ActionStep& s = config.action_steps.steps[at(step)];
    const int stored = step_number_value(s);
    CurrentIrCode& code = app.current_ir;
    const LibraryStepNames names(app.home(), &app.my_database());
    std::string name = display_marcostep(config, step, names).value_or(std::string());
    while (!name.empty() && name.back() == ' ') name.pop_back();
    if (learned_type(s.step_type)) {
        code.set_value(stored_learned_code(config, stored), s.step_type, name);
        return true;
    }
    code.set_value(stored_ir_code(config, stored), s.step_type, name);
    if (s.step_type == ir_type_library) {
        code.library_code = s.value;
        code.library_key = s.extra;
    }
    return true;
}

int step_test_delay(const ActionStep& step)
{
    // A library step names its code where the others keep their duration.
    if (step.step_type == ir_type_library || step.value == default_ir_duration) return -1;
    return std::clamp<int>(step.value, minimum_duration_low, minimum_duration_high);
}

std::int16_t learning_key_number(const KeyPlace& place, const Configuration& config)
{
    if (place.kind == kind_hard) return static_cast<std::int16_t>(1000 + place.hard_entry);
    const SoftKey* key = softkey_at(config, place);
    return static_cast<std::int16_t>(key ? key->label_index : 0);
}

std::string ir_source_word(std::uint8_t ir_type)
{
    switch (ir_type) {
    case ir_type_rc5: return "RC5";
    case ir_type_rc5x: return "RC5X";
    case ir_type_rc6: return "RC60";
    case ir_type_rc6a: return "RC6A";
    case ir_type_learned: case ir_type_mydatabase_learned: return "learning";
    default: return "IR";
    }
}

EditIR::EditIR(Application& app, const KeyTarget& target) : app_(app), target_(target)
{
    Label4 = format_seconds(minimum_duration_low);
    app_.current_ir.name.clear();
    app_.flags().learn_in_progress = false;
    const StepEditState& edit = app_.step_edit;
    if (!edit.edit_flag || !is_ir_step(edit.fields.step_type) || !app_.slot_in_use[at(target.slot)]) return;
    overwrite_ = true;
    load_step_code(app_, app_.config(target.slot), edit.step);
    if (edit.fields.step_type != ir_type_library && edit.fields.value != default_ir_duration) {
        minimum_ = true;
        Label4 = format_seconds(std::clamp<int>(edit.fields.value, minimum_duration_low, minimum_duration_high));
    }
}

int EditIR::minimum_hundredths() const
{
    const double seconds = field_value(Label4);
    return std::clamp(static_cast<int>(std::lround(seconds * 100.0)), minimum_duration_low, minimum_duration_high);
}

void EditIR::UpDown1_up() { Label4 = format_seconds(std::min(minimum_hundredths() + 1, minimum_duration_high)); }

void EditIR::UpDown1_down() { Label4 = format_seconds(std::max(minimum_hundredths() - 1, minimum_duration_low)); }

void EditIR::key_press(char key)
{
    if (!duration_key_accepted(key)) return;
    if (key == '\b') {
        if (!Label4.empty()) Label4.pop_back();
    } else {
        Label4 += key;
    }
}

void EditIR::leave_duration()
{
    const double seconds = field_value(Label4);
    if (!Label4.empty() && seconds >= 0.01 - 1e-9 && seconds <= 10.0 + 1e-9) return;
    app_.ui().message(title_alt, duration_range_message, Icon::exclamation);
    Label4 = format_seconds(minimum_duration_low);
}

int EditIR::test_delay() const { return minimum_ ? minimum_hundredths() : -1; }

int EditIR::duration() const { return minimum_ ? minimum_hundredths() : default_ir_duration; }

bool EditIR::duration_applies() const
{
    return app_.current_ir.name.empty() || app_.current_ir.current_ir_type != ir_type_library;
}

bool EditIR::my_database_available()
{
    if (app_.my_database().code_count() > 0) return true;
    app_.ui().message(title_main, mydatabase_empty, Icon::exclamation);
    return false;
}

bool EditIR::learn()
{
    if (!app_.slot_in_use[at(target_.slot)]) return false;
    return EditIR_LearnIR(app_, app_.config(target_.slot));
}

bool EditIR::test_start()
{
    // An empty name line, or a learn under way, makes the press do nothing.
    test_pressed_ = !app_.current_ir.name.empty() && !app_.flags().learn_in_progress;
    return TestIR_Start(app_, app_.current_ir.current_ir_type, test_delay());
}

bool EditIR::test_end()
{
    if (!test_pressed_) return false;
    test_pressed_ = false;
    return TestIR_End(app_, test_delay());
}

void EditIR::cancel() { app_.step_edit.clear(); }

bool EditIR::ok()
{
    Ui& ui = app_.ui();
    CurrentIrCode& code = app_.current_ir;
    if (code.name.empty()) {
        ui.editir_status(invalid_ir_code);
        return false;
    }
    app_.write_log("Add " + ir_source_word(code.current_ir_type) + " (start) " + "- " + target_.page_key);
    if (!app_.slot_in_use[at(target_.slot)]) return false;
    if (overwrite_) return overwrite_ir_step();

    Configuration& config = app_.config(target_.slot);
    const bool learned = code.is_learned();
    if (config.action_steps.step_total >= action_steps_accepted) {
        ui.message(title_main, exceed_document_steps, Icon::exclamation);
        return false;
    }
    // The limit of the records stands for learned codes too, and before the
    // search: a code already stored is refused all the same.
    if (config.ir_data.record_count >= ir_data_accepted) {
        ui.message(title_main, exceed_ir_data, Icon::exclamation);
        return false;
    }
    auto place = locate_key(config, target_.page_key, app_.key_selection);
    if (!place) return false;
    // The code is stored only once its step can be added: a refusal leaves no
    // record, format or learned slot behind.
    switch (append_outcome(config, *place)) {
    case AppendOutcome::appended: break;
    case AppendOutcome::key_full: ui.message(edit_ir_title, exceed_key_steps, Icon::exclamation); return false;
    case AppendOutcome::document_full: ui.message(title_main, exceed_document_steps, Icon::exclamation); return false;
    case AppendOutcome::no_key: ui.message(title_alt, ir_store_fault, Icon::exclamation); return false;
    }
    if (learned && !learning_memory_free(config)) {
        ui.message(title_main, text_learning_full, Icon::exclamation);
        return false;
    }
    const IrCodeValue value = code.value();
    // A code that cannot be stored (its words, a full format table) is
    // refused before anything changes.
    if (!learned && find_ir_record(config, value) < 0 && !ir_code_storable(config, value)) {
        ui.message(title_alt, ir_store_fault, Icon::exclamation);
        return false;
    }

    begin_edit(app_);
    // The key is made first, so that a learned code can note its number.
    make_softkey(config, *place);
    int stored = -1;
    if (learned) {
        stored = store_learned_code(config, value, learning_key_number(*place, config));
    } else if (const auto record = store_ir_code(config, value)) {
        stored = *record;
    }
    if (stored < 0 || append_step(app_, target_, ir_step_fields(code, stored, duration()), edit_ir_title) < 0) {
        ui.message(title_alt, ir_store_fault, Icon::exclamation);
        return false;
    }
    app_.step_edit.clear();
    const auto after = locate_key(config, target_.page_key, app_.key_selection);
    app_.write_log("add " + (learned ? std::string("learning code") : code.name) + " - " +
                   key_place_words(config, after.value_or(*place), app_.key_selection));
    return true;
}

bool EditIR::overwrite_ir_step()
{
    Ui& ui = app_.ui();
    CurrentIrCode& code = app_.current_ir;
    Configuration& config = app_.config(target_.slot);
    const int step = app_.step_edit.step;
    if (step < 0 || step >= action_step_rows || config.action_steps.steps[at(step)].step_type == step_free) return false;
    const bool learned = code.is_learned();
    const IrCodeValue value = code.value();
    if (learned && !learning_memory_free(config)) {
        ui.message(title_main, text_learning_full, Icon::exclamation);
        return false;
    }
    if (!learned && find_ir_record(config, value) < 0) {
        if (config.ir_data.record_count >= ir_data_accepted) {
            ui.message(title_main, exceed_ir_data, Icon::exclamation);
            return false;
        }
        if (!ir_code_storable(config, value)) {
            ui.message(title_alt, ir_store_fault, Icon::exclamation);
            return false;
        }
    }
    const LibraryStepNames names(app_.home(), &app_.my_database());
    const std::string old_name = display_marcostep(config, step, names).value_or(std::string());
    const auto place = locate_key(config, target_.page_key, app_.key_selection);

    begin_edit(app_);
    int stored = -1;
    if (learned) {
        stored = place ? store_learned_code(config, value, learning_key_number(*place, config)) : -1;
    } else if (const auto record = store_ir_code(config, value)) {
        stored = *record;
    }
    if (stored < 0) {
        ui.message(title_alt, ir_store_fault, Icon::exclamation);
        return false;
    }
    // The old code is given back: its record unless another step still sends
    // it (or it is the new code itself), its learned slot.
    const ActionStep& old = config.action_steps.steps[at(step)];
    const bool same_record = !learned && sends_ir_record(old.step_type) &&
                             step_number_value(old) == stored;
    if (!same_record) release_step_data(config, step);
    rewrite_step(config, step, ir_step_fields(code, stored, duration()));
    app_.step_edit.clear();
    app_.write_log("overwrite " + old_name + " from " +
                   (place ? key_place_words(config, *place, app_.key_selection) : target_.page_key) + " to " +
                   (learned ? text_learning_code : code.name));
    return true;
}

}  // namespace tesselo
