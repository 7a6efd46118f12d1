#pragma once

#include <algorithm>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "core/keys/key_locator.h"
#include "core/keys/key_selection.h"
#include "core/keys/step_chain.h"
#include "core/keys/step_text.h"
#include "core/model/action_chain.h"
#include "core/model/configuration.h"
#include "core/model/hardkey_defaults.h"

namespace tesselo::testing {

// Step rows of the types the tests make need no IR source.
class NoIrStepNames : public IrStepNames {
public:
    std::array<std::string, 3> ir_parts(const Configuration&, const ActionStep&) const override { return {"IR", "", ""}; }
};

// Puts `text` (capital letters, digits and blanks) into a label as glyphs.
inline KeyLabel label_of(const std::string& text)
{
    KeyLabel label;
    label.bytes[0] = static_cast<std::uint8_t>(text.size());
    for (std::size_t i = 0; i < text.size() && i < 9; ++i) {
        const char c = text[i];
        label.bytes[i + 1] = static_cast<std::uint8_t>(c >= 'A' && c <= 'Z' ? c - 'A' + 1 : c >= '0' && c <= '9' ? c - '0' + 27 : 0);
    }
    return label;
}

// Adds device row `d` (devices are added in order) with `pages` pages, named
// `name`, its tables set as the tree keeps them: node keys, page rows behind
// the earlier devices', a device_pages row per page with its title key, and
// its HOME key in row d / 5, slot d % 5 (5 for a rest of 0).
inline void add_test_device(Configuration& c, int slot, int d, int pages, const std::string& name)
{
    const std::string f = std::to_string(slot + 1);
    const std::string key = "DEVICE" + std::to_string(d) + f;
    auto& dn = c.device_name_table[static_cast<std::size_t>(d)];
    dn.name = label_of(name);
    dn.node_key = key;
    c.device_table[static_cast<std::size_t>(d)] = {0, static_cast<std::uint8_t>(pages), static_cast<std::uint8_t>(pages), 0};
    c.device_numbers_used[static_cast<std::size_t>(d - 1)] = 1;
    reset_entity_hardkeys(c, d);
    int base = 0;
    for (int e = 0; e < d; ++e) base += c.device_table[static_cast<std::size_t>(e)].page_count;
    int free_row = 0;
    while (!c.device_pages[static_cast<std::size_t>(free_row)].node_key.empty()) ++free_row;
    for (int p = 0; p < pages; ++p) {
        auto& page = c.page_table[static_cast<std::size_t>(base + p)];
        page.node_key = key + "\\PAGE" + std::to_string(p + 1);
        page.key_count = 1;
        auto& row = c.device_pages[static_cast<std::size_t>(free_row + p)];
        row.node_key = page.node_key;
        const int label = static_cast<int>(std::find_if(c.softkey_labels.begin(), c.softkey_labels.end(),
                                                        [](const KeyLabel& l) { return l.is_free(); }) -
                                           c.softkey_labels.begin());
        c.softkey_labels[static_cast<std::size_t>(label)] = dn.name;
        row.slots[0] = SoftKey{0, 0, label, no_index, 0};
    }
    // The device's key on HOME.
    const int home_row = d / 5 - (d % 5 == 0 ? 1 : 0);
    const int home_slot = d % 5 == 0 ? 5 : d % 5;
    auto& home = c.home_pages[static_cast<std::size_t>(home_row)];
    home.node_key[static_cast<std::size_t>(home_slot)] = key;
    home.slots[static_cast<std::size_t>(home_slot)].position = static_cast<std::uint8_t>(home_slot);
    home.slots[static_cast<std::size_t>(home_slot)].action_list = no_index;
    auto& home_page = c.page_table[static_cast<std::size_t>(home_row)];
    if (home_page.key_count < home_slot + 1) home_page.key_count = static_cast<std::uint8_t>(home_slot + 1);
}

inline KeyPlace hard_place(const Configuration& c, int device, int key)
{
    (void)c;
    KeyPlace place;
    place.kind = kind_hard;
    place.device = device;
    place.hard_entry = device * hardkeys_per_device + key;
    return place;
}

inline KeyPlace soft_place(const Configuration& c, const std::string& page_key, std::uint8_t position)
{
    return *locate_softkey(c, page_key, position);
}

// Appends a step of `type` with `number` in its parameters; the step's number.
inline int add_step(Configuration& c, KeyPlace place, std::uint8_t type, int number = 10, std::uint16_t value = 0,
                    std::uint8_t extra = 0)
{
    StepFields f = duration_fields(type, number);
    f.value = value;
    f.extra = extra;
    return append_to_chain(c, place, f).step;
}

// Every broken invariant of the step and list tables, one line each: the
// counts equal the rows in use, each list has step_count steps and ends in
// 65535, no step belongs to two lists, every step in use belongs to a list,
// and no two keys hold one list.
inline std::string chain_faults(const Configuration& c)
{
    std::ostringstream out;
    int lists = 0;
    std::set<int> owned;
    for (int l = 0; l < action_list_rows; ++l) {
        const auto& e = c.action_lists.entries[static_cast<std::size_t>(l)];
        if (e.step_count == 0) continue;
        ++lists;
        const auto rows = steps_of_list(c, l);
        if (static_cast<int>(rows.size()) != e.step_count) out << "list " << l << " has " << rows.size() << " steps\n";
        if (!rows.empty() && c.action_steps.steps[static_cast<std::size_t>(rows.back())].next_step != end_of_list)
            out << "list " << l << " does not end in 65535\n";
        for (int r : rows) {
            if (!owned.insert(r).second) out << "step " << r << " in two lists\n";
            if (c.action_steps.steps[static_cast<std::size_t>(r)].step_type == step_free) out << "free step " << r << " in list " << l << "\n";
        }
    }
    if (lists != c.action_lists.list_count) out << "list_count " << c.action_lists.list_count << " for " << lists << "\n";
    int in_use = 0;
    for (int s = 0; s < action_step_rows; ++s)
        if (c.action_steps.steps[static_cast<std::size_t>(s)].step_type != step_free) {
            ++in_use;
            if (!owned.count(s)) out << "step " << s << " in no list\n";
        }
    if (in_use != c.action_steps.step_total) out << "step_total " << c.action_steps.step_total << " for " << in_use << "\n";
    std::set<int> held;
    auto hold = [&](std::int32_t list) {
        if (list == no_index) return;
        if (list < 0 || list >= action_list_rows || c.action_lists.entries[static_cast<std::size_t>(list)].step_count == 0)
            out << "key holds free list " << list << "\n";
        else if (!held.insert(list).second) out << "list " << list << " held twice\n";
    };
    for (const auto& page : c.home_pages)
        for (const auto& key : page.slots) hold(key.action_list);
    for (const auto& page : c.device_pages)
        if (!page.node_key.empty())
            for (const auto& key : page.slots) hold(key.action_list);
    for (int d = 0; d < device_rows; ++d)
        if (d == 0 || !c.device_name_table[static_cast<std::size_t>(d)].node_key.empty())
            for (int k = 0; k < hardkeys_per_device; ++k)
                hold(c.hardkeys[static_cast<std::size_t>(d * hardkeys_per_device + k)].action_list);
    return out.str();
}

}  // namespace tesselo::testing
