#include "core/keys/key_removal.h"

#include <algorithm>

#include "core/keys/key_locator.h"
#include "core/keys/key_selection.h"
#include "core/keys/step_chain.h"
#include "core/model/hardkey_defaults.h"
#include "core/tree/link_repair.h"
#include "core/tree/tree_view.h"

namespace tesselo {

namespace {

std::size_t at(int i) { return static_cast<std::size_t>(i); }

std::array<SoftKey, softkeys_per_page>& slots_of(Configuration& config, const KeyPlace& place)
{
    return place.home ? config.home_pages[at(place.page_slots_row)].slots : config.device_pages[at(place.page_slots_row)].slots;
}

void free_list(Configuration& config, std::int32_t list)
{
    if (list >= 0 && list < action_list_rows && config.action_lists.entries[at(list)].step_count > 0)
        delete_marcostep(config, list);
}

}  // namespace

bool remove_key(Configuration& config, const KeyPlace& place)
{
    const auto device = static_cast<std::uint8_t>(place.device);
    if (place.kind == kind_hard) {
        const int key = place.hard_entry % hardkeys_per_device;
        free_list(config, config.hardkeys[at(place.hard_entry)].action_list);
        Cut_hardlinkthiskey(config, device, static_cast<std::uint8_t>(key));
        config.hardkeys[at(place.hard_entry)].action_list = no_index;
        config.hardkey_labels[at(place.hard_entry)] = init_hardkey_defaults()[at(key)];
        return true;
    }
    if (place.slot < 0 || place.page_slots_row < 0) return false;
    auto& slots = slots_of(config, place);
    auto& page = config.page_table[at(place.page_row)];
    const SoftKey key = slots[at(place.slot)];
    free_list(config, key.action_list);
    Cut_Softlinkthiskey(config, device, static_cast<std::uint8_t>(place.page_row - pages_before(config, place.device)),
                        static_cast<std::uint16_t>(key.label_index));
    const int used = std::min<int>(page.key_count, softkeys_per_page);
    // The right button of a split row stays, emptied, while its left button
    // stands: a left button never stands alone.
    const bool split = !place.home && key.position > 0 && key.position < 128 &&
                       std::any_of(slots.begin(), slots.begin() + used,
                                   [&](const SoftKey& k) { return k.position == key.position + 128; });
    if (split) {
        if (key.label_index >= 0 && key.label_index < softkey_label_rows)
            config.softkey_labels[at(key.label_index)] = KeyLabel{};
        SoftKey& kept = slots[at(place.slot)];
        kept.action_list = no_index;
        kept.key_state = 0;
        kept.key_flags = 0;
        return true;
    }
    if (key.label_index >= 0 && key.label_index < softkey_label_rows)
        config.softkey_labels[at(key.label_index)].bytes[0] = free_byte;
    for (int i = place.slot; i + 1 < used; ++i) slots[at(i)] = slots[at(i + 1)];
    if (used > 0) slots[at(used - 1)] = SoftKey{0, 0, no_index, no_index, 0};
    if (page.key_count > 0) page.key_count = static_cast<std::uint8_t>(page.key_count - 1);
    return true;
}

}  // namespace tesselo
