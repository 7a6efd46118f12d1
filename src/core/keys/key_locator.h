#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/model/configuration.h"

namespace tesselo {

class KeySelection;

// Where the selected key lives in the tables of one document. A soft key is
// found by its position byte among the 12 slots of its page; a hard key at
// device * 41 + key index.
struct KeyPlace {
    int kind = 0;             // 1 hard, 2 soft
    int device = 0;           // device row of the page, 0 for HOME
    int page_row = -1;        // row of the page in page_table
    bool home = false;        // a HOME page: searched by row alone, no left keys
    int page_slots_row = -1;  // row of home_pages or device_pages
    std::uint8_t position = 0;
    int slot = -1;            // the soft key's slot, -1 while the position has no key
    int hard_entry = -1;      // device * 41 + key index
};

// The key that `selection` names on the page whose tree node key is
// `page_key`; nothing when the page or the key cannot be found (a picture
// without hard key index, a page key without table row).
std::optional<KeyPlace> locate_key(const Configuration& config, const std::string& page_key,
                                   const KeySelection& selection);

// The same for a soft key given by its position byte.
std::optional<KeyPlace> locate_softkey(const Configuration& config, const std::string& page_key,
                                       std::uint8_t position);

// The part of a page node key before its "\": the key of its device node.
std::string parent_node_key(const std::string& page_key);

// The soft key slot of a page, or nullptr.
SoftKey* softkey_at(Configuration& config, const KeyPlace& place);
const SoftKey* softkey_at(const Configuration& config, const KeyPlace& place);

// The key's list number, 65535 when it has no list (or no key yet).
std::int32_t key_action_list(const Configuration& config, const KeyPlace& place);
void set_key_action_list(Configuration& config, const KeyPlace& place, std::int32_t list);
// The key's current step count: step_count of its list, 0 without one.
int key_step_count(const Configuration& config, const KeyPlace& place);

// Makes the soft key at the place's position when it has none: a free soft
// key number from search_softkeyno with label length 0, the page's key count
// raised, the next free slot filled (the row alone: a new key is always the
// right-side key). False when the page or the label pool is full, on a
// HOME page, and on a left button whose row has its right key.
bool make_softkey(Configuration& config, KeyPlace& place);
// Whether make_softkey would find room: true where the key stands already.
bool softkey_can_be_made(const Configuration& config, const KeyPlace& place);

}  // namespace tesselo
