#pragma once

namespace tesselo {

struct Configuration;

// The first softkey_labels entry from 0 to 923 whose header is 255 (free);
// 924, one past the pool, when every entry is taken.
int search_softkeyno(const Configuration& config);

}  // namespace tesselo
