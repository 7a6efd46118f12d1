#include "core/ir/rc_codes.h"

#include <cstdio>

#include "core/ir/rc_formats.h"

namespace tesselo {

namespace {

std::int16_t word(std::uint32_t w) { return static_cast<std::int16_t>(static_cast<std::uint16_t>(w)); }
std::uint16_t uword(const IrCodeWords& words, int i) { return static_cast<std::uint16_t>(words[static_cast<std::size_t>(i)]); }

std::string pair_digits(const std::array<char, 4>& pairs, int value, int digits)
{
    std::string text;
    for (int d = digits - 1; d >= 0; --d) text += pairs[static_cast<std::size_t>((value >> (2 * d)) & 3)];
    return text;
}

std::string hex_text(std::uint32_t value, int digits)
{
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "%0*x", digits, value);
    return buffer;
}

// The inverse of a pair table over a text of digits; -1 when a digit is not
// one of the table's four.
int from_pair_digits(const std::array<char, 4>& pairs, std::string_view digits)
{
    int value = 0;
    for (char c : digits) {
        if (c >= 'A' && c <= 'F') c = static_cast<char>(c - 'A' + 'a');
        int pair = -1;
        for (int p = 0; p < 4; ++p)
            if (pairs[static_cast<std::size_t>(p)] == c) pair = p;
        if (pair < 0) return -1;
        value = value * 4 + pair;
    }
    return value;
}

}  // namespace

std::string rc5_pair_digits(int value) { return pair_digits(rc5_pairs, value & 63, 3); }
std::string rc6_pair_digits(int value) { return pair_digits(rc6_pairs, value & 255, 4); }

std::uint16_t hex_word(std::string_view digits)
{
    std::uint32_t value = 0;
    for (const char c : digits) {
        int d = 0;
        if (c >= '0' && c <= '9') d = c - '0';
        else if (c >= 'a' && c <= 'f') d = c - 'a' + 10;
        else if (c >= 'A' && c <= 'F') d = c - 'A' + 10;
        value = value * 16 + static_cast<std::uint32_t>(d);
    }
    return static_cast<std::uint16_t>(value);
}

std::string rc6_system_text(int system, bool toggle)
{
    return (toggle ? "95c" : "953") + rc6_pair_digits(system) + "0";
}

bool rc6a_customer_refused(long customer) { return (customer > 127 && customer < 32768) || customer > 65535; }

std::string rc6a_customer_text(long customer)
{
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%lx", customer < 0 ? 0L : customer);
    const std::string hex = buffer;
    // For a code below 256 the first two and the last two digits are the same.
    const std::string high = hex.substr(0, 2);
    const std::string low = hex.size() > 2 ? hex.substr(hex.size() - 2) : hex;
    return "A93" + rc6_pair_digits(hex_word(high)) + rc6_pair_digits(hex_word(low)) + "0";
}

int encode_rc5(IrCodeWords& words, int system, int command)
{
    std::uint32_t w = static_cast<std::uint32_t>(~system & 31) * 256;
    if (command >= 64) w |= 0x4000;
    const std::uint32_t x = static_cast<std::uint32_t>(~command & 63) * 4;
    words[0] = 2;
    words[1] = word(0x8010);
    words[2] = word(0x0806);
    // Words 3 and 5 for the toggle bit clear, 4 and 6 for it set: the remote
    // takes the other pair at every press.
    words[3] = word(w);
    words[4] = word(w | 0x2000);
    words[5] = word(w);
    words[6] = word(w | 0x2000);
    words[7] = word(hex_word(hex_text(x, 2) + "00"));
    return 8;
}

int encode_rc5x(IrCodeWords& words, int system, int command, int data)
{
    const std::string s = rc5_pair_digits((system & 31) * 2);
    const std::uint32_t v = (hex_word(s) / 4u) * 2u;
    const std::string d = rc5_pair_digits(data & 63);
    const std::string c = rc5_pair_digits(command & 63);
    const std::uint32_t b = (command & 64) ? 0x4000 : 0x2000;
    const std::uint32_t m = v | b;
    words[1] = word(0x8010);
    words[2] = word(0x0F18);
    words[3] = word(m | 0x8800);
    words[4] = word(m | 0x9000);
    words[5] = words[3];
    words[6] = words[4];
    words[7] = word(hex_word(c + d.substr(0, 1)));
    words[8] = word(hex_word(d.substr(1, 2) + "00"));
    return 9;
}

int encode_rc6(IrCodeWords& words, int system, int command)
{
    const std::string a = rc6_system_text(system, false);
    const std::string b = rc6_system_text(system, true);
    words[0] = 25;
    words[1] = word(0xC010);
    words[2] = word(0x1C10);
    words[3] = word(hex_word(a.substr(0, 4)));
    words[4] = word(hex_word(a.substr(4, 4)));
    words[5] = word(hex_word(b.substr(0, 4)));
    words[6] = word(hex_word(b.substr(4, 4)));
    for (int i = 7; i <= 10; ++i) words[static_cast<std::size_t>(i)] = words[static_cast<std::size_t>(i - 4)];
    words[11] = word(hex_word(rc6_pair_digits(command)));
    return 12;
}

int encode_rc6a(IrCodeWords& words, long customer, int system, int command)
{
    if (rc6a_customer_refused(customer)) return 0;
    const std::string s = rc6_pair_digits(system);
    const std::string c = rc6_pair_digits(command);
    const std::string e = rc6a_customer_text(customer);
    words[0] = 25;
    words[1] = 0;
    if (customer <= 127) {
        words[2] = word(0x1C20);
        words[3] = word(hex_word(e.substr(0, 3) + e.substr(7, 1)));
        words[4] = word(hex_word(e.substr(8, 4)));
        words[5] = word(hex_word(s));
        words[6] = word(hex_word(c));
        return 7;
    }
    words[2] = word(0x2C20);
    words[3] = word(hex_word(e.substr(0, 4)));
    words[4] = word(hex_word(e.substr(4, 4)));
    words[5] = word(hex_word(e.substr(8, 4)));
    words[6] = word(hex_word(s));
    words[7] = word(hex_word(c));
    return 8;
}

int Get_RC5_Code(const IrCodeWords& words, int count, RcFields& fields)
{
    if (count != 8 || uword(words, 1) != 0x8010 || uword(words, 2) != 0x0806) return 0;
    const int system = ~(uword(words, 3) / 256) & 31;
    int command = ~(uword(words, 7) / 1024) & 63;
    if (uword(words, 3) & 0x4000) command += 64;
    fields = {system, command, 0, 0};
    return 1;
}

int Get_RC5x_Code(const IrCodeWords& words, int count, RcFields& fields)
{
    if (count != 9 || uword(words, 1) != 0x8010 || uword(words, 2) != 0x0F18) return 0;
    // The system's last pair digit always stands for an even pair (a or 6),
    // whose low two bits are 10: the division by 4 dropped just those.
    const std::uint32_t s_value = (uword(words, 3) & 0x7FFu) * 2u + 2u;
    if (s_value > 0xFFF) return 0;
    const int doubled = from_pair_digits(rc5_pairs, hex_text(s_value, 3));
    const std::string w7 = hex_text(uword(words, 7), 4);
    const std::string w8 = hex_text(uword(words, 8), 4);
    int command = from_pair_digits(rc5_pairs, w7.substr(0, 3));
    const int data = from_pair_digits(rc5_pairs, w7.substr(3, 1) + w8.substr(0, 2));
    if (doubled < 0 || (doubled & 1) || command < 0 || data < 0) return 0;
    if (uword(words, 3) & 0x4000) command += 64;
    fields = {doubled / 2, command, data, 0};
    return 1;
}

int Get_RC6_m0_Code(const IrCodeWords& words, int count, RcFields& fields)
{
    if (count != 12 || uword(words, 1) != 0xC010 || uword(words, 2) != 0x1C10) return 0;
    const std::string a = hex_text(uword(words, 3), 4) + hex_text(uword(words, 4), 4);
    const int system = from_pair_digits(rc6_pairs, a.substr(3, 4));
    const int command = from_pair_digits(rc6_pairs, hex_text(uword(words, 11), 4));
    if (system < 0 || command < 0) return 0;
    fields = {system, command, 0, 0};
    return 1;
}

int Get_RC6_mA_Code(const IrCodeWords& words, int count, RcFields& fields)
{
    if (uword(words, 1) != 0) return 0;
    long customer = -1;
    int first_field = 0;
    if (count == 7 && uword(words, 2) == 0x1C20) {
        const std::string e = hex_text(uword(words, 3), 4) + hex_text(uword(words, 4), 4);
        customer = from_pair_digits(rc6_pairs, e.substr(3, 4));
        first_field = 5;
    } else if (count == 8 && uword(words, 2) == 0x2C20) {
        const std::string e =
            hex_text(uword(words, 3), 4) + hex_text(uword(words, 4), 4) + hex_text(uword(words, 5), 4);
        const int high = from_pair_digits(rc6_pairs, e.substr(3, 4));
        const int low = from_pair_digits(rc6_pairs, e.substr(7, 4));
        if (high >= 0 && low >= 0) customer = high * 256L + low;
        first_field = 6;
    } else {
        return 0;
    }
    const int system = from_pair_digits(rc6_pairs, hex_text(uword(words, first_field), 4));
    const int command = from_pair_digits(rc6_pairs, hex_text(uword(words, first_field + 1), 4));
    if (customer < 0 || system < 0 || command < 0) return 0;
    fields = {system, command, 0, customer};
    return 1;
}

}  // namespace tesselo
