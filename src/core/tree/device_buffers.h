#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/keys/key_clipboard.h"
#include "core/model/configuration.h"
#include "core/tree/pasted_targets.h"

namespace tesselo {

// One soft key slot of a page by value: its position byte and key bytes, and
// its label and steps with every code they send.
struct PageSlotClip {
    std::uint8_t position = 0;
    std::uint8_t key_state = 0;
    std::uint8_t key_flags = 0;
    // The label row the key had where it was copied; a link names a soft key by it.
    std::int32_t label_index = no_index;
    KeyClipRecord record;
    StepTargets targets;
};

// A page by value: the slots in use (slot 0 is the page's own).
struct PageBuffer {
    std::string page_key;  // the page's node key where it was copied
    int slot_count = 0;
    std::array<PageSlotClip, softkeys_per_page> slots{};
};

// One hard key by value: its label and steps, its two hardkey_index bytes and
// its behaviour bytes.
struct HardKeyClip {
    KeyClipRecord record;
    StepTargets targets;
    std::uint8_t index_count = 0;
    std::uint8_t index_reserved = 0;
    std::uint8_t sleep_flag = 0;
    std::uint8_t key_flags = 0;
};

// A device by value: its name, its settings, each page and its 41 hard keys.
struct DeviceBuffer {
    int source_document = 0;
    std::string device_key;  // the device's node key where it was copied
    KeyLabel name{};
    DeviceExtra extra{};
    std::vector<PageBuffer> pages;
    std::array<HardKeyClip, hardkeys_per_device> hardkeys{};
    // The hard keys it owned as punched through where it was copied.
    std::array<bool, hardkeys_per_device> punch_owned{};
};

// copy_pagebuffer: unfolds the page with tree key `page_key` of the document
// in `slot` (its tables `config`). False when the page has no row.
bool copy_pagebuffer(const Configuration& config, const std::string& page_key, int slot, PageBuffer& buffer);
// copy_devicebuffer: unfolds device row `row`.
bool copy_devicebuffer(const Configuration& config, int row, int slot, DeviceBuffer& buffer);

// Links and jumps don't cross documents: with `foreign`, each of the
// buffer's steps of type 8 or 6 becomes 255 for good, and the count of
// steps so dropped is returned.
int drop_foreign_links(PageBuffer& buffer, bool foreign);
int drop_foreign_links(DeviceBuffer& buffer, bool foreign);

// Aims the buffer's jumps and links, pasted into its own document, at what
// they aimed at when it was copied (see aim_targets); `own` says where the
// content lands. The count of steps dropped.
int aim_buffer_targets(const Configuration& config, PageBuffer& buffer, const OwnPlaces& own);
int aim_buffer_targets(const Configuration& config, DeviceBuffer& buffer, const OwnPlaces& own);

// What a paste of the buffer takes from the document: every step but those
// dropped, learned codes, IR records and formats.
void add_paste_needs(const Configuration& config, const PageBuffer& buffer, PasteNeeds& needs);
void add_paste_needs(const Configuration& config, const DeviceBuffer& buffer, PasteNeeds& needs);
// The label rows a paste of the buffer takes: one per key of a row, left or
// right; for a device, its HOME key's name too.
int label_rows_needed(const PageBuffer& buffer);
int label_rows_needed(const DeviceBuffer& buffer);
// The label rows still free in the document.
int label_rows_free(const Configuration& config);

// Where a pasted soft key went: its label row in the source and its new one.
struct LabelMove {
    std::int32_t from = no_index;
    std::int32_t to = no_index;
};

// Fills the page at `page_row` of page_table (its device_pages row
// `slots_row`) from the buffer, the slots row by row with a split row's left
// button in front of its right one: each key of a row gets a free label row
// with the label's planes, and
// the steps are written with their codes re-created. Each label row's move is
// added to `moves` when it is given. The caller has checked every limit.
void fill_page_from_buffer(Configuration& config, int page_row, int slots_row, const PageBuffer& buffer,
                           std::vector<LabelMove>* moves = nullptr);
// Gives device row `row` the buffer's 41 hard keys: labels, index bytes,
// behaviours and steps (a key without steps gets 65535), and its settings.
void fill_hardkeys_from_buffer(Configuration& config, int row, const DeviceBuffer& buffer);

}  // namespace tesselo
