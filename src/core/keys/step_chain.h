#pragma once

#include <cstdint>

#include "core/model/configuration.h"

namespace tesselo {

struct KeyPlace;

// The payload of one step, as the dialogs work it out.
struct StepFields {
    std::uint8_t step_type = step_free;
    std::uint8_t param_low = 0;
    std::uint8_t param_high = 0;
    std::uint16_t value = 0;
    std::uint8_t extra = 0;
};

// A duration in hundredths of a second split into the two parameter bytes:
// high = D / 256, low = D - high * 256.
StepFields duration_fields(std::uint8_t step_type, int hundredths);
// param_low + 256 * param_high.
int step_number_value(const ActionStep& step);

enum class AppendOutcome { appended, document_full, key_full, no_key };
struct AppendResult {
    AppendOutcome outcome = AppendOutcome::no_key;
    int step = -1;  // the new step's number when appended
};

// The table part of append_step: refuses when step_total is above 7999, makes
// the soft key when the position has none, refuses when the key already has
// more than 39 steps, takes the lowest free step and the lowest free list,
// and chains the new step behind the key's last one.
AppendResult append_to_chain(Configuration& config, KeyPlace& place, const StepFields& fields);
// What append_to_chain would answer, without changing anything: a dialog
// asks before it stores the code that the step is to send.
AppendOutcome append_outcome(const Configuration& config, const KeyPlace& place);

// Edit in place: the payload of `step` is rewritten; next_step and the
// list's step_count are left alone.
void rewrite_step(Configuration& config, int step, const StepFields& fields);

// Removes row `index` (1-based) from the key's chain. Returns the removed
// step's number, or -1 when the key has no such row.
int delete_marcostep_item(Configuration& config, const KeyPlace& place, int index);

// Frees the whole chain of list `list`, releasing each step's IR and learned
// data. The key keeps its list number; the caller sets it to 65535.
void delete_marcostep(Configuration& config, int list);

// Swap the payload of row `index` (1-based) with the row before or after it;
// next_step is never touched. False when there is nothing to swap with.
bool move_marcostep_up(Configuration& config, int list, int index);
bool move_marcostep_down(Configuration& config, int list, int index);

// Releases the stored code of a step of type 0 to 4: every cell of the code,
// from the first to length / 2 + 1, becomes 255. The code's index is kept,
// and a code that another step still sends is left whole.
void delete_irdata(Configuration& config, int step);
// Releases the learned-code number of a step of type 5 in the learned-code
// map, by subtracting its mask from the map's byte (no bit clear, no check).
void delete_learning(Configuration& config, int step);
// delete_irdata below type 5, delete_learning for type 5, nothing otherwise.
void release_step_data(Configuration& config, int step);
// The free pattern: step_type, params and next 255, value and extra 0.
void wipe_step(Configuration& config, int step);

// The row (1-based) of `step` in list `list`, or 0.
int step_row_in_list(const Configuration& config, int list, int step);

}  // namespace tesselo
