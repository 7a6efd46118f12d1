#include "core/ir/ir_categories.h"

#include <cctype>
#include <cstdio>

namespace tesselo {

std::string check_libdevice(int category)
{
    if (category < 0 || category >= static_cast<int>(ir_categories.size())) return {};
    return ir_categories[static_cast<std::size_t>(category)].prefix;
}

std::optional<int> find_ir_category(const std::string& word)
{
    for (std::size_t i = 0; i < ir_categories.size(); ++i) {
        const auto& c = ir_categories[i];
        if (word == c.code || word == c.prefix || word == c.display_name) return static_cast<int>(i);
    }
    return std::nullopt;
}

std::string codeset_label(const std::string& prefix, int number)
{
    char digits[8];
    std::snprintf(digits, sizeof digits, "%03d", number % 1000);
    return prefix + digits + ":";
}

std::string codeset_display_name(int number)
{
    char digits[8];
    std::snprintf(digits, sizeof digits, "%03d", number % 1000);
    return std::string("Code Set-") + digits;
}

std::optional<std::pair<int, int>> parse_codeset_label(const std::string& label)
{
    std::string text = label;
    if (!text.empty() && text.back() == ':') text.pop_back();
    if (text.size() < 4) return std::nullopt;
    const std::string prefix = text.substr(0, text.size() - 3);
    const std::string digits = text.substr(text.size() - 3);
    for (const char c : digits)
        if (!std::isdigit(static_cast<unsigned char>(c))) return std::nullopt;
    for (std::size_t i = 0; i < ir_categories.size(); ++i)
        if (prefix == ir_categories[i].prefix) return std::make_pair(static_cast<int>(i), std::stoi(digits));
    return std::nullopt;
}

}  // namespace tesselo
