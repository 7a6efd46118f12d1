#pragma once

#include <vector>

#include "core/model/configuration.h"

namespace tesselo {

// The step rows of action list `list`, in the order the remote runs them:
// from first_step along next_step, at most step_count steps, stopping at
// 65535 or at a row outside the table. Rows need not be ascending or adjacent.
std::vector<int> steps_of_list(const Configuration& config, int list);

// Whether a step other than `except` sends stored IR record `record`: a step
// of the library, RC5, RC5X, RC6, RC6A or My Database kind that names it.
bool ir_record_shared(const Configuration& config, int record, int except);

}  // namespace tesselo
