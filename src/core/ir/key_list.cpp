#include "core/ir/key_list.h"

#include <algorithm>

namespace tesselo {

namespace {

bool is_blank(std::uint8_t c) { return c == ' ' || c == '\t' || c == '\r'; }

std::size_t line_end(const std::vector<std::uint8_t>& b, std::size_t at)
{
    while (at < b.size() && b[at] != '\n') ++at;
    return at;
}

// Where the line that holds exactly `label` starts, or npos.
std::size_t find_label_line(const std::vector<std::uint8_t>& b, const std::string& label)
{
    std::size_t at = 0;
    while (at < b.size()) {
        const std::size_t end = line_end(b, at);
        std::size_t last = end;
        while (last > at && is_blank(b[last - 1])) --last;
        if (last - at == label.size() && std::equal(label.begin(), label.end(), b.begin() + static_cast<std::ptrdiff_t>(at)))
            return at;
        at = end + 1;
    }
    return std::string::npos;
}

}  // namespace

std::vector<std::string> load_keynames(const std::vector<std::uint8_t>& keylist, const std::string& label)
{
    std::vector<std::string> names;
    std::string wanted = label;
    if (wanted.empty()) return names;
    if (wanted.back() != ':') wanted += ':';
    const std::size_t start = find_label_line(keylist, wanted);
    if (start == std::string::npos) return names;
    const auto mark = std::search(keylist.begin() + static_cast<std::ptrdiff_t>(start), keylist.end(),
                                  keylist_mark.begin(), keylist_mark.end());
    if (mark == keylist.end()) return names;
    std::size_t at = line_end(keylist, static_cast<std::size_t>(mark - keylist.begin())) + 1;
    // Walk byte by byte: ";" opens a key's name, "dw" a data line; anything
    // else at the start of a line is the next code set's label.
    while (at < keylist.size()) {
        const std::uint8_t c = keylist[at];
        if (is_blank(c) || c == '\n') {
            ++at;
            continue;
        }
        const std::size_t end = line_end(keylist, at);
        if (c == ';') {
            std::string name(keylist.begin() + static_cast<std::ptrdiff_t>(at + 1),
                             keylist.begin() + static_cast<std::ptrdiff_t>(end));
            while (!name.empty() && is_blank(static_cast<std::uint8_t>(name.back()))) name.pop_back();
            if (name.rfind(keylist_mark.substr(1), 0) == 0) break;  // the next table's mark
            names.push_back(name);
        } else if (!(c == 'd' && at + 1 < keylist.size() && keylist[at + 1] == 'w')) {
            break;
        }
        at = end + 1;
    }
    return names;
}

std::string decode_keyname(const std::vector<std::uint8_t>& keylist, const std::string& label, int key_index)
{
    const auto names = load_keynames(keylist, label);
    if (key_index < 0 || key_index >= static_cast<int>(names.size())) return {};
    return names[static_cast<std::size_t>(key_index)];
}

}  // namespace tesselo
