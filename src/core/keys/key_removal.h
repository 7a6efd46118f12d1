#pragma once

#include "core/model/configuration.h"

namespace tesselo {

struct KeyPlace;

// The tables' part of deleting the key at `place`: its list is freed with
// each step's code, the links to it are removed first (Cut_hardlinkthiskey
// for a hard key, Cut_Softlinkthiskey for a soft key), then a hard key keeps
// its place with no action and its standard name back, and a soft key's
// label is freed and the page's slots behind it close up. False when the
// place holds no key.
bool remove_key(Configuration& config, const KeyPlace& place);

}  // namespace tesselo
