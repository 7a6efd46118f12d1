#pragma once

#include <array>

#include "core/model/key_label.h"
#include "core/model/limits.h"

namespace tesselo {

using HardKeyLabelSet = std::array<KeyLabel, hardkeys_per_device>;

// The 41 default hard key labels that every Device and HOME start with.
// Built once; init_hardkey_defaults returns the same table on every call.
const HardKeyLabelSet& init_hardkey_defaults();

struct Configuration;

// Gives entity `entity` (0 HOME, 1..128 a Device) the default labels and no
// action lists on its 41 hard keys.
void reset_entity_hardkeys(Configuration& config, int entity);

}  // namespace tesselo
