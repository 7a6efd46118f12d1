#pragma once

#include <array>
#include <cstdint>

#include "core/model/limits.h"

namespace tesselo {

// The counts that size a ConfigurationImage.
struct ImageCounts {
    int H = 0;  // HOME pages
    int D = 0;  // soft keys over the HOME pages
    int N = 0;  // device_table records in use, HOME included: D - H + 1
    int T = 0;  // all pages
    int K = 0;  // soft keys over all pages
    int F = 0;  // IR formats
    int R = 0;  // IR data records
    int L = 0;  // bytes of IR code words over all records
};

// Fixed sizes of the image's sections.
inline constexpr int header_bytes = 100;
inline constexpr int action_lists_bytes = 2 + 3 * action_list_rows;  // 24002
inline constexpr int action_steps_bytes = 2 + 8 * action_step_rows;  // 72002
inline constexpr int punch_through_section_bytes = hardkeys_per_device * punch_through_bytes;  // 738
inline constexpr int softkey_labels_section_bytes = label_bytes * image_softkey_labels;         // 7680
inline constexpr int end_mark_bytes = 6;

// Section numbers: the header entry that holds each section's position.
enum Section {
    sec_header = 0, sec_format_stamp = 1, sec_zero_a = 2, sec_clock_block = 3, sec_zero_b = 4,
    sec_zero_c = 5, sec_learning_bitmap = 6, sec_learning_memory = 7, sec_action_lists = 8,
    sec_action_steps = 9, sec_hardkeys = 10, sec_hardkey_labels = 11, sec_hardkey_index = 12,
    sec_punch_through = 13, sec_flat_softkeys = 14, sec_softkey_labels = 15, sec_page_table = 16,
    sec_device_table = 17, sec_device_names = 18, sec_device_extra = 19, sec_ir_formats = 20,
    sec_ir_format_ids = 21, sec_ir_data = 22, sec_ir_data_index = 23, sec_end_mark = 24,
};

// The 25 header entries, each a position plus 4096.
std::array<std::int32_t, header_entries> image_header(const ImageCounts& counts);

// P: the end mark's position; the image is P + 6 bytes, the file P + 2006.
inline std::int32_t end_mark_position(const std::array<std::int32_t, header_entries>& header)
{
    return header[sec_end_mark] - image_link_base;
}

}  // namespace tesselo
