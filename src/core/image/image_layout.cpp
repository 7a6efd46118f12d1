#include "core/image/image_layout.h"

namespace tesselo {

std::array<std::int32_t, header_entries> image_header(const ImageCounts& c)
{
    // Section sizes in header order; entry i + 1 is entry i plus size[i].
    const std::array<std::int32_t, header_entries - 1> size = {
        header_bytes,                // 0 header
        4,                           // 1 format_stamp
        4,                           // 2 zero bytes
        12,                          // 3 clock_block
        6,                           // 4 zero bytes
        12,                          // 5 zero bytes
        learning_bitmap_bytes,       // 6
        learned_codes * learning_slot_bytes,  // 7
        action_lists_bytes,          // 8
        action_steps_bytes,          // 9
        164 * c.N,                   // 10 hardkeys
        410 * c.N,                   // 11 hardkey_labels
        164 * c.N,                   // 12 hardkey_index
        punch_through_section_bytes, // 13
        7 * c.K,                     // 14 flat_softkeys
        softkey_labels_section_bytes,  // 15
        4 * c.T,                     // 16 page_table
        4 * c.N,                     // 17 device_table
        10 * c.N,                    // 18 device_name_table
        2 * c.N,                     // 19 device_extra
        2 + 64 * c.F,                // 20 ir_formats
        2 * c.F,                     // 21 ir_format_ids
        2 + c.L + 4 * c.R,           // 22 ir_data
        4 * c.R,                     // 23 ir_data_index
    };
    std::array<std::int32_t, header_entries> entry{};
    entry[0] = image_link_base;
    for (int i = 1; i < header_entries; ++i) entry[i] = entry[i - 1] + size[i - 1];
    return entry;
}

}  // namespace tesselo
