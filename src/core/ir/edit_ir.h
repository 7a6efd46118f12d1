#pragma once

#include <optional>
#include <string>

#include "core/keys/step_commands.h"

namespace tesselo {

class Application;
struct KeyPlace;

inline const std::string edit_ir_caption = "Add IR Code";
inline const std::string edit_ir_title = "Edit IR";
inline const std::string invalid_ir_code = "Invalid IRcode";
inline const std::string exceed_ir_data = "Exceed ir data";
inline const std::string ir_store_fault = "The selected IR maybe error please select again!";
inline const std::string duration_range_label = "(0.01 - 10 sec)";
inline const std::string duration_range_message = "Please enter 0.01 - 10";

// The duration of a code sent with the option "Default".
inline constexpr int default_ir_duration = 3000;
// The Minimum field, in hundredths of a second: 0.01 to 10 seconds.
inline constexpr int minimum_duration_low = 1;
inline constexpr int minimum_duration_high = 1000;

// The number a learned code notes in learning_keys for its key: a soft key's
// number, or 1000 plus the hard key's entry (device * 41 + key index), so
// that the two kinds never meet.
std::int16_t learning_key_number(const KeyPlace& place, const Configuration& config);

// The word of a code's source in the log: "IR", "RC5", "RC5X", "RC60",
// "RC6A" or "learning" (a My Database code counts as the library's, a My
// Database learned code as a learned one).
std::string ir_source_word(std::uint8_t ir_type);

// The logic of the Add IR Code dialog: the current code of any source, the
// duration, and OK, which stores the code once in the document and appends a
// step that sends it, or rewrites the double-clicked step.
class EditIR {
public:
    // Loading the dialog (its status line starts empty) empties the name line and clears
    // learn_in_progress. In edit mode (a double-clicked IR row) the step's
    // own code becomes the current code and OK overwrites the step.
    EditIR(Application& app, const KeyTarget& target);

    bool ir_overwrite() const { return overwrite_; }

    // The frame "Duration": Option1 "Default" or Option2 "Minimum", and the
    // Minimum field Label4 in seconds with its UpDown1.
    bool minimum() const { return minimum_; }
    void choose_default() { minimum_ = false; }
    void choose_minimum() { minimum_ = true; }
    std::string Label4;
    void UpDown1_up();
    void UpDown1_down();
    // A key press in the field: digits, "." and backspace reach it.
    void key_press(char key);
    // Leaving the field: a value outside 0.01 to 10 says so and falls back to 0.01.
    void leave_duration();
    // The Minimum value in hundredths, or -1 while Default is chosen (what
    // Test IR waits before it starts and stops).
    int test_delay() const;
    // The step's duration: 3000 for Default, the field times 100 for Minimum.
    int duration() const;
    // A library code's step names its code in the fields where others keep
    // the duration, so the frame does not apply to it.
    bool duration_applies() const;

    // "My Database": false, after "Mydatabase is empty!", when My Database
    // holds no code.
    bool my_database_available();

    // The Learn IR and Test IR buttons, on the current code. Test IR's
    // release stops the remote only after a press that began a test.
    bool learn();
    bool test_start();
    bool test_end();

    // OK: true when the code was stored and the dialog closes; false, with
    // the reason in a message or the status line, when it stays open.
    bool ok();
    // Cancel: the edit flag is cleared.
    void cancel();

private:
    bool overwrite_ir_step();
    int minimum_hundredths() const;

    Application& app_;
    KeyTarget target_;
    bool overwrite_ = false;
    bool minimum_ = false;
    bool test_pressed_ = false;
};

}  // namespace tesselo
