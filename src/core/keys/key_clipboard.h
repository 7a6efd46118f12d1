#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <set>
#include <string>

#include "core/model/configuration.h"

namespace tesselo {

struct KeyPlace;

// The words of an IR code a clipboard record holds per step.
inline constexpr int clip_code_words = 32;

// One key by value: its label, its whole step list, and for each step the IR
// code, IR format and learned-code bytes the step refers to. So a key can be
// pasted into another open document, and the source may go between copy and
// paste.
struct KeyClipRecord {
    std::uint8_t clip_step_count = 0;
    std::uint8_t clip_label_length = 0;
    KeyLabel clip_label{};  // the label's planes, header included
    std::uint16_t clip_action_list = static_cast<std::uint16_t>(no_index);
    std::array<std::uint8_t, steps_per_list> clip_step_type{};
    std::array<std::uint8_t, steps_per_list> clip_param_low{};
    std::array<std::uint8_t, steps_per_list> clip_param_high{};
    std::array<std::uint8_t, steps_per_list> clip_extra{};
    std::array<std::uint16_t, steps_per_list> clip_value{};
    std::array<std::array<std::int16_t, clip_code_words>, steps_per_list> clip_ir_format{};
    std::array<std::array<std::int16_t, clip_code_words>, steps_per_list> clip_ir_data{};
    std::array<std::int16_t, steps_per_list> clip_ir_format_id{};
    std::array<std::uint8_t, steps_per_list> clip_ir_length{};
    std::array<std::array<std::uint8_t, learning_slot_bytes>, steps_per_list> clip_learned{};
    std::uint8_t clip_source_document = 0;
    // A hard key's label header is its plain length, a soft key's carries the
    // alignment too: the label is converted when it lands on the other kind.
    std::uint8_t clip_key_kind = 0;
};

// Fills `record` from the key at `place` of a document in `source_slot`:
// the label (a hard key's from hardkey_labels, a soft key's from
// softkey_labels) and every step of its chain with the data it refers to.
void copy_key_record(const Configuration& config, const KeyPlace& place, int source_slot, KeyClipRecord& record);
// The step part of a copy: every step of list `list` (65535: none) with the
// data it refers to; the label and the source are left as they are.
void copy_list_record(const Configuration& config, std::int32_t list, KeyClipRecord& record);

// Links and jumps don't cross documents: their device and page numbers mean
// nothing in another one. When the record comes from another slot than
// `active_slot`, each of its steps of type 8 or 6 becomes 255, for good.
void drop_foreign_steps(KeyClipRecord& record, int active_slot);

// A link or jump of the record that names no key or page of the document
// it lands in (the key was deleted since the copy) becomes 255, for good:
// the remote could not survive a dangling step.
void drop_dangling_steps(const Configuration& config, KeyClipRecord& record);

// Why a paste of `record` cannot be done, before any change: nothing when it fits.
enum class PasteRefusal { none, document_steps, learning_memory, ir_storage };
PasteRefusal paste_refusal(const Configuration& config, const KeyClipRecord& record);

// What the paste of several records takes from a document, summed before any
// change: steps, learned codes, IR records and formats not yet kept.
struct PasteNeeds {
    int steps = 0;
    int learned = 0;
    int records = 0;
    std::set<std::int16_t> new_formats;
    bool unstorable = false;
    // `counted_whole`: the steps that will be dropped (255) count too.
    void add(const Configuration& config, const KeyClipRecord& record, bool counted_whole);
    // The refusal, in the order of the checks: more steps than `step_limit`
    // in use after the paste, the learning memory, then the IR storage.
    PasteRefusal refusal(const Configuration& config, int step_limit) const;
};

// check_marcosteps: re-creates the data of step `index` of the record in a
// document and returns its new number: a record of its own in ir_data for an
// IR code (its format found by id or appended), a free learned slot for a
// learned code noted under `key_number`. -1 when it cannot be stored.
int check_marcosteps(Configuration& config, const KeyClipRecord& record, int index, std::int16_t key_number);

// Writes the record into the key at `place` (a soft key is made there when
// the position has none): its present list is freed, the steps are written
// at the lowest free rows, chained, and their data re-created; the label is
// taken only when `take_label`. False when no key can stand there. The
// caller has checked paste_refusal.
bool paste_key_record(Configuration& config, KeyPlace& place, const KeyClipRecord& record, bool take_label);

// The step part of a paste: the record's steps but those of type 255 written
// at the lowest free rows, chained, their data re-created with learned codes
// noted under `key_number`, and a free list taken for them. The list's number,
// 65535 when no step was written, paste_no_room when every list is in use
// (then nothing has changed).
inline constexpr std::int32_t paste_no_room = -1;
std::int32_t paste_list_record(Configuration& config, const KeyClipRecord& record, std::int16_t key_number);

}  // namespace tesselo
