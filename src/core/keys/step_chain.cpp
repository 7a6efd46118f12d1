#include "core/keys/step_chain.h"

#include <utility>

#include "core/keys/key_locator.h"
#include "core/model/action_chain.h"

namespace tesselo {

namespace {

ActionStep& step_at(Configuration& config, int step) { return config.action_steps.steps[static_cast<std::size_t>(step)]; }

ActionList* list_at(Configuration& config, int list)
{
    if (list < 0 || list >= action_list_rows) return nullptr;
    return &config.action_lists.entries[static_cast<std::size_t>(list)];
}

// A library code and a link name their target in value; every other code
// keeps its duration there, a beep its frequency.
bool uses_value(std::uint8_t type)
{
    return type != step_jump && type != step_delay && type != step_free;
}
bool uses_extra(std::uint8_t type) { return type == step_ir_code || type == step_link; }

void write_payload(ActionStep& s, const StepFields& f)
{
    s.step_type = f.step_type;
    s.param_low = f.param_low;
    s.param_high = f.param_high;
    // Types without a value or extra keep the free pattern's 0 there.
    s.value = uses_value(f.step_type) ? f.value : 0;
    s.extra = uses_extra(f.step_type) ? f.extra : 0;
}

void swap_payload(ActionStep& a, ActionStep& b)
{
    std::swap(a.param_low, b.param_low);
    std::swap(a.param_high, b.param_high);
    std::swap(a.value, b.value);
    std::swap(a.step_type, b.step_type);
    std::swap(a.extra, b.extra);
}

}  // namespace

StepFields duration_fields(std::uint8_t step_type, int hundredths)
{
    StepFields f;
    f.step_type = step_type;
    const int high = hundredths > 255 ? hundredths / 256 : 0;
    f.param_high = static_cast<std::uint8_t>(high);
    f.param_low = static_cast<std::uint8_t>(hundredths - high * 256);
    return f;
}

int step_number_value(const ActionStep& step) { return step.param_low + 256 * step.param_high; }

namespace {

int first_free_step(const Configuration& config)
{
    for (int s = 0; s < action_steps_accepted; ++s)
        if (config.action_steps.steps[static_cast<std::size_t>(s)].step_type == step_free) return s;
    return -1;
}

int first_free_list(const Configuration& config)
{
    for (int l = 0; l < action_list_rows; ++l)
        if (config.action_lists.entries[static_cast<std::size_t>(l)].step_count == 0) return l;
    return -1;
}

// A key that still names a freed list (a damaged file) starts a new one.
bool holds_list(const Configuration& config, const KeyPlace& place)
{
    const std::int32_t list = key_action_list(config, place);
    return list >= 0 && list < action_list_rows &&
           config.action_lists.entries[static_cast<std::size_t>(list)].step_count > 0;
}

}  // namespace

AppendOutcome append_outcome(const Configuration& config, const KeyPlace& place)
{
    if (config.action_steps.step_total > action_steps_accepted - 1) return AppendOutcome::document_full;
    if (!softkey_can_be_made(config, place)) return AppendOutcome::no_key;
    if (key_step_count(config, place) > steps_per_list - 1) return AppendOutcome::key_full;
    if (first_free_step(config) < 0 || (!holds_list(config, place) && first_free_list(config) < 0))
        return AppendOutcome::document_full;
    return AppendOutcome::appended;
}

AppendResult append_to_chain(Configuration& config, KeyPlace& place, const StepFields& fields)
{
    auto& steps = config.action_steps;
    if (const AppendOutcome outcome = append_outcome(config, place); outcome != AppendOutcome::appended) return {outcome};
    make_softkey(config, place);
    const int step = first_free_step(config);
    const int new_list = first_free_list(config);
    const bool has_list = holds_list(config, place);
    ActionList* entry = list_at(config, key_action_list(config, place));

    ActionStep& fresh = step_at(config, step);
    write_payload(fresh, fields);
    fresh.next_step = end_of_list;
    ++steps.step_total;

    if (has_list) {
        ++entry->step_count;
    } else {
        entry = list_at(config, new_list);
        entry->step_count = 1;
        entry->first_step = static_cast<std::int16_t>(step);
        ++config.action_lists.list_count;
        set_key_action_list(config, place, new_list);
    }
    if (entry->step_count > 1) {
        // The walk stops at the end mark, or after step_count - 1 steps on a
        // chain that ends early, so a broken chain cannot loop.
        int last = entry->first_step;
        for (int n = 1; n < entry->step_count - 1; ++n) {
            const std::uint16_t next = step_at(config, last).next_step;
            if (next == end_of_list || next >= action_step_rows) break;
            last = next;
        }
        step_at(config, last).next_step = static_cast<std::uint16_t>(step);
    }
    return {AppendOutcome::appended, step};
}

void rewrite_step(Configuration& config, int step, const StepFields& fields)
{
    if (step < 0 || step >= action_step_rows) return;
    write_payload(step_at(config, step), fields);
}

int delete_marcostep_item(Configuration& config, const KeyPlace& place, int index)
{
    const std::int32_t list = key_action_list(config, place);
    ActionList* entry = list_at(config, list);
    if (!entry || index < 1) return -1;
    const auto rows = steps_of_list(config, list);
    if (index > static_cast<int>(rows.size())) return -1;

    if (entry->step_count == 1) set_key_action_list(config, place, no_index);
    --entry->step_count;
    if (entry->step_count == 0) --config.action_lists.list_count;

    const int victim = rows[static_cast<std::size_t>(index - 1)];
    const std::uint16_t next = step_at(config, victim).next_step;
    release_step_data(config, victim);
    if (victim == entry->first_step) {
        // A list left empty keeps its stale first step; it is free by its count.
        if (next != end_of_list) entry->first_step = static_cast<std::int16_t>(next);
    } else {
        step_at(config, rows[static_cast<std::size_t>(index - 2)]).next_step = next;
    }
    wipe_step(config, victim);
    --config.action_steps.step_total;
    return victim;
}

void delete_marcostep(Configuration& config, int list)
{
    ActionList* entry = list_at(config, list);
    if (!entry) return;
    const int count = entry->step_count;
    int step = entry->first_step;
    entry->step_count = 0;
    if (count > 0) --config.action_lists.list_count;
    int freed = 0;
    for (int n = 0; n < count && step != end_of_list && step >= 0 && step < action_step_rows; ++n) {
        const std::uint16_t next = step_at(config, step).next_step;
        if (step_at(config, step).step_type != step_free) {
            release_step_data(config, step);
            ++freed;
        }
        wipe_step(config, step);
        step = next;
    }
    config.action_steps.step_total = static_cast<std::int16_t>(config.action_steps.step_total - freed);
}

bool move_marcostep_up(Configuration& config, int list, int index)
{
    const auto rows = steps_of_list(config, list);
    if (index < 2 || index > static_cast<int>(rows.size())) return false;
    swap_payload(step_at(config, rows[static_cast<std::size_t>(index - 1)]),
                 step_at(config, rows[static_cast<std::size_t>(index - 2)]));
    return true;
}

bool move_marcostep_down(Configuration& config, int list, int index)
{
    const auto rows = steps_of_list(config, list);
    if (index < 1 || index >= static_cast<int>(rows.size())) return false;
    swap_payload(step_at(config, rows[static_cast<std::size_t>(index - 1)]),
                 step_at(config, rows[static_cast<std::size_t>(index)]));
    return true;
}

void delete_irdata(Configuration& config, int step)
{
    const int record = step_number_value(step_at(config, step));
    if (record >= ir_data_rows) return;
    // A code is stored once however many keys send it: while another step
    // still sends it, its cells stay.
    if (ir_record_shared(config, record, step)) return;
    const int length = config.ir_data_index[static_cast<std::size_t>(record)].length;
    auto& cells = config.ir_data.record(record);
    for (int w = 0; w <= length / 2 + 1 && w < ir_record_words; ++w) cells[static_cast<std::size_t>(w)] = 255;
}

void delete_learning(Configuration& config, int step)
{
    const int n = step_number_value(step_at(config, step));
    const int byte = n <= 7 ? 0 : n / 8;
    if (byte >= learning_bitmap_bytes) return;
    const int mask = 128 >> (n % 8);
    auto& cell = config.learning_bitmap[static_cast<std::size_t>(byte)];
    // A subtraction, not a bit clear: the map is kept as the remote reads it.
    if (cell > 0) cell = static_cast<std::uint8_t>(cell - mask);
}

void release_step_data(Configuration& config, int step)
{
    const std::uint8_t type = step_at(config, step).step_type;
    if (type < step_learning) delete_irdata(config, step);
    else if (type == step_learning) delete_learning(config, step);
}

void wipe_step(Configuration& config, int step)
{
    ActionStep& s = step_at(config, step);
    s.step_type = step_free;
    s.param_low = free_byte;
    s.param_high = free_byte;
    s.value = 0;
    s.extra = 0;
    s.next_step = end_of_list;
}

int step_row_in_list(const Configuration& config, int list, int step)
{
    const auto rows = steps_of_list(config, list);
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (rows[i] == step) return static_cast<int>(i) + 1;
    return 0;
}

}  // namespace tesselo
