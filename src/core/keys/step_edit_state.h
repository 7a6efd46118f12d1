#pragma once

#include "core/model/configuration.h"

namespace tesselo {

// The properties form's edit mode: a double click on a step row copies the
// step out and sets the flag; the next dialog's OK rewrites that step in place.
// Cancel, Esc and OK all clear it.
class StepEditState {
public:
    bool edit_flag = false;
    int step = -1;       // the step number being edited
    ActionStep fields;   // its fields as copied out

    void begin(int step_number, const ActionStep& copied)
    {
        edit_flag = true;
        step = step_number;
        fields = copied;
    }
    void clear() { *this = StepEditState{}; }
};

}  // namespace tesselo
