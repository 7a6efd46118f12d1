#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "core/ir/ir_storage.h"
#include "core/ir/rc_codes.h"
#include "core/model/configuration.h"

namespace tesselo {

// Kinds of the current code in `current_ir_type`.
inline constexpr std::uint8_t ir_type_library = 0;
inline constexpr std::uint8_t ir_type_rc5 = 1;
inline constexpr std::uint8_t ir_type_rc5x = 2;
inline constexpr std::uint8_t ir_type_rc6 = 3;
inline constexpr std::uint8_t ir_type_rc6a = 4;
inline constexpr std::uint8_t ir_type_learned = 5;
inline constexpr std::uint8_t ir_type_mydatabase = 128;
inline constexpr std::uint8_t ir_type_mydatabase_learned = 133;

// The code under work in the IR dialogs, one for the whole program: the
// protocol dialog, the library dialog, My Database and learning fill it, and
// the Add IR Code dialog stores it.
class CurrentIrCode {
public:
    std::uint8_t current_ir_type = ir_type_library;
    // The format record's 32 words, low byte first.
    std::array<std::uint8_t, 64> current_ir_format{};
    // Words 0 to 12 of the code words (a library code: up to 32), low byte first.
    std::array<std::uint8_t, 64> current_ir_data{};
    int current_ir_word_count = 0;
    long current_customer_code = 0;

    // The code words themselves, for the search of an identical stored code.
    IrCodeWords ir_code_words{};
    int ir_code_word_count = 0;
    // The id under which the code's format is kept in `ir_format_ids`.
    std::int16_t format_id = 0;
    // A library code: its code id (for `search_brandname`), label and key.
    int library_code = 0;
    std::string library_label;
    int library_key = -1;

    // The name line of the Add IR Code dialog: the protocol and its numbers,
    // or "IR CODE " and the library code's label.
    std::string name;

    // Takes a format record and `count` code words: the format into
    // `current_ir_format`, the first `data_words` words into `current_ir_data`.
    void set_code(const IrFormatRecord& format, const IrCodeWords& words, int count, int data_words);
    // The words of `current_ir_format` again.
    IrFormatRecord format_record() const;

    // A learned code (5, or 133 from My Database) is its 64 bytes alone.
    bool is_learned() const
    {
        return current_ir_type == ir_type_learned || current_ir_type == ir_type_mydatabase_learned;
    }
    // The code by value, as it is stored into a document or My Database.
    IrCodeValue value() const;
    // Takes a code by value as the current code of `type`, named `name`.
    void set_value(const IrCodeValue& code, std::uint8_t type, const std::string& code_name);
};

}  // namespace tesselo
