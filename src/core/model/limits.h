#pragma once

#include <cstdint>

namespace tesselo {

// The capacities of a Configuration. They mirror the remote's flat image, so
// they are fixed: a full table is refused, never grown.
inline constexpr int document_slots = 10;
inline constexpr int device_rows = 129;            // HOME and 128 Devices
inline constexpr int max_devices = 128;
inline constexpr int page_rows = 155;
inline constexpr int home_page_rows = 26;
inline constexpr int device_page_rows = 128;
inline constexpr int all_pages = 154;
inline constexpr int softkeys_per_page = 12;
inline constexpr int hardkeys_per_device = 41;
inline constexpr int hardkey_rows = device_rows * hardkeys_per_device;   // 5289
inline constexpr int softkey_label_rows = 924;
inline constexpr int image_softkey_labels = 768;
inline constexpr int flat_softkey_rows = all_pages * softkeys_per_page;  // 1848
inline constexpr int action_list_rows = 8000;
inline constexpr int action_step_rows = 9000;
inline constexpr int action_steps_accepted = 8000;
inline constexpr int steps_per_list = 40;
inline constexpr int ir_data_accepted = 8000;
inline constexpr int ir_data_banks = 9;
inline constexpr int ir_data_bank_rows = 900;
inline constexpr int ir_data_rows = ir_data_banks * ir_data_bank_rows;   // 8100
inline constexpr int ir_record_words = 33;
inline constexpr int ir_format_rows = 400;
inline constexpr int ir_format_words = 32;
inline constexpr int learned_codes = 1000;
inline constexpr int learning_slot_bytes = 64;
inline constexpr int learning_bitmap_bytes = 125;
inline constexpr int label_bytes = 10;
inline constexpr int label_glyphs = 9;
inline constexpr int punch_through_bytes = 18;
inline constexpr int header_entries = 25;
inline constexpr int file_tail_bytes = 2 * learned_codes;                // 2000

// Sentinels.
inline constexpr std::uint8_t free_byte = 255;       // a free byte field, a free step
inline constexpr std::int32_t no_index = 65535;      // no list, no label
inline constexpr std::uint16_t end_of_list = 65535;  // next_step of a list's last step
inline constexpr std::uint8_t hidden_flag = 255;     // hidden device or page

// Where the image is linked in the remote: every header entry is a position plus this.
inline constexpr std::int32_t image_link_base = 4096;

}  // namespace tesselo
