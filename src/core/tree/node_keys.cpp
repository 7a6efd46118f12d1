#include "core/tree/node_keys.h"

#include "core/model/glyphs.h"

namespace tesselo {

std::string document_number(int slot) { return std::to_string(slot + 1); }
std::string home_key(int slot) { return "HOME" + document_number(slot); }
std::string home_page_key(int slot, int page) { return home_key(slot) + "\\PAGE" + std::to_string(page); }
std::string device_key(int number, int slot) { return "DEVICE" + std::to_string(number) + document_number(slot); }
std::string device_page_key(const std::string& device, int page) { return device + "\\PAGE" + std::to_string(page); }
std::string properties_key(const std::string& owner) { return owner + "PROPERTIES"; }

namespace {

int leading_number(const std::string& digits)
{
    int value = 0;
    std::size_t i = 0;
    for (; i < digits.size() && digits[i] >= '0' && digits[i] <= '9' && i < 6; ++i) value = value * 10 + (digits[i] - '0');
    return i == 0 ? 0 : value;
}

}  // namespace

int page_number_of_key(const std::string& key)
{
    const auto at = key.rfind("PAGE");
    if (at == std::string::npos || at + 4 >= key.size()) return 0;
    return leading_number(key.substr(at + 4));
}

int device_number_of_key(const std::string& key, int slot)
{
    if (key.rfind("DEVICE", 0) != 0) return 0;
    std::size_t end = 6;
    while (end < key.size() && key[end] >= '0' && key[end] <= '9') ++end;
    const std::size_t doc = document_number(slot).size();
    if (end < 6 + doc + 1) return 0;
    return leading_number(key.substr(6, end - 6 - doc));
}

std::string decode_device_name(const KeyLabel& name)
{
    // The plain length; a header with alignment bits keeps its glyph count
    // in the low four bits, and a label has nine glyphs at most.
    int length = name.bytes[0];
    if (length > label_glyphs) length = name.bytes[0] & 0x0F;
    if (length > label_glyphs) length = label_glyphs;
    return label_to_text(name, length);
}

KeyLabel default_device_name(int number)
{
    KeyLabel label;
    const std::string digits = std::to_string(number);
    label.bytes[0] = static_cast<std::uint8_t>(6 + digits.size());
    const std::uint8_t device[] = {4, 5, 22, 9, 3, 5};
    for (int i = 0; i < 6; ++i) label.bytes[static_cast<std::size_t>(i + 1)] = device[i];
    for (std::size_t i = 0; i < digits.size() && 7 + i < label_bytes; ++i)
        label.bytes[7 + i] = static_cast<std::uint8_t>(digits[i] == '0' ? 27 : digits[i] - 21);
    return label;
}

std::string three_digits(int value)
{
    std::string s = std::to_string(value);
    while (s.size() < 3) s = "0" + s;
    return s;
}

}  // namespace tesselo
