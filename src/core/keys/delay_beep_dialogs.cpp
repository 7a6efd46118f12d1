#include "core/keys/delay_beep_dialogs.h"

#include <cmath>
#include <optional>

#include "core/app/application.h"
#include "core/document/ui.h"
#include "core/keys/step_commands.h"
#include "core/keys/step_edit_state.h"
#include "core/keys/step_text.h"

namespace tesselo {

namespace {

// Conversions to a whole number round half to even, as the form's
// conversions always have.
int to_whole(double value) { return static_cast<int>(std::nearbyint(value)); }

void filtered_key(std::string& text, char key)
{
    if (!duration_key_accepted(key)) return;
    if (key == '\b') {
        if (!text.empty()) text.pop_back();
    } else {
        text += key;
    }
}

// Leaving the field: a value above 32 seconds is refused and the field emptied.
void check_on_leaving(Ui& ui, std::string& text)
{
    if (text.empty() || field_value(text) <= 32.0) return;
    ui.message(title_alt, delay_range_message, Icon::exclamation);
    text.clear();
}

// OK's checks: an empty field closes the dialog without a step, a value
// below a tenth is refused and the dialog stays. The value when it passes.
std::optional<double> value_on_ok(Application& app, const std::string& text, DialogOk& outcome)
{
    if (text.empty()) {
        app.step_edit.clear();
        outcome = DialogOk::no_step;
        return std::nullopt;
    }
    const double value = field_value(text);
    if (value < 0.1) {
        app.ui().message(title_alt, delay_range_message, Icon::exclamation);
        outcome = DialogOk::refused;
        return std::nullopt;
    }
    return value;
}

std::string edit_seconds(const StepEditState& edit)
{
    return format_decimal(step_number_value(edit.fields) / 100.0);
}

}  // namespace

double field_value(const std::string& text)
{
    std::string number;
    bool point = false;
    for (char c : text) {
        if (c >= '0' && c <= '9') number += c;
        else if (c == '.' && !point) {
            point = true;
            number += c;
        } else {
            break;
        }
    }
    if (number.empty() || number == ".") return 0.0;
    return std::stod(number);
}

bool duration_key_accepted(char key) { return (key >= '0' && key <= '9') || key == '.' || key == '\b'; }

Delaytime::Delaytime(const StepEditState& edit) : Text1(edit.edit_flag ? edit_seconds(edit) : "0.5") {}

void Delaytime::key_press(char key) { filtered_key(Text1, key); }

void Delaytime::leave_field(Ui& ui) { check_on_leaving(ui, Text1); }

DialogOk Delaytime::ok(Application& app, const KeyTarget& target)
{
    DialogOk outcome = DialogOk::done;
    const auto value = value_on_ok(app, Text1, outcome);
    if (!value) return outcome;
    const double rounded = to_whole(*value * 10.0) / 10.0;
    const StepFields fields = duration_fields(step_delay, to_whole(rounded * 100.0));
    const std::string text = format_decimal(rounded);
    return finish_step_dialog(app, target, fields, add_delay_title, "Add DELAY " + text + " S") ? DialogOk::done
                                                                                                : DialogOk::limit;
}

void Delaytime::cancel(Application& app) { app.step_edit.clear(); }

Addbeep::Addbeep(const StepEditState& edit) : Text1(edit.edit_flag ? edit_seconds(edit) : "0.1")
{
    if (edit.edit_flag) {
        Label1 = std::to_string(edit.fields.value);
        slider = edit.fields.value > 200 ? (edit.fields.value - 200) / 200 : 0;
    } else {
        move_slider(slider_min);
    }
}

void Addbeep::move_slider(int position)
{
    slider = position < slider_min ? slider_min : position > slider_max ? slider_max : position;
    Label1 = std::to_string((slider - slider_min) * 200 + 200);
}

void Addbeep::key_press(char key) { filtered_key(Text1, key); }

void Addbeep::leave_field(Ui& ui) { check_on_leaving(ui, Text1); }

DialogOk Addbeep::ok(Application& app, const KeyTarget& target)
{
    DialogOk outcome = DialogOk::done;
    const auto value = value_on_ok(app, Text1, outcome);
    if (!value) return outcome;
    const int hundredths = to_whole(*value * 100.0);
    StepFields fields = duration_fields(step_beep, hundredths);
    fields.value = static_cast<std::uint16_t>(std::stoi(Label1));
    const std::string text = format_decimal(hundredths / 100.0);
    return finish_step_dialog(app, target, fields, add_beep_title, "Add BEEP SOUND " + text + "Sec") ? DialogOk::done
                                                                                                     : DialogOk::limit;
}

void Addbeep::cancel(Application& app) { app.step_edit.clear(); }

}  // namespace tesselo
