#include "core/model/action_chain.h"

namespace tesselo {

std::vector<int> steps_of_list(const Configuration& config, int list)
{
    std::vector<int> rows;
    if (list < 0 || list >= action_list_rows) return rows;
    const auto& entry = config.action_lists.entries[static_cast<std::size_t>(list)];
    int row = entry.first_step;
    for (int n = 0; n < entry.step_count; ++n) {
        if (row < 0 || row >= action_step_rows) break;
        rows.push_back(row);
        const std::uint16_t next = config.action_steps.steps[static_cast<std::size_t>(row)].next_step;
        if (next == end_of_list) break;
        row = next;
    }
    return rows;
}

bool ir_record_shared(const Configuration& config, int record, int except)
{
    for (int s = 0; s < action_step_rows; ++s) {
        if (s == except) continue;
        const ActionStep& step = config.action_steps.steps[static_cast<std::size_t>(s)];
        if (sends_ir_record(step.step_type) && step.param_low + 256 * step.param_high == record) return true;
    }
    return false;
}

}  // namespace tesselo
