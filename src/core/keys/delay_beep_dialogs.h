#pragma once

#include <string>

#include "core/keys/step_chain.h"

namespace tesselo {

class Application;
class StepEditState;
class Ui;
struct KeyTarget;

inline const std::string delay_range_message = "Please enter 0.1 - 32 sec";
inline const std::string add_delay_title = "Add Delay";
inline const std::string add_beep_title = "Add Beep";

// What a dialog's OK came to.
enum class DialogOk {
    no_step,  // an empty field: the dialog closes without a step
    refused,  // a value out of range: the message was shown, the dialog stays
    done,     // the step was written
    limit,    // a limit box was shown; nothing changed
};

// The leading number of a field's text, as the field holds it ("1.2.3" is 1.2).
double field_value(const std::string& text);
// The key filter of the duration fields: digits, "." and backspace reach the field.
bool duration_key_accepted(char key);

// The Delay dialog (step type 7). Its duration moves in tenths of a second:
// the value is rounded to one decimal, then counted in hundredths.
class Delaytime {
public:
    explicit Delaytime(const StepEditState& edit);
    std::string Text1;

    // A key press in Text1; keys the filter refuses are swallowed.
    void key_press(char key);
    // Leaving Text1: a value above 32 is refused and the field emptied.
    void leave_field(Ui& ui);
    // OK: a value below 0.1 is refused; an empty field closes without a step.
    DialogOk ok(Application& app, const KeyTarget& target);
    // Cancel or Esc: the edit flag is cleared.
    static void cancel(Application& app);
};

// The Beep dialog (step type 9). The frequency comes from the slider, 200
// hertz a step; the duration is not rounded to one decimal first.
class Addbeep {
public:
    static constexpr int slider_min = 0;
    static constexpr int slider_max = 19;

    explicit Addbeep(const StepEditState& edit);
    std::string Text1;
    std::string Label1;  // the frequency in hertz
    int slider = slider_min;

    void move_slider(int position);
    void key_press(char key);
    void leave_field(Ui& ui);
    // OK, also Enter in Text1.
    DialogOk ok(Application& app, const KeyTarget& target);
    static void cancel(Application& app);
};

}  // namespace tesselo
