#include "core/tree/link_repair.h"

#include <algorithm>
#include <vector>

#include "core/model/action_chain.h"
#include "core/tree/tree_view.h"

namespace tesselo {

namespace {

// Which list holds each step, and the step before it in that list: built
// once per call, so that a removal costs one walk of the lists, not one per
// removed step.
struct StepOwners {
    std::vector<std::int16_t> owner = std::vector<std::int16_t>(action_step_rows, -1);
    std::vector<std::int16_t> before = std::vector<std::int16_t>(action_step_rows, -1);

    explicit StepOwners(const Configuration& config)
    {
        for (int l = 0; l < action_list_rows; ++l) {
            if (config.action_lists.entries[static_cast<std::size_t>(l)].step_count == 0) continue;
            int previous = -1;
            for (int row : steps_of_list(config, l)) {
                auto& o = owner[static_cast<std::size_t>(row)];
                if (o >= 0) break;  // a row claimed twice stays with the first list
                o = static_cast<std::int16_t>(l);
                before[static_cast<std::size_t>(row)] = static_cast<std::int16_t>(previous);
                previous = row;
            }
        }
    }
};

ActionStep& step_at(Configuration& config, int row) { return config.action_steps.steps[static_cast<std::size_t>(row)]; }

// Every key that holds one of the freed lists is left with no action.
void release_keys(Configuration& config, const std::vector<char>& freed)
{
    auto clear = [&](std::int32_t& list) {
        if (list >= 0 && list < action_list_rows && freed[static_cast<std::size_t>(list)]) list = no_index;
    };
    for (auto& page : config.home_pages)
        for (auto& key : page.slots) clear(key.action_list);
    for (auto& page : config.device_pages)
        if (!page.node_key.empty())
            for (auto& key : page.slots) clear(key.action_list);
    for (auto& key : config.hardkeys) clear(key.action_list);
}

// The shared removal: marks each row free and cuts it out of its list.
void remove_rows(Configuration& config, const std::vector<int>& rows, bool clear_high)
{
    if (rows.empty()) return;
    StepOwners index(config);
    for (int row : rows) {
        ActionStep& s = step_at(config, row);
        s.step_type = step_free;
        s.param_low = free_byte;
        s.value = 0;
        if (clear_high) s.param_high = 0;
    }
    std::vector<char> freed(action_list_rows, 0);
    int lists_freed = 0;
    for (int row : rows) {
        const int list = index.owner[static_cast<std::size_t>(row)];
        if (list < 0) continue;  // an unknown list leaves the row out of the repair
        auto& entry = config.action_lists.entries[static_cast<std::size_t>(list)];
        ActionStep& s = step_at(config, row);
        const std::uint16_t next = s.next_step;
        if (entry.first_step == row && entry.step_count == 1) {
            entry.first_step = 0;
            entry.step_count = 0;
            freed[static_cast<std::size_t>(list)] = 1;
            ++lists_freed;
        } else if (entry.first_step == row) {
            entry.first_step = static_cast<std::int16_t>(next);
            --entry.step_count;
            if (next < action_step_rows) index.before[next] = -1;
        } else {
            const int previous = index.before[static_cast<std::size_t>(row)];
            if (previous < 0) continue;
            step_at(config, previous).next_step = next;
            if (next < action_step_rows) index.before[next] = static_cast<std::int16_t>(previous);
            --entry.step_count;
        }
        s.next_step = end_of_list;
    }
    if (lists_freed > 0) release_keys(config, freed);
    config.action_lists.list_count = static_cast<std::int16_t>(config.action_lists.list_count - lists_freed);
    config.action_steps.step_total = static_cast<std::int16_t>(config.action_steps.step_total - rows.size());
}

template <typename Match>
void cut_matching(Configuration& config, bool clear_high, Match match)
{
    if (config.action_steps.step_total == 0) return;
    std::vector<int> rows;
    for (int row = 0; row < action_step_rows; ++row) {
        const ActionStep& s = config.action_steps.steps[static_cast<std::size_t>(row)];
        if (s.step_type != step_free && match(s)) rows.push_back(row);
    }
    remove_rows(config, rows, clear_high);
}

}  // namespace

void Cut_hardlinkthiskey(Configuration& config, std::uint8_t device, std::uint8_t key)
{
    // A link to a hard key carries 255 where a page would stand, and the key
    // index + 1 as the key it names: only the links to this one key go.
    cut_matching(config, false, [&](const ActionStep& s) {
        return s.step_type == step_link && s.param_low == device && s.param_high == free_byte && s.value == key + 1;
    });
}

void Cut_Softlinkthiskey(Configuration& config, std::uint8_t device, std::uint8_t page, std::uint16_t value)
{
    // A soft key is named by the same three numbers as the narrow page form.
    Cut_marcolink(config, device, page, value);
}

void Cut_devicehardlink(Configuration& config, std::uint8_t device)
{
    cut_matching(config, false, [&](const ActionStep& s) {
        return (s.step_type == step_jump || s.step_type == step_link) && s.param_low == device;
    });
}

void Cut_marcolinkpage(Configuration& config, std::uint8_t device, std::uint8_t page)
{
    cut_matching(config, true, [&](const ActionStep& s) {
        return s.step_type == step_link && s.param_low == device && s.param_high == page;
    });
}

void Cut_marcolink(Configuration& config, std::uint8_t device, std::uint8_t page, std::uint16_t value)
{
    cut_matching(config, false, [&](const ActionStep& s) {
        return s.step_type == step_link && s.param_low == device && s.param_high == page && s.value == value;
    });
}

void Cut_marcojumplink(Configuration& config, std::uint8_t device, std::uint8_t page)
{
    if (config.action_steps.step_total == 0) return;

    // Phase one: HOME keys' jumps are kept and re-aimed, others to the page go.
    std::vector<std::int16_t> list_starting_at(action_step_rows, -1);
    for (int l = 0; l < action_list_rows; ++l) {
        const auto& e = config.action_lists.entries[static_cast<std::size_t>(l)];
        if (e.step_count > 0 && e.first_step >= 0 && e.first_step < action_step_rows &&
            list_starting_at[static_cast<std::size_t>(e.first_step)] < 0)
            list_starting_at[static_cast<std::size_t>(e.first_step)] = static_cast<std::int16_t>(l);
    }
    // The HOME page each HOME key's list stands on: a key sent home goes to
    // the page it stands on.
    std::vector<std::int16_t> home_page(action_list_rows, -1);
    for (int r = 0; r < home_page_rows; ++r)
        for (const auto& key : config.home_pages[static_cast<std::size_t>(r)].slots)
            if (key.action_list >= 0 && key.action_list < action_list_rows)
                home_page[static_cast<std::size_t>(key.action_list)] = static_cast<std::int16_t>(r);

    const int base = pages_before(config, device);
    const int pages = device < device_rows ? config.device_table[device].page_count : 0;
    const auto shown_page = [&](int p) {
        return p != page && p < pages && base + p < page_rows && config.page_table[static_cast<std::size_t>(base + p)].hidden == 0;
    };
    int first_shown = -1;
    for (int p = 0; p < pages && first_shown < 0; ++p)
        if (shown_page(p)) first_shown = p;
    std::vector<int> rows;
    for (int row = 0; row < action_step_rows; ++row) {
        ActionStep& s = step_at(config, row);
        if (s.step_type != step_jump) continue;
        const int list = list_starting_at[static_cast<std::size_t>(row)];
        if (list >= 0 && home_page[static_cast<std::size_t>(list)] >= 0) {
            if (s.param_low != device) continue;
            // The lower numbers are lowered here; the remote only shows another start page.
            if (s.param_high < page && s.param_high != 0 && s.param_high != free_byte) {
                --s.param_high;
                // ... but never a hidden one while a shown page is there.
                if (!shown_page(s.param_high) && first_shown >= 0) s.param_high = static_cast<std::uint8_t>(first_shown);
            } else if (s.param_high == page) {
                if (first_shown >= 0) {
                    s.param_high = static_cast<std::uint8_t>(first_shown);
                } else {
                    s.param_low = 0;
                    s.param_high = static_cast<std::uint8_t>(home_page[static_cast<std::size_t>(list)]);
                }
            }
        } else if (s.param_low == device && s.param_high == page) {
            rows.push_back(row);
        }
    }
    remove_rows(config, rows, true);

    // Phase two: the pages behind the one that goes move up.
    for (int row = 0; row < action_step_rows; ++row) {
        ActionStep& s = step_at(config, row);
        if ((s.step_type != step_jump && s.step_type != step_link) || s.param_low != device) continue;
        if (s.param_high > page && s.param_high != free_byte) --s.param_high;
        else if (s.param_high == page && s.param_high >= pages) s.param_high = static_cast<std::uint8_t>(pages - 1);
    }
}

void repoint_firstpage(Configuration& config, const std::string& device_key, int device_row,
                       const std::string& /*page_key*/)
{
    if (device_row < 1 || device_row >= device_rows) return;
    const int base = pages_before(config, device_row);
    const int pages = config.device_table[static_cast<std::size_t>(device_row)].page_count;
    int shown = -1;
    for (int p = 0; p < pages && shown < 0; ++p)
        if (base + p < page_rows && config.page_table[static_cast<std::size_t>(base + p)].hidden < hidden_flag) shown = p;
    if (shown < 0) return;
    for (const auto& home : config.home_pages)
        for (int s = 0; s < softkeys_per_page; ++s) {
            if (home.node_key[static_cast<std::size_t>(s)] != device_key) continue;
            if (ActionStep* jump = home_jump(config, home.slots[static_cast<std::size_t>(s)].action_list, device_row))
                jump->param_high = static_cast<std::uint8_t>(shown);
            return;
        }
}

ActionStep* home_jump(Configuration& config, std::int32_t list, int device_row)
{
    if (list < 0 || list >= action_list_rows || config.action_lists.entries[static_cast<std::size_t>(list)].step_count == 0)
        return nullptr;
    for (int row : steps_of_list(config, list)) {
        ActionStep& step = step_at(config, row);
        if (step.step_type == step_jump && step.param_low == device_row) return &step;
    }
    return nullptr;
}

void follow_home_keys(Configuration& config)
{
    const int home = std::min<int>(config.device_table[0].page_count, home_page_rows);
    std::vector<int> rows;
    for (int row = 0; row < action_step_rows; ++row) {
        ActionStep& s = step_at(config, row);
        if (s.step_type == step_jump && s.param_low == 0) {
            // A HOME page that went: the page before it.
            if (s.param_high >= home) s.param_high = static_cast<std::uint8_t>(std::max(home - 1, 0));
            continue;
        }
        if (s.step_type != step_link || s.param_low != 0 || s.param_high == free_byte) continue;
        // A link names a HOME key by its label row; it follows the key to its place.
        bool found = false;
        for (int r = 0; r < home && !found; ++r) {
            const auto& slots = config.home_pages[static_cast<std::size_t>(r)].slots;
            const int used = std::min<int>(config.page_table[static_cast<std::size_t>(r)].key_count, softkeys_per_page);
            for (int k = 0; k < used && !found; ++k)
                if (slots[static_cast<std::size_t>(k)].label_index == s.value) {
                    s.param_high = static_cast<std::uint8_t>(r);
                    s.extra = slots[static_cast<std::size_t>(k)].position;
                    found = true;
                }
        }
        if (!found) rows.push_back(row);
    }
    remove_rows(config, rows, false);
}

}  // namespace tesselo
