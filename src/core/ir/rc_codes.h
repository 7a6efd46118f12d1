#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/model/limits.h"

namespace tesselo {

// `ir_code_words`: the code under work, up to 33 words, already in the bit
// patterns that the remote's transmitter clocks out.
using IrCodeWords = std::array<std::int16_t, ir_record_words>;

// The protocol fields that a decoder gives back.
struct RcFields {
    long system = 0;
    long command = 0;
    long data = 0;      // RC5X only
    long customer = 0;  // RC6A only
};

// The pair digits of a six-bit value (3 digits) and of an eight-bit value (4
// digits), from the high pair to the low pair.
std::string rc5_pair_digits(int value);
std::string rc6_pair_digits(int value);
// A text of hexadecimal digits read back as a 16-bit word ("&H" + digits).
std::uint16_t hex_word(std::string_view digits);
// The RC6 header and system text of eight digits: "953" (toggle clear) or
// "95c" (toggle set), the system's pair digits, "0".
std::string rc6_system_text(int system, bool toggle);
// The RC6A customer text of twelve digits: "A93", the pair digits of the
// customer code's first and last two hexadecimal digits, "0".
std::string rc6a_customer_text(long customer);
// A customer code from 128 to 32767, or above 65535, cannot be sent.
bool rc6a_customer_refused(long customer);

// The encoders. Each writes its words into `words` and returns their count;
// RC6A returns 0 and builds nothing for a refused customer code.
int encode_rc5(IrCodeWords& words, int system, int command);
int encode_rc5x(IrCodeWords& words, int system, int command, int data);
int encode_rc6(IrCodeWords& words, int system, int command);
int encode_rc6a(IrCodeWords& words, long customer, int system, int command);

// The decoders: 1 when the `count` words are a code of that protocol, with
// the fields set; 0 otherwise. A code is known by its count and its words 1
// and 2, and the fields are read from the words that carry them; no other
// word is looked at. Word 0 is not either, since a stored code carries the
// index of its format there.
int Get_RC5_Code(const IrCodeWords& words, int count, RcFields& fields);
int Get_RC5x_Code(const IrCodeWords& words, int count, RcFields& fields);
int Get_RC6_m0_Code(const IrCodeWords& words, int count, RcFields& fields);
int Get_RC6_mA_Code(const IrCodeWords& words, int count, RcFields& fields);

}  // namespace tesselo
