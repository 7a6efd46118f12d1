#pragma once

#include "core/model/configuration.h"

namespace tesselo {

// The first softkey_labels entry from 0 to 923 whose header is 255; 924, one
// past the pool, when every entry is taken.
int search_softkeyno(const Configuration& config);

}  // namespace tesselo
