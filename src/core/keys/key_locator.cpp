#include "core/keys/key_locator.h"

#include "core/keys/hardkey_pictures.h"
#include "core/keys/key_selection.h"
#include "core/model/softkey_labels.h"
#include "core/tree/tree_view.h"

namespace tesselo {

namespace {

const std::array<SoftKey, softkeys_per_page>* page_slots(const Configuration& config, const KeyPlace& place)
{
    if (place.page_slots_row < 0) return nullptr;
    const auto row = static_cast<std::size_t>(place.page_slots_row);
    return place.home ? &config.home_pages[row].slots : &config.device_pages[row].slots;
}

int slots_in_use(const Configuration& config, const KeyPlace& place)
{
    const int count = config.page_table[static_cast<std::size_t>(place.page_row)].key_count;
    return count > softkeys_per_page ? softkeys_per_page : count;
}

// Finds the page of `page_key` and fills the page part of a place.
std::optional<KeyPlace> locate_page(const Configuration& config, const std::string& page_key)
{
    KeyPlace place;
    place.device = device_row_of_key(config, parent_node_key(page_key));
    if (place.device < 0) return std::nullopt;
    place.page_row = page_row_of_key(config, page_key);
    if (place.page_row < 0) return std::nullopt;
    place.home = place.device == 0;
    if (place.home) {
        if (place.page_row >= home_page_rows) return std::nullopt;
        place.page_slots_row = place.page_row;
    } else {
        place.page_slots_row = page_slots_row_of_key(config, page_key);
        if (place.page_slots_row < 0) return std::nullopt;
    }
    return place;
}

}  // namespace

std::string parent_node_key(const std::string& page_key)
{
    const auto cut = page_key.find('\\');
    return cut == std::string::npos ? std::string() : page_key.substr(0, cut);
}

std::optional<KeyPlace> locate_softkey(const Configuration& config, const std::string& page_key,
                                       std::uint8_t position)
{
    auto place = locate_page(config, page_key);
    if (!place) return std::nullopt;
    place->kind = kind_soft;
    // A HOME page is searched with the row alone and never carries a left key.
    place->position = place->home ? static_cast<std::uint8_t>(position & 0x7F) : position;
    const auto& slots = *page_slots(config, *place);
    const int used = slots_in_use(config, *place);
    for (int s = 0; s < used; ++s)
        if (slots[static_cast<std::size_t>(s)].position == place->position) {
            place->slot = s;
            break;
        }
    return place;
}

std::optional<KeyPlace> locate_key(const Configuration& config, const std::string& page_key,
                                   const KeySelection& selection)
{
    if (selection.is_soft()) return locate_softkey(config, page_key, selection.position());
    if (!selection.is_hard()) return std::nullopt;
    const int key = check_hardkeyindex(selection.selected_index);
    if (key < 0) return std::nullopt;
    auto place = locate_page(config, page_key);
    if (!place) return std::nullopt;
    place->kind = kind_hard;
    place->hard_entry = place->device * hardkeys_per_device + key;
    return place;
}

SoftKey* softkey_at(Configuration& config, const KeyPlace& place)
{
    return const_cast<SoftKey*>(softkey_at(static_cast<const Configuration&>(config), place));
}

const SoftKey* softkey_at(const Configuration& config, const KeyPlace& place)
{
    if (place.kind != kind_soft || place.slot < 0) return nullptr;
    const auto* slots = page_slots(config, place);
    return slots ? &(*slots)[static_cast<std::size_t>(place.slot)] : nullptr;
}

std::int32_t key_action_list(const Configuration& config, const KeyPlace& place)
{
    if (place.kind == kind_hard) return config.hardkeys[static_cast<std::size_t>(place.hard_entry)].action_list;
    const SoftKey* key = softkey_at(config, place);
    return key ? key->action_list : no_index;
}

void set_key_action_list(Configuration& config, const KeyPlace& place, std::int32_t list)
{
    if (place.kind == kind_hard) {
        config.hardkeys[static_cast<std::size_t>(place.hard_entry)].action_list = list;
        return;
    }
    if (SoftKey* key = softkey_at(config, place)) key->action_list = list;
}

int key_step_count(const Configuration& config, const KeyPlace& place)
{
    const std::int32_t list = key_action_list(config, place);
    if (list < 0 || list >= action_list_rows) return 0;
    return config.action_lists.entries[static_cast<std::size_t>(list)].step_count;
}

bool softkey_can_be_made(const Configuration& config, const KeyPlace& place)
{
    if (place.kind != kind_soft || place.slot >= 0) return true;
    // A HOME page holds its devices' keys alone. A made key is always the
    // right-side key, so a row whose right key stands has no room for it.
    if (place.home) return false;
    const auto right = static_cast<std::uint8_t>(place.position & 0x7F);
    if (right != place.position) {
        const auto row = locate_softkey(config, config.page_table[static_cast<std::size_t>(place.page_row)].node_key, right);
        if (!row || row->slot >= 0) return false;
    }
    return config.page_table[static_cast<std::size_t>(place.page_row)].key_count < softkeys_per_page &&
           search_softkeyno(config) < softkey_label_rows;
}

bool make_softkey(Configuration& config, KeyPlace& place)
{
    if (place.kind != kind_soft || place.slot >= 0) return true;
    if (!softkey_can_be_made(config, place)) return false;
    place.position = static_cast<std::uint8_t>(place.position & 0x7F);
    auto& page = config.page_table[static_cast<std::size_t>(place.page_row)];
    const int label = search_softkeyno(config);
    config.softkey_labels[static_cast<std::size_t>(label)].bytes[0] = 0;
    place.slot = page.key_count;
    page.key_count = static_cast<std::uint8_t>(page.key_count + 1);
    const auto row = static_cast<std::size_t>(place.page_slots_row);
    SoftKey& key = place.home ? config.home_pages[row].slots[static_cast<std::size_t>(place.slot)]
                              : config.device_pages[row].slots[static_cast<std::size_t>(place.slot)];
    key = SoftKey{};
    key.label_index = label;
    key.position = place.position;
    key.action_list = no_index;
    return true;
}

}  // namespace tesselo
