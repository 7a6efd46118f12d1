#include "core/keys/key_clipboard.h"

#include <algorithm>
#include <set>

#include "core/ir/edit_ir.h"
#include "core/ir/ir_storage.h"
#include "core/keys/key_locator.h"
#include "core/keys/key_selection.h"
#include "core/keys/step_chain.h"
#include "core/model/action_chain.h"
#include "core/tree/tree_view.h"

namespace tesselo {

namespace {

std::size_t at(int i) { return static_cast<std::size_t>(i); }

// The code of step `i` of a record, as the IR storage takes it.
IrCodeValue clip_code(const KeyClipRecord& r, int i)
{
    IrCodeValue code;
    if (sends_learned_code(r.clip_step_type[at(i)])) {
        code.learned = true;
        code.learned_bytes = r.clip_learned[at(i)];
        return code;
    }
    code.format_id = r.clip_ir_format_id[at(i)];
    std::copy_n(r.clip_ir_format[at(i)].begin(), std::min<int>(clip_code_words, ir_format_words), code.format.begin());
    code.word_count = std::min(r.clip_ir_length[at(i)] / 2, ir_record_words - 2);
    std::copy_n(r.clip_ir_data[at(i)].begin(), code.word_count, code.words.begin());
    return code;
}

bool same_code(const IrCodeValue& a, const IrCodeValue& b)
{
    return a.format_id == b.format_id && a.word_count == b.word_count && a.word_count >= 1 &&
           std::equal(a.words.begin() + 1, a.words.begin() + a.word_count, b.words.begin() + 1);
}

bool slot_in_use(const Configuration& config, int slot)
{
    return slot >= 0 && slot < learned_codes && (config.learning_bitmap[at(slot / 8)] & (128 >> (slot % 8))) != 0;
}

// Whether a step of `type` names learned slot `slot`.
bool slot_named_by(const Configuration& config, int slot, std::uint8_t type)
{
    for (const ActionStep& s : config.action_steps.steps)
        if (s.step_type == type && step_number_value(s) == slot) return true;
    return false;
}

// Where the code of a My Database step (128, 133) already is in the
// document, or -1. Nothing of My Database is given back when its steps go,
// so the code the step named is still at its number, unless the record or
// slot holds another code (the step came from another document). A learned
// slot that a learned step of the document's own (5) holds is not shared:
// it is given back with that step.
int mydatabase_code_at(const Configuration& config, const KeyClipRecord& r, int i)
{
    const std::uint8_t type = r.clip_step_type[at(i)];
    const int number = r.clip_param_low[at(i)] + 256 * r.clip_param_high[at(i)];
    if (type == step_mydatabase) {
        if (number < std::clamp(config.ir_data.record_count, 0, ir_data_rows) &&
            same_code(stored_ir_code(config, number), clip_code(r, i)))
            return number;
        return find_ir_record(config, clip_code(r, i));
    }
    if (type != step_mydatabase_learning) return -1;
    const auto holds = [&](int slot) {
        return slot_in_use(config, slot) && config.learning_memory[at(slot)] == r.clip_learned[at(i)] &&
               !slot_named_by(config, slot, step_learning);
    };
    if (holds(number)) return number;
    // Pasted from another document: the slot that a step of My Database
    // already names with the same code.
    for (const ActionStep& s : config.action_steps.steps)
        if (s.step_type == step_mydatabase_learning && holds(step_number_value(s))) return step_number_value(s);
    return -1;
}

// A soft label's header is glyph count and alignment, a hard label's its
// plain length: across kinds the glyph count alone goes over.
KeyLabel label_for(const KeyClipRecord& r, int target_kind)
{
    KeyLabel label = r.clip_label;
    label.bytes[0] = r.clip_label_length;
    if (r.clip_key_kind != target_kind && !label.is_free()) label.bytes[0] = static_cast<std::uint8_t>(label.glyph_count());
    if (label.is_free()) label.bytes[0] = 0;
    return label;
}

}  // namespace

void copy_key_record(const Configuration& config, const KeyPlace& place, int source_slot, KeyClipRecord& r)
{
    r = KeyClipRecord{};
    r.clip_key_kind = static_cast<std::uint8_t>(place.kind);
    r.clip_source_document = static_cast<std::uint8_t>(source_slot);
    if (place.kind == kind_hard) {
        r.clip_label = config.hardkey_labels[at(place.hard_entry)];
    } else if (const SoftKey* key = softkey_at(config, place);
               key && key->label_index >= 0 && key->label_index < softkey_label_rows) {
        r.clip_label = config.softkey_labels[at(key->label_index)];
    }
    r.clip_label_length = r.clip_label.header();
    copy_list_record(config, key_action_list(config, place), r);
}

void copy_list_record(const Configuration& config, std::int32_t list, KeyClipRecord& r)
{
    r.clip_action_list = static_cast<std::uint16_t>(list);
    int n = 0;
    for (int step : steps_of_list(config, list)) {
        if (n >= steps_per_list) break;
        const ActionStep& s = config.action_steps.steps[at(step)];
        r.clip_step_type[at(n)] = s.step_type;
        r.clip_param_low[at(n)] = s.param_low;
        r.clip_param_high[at(n)] = s.param_high;
        r.clip_extra[at(n)] = s.extra;
        r.clip_value[at(n)] = s.value;
        const int number = step_number_value(s);
        if (sends_ir_record(s.step_type)) {
            const IrCodeValue code = stored_ir_code(config, number);
            std::copy_n(code.format.begin(), std::min<int>(clip_code_words, ir_format_words), r.clip_ir_format[at(n)].begin());
            std::copy_n(code.words.begin(), std::min(code.word_count, clip_code_words), r.clip_ir_data[at(n)].begin());
            r.clip_ir_format_id[at(n)] = code.format_id;
            r.clip_ir_length[at(n)] = static_cast<std::uint8_t>(code.word_count * 2);
        } else if (sends_learned_code(s.step_type)) {
            r.clip_learned[at(n)] = stored_learned_code(config, number).learned_bytes;
        }
        ++n;
    }
    r.clip_step_count = static_cast<std::uint8_t>(n);
    if (n == 0) r.clip_action_list = static_cast<std::uint16_t>(no_index);
}

void drop_foreign_steps(KeyClipRecord& r, int active_slot)
{
    if (r.clip_source_document == active_slot) return;
    for (int i = 0; i < r.clip_step_count; ++i)
        if (r.clip_step_type[at(i)] == step_link || r.clip_step_type[at(i)] == step_jump) r.clip_step_type[at(i)] = step_free;
}

namespace {

bool device_in_use(const Configuration& config, int device)
{
    return device == 0 || (device < device_rows && !config.device_name_table[at(device)].node_key.empty());
}

// The page row of place `place` among the pages of `device`, or -1.
int page_row_of(const Configuration& config, int device, int place)
{
    if (!device_in_use(config, device) || place >= config.device_table[at(device)].page_count) return -1;
    const int row = pages_before(config, device) + place;
    return row < page_rows && !config.page_table[at(row)].node_key.empty() ? row : -1;
}

bool names_something(const Configuration& config, const KeyClipRecord& r, int i)
{
    const int device = r.clip_param_low[at(i)];
    const int high = r.clip_param_high[at(i)];
    if (r.clip_step_type[at(i)] == step_jump) return page_row_of(config, device, high) >= 0;
    if (high == free_byte) return device_in_use(config, device);
    const int row = page_row_of(config, device, high);
    if (row < 0) return false;
    const auto place = locate_softkey(config, config.page_table[at(row)].node_key, r.clip_extra[at(i)]);
    const SoftKey* key = place ? softkey_at(config, *place) : nullptr;
    return key && key->label_index == r.clip_value[at(i)];
}

}  // namespace

void drop_dangling_steps(const Configuration& config, KeyClipRecord& r)
{
    for (int i = 0; i < r.clip_step_count; ++i) {
        const std::uint8_t t = r.clip_step_type[at(i)];
        if ((t == step_link || t == step_jump) && !names_something(config, r, i)) r.clip_step_type[at(i)] = step_free;
    }
}

void PasteNeeds::add(const Configuration& config, const KeyClipRecord& r, bool counted_whole)
{
    for (int i = 0; i < r.clip_step_count; ++i) {
        const std::uint8_t t = r.clip_step_type[at(i)];
        if (counted_whole || t != step_free) ++steps;
        // A code of My Database that the document holds is not stored again.
        if (mydatabase_code_at(config, r, i) >= 0) continue;
        if (sends_learned_code(t)) ++learned;
        if (!sends_ir_record(t)) continue;
        ++records;
        const IrCodeValue code = clip_code(r, i);
        if (code.word_count < 1) unstorable = true;
        if (find_ir_format(config, code.format_id) < 0) new_formats.insert(code.format_id);
    }
}

PasteRefusal PasteNeeds::refusal(const Configuration& config, int step_limit) const
{
    if (steps + config.action_steps.step_total > step_limit) return PasteRefusal::document_steps;
    if (learned > learning_slots_free(config) || learned + check_learntotalno(config) > learned_codes)
        return PasteRefusal::learning_memory;
    const int formats = std::clamp<int>(config.ir_formats.format_count, 0, ir_format_rows);
    const int stored = std::clamp(config.ir_data.record_count, 0, ir_data_rows);
    if (unstorable || records > ir_data_rows - stored || static_cast<int>(new_formats.size()) > ir_format_rows - formats)
        return PasteRefusal::ir_storage;
    return PasteRefusal::none;
}

PasteRefusal paste_refusal(const Configuration& config, const KeyClipRecord& r)
{
    // A key's paste counts every step of the record and refuses at 8000.
    PasteNeeds needs;
    needs.add(config, r, true);
    return needs.refusal(config, action_steps_accepted - 1);
}

int check_marcosteps(Configuration& config, const KeyClipRecord& r, int index, std::int16_t key_number)
{
    const IrCodeValue code = clip_code(r, index);
    if (code.learned) return store_learned_code(config, code, key_number);
    const auto stored = append_ir_record(config, code);
    return stored ? *stored : -1;
}

bool paste_key_record(Configuration& config, KeyPlace& place, const KeyClipRecord& r, bool take_label)
{
    if (!make_softkey(config, place)) return false;
    const std::int32_t old = key_action_list(config, place);
    if (old >= 0 && old < action_list_rows && config.action_lists.entries[at(old)].step_count > 0)
        delete_marcostep(config, old);
    set_key_action_list(config, place, no_index);

    if (take_label) {
        const KeyLabel label = label_for(r, place.kind);
        if (place.kind == kind_hard) config.hardkey_labels[at(place.hard_entry)] = label;
        else if (SoftKey* key = softkey_at(config, place); key && key->label_index >= 0 && key->label_index < softkey_label_rows)
            config.softkey_labels[at(key->label_index)] = label;
    }

    const std::int32_t list = paste_list_record(config, r, learning_key_number(place, config));
    if (list == paste_no_room) return false;
    set_key_action_list(config, place, list);
    return true;
}

std::int32_t paste_list_record(Configuration& config, const KeyClipRecord& r, std::int16_t key_number)
{
    auto& steps = config.action_steps;
    int first = -1, previous = -1, written = 0;
    int free_from = 0;
    for (int i = 0; i < r.clip_step_count; ++i) {
        const std::uint8_t type = r.clip_step_type[at(i)];
        if (type == step_free) continue;
        while (free_from < action_steps_accepted && steps.steps[at(free_from)].step_type != step_free) ++free_from;
        if (free_from >= action_steps_accepted) break;
        const int step = free_from;
        ActionStep& s = steps.steps[at(step)];
        s.step_type = type;
        s.param_low = r.clip_param_low[at(i)];
        s.param_high = r.clip_param_high[at(i)];
        s.value = r.clip_value[at(i)];
        s.extra = r.clip_extra[at(i)];
        s.next_step = end_of_list;
        if (sends_ir_record(type) || sends_learned_code(type)) {
            // A step of My Database points at the code it pointed at.
            int number = mydatabase_code_at(config, r, i);
            if (number < 0) number = check_marcosteps(config, r, i, key_number);
            if (number < 0) {
                // paste_refusal has ruled this out; a step without its data is not written.
                wipe_step(config, step);
                continue;
            }
            s.param_low = static_cast<std::uint8_t>(number % 256);
            s.param_high = static_cast<std::uint8_t>(number / 256);
        }
        if (previous >= 0) steps.steps[at(previous)].next_step = static_cast<std::uint16_t>(step);
        else first = step;
        previous = step;
        ++written;
        ++steps.step_total;
    }
    if (written == 0) return no_index;
    int list = -1;
    for (int l = 0; l < action_list_rows && list < 0; ++l)
        if (config.action_lists.entries[at(l)].step_count == 0) list = l;
    if (list < 0) {
        // Every list in use: the written steps go back, as if none were pasted.
        for (int step = first; step != end_of_list && step >= 0;) {
            const std::uint16_t next = steps.steps[at(step)].next_step;
            release_step_data(config, step);
            wipe_step(config, step);
            --steps.step_total;
            step = next;
        }
        return paste_no_room;
    }
    config.action_lists.entries[at(list)] = ActionList{static_cast<std::int16_t>(first), static_cast<std::uint8_t>(written)};
    ++config.action_lists.list_count;
    return list;
}

}  // namespace tesselo
