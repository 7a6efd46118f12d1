#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "core/ir/rc_codes.h"
#include "core/model/configuration.h"

namespace tesselo {

// An IR code by value, as a step's data is carried from a dialog or a
// clipboard into a document: a code of a format and its words, or the 64
// bytes of a learned code.
struct IrCodeValue {
    bool learned = false;
    // A format-and-data code: the id under which its format is kept, the
    // format's 32 words, and the code words (word 0 is replaced by the
    // format's index when the code is stored).
    std::int16_t format_id = 0;
    IrFormatRecord format{};
    IrCodeWords words{};
    int word_count = 0;
    // A learned code.
    std::array<std::uint8_t, learning_slot_bytes> learned_bytes{};
};

// The code of the stored record `record` of a document, by value.
IrCodeValue stored_ir_code(const Configuration& config, int record);
// The learned code in slot `slot` of a document, by value.
IrCodeValue stored_learned_code(const Configuration& config, int slot);

// find_ir_record: the first record, from 0 on, that holds the same code:
// the same length, and word by word the same words. Word 0 of a stored record
// is the index of its format, so there the code's format id is compared with
// the id the record's format is kept under. -1 when there is none.
int find_ir_record(const Configuration& config, const IrCodeValue& code);

// The index of the format kept under `format_id` in ir_format_ids, searched
// from entry `from`; -1 when it is not there.
int find_ir_format(const Configuration& config, std::int16_t format_id, int from = 0);

// Whether a code could be stored as a new record: its word count fits a
// record, and its format is kept already or the format table has room.
bool ir_code_storable(const Configuration& config, const IrCodeValue& code);

// Stores a format-and-data code once: an identical record is reused, else its
// format is found or appended at the end of ir_formats with its id, and a new
// record is added at the record count, its offset the end of the record
// before it, its words closed by 3000 and 0. The record's number, or nothing
// when the code cannot be stored (too many words, the format table full, the
// data table full): then nothing has changed.
std::optional<int> store_ir_code(Configuration& config, const IrCodeValue& code);
// The same without the search for an identical record: the code always gets a
// record of its own (the key clipboard's paste re-creates each step's data so).
std::optional<int> append_ir_record(Configuration& config, const IrCodeValue& code);

// check_learnkeyno: takes the first clear bit of learning_bitmap (a byte of
// 255 is passed over; the highest bit of a byte is its lowest slot), sets it
// and returns the slot; -1 when every slot is used.
int check_learnkeyno(Configuration& config);
// check_learntotalno: the count of bits set in learning_bitmap.
int check_learntotalno(const Configuration& config);
// learning_memory_free: 1 when a byte of learning_bitmap is below 255.
int learning_memory_free(const Configuration& config);
// The count of learning slots that check_learnkeyno can still hand out.
int learning_slots_free(const Configuration& config);

// Stores a learned code in the first free slot, noting `key_number` in
// learning_keys. The slot, or -1 when the learning memory is full.
int store_learned_code(Configuration& config, const IrCodeValue& code, std::int16_t key_number);

}  // namespace tesselo
