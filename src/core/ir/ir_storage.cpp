#include "core/ir/ir_storage.h"

#include <algorithm>
#include <bit>

namespace tesselo {

namespace {

std::size_t at(int i) { return static_cast<std::size_t>(i); }

int record_count(const Configuration& config) { return std::clamp(config.ir_data.record_count, 0, ir_data_rows); }

int format_count(const Configuration& config)
{
    return std::clamp<int>(config.ir_formats.format_count, 0, ir_format_rows);
}

bool words_fit(const IrCodeValue& code) { return code.word_count >= 1 && code.word_count <= ir_record_words - 2; }

// The format's index, appending the format with its id when it is not kept
// yet; -1 when the table is full.
int format_index(Configuration& config, const IrCodeValue& code)
{
    const int found = find_ir_format(config, code.format_id);
    if (found >= 0) return found;
    const int n = format_count(config);
    if (n >= ir_format_rows) return -1;
    config.ir_formats.records[at(n)] = code.format;
    config.ir_format_ids[at(n)] = code.format_id;
    config.ir_formats.format_count = static_cast<std::int16_t>(n + 1);
    return n;
}

}  // namespace

IrCodeValue stored_ir_code(const Configuration& config, int record)
{
    IrCodeValue code;
    if (record < 0 || record >= ir_data_rows) return code;
    const auto& words = config.ir_data.record(record);
    code.word_count = std::min(config.ir_data_index[at(record)].length / 2, ir_record_words - 2);
    std::copy_n(words.begin(), code.word_count, code.words.begin());
    const int format = words[0];
    if (format >= 0 && format < ir_format_rows) {
        code.format = config.ir_formats.records[at(format)];
        code.format_id = config.ir_format_ids[at(format)];
    }
    return code;
}

IrCodeValue stored_learned_code(const Configuration& config, int slot)
{
    IrCodeValue code;
    code.learned = true;
    if (slot >= 0 && slot < learned_codes) code.learned_bytes = config.learning_memory[at(slot)];
    return code;
}

int find_ir_format(const Configuration& config, std::int16_t format_id, int from)
{
    const int n = format_count(config);
    for (int i = std::max(from, 0); i < n; ++i)
        if (config.ir_format_ids[at(i)] == format_id) return i;
    return -1;
}

int find_ir_record(const Configuration& config, const IrCodeValue& code)
{
    if (code.learned || !words_fit(code)) return -1;
    const int length = code.word_count * 2;
    const int n = record_count(config);
    for (int r = 0; r < n; ++r) {
        if (config.ir_data_index[at(r)].length != length) continue;
        const auto& words = config.ir_data.record(r);
        const int format = words[0];
        if (format < 0 || format >= format_count(config) || config.ir_format_ids[at(format)] != code.format_id) continue;
        if (std::equal(code.words.begin() + 1, code.words.begin() + code.word_count, words.begin() + 1)) return r;
    }
    return -1;
}

bool ir_code_storable(const Configuration& config, const IrCodeValue& code)
{
    if (code.learned || !words_fit(code)) return false;
    return find_ir_format(config, code.format_id) >= 0 || format_count(config) < ir_format_rows;
}

std::optional<int> append_ir_record(Configuration& config, const IrCodeValue& code)
{
    const int r = record_count(config);
    if (!ir_code_storable(config, code) || r >= ir_data_rows) return std::nullopt;
    const int format = format_index(config, code);
    auto& words = config.ir_data.record(r);
    words.fill(0);
    std::copy_n(code.words.begin(), code.word_count, words.begin());
    words[0] = static_cast<std::int16_t>(format);
    words[at(code.word_count)] = ir_closing_word;
    words[at(code.word_count + 1)] = 0;
    auto& index = config.ir_data_index[at(r)];
    index.length = static_cast<std::uint8_t>(code.word_count * 2);
    if (r == 0) {
        index.offset = 0;
    } else {
        // The end of the record before it, its two closing words included.
        const auto& previous = config.ir_data_index[at(r - 1)];
        index.offset = previous.offset + previous.length + 4;
    }
    config.ir_data.record_count = r + 1;
    return r;
}

std::optional<int> store_ir_code(Configuration& config, const IrCodeValue& code)
{
    const int found = find_ir_record(config, code);
    if (found >= 0) return found;
    return append_ir_record(config, code);
}

int check_learnkeyno(Configuration& config)
{
    for (int byte = 0; byte < learning_bitmap_bytes; ++byte) {
        std::uint8_t& cell = config.learning_bitmap[at(byte)];
        if (cell == 255) continue;
        for (int bit = 0; bit < 8; ++bit) {
            const auto mask = static_cast<std::uint8_t>(128 >> bit);
            if ((cell & mask) == 0) {
                cell = static_cast<std::uint8_t>(cell | mask);
                return byte * 8 + bit;
            }
        }
    }
    return -1;
}

int check_learntotalno(const Configuration& config)
{
    int count = 0;
    for (const std::uint8_t cell : config.learning_bitmap) count += std::popcount(cell);
    return count;
}

int learning_memory_free(const Configuration& config)
{
    return std::any_of(config.learning_bitmap.begin(), config.learning_bitmap.end(),
                       [](std::uint8_t cell) { return cell < 255; })
               ? 1
               : 0;
}

int learning_slots_free(const Configuration& config) { return learned_codes - check_learntotalno(config); }

int store_learned_code(Configuration& config, const IrCodeValue& code, std::int16_t key_number)
{
    const int slot = check_learnkeyno(config);
    if (slot < 0) return -1;
    config.learning_memory[at(slot)] = code.learned_bytes;
    config.learning_keys[at(slot)] = key_number;
    return slot;
}

}  // namespace tesselo
