#include "core/ir/brand_list.h"

#include <algorithm>
#include <cstdio>

#include "core/ir/ir_categories.h"

namespace tesselo {

namespace {

std::string without_colon(std::string label)
{
    if (!label.empty() && label.back() == ':') label.pop_back();
    return label;
}

bool of_category(const std::string& label, const std::string& prefix)
{
    const auto parsed = parse_codeset_label(label);
    return parsed && check_libdevice(parsed->first) == prefix;
}

}  // namespace

std::string search_brandname(const std::vector<std::uint8_t>& brandlist, int code)
{
    if (code <= 0 || code > 9999) return unknown_code;
    char token[8];
    std::snprintf(token, sizeof token, "*%04d", code);
    const std::size_t n = brandlist.size();
    for (std::size_t at = 0; at + 5 <= n; ++at) {
        if (!std::equal(token, token + 5, brandlist.begin() + static_cast<std::ptrdiff_t>(at))) continue;
        // The name runs from 8 bytes after the mark up to "#", within the record.
        for (std::size_t h = at + 7; h < n; ++h) {
            const char c = static_cast<char>(brandlist[h]);
            if (c == '\n' || c == '\r') break;
            if (c == '#') {
                if (h < at + 8) break;
                return std::string(brandlist.begin() + static_cast<std::ptrdiff_t>(at + 8),
                                   brandlist.begin() + static_cast<std::ptrdiff_t>(h));
            }
        }
        return unknown_code;
    }
    return unknown_code;
}

std::vector<BrandRecord> read_brandlist(const std::vector<std::uint8_t>& brandlist)
{
    std::vector<BrandRecord> records;
    std::string line;
    auto take = [&records](const std::string& l) {
        if (l.size() < 9 || l[0] != '*') return;
        int code = 0;
        for (int i = 1; i <= 4; ++i) {
            if (l[static_cast<std::size_t>(i)] < '0' || l[static_cast<std::size_t>(i)] > '9') return;
            code = code * 10 + (l[static_cast<std::size_t>(i)] - '0');
        }
        const auto hash = l.find('#', 8);
        if (hash == std::string::npos || code == 0) return;
        BrandRecord r{code, l.substr(8, hash - 8), {}};
        std::string field;
        for (std::size_t i = hash + 1; i <= l.size(); ++i) {
            if (i == l.size() || l[i] == ',') {
                if (!field.empty()) r.labels.push_back(field);
                field.clear();
            } else if (l[i] != ' ' && l[i] != '\r') {
                field += l[i];
            }
        }
        records.push_back(std::move(r));
    };
    for (const auto b : brandlist) {
        if (b == '\n') {
            take(line);
            line.clear();
        } else {
            line += static_cast<char>(b);
        }
    }
    take(line);
    return records;
}

std::vector<std::string> brands_of_category(const std::vector<BrandRecord>& records, const std::string& prefix)
{
    std::vector<std::string> brands;
    for (const auto& r : records)
        for (const auto& label : r.labels)
            if (of_category(label, prefix) && std::find(brands.begin(), brands.end(), r.brand) == brands.end())
                brands.push_back(r.brand);
    return brands;
}

std::vector<std::string> check_device(const std::vector<BrandRecord>& records, const std::string& prefix,
                                      const std::string& brand)
{
    std::vector<std::string> labels;
    for (const auto& r : records) {
        if (r.brand != brand) continue;
        for (const auto& label : r.labels)
            if (of_category(label, prefix)) labels.push_back(label + ":");
    }
    std::sort(labels.begin(), labels.end());
    labels.erase(std::unique(labels.begin(), labels.end()), labels.end());
    return labels;
}

int code_of_label(const std::vector<BrandRecord>& records, const std::string& label)
{
    const std::string wanted = without_colon(label);
    for (const auto& r : records)
        for (const auto& l : r.labels)
            if (l == wanted) return r.code;
    return 0;
}

}  // namespace tesselo
