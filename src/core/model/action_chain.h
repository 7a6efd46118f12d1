#pragma once

#include <vector>

#include "core/model/configuration.h"

namespace tesselo {

// The step rows of action list `list`, in the order the remote runs them:
// from first_step along next_step, at most step_count steps, stopping at
// 65535 or at a row outside the table. Rows need not be ascending or adjacent.
std::vector<int> steps_of_list(const Configuration& config, int list);

}  // namespace tesselo
