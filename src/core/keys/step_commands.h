#pragma once

#include <string>
#include <vector>

#include "core/keys/step_chain.h"

namespace tesselo {

class Application;
class IrStepNames;

// The key an operation works on: the application's key selection on the
// page whose tree node key is `page_key` (the page window's caption) in
// document slot `slot`.
struct KeyTarget {
    int slot = 0;
    std::string page_key;
};

// One row of the properties form's step list.
struct StepRow {
    int step = -1;
    std::string text;
};

// A click on picture `index` of a page canvas: the key selection moves and
// the new key's list may report its own Key_error.
void select_key(Application& app, int index);

// The words that name the selected key in the log lines: its page's key,
// then "row R" (with " left") or "hard " and the picture.
std::string key_log_names(const Application& app, const std::string& page_key);

// The limit boxes' texts.
inline const std::string exceed_document_steps = "Exceed Marco steps";
inline const std::string exceed_key_steps = "Exceed marco steps!";

// append_step: appends one step to the selected key, with the two limit
// boxes ("Exceed Marco steps" under the main title, "Exceed marco steps!"
// under the dialog's title). Returns the new step, or -1 when refused.
int append_step(Application& app, const KeyTarget& target, const StepFields& fields, const std::string& dialog_title);

// A step dialog's OK: in edit mode the copied-out step is rewritten in place
// (no limits, the chain untouched), otherwise the step is appended. The log
// line is `log_text`. The edit flag is cleared either way. True when done.
bool finish_step_dialog(Application& app, const KeyTarget& target, const StepFields& fields,
                        const std::string& dialog_title, const std::string& log_text);

// The rows of the selected key's list, in chain order. A free step on the
// list opens Key_error (once, while key_error_shown is clear); its row is left out.
std::vector<StepRow> load_step_rows(Application& app, const KeyTarget& target, const IrStepNames& ir);

// A double click on row `row` (1-based): copies the step out and sets the
// edit flag. Returns the step's type, or -1 when there is no such row.
int begin_step_edit(Application& app, const KeyTarget& target, int row);

// The dialog that edits a step of `step_type`: "EditIR" (0, 128), "RC56Edit"
// (1 to 4), "Learning" (5, 133), "Createjump", "Delaytime", "CreateLink",
// "Addbeep"; empty for a free step.
std::string step_editor(std::uint8_t step_type);

// The row that Delete selects after removing row `row` (1-based): the row
// now at that index, or the new last row; 0 when the list is empty.
int row_after_delete(int row, int rows_left);

// The step list's buttons, on row `row` (1-based). False when nothing changed.
bool DeleteBt(Application& app, const KeyTarget& target, int row);
bool MoveUPBt(Application& app, const KeyTarget& target, int row);
bool MoveDownBt(Application& app, const KeyTarget& target, int row);

}  // namespace tesselo
