#include "core/ir/current_code.h"

#include <algorithm>

namespace tesselo {

namespace {

// A word that is negative, or over 255, is split into its two bytes all the
// same: low byte first, always.
void put_word(std::array<std::uint8_t, 64>& bytes, int i, std::int16_t w)
{
    const auto u = static_cast<std::uint16_t>(w);
    bytes[static_cast<std::size_t>(2 * i)] = static_cast<std::uint8_t>(u & 0xFF);
    bytes[static_cast<std::size_t>(2 * i + 1)] = static_cast<std::uint8_t>(u >> 8);
}

}  // namespace

void CurrentIrCode::set_code(const IrFormatRecord& format, const IrCodeWords& words, int count, int data_words)
{
    for (int i = 0; i < ir_format_words; ++i) put_word(current_ir_format, i, format[static_cast<std::size_t>(i)]);
    current_ir_data.fill(0);
    const int n = std::clamp(data_words, 0, 32);
    for (int i = 0; i < n; ++i) put_word(current_ir_data, i, words[static_cast<std::size_t>(i)]);
    ir_code_words = words;
    ir_code_word_count = count;
    current_ir_word_count = count;
}

IrFormatRecord CurrentIrCode::format_record() const
{
    IrFormatRecord record{};
    for (std::size_t i = 0; i < record.size(); ++i)
        record[i] = static_cast<std::int16_t>(current_ir_format[2 * i] | (current_ir_format[2 * i + 1] << 8));
    return record;
}

IrCodeValue CurrentIrCode::value() const
{
    IrCodeValue code;
    code.learned = is_learned();
    if (code.learned) {
        code.learned_bytes = current_ir_data;
        return code;
    }
    code.format_id = format_id;
    code.format = format_record();
    code.words = ir_code_words;
    code.word_count = ir_code_word_count;
    return code;
}

void CurrentIrCode::set_value(const IrCodeValue& code, std::uint8_t type, const std::string& code_name)
{
    if (code.learned) {
        current_ir_format.fill(0);
        current_ir_data = code.learned_bytes;
        ir_code_words.fill(0);
        ir_code_word_count = 0;
        current_ir_word_count = 0;
        format_id = 0;
    } else {
        set_code(code.format, code.words, code.word_count, std::min(code.word_count, 32));
        format_id = code.format_id;
    }
    current_ir_type = type;
    library_code = 0;
    library_label.clear();
    library_key = -1;
    name = code_name;
}

}  // namespace tesselo
