#include "core/tree/pasted_targets.h"

#include <algorithm>

#include "core/model/action_chain.h"
#include "core/tree/device_buffers.h"
#include "core/tree/tree_view.h"

namespace tesselo {

namespace {

std::size_t at(int i) { return static_cast<std::size_t>(i); }

bool aims(std::uint8_t type) { return type == step_jump || type == step_link; }

bool hard_link(const KeyClipRecord& r, int i) { return r.clip_step_type[at(i)] == step_link && r.clip_param_high[at(i)] == free_byte; }

// The position of the key with label row `label` on page_table entry `page`, or -1.
int position_of_label(const Configuration& config, int page, std::int32_t label)
{
    const int home = config.device_table[0].page_count;
    const std::array<SoftKey, softkeys_per_page>* slots = nullptr;
    if (page < home) {
        if (page < home_page_rows) slots = &config.home_pages[at(page)].slots;
    } else {
        const int row = page_slots_row_of_key(config, config.page_table[at(page)].node_key);
        if (row >= 0) slots = &config.device_pages[at(row)].slots;
    }
    if (!slots) return -1;
    const int used = std::min<int>(config.page_table[at(page)].key_count, softkeys_per_page);
    for (int s = 0; s < used; ++s)
        if ((*slots)[at(s)].label_index == label) return (*slots)[at(s)].position;
    return -1;
}

}  // namespace

void note_targets(const Configuration& config, const KeyClipRecord& record, StepTargets& targets)
{
    targets = StepTargets{};
    for (int i = 0; i < record.clip_step_count && i < steps_per_list; ++i) {
        if (!aims(record.clip_step_type[at(i)])) continue;
        const int device = record.clip_param_low[at(i)];
        if (device >= device_rows) continue;
        targets[at(i)].device_key = config.device_name_table[at(device)].node_key;
        if (hard_link(record, i)) continue;
        const int page = pages_before(config, device) + record.clip_param_high[at(i)];
        if (record.clip_param_high[at(i)] < config.device_table[at(device)].page_count && page < page_rows)
            targets[at(i)].page_key = config.page_table[at(page)].node_key;
    }
}

int aim_targets(const Configuration& config, KeyClipRecord& record, const StepTargets& targets, const OwnPlaces& own)
{
    int dropped = 0;
    for (int i = 0; i < record.clip_step_count && i < steps_per_list; ++i) {
        std::uint8_t& type = record.clip_step_type[at(i)];
        const StepTarget& target = targets[at(i)];
        if (!aims(type) || target.device_key.empty()) continue;
        const auto drop = [&] {
            type = step_free;
            ++dropped;
        };
        int device = device_row_of_key(config, target.device_key);
        if (hard_link(record, i)) {
            if (device < 0 && target.device_key == own.device_key) device = own.device_row;
            if (device < 0) drop();
            else record.clip_param_low[at(i)] = static_cast<std::uint8_t>(device);
            continue;
        }
        const int page = page_row_of_key(config, target.page_key);
        int place = -1;
        if (page >= 0 && device >= 0) {
            place = page - pages_before(config, device);
            if (place < 0 || place >= config.device_table[at(device)].page_count) place = -1;
            // A soft key link finds its key by label row on the page, where it stands now.
            if (place >= 0 && type == step_link) {
                const int position = position_of_label(config, page, record.clip_value[at(i)]);
                if (position < 0) place = -1;
                else record.clip_extra[at(i)] = static_cast<std::uint8_t>(position);
            }
        } else if (page < 0) {
            const auto own_page = std::find(own.page_keys.begin(), own.page_keys.end(), target.page_key);
            if (own_page != own.page_keys.end() && !target.page_key.empty()) {
                device = own.device_row;
                place = own.page_places[at(static_cast<int>(own_page - own.page_keys.begin()))];
            }
        }
        if (device < 0 || place < 0) {
            drop();
            continue;
        }
        record.clip_param_low[at(i)] = static_cast<std::uint8_t>(device);
        record.clip_param_high[at(i)] = static_cast<std::uint8_t>(place);
    }
    return dropped;
}

void relink_own_keys(Configuration& config, const std::vector<std::int32_t>& lists, const OwnPlaces& own,
                     const std::vector<LabelMove>& moves)
{
    if (own.device_row < 0) return;
    for (std::int32_t list : lists) {
        if (list < 0 || list >= action_list_rows || config.action_lists.entries[at(list)].step_count == 0) continue;
        for (int row : steps_of_list(config, list)) {
            ActionStep& s = config.action_steps.steps[at(row)];
            if (s.step_type != step_link || s.param_low != own.device_row || s.param_high == free_byte) continue;
            if (std::find(own.page_places.begin(), own.page_places.end(), s.param_high) == own.page_places.end()) continue;
            const auto move = std::find_if(moves.begin(), moves.end(), [&](const LabelMove& m) { return m.from == s.value; });
            if (move != moves.end()) s.value = static_cast<std::uint16_t>(move->to);
        }
    }
}

}  // namespace tesselo
