#pragma once

#include <array>
#include <optional>
#include <string>

namespace tesselo {

// A device category of the IR library: its two-digit code, the prefix of its
// code set labels and the name the user sees.
struct IrCategory {
    const char* code;
    const char* prefix;
    const char* display_name;
};

inline constexpr std::array<IrCategory, 13> ir_categories{{
    {"01", "tv", "T V"},
    {"02", "vcr", "VCR"},
    {"03", "cbl", "CABLE"},
    {"04", "sat", "SATELLITE TUNER"},
    {"05", "cd", "CD PLAYER / CD RECORDER"},
    {"06", "dvd", "DVD PLAYER"},
    {"07", "dvr", "DVD RECORDER"},
    {"08", "ld", "LD PLAYER"},
    {"09", "md", "MD RECORDER"},
    {"10", "tun", "RECEIVER (TUNER)"},
    {"11", "tap", "TAPE DECK"},
    {"12", "amp", "AMPLIFIER"},
    {"13", "pj", "PROJECTOR"},
}};

// The label prefix of a category by its index in the list, or "".
std::string check_libdevice(int category);
// The index of a category named by its code ("01"), prefix ("tv") or name.
std::optional<int> find_ir_category(const std::string& word);

// A code set's label: the prefix, three digits and a colon ("tv000:").
std::string codeset_label(const std::string& prefix, int number);
// What the user sees of a code set: "Code Set-" and its three digits.
std::string codeset_display_name(int number);
// Splits "tv012" or "tv012:" into the category's index and the number.
std::optional<std::pair<int, int>> parse_codeset_label(const std::string& label);

}  // namespace tesselo
