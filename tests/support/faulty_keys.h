#pragma once

#include "core/model/configuration.h"

namespace tesselo::testing {

// Gives the first device's page (after an AddDevice on a new document) two
// more keys that share label 5 and list 0, the first device's HOME key's
// list: faults that the check finds at DEVICE1/PAGE1/KEY2.
inline void make_keys_share_label_and_list(Configuration& c)
{
    c.page_table[1].key_count = 3;
    c.device_pages[0].slots[1] = {0, 1, 5, 0, 0};
    c.device_pages[0].slots[2] = {0, 2, 5, 0, 0};
    c.softkey_labels[5].bytes = {1, 1, 0, 0, 0, 0, 0, 0, 0, 0};
}

}  // namespace tesselo::testing
