#pragma once

#include <memory>
#include <string>

#include "core/model/configuration.h"
#include "core/model/hardkey_defaults.h"

namespace tesselo::bench {

// A Configuration that fills the tables: 26 HOME pages, 128 Devices with a
// full page each, 8000 IR data records and 400 formats.
inline std::unique_ptr<Configuration> full_configuration()
{
    auto c = std::make_unique<Configuration>();
    init_new_configuration(*c, 0);
    // 26 HOME pages with 5 Devices each would pass 128; 128 Devices with one page each.
    c->device_table[0].page_count = 26;
    for (int p = 0; p < 26; ++p) c->page_table[static_cast<std::size_t>(p)].key_count = p < 25 ? 6 : 4;
    for (int d = 1; d <= 128; ++d) {
        c->device_table[static_cast<std::size_t>(d)] = {0, 1, 1, 0};
        reset_entity_hardkeys(*c, d);
        auto& page = c->page_table[static_cast<std::size_t>(25 + d)];
        page.key_count = 12;
        page.node_key = "DEVICE" + std::to_string(d) + "1\\PAGE1";
        c->device_pages[static_cast<std::size_t>(d - 1)].node_key = page.node_key;
    }
    c->ir_data.record_count = 8000;
    for (int r = 0; r < 8000; ++r) c->ir_data_index[static_cast<std::size_t>(r)] = {r * 66, 62};
    c->ir_formats.format_count = 400;
    return c;
}

}  // namespace tesselo::bench
