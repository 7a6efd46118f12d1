#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "core/model/key_label.h"
#include "core/model/limits.h"

namespace tesselo {

struct DeviceEntry {
    std::uint8_t page_base = 0;
    std::uint8_t page_count = 0;
    std::uint8_t visible_pages = 0;
    std::uint8_t hidden = 0;
};

struct DeviceName {
    KeyLabel name;
    std::int16_t node_index = 0;  // editor state, rebuilt on load
    std::string node_key;         // editor state, never written to the image
};

struct DeviceExtra {
    std::uint8_t option_a = 0;  // RF setting
    std::uint8_t option_b = 0;  // blaster setting
};

struct PageEntry {
    std::int16_t key_base = 0;
    std::uint8_t key_count = 0;
    std::uint8_t hidden = 0;
    std::int16_t node_index = 0;
    std::string node_key;  // ties the page to its device_pages row
};

struct SoftKey {
    std::uint8_t key_state = 0;
    std::uint8_t position = 0;  // display row 0..5, plus 128 for a left side button
    std::int32_t label_index = 0;
    std::int32_t action_list = 0;
    std::uint8_t key_flags = 0;
    bool operator==(const SoftKey&) const = default;
};

// Every key of a HOME page is a tree node of its own: slot 0 the page's entry,
// slots 1 to 5 its Devices.
struct HomePage {
    std::array<SoftKey, softkeys_per_page> slots{};
    std::array<std::int16_t, softkeys_per_page> node_index{};
    std::array<std::string, softkeys_per_page> node_key{};
};

// A device page row is free while its node_key is empty.
struct DevicePage {
    std::array<SoftKey, softkeys_per_page> slots{};
    std::int16_t node_index = 0;
    std::string node_key;
};

struct HardKey {
    std::uint8_t sleep_flag = 0;
    std::int32_t action_list = 0;
    std::uint8_t key_flags = 0;
};

struct HardKeyIndex {
    std::int16_t base = 0;
    std::uint8_t count = 0;
    std::uint8_t reserved = 0;
};

struct ActionList {
    std::int16_t first_step = 0;
    std::uint8_t step_count = 0;
};

struct ActionLists {
    std::int16_t list_count = 0;
    std::array<ActionList, action_list_rows> entries{};
};

struct ActionStep {
    std::uint8_t step_type = 0;
    std::uint8_t param_low = 0;
    std::uint8_t param_high = 0;
    std::uint16_t value = 0;
    std::uint8_t extra = 0;
    std::uint16_t next_step = 0;
    bool operator==(const ActionStep&) const = default;
};

struct ActionSteps {
    std::int16_t step_total = 0;
    std::array<ActionStep, action_step_rows> steps{};
};

// step_type values.
inline constexpr std::uint8_t step_ir_code = 0;
inline constexpr std::uint8_t step_rc5 = 1;
inline constexpr std::uint8_t step_rc5x = 2;
inline constexpr std::uint8_t step_rc6 = 3;
inline constexpr std::uint8_t step_rc6a = 4;
inline constexpr std::uint8_t step_learning = 5;
inline constexpr std::uint8_t step_jump = 6;
inline constexpr std::uint8_t step_delay = 7;
inline constexpr std::uint8_t step_link = 8;
inline constexpr std::uint8_t step_beep = 9;
inline constexpr std::uint8_t step_mydatabase = 128;
inline constexpr std::uint8_t step_mydatabase_learning = 133;
inline constexpr std::uint8_t step_free = 255;

// A step that sends a code: from the library, typed RC5/RC6 fields, learned,
// or My Database's.
constexpr bool is_ir_step(std::uint8_t type)
{
    return type <= step_learning || type == step_mydatabase || type == step_mydatabase_learning;
}
// Of those, the steps whose number is a record of ir_data, and the steps
// whose number is a learned-code slot.
constexpr bool sends_ir_record(std::uint8_t type) { return type < step_learning || type == step_mydatabase; }
constexpr bool sends_learned_code(std::uint8_t type)
{
    return type == step_learning || type == step_mydatabase_learning;
}

using IrFormatRecord = std::array<std::int16_t, ir_format_words>;
using IrDataRecord = std::array<std::int16_t, ir_record_words>;

struct IrFormats {
    std::int16_t format_count = 0;
    std::array<IrFormatRecord, ir_format_rows> records{};
};

// Identifiers of the built-in RC formats in ir_format_ids.
inline constexpr std::int16_t format_id_rc5 = 5;
inline constexpr std::int16_t format_id_rc5x = 90;
inline constexpr std::int16_t format_id_rc6 = 25;
inline constexpr std::int16_t format_id_rc6a = 206;

// Nine banks of 900 records: record r lies in bank r / 900 at r % 900, which
// is row r of one run of 8100 rows.
struct IrData {
    std::int32_t record_count = 0;
    std::array<IrDataRecord, ir_data_rows> records{};

    IrDataRecord& record(int r) { return records[static_cast<std::size_t>(r)]; }
    const IrDataRecord& record(int r) const { return records[static_cast<std::size_t>(r)]; }
};

// The closing words of every IR data record.
inline constexpr std::int16_t ir_closing_word = 3000;

struct IrDataIndex {
    std::int32_t offset = 0;  // byte offset in the data block
    std::uint8_t length = 0;  // bytes, without the two closing words
};

// The whole programming of one remote: every table of one document slot.
struct Configuration {
    std::array<DeviceEntry, device_rows> device_table{};
    std::array<DeviceName, device_rows> device_name_table{};
    std::array<DeviceExtra, device_rows> device_extra{};
    std::array<PageEntry, page_rows> page_table{};
    std::array<HomePage, home_page_rows> home_pages{};
    std::array<DevicePage, device_page_rows> device_pages{};
    std::array<SoftKey, flat_softkey_rows> flat_softkeys{};  // filled while an image is read or written
    std::array<KeyLabel, softkey_label_rows> softkey_labels{};
    std::array<HardKey, hardkey_rows> hardkeys{};
    std::array<KeyLabel, hardkey_rows> hardkey_labels{};
    std::array<HardKeyIndex, hardkey_rows> hardkey_index{};
    std::array<std::array<std::uint8_t, punch_through_bytes>, hardkeys_per_device> punch_through{};
    ActionLists action_lists;
    ActionSteps action_steps;
    IrFormats ir_formats;
    std::array<std::int16_t, ir_format_rows> ir_format_ids{};
    IrData ir_data;
    std::array<IrDataIndex, ir_data_rows> ir_data_index{};
    std::array<std::uint8_t, learning_bitmap_bytes> learning_bitmap{};
    std::array<std::array<std::uint8_t, learning_slot_bytes>, learned_codes> learning_memory{};
    std::array<std::int16_t, learned_codes> learning_keys{};
    std::array<std::uint8_t, 4> format_stamp{};
    std::array<std::uint8_t, 12> clock_block{};
    std::array<std::int32_t, header_entries> section_pointers{};
    // device_numbers_used[d - 1] is set while device number d is taken.
    std::array<std::uint8_t, device_rows> device_numbers_used{};
    std::int16_t page_numbers_used = 0;
};

// Every field zero and every string empty: the first step of a slot's reset.
void clear_configuration(Configuration& config);

// The content of a new Configuration in document slot `slot`: HOME with its
// first page, the default hard key labels, every sentinel in place.
void init_new_configuration(Configuration& config, int slot);

// The node keys of HOME and of its first page for the document in `slot`.
std::string home_node_key(int slot);

}  // namespace tesselo
