#include "core/tree/device_buffers.h"

#include <algorithm>
#include <numeric>

#include "core/ir/edit_ir.h"
#include "core/keys/key_locator.h"
#include "core/keys/key_selection.h"
#include "core/model/softkey_labels.h"
#include "core/tree/tree_view.h"

namespace tesselo {

namespace {

std::size_t at(int i) { return static_cast<std::size_t>(i); }

bool valid_label(std::int32_t label) { return label >= 0 && label < softkey_label_rows; }

// Every key of a row, left or right, gets a label row of its own; the page's
// own slot 0 only when it carried a label where it was copied.
bool takes_label(const PageSlotClip& clip, int slot) { return slot > 0 || valid_label(clip.label_index); }

// The order of a page's slots: by row, the left button in front of its right
// one, so that a split row stays one pair.
int slot_order(const PageSlotClip& clip) { return (clip.position & 0x7F) * 2 + (clip.position < 128 ? 1 : 0); }

int drop_links(KeyClipRecord& r)
{
    int dropped = 0;
    for (int i = 0; i < r.clip_step_count; ++i) {
        std::uint8_t& type = r.clip_step_type[at(i)];
        if (type == step_link || type == step_jump) {
            type = step_free;
            ++dropped;
        }
    }
    return dropped;
}

}  // namespace

bool copy_pagebuffer(const Configuration& config, const std::string& page_key, int slot, PageBuffer& buffer)
{
    const int page_row = page_row_of_key(config, page_key);
    const int slots_row = page_slots_row_of_key(config, page_key);
    if (page_row < 0 || slots_row < 0) return false;
    buffer.page_key = page_key;
    buffer.slot_count = std::min<int>(config.page_table[at(page_row)].key_count, softkeys_per_page);
    for (int s = 0; s < softkeys_per_page; ++s) {
        PageSlotClip& clip = buffer.slots[at(s)];
        clip = PageSlotClip{};
        if (s >= buffer.slot_count) continue;
        const SoftKey& key = config.device_pages[at(slots_row)].slots[at(s)];
        clip.position = key.position;
        clip.key_state = key.key_state;
        clip.key_flags = key.key_flags;
        clip.label_index = key.label_index;
        clip.record.clip_key_kind = static_cast<std::uint8_t>(kind_soft);
        clip.record.clip_source_document = static_cast<std::uint8_t>(slot);
        if (valid_label(key.label_index)) clip.record.clip_label = config.softkey_labels[at(key.label_index)];
        else clip.record.clip_label.bytes[0] = free_byte;
        clip.record.clip_label_length = clip.record.clip_label.header();
        copy_list_record(config, key.action_list, clip.record);
        note_targets(config, clip.record, clip.targets);
    }
    return true;
}

bool copy_devicebuffer(const Configuration& config, int row, int slot, DeviceBuffer& buffer)
{
    if (row < 1 || row > device_count(config) || row >= device_rows) return false;
    buffer.source_document = slot;
    buffer.device_key = config.device_name_table[at(row)].node_key;
    buffer.name = config.device_name_table[at(row)].name;
    buffer.extra = config.device_extra[at(row)];
    const int first = pages_before(config, row);
    const int pages = config.device_table[at(row)].page_count;
    buffer.pages.assign(static_cast<std::size_t>(pages), PageBuffer{});
    for (int p = 0; p < pages && first + p < page_rows; ++p)
        copy_pagebuffer(config, config.page_table[at(first + p)].node_key, slot, buffer.pages[at(p)]);
    for (int k = 0; k < hardkeys_per_device; ++k) {
        const int entry = row * hardkeys_per_device + k;
        HardKeyClip& clip = buffer.hardkeys[at(k)];
        clip = HardKeyClip{};
        clip.record.clip_key_kind = static_cast<std::uint8_t>(kind_hard);
        clip.record.clip_source_document = static_cast<std::uint8_t>(slot);
        clip.record.clip_label = config.hardkey_labels[at(entry)];
        clip.record.clip_label_length = clip.record.clip_label.header();
        copy_list_record(config, config.hardkeys[at(entry)].action_list, clip.record);
        note_targets(config, clip.record, clip.targets);
        clip.index_count = config.hardkey_index[at(entry)].count;
        clip.index_reserved = config.hardkey_index[at(entry)].reserved;
        clip.sleep_flag = config.hardkeys[at(entry)].sleep_flag;
        clip.key_flags = config.hardkeys[at(entry)].key_flags;
        buffer.punch_owned[at(k)] = config.punch_through[at(k)][0] == row;
    }
    return true;
}

int drop_foreign_links(PageBuffer& buffer, bool foreign)
{
    if (!foreign) return 0;
    int dropped = 0;
    for (int s = 0; s < buffer.slot_count; ++s) dropped += drop_links(buffer.slots[at(s)].record);
    return dropped;
}

int drop_foreign_links(DeviceBuffer& buffer, bool foreign)
{
    if (!foreign) return 0;
    int dropped = 0;
    for (auto& page : buffer.pages) dropped += drop_foreign_links(page, true);
    for (auto& key : buffer.hardkeys) dropped += drop_links(key.record);
    return dropped;
}

int aim_buffer_targets(const Configuration& config, PageBuffer& buffer, const OwnPlaces& own)
{
    int dropped = 0;
    for (int s = 0; s < buffer.slot_count; ++s)
        dropped += aim_targets(config, buffer.slots[at(s)].record, buffer.slots[at(s)].targets, own);
    return dropped;
}

int aim_buffer_targets(const Configuration& config, DeviceBuffer& buffer, const OwnPlaces& own)
{
    int dropped = 0;
    for (auto& page : buffer.pages) dropped += aim_buffer_targets(config, page, own);
    for (auto& key : buffer.hardkeys) dropped += aim_targets(config, key.record, key.targets, own);
    return dropped;
}

void add_paste_needs(const Configuration& config, const PageBuffer& buffer, PasteNeeds& needs)
{
    for (int s = 0; s < buffer.slot_count; ++s) needs.add(config, buffer.slots[at(s)].record, false);
}

void add_paste_needs(const Configuration& config, const DeviceBuffer& buffer, PasteNeeds& needs)
{
    for (const auto& page : buffer.pages) add_paste_needs(config, page, needs);
    for (const auto& key : buffer.hardkeys) needs.add(config, key.record, false);
}

int label_rows_needed(const PageBuffer& buffer)
{
    int rows = 0;
    for (int s = 0; s < buffer.slot_count; ++s) rows += takes_label(buffer.slots[at(s)], s);
    return rows;
}

int label_rows_needed(const DeviceBuffer& buffer)
{
    int rows = 1;  // the HOME key's name
    for (const auto& page : buffer.pages) rows += label_rows_needed(page);
    return rows;
}

int label_rows_free(const Configuration& config)
{
    return static_cast<int>(std::count_if(config.softkey_labels.begin(), config.softkey_labels.end(),
                                          [](const KeyLabel& label) { return label.is_free(); }));
}

void fill_page_from_buffer(Configuration& config, int page_row, int slots_row, const PageBuffer& buffer,
                           std::vector<LabelMove>* moves)
{
    const int count = std::clamp(buffer.slot_count, 1, softkeys_per_page);
    config.page_table[at(page_row)].key_count = static_cast<std::uint8_t>(count);
    // The slots are taken row by row, each split row as its pair; slot 0 is the page's own.
    std::array<int, softkeys_per_page> order{};
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin() + 1, order.begin() + count, [&](int a, int b) {
        return slot_order(buffer.slots[at(a)]) < slot_order(buffer.slots[at(b)]);
    });
    auto& slots = config.device_pages[at(slots_row)].slots;
    for (int i = 0; i < softkeys_per_page; ++i) {
        SoftKey& key = slots[at(i)];
        key = SoftKey{0, 0, no_index, no_index, 0};
        if (i >= count) continue;
        const PageSlotClip& clip = buffer.slots[at(order[at(i)])];
        key.position = clip.position;
        key.key_state = clip.key_state;
        key.key_flags = clip.key_flags;
        std::int16_t key_number = 0;
        if (takes_label(clip, i)) {
            const int label = search_softkeyno(config);
            if (label < softkey_label_rows) {
                KeyLabel planes = clip.record.clip_label;
                if (planes.is_free()) planes.bytes[0] = 0;
                config.softkey_labels[at(label)] = planes;
                key.label_index = label;
                key_number = static_cast<std::int16_t>(label);
                if (moves) moves->push_back({clip.label_index, label});
            }
        }
        const std::int32_t list = paste_list_record(config, clip.record, key_number);
        key.action_list = list == paste_no_room ? no_index : list;
    }
}

void fill_hardkeys_from_buffer(Configuration& config, int row, const DeviceBuffer& buffer)
{
    for (int k = 0; k < hardkeys_per_device; ++k) {
        const int entry = row * hardkeys_per_device + k;
        const HardKeyClip& clip = buffer.hardkeys[at(k)];
        config.hardkey_labels[at(entry)] = clip.record.clip_label;
        config.hardkey_index[at(entry)].count = clip.index_count;
        config.hardkey_index[at(entry)].reserved = clip.index_reserved;
        HardKey& key = config.hardkeys[at(entry)];
        key.sleep_flag = clip.sleep_flag;
        key.key_flags = clip.key_flags;
        KeyPlace place;
        place.kind = kind_hard;
        place.hard_entry = entry;
        const std::int32_t list = paste_list_record(config, clip.record, learning_key_number(place, config));
        key.action_list = list == paste_no_room ? no_index : list;
    }
    config.device_extra[at(row)] = buffer.extra;
}

}  // namespace tesselo
