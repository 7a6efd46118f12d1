#include "core/document/recovery_copy.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>

#include "core/document/clock.h"

namespace tesselo {

namespace fs = std::filesystem;

namespace {

const std::string first_line = "Tesselo recovery copy 1";
// A copy is a document's image and a few lines: anything far above the
// largest image is no copy of ours.
constexpr std::uintmax_t largest_copy = 8u * 1024u * 1024u;

std::string escaped(const std::string& text)
{
    std::string out;
    for (char c : text) {
        if (c == '\\') out += "\\\\";
        else if (c == '\n') out += "\\n";
        else if (c == '\r') out += "\\r";
        else out += c;
    }
    return out;
}

std::optional<std::string> unescaped(const std::string& text)
{
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            out += text[i];
            continue;
        }
        if (++i == text.size()) return std::nullopt;
        if (text[i] == '\\') out += '\\';
        else if (text[i] == 'n') out += '\n';
        else if (text[i] == 'r') out += '\r';
        else return std::nullopt;
    }
    return out;
}

}  // namespace

std::vector<std::uint8_t> encode_recovery_copy(const RecoveryCopy& copy)
{
    const std::string head = first_line + "\ntitle: " + escaped(copy.title) + "\npath: " + escaped(copy.path) +
                             "\ntime: " + escaped(copy.time) + "\nimage: " + std::to_string(copy.image.size()) + "\n\n";
    std::vector<std::uint8_t> bytes(head.begin(), head.end());
    bytes.insert(bytes.end(), copy.image.begin(), copy.image.end());
    return bytes;
}

std::optional<RecoveryCopy> decode_recovery_copy(const std::vector<std::uint8_t>& bytes)
{
    static const std::string names[] = {first_line, "title: ", "path: ", "time: ", "image: ", ""};
    std::string fields[6];
    std::size_t at = 0;
    for (int line = 0; line < 6; ++line) {
        const auto end = std::find(bytes.begin() + static_cast<std::ptrdiff_t>(at), bytes.end(), std::uint8_t{'\n'});
        if (end == bytes.end()) return std::nullopt;
        const std::string text(bytes.begin() + static_cast<std::ptrdiff_t>(at), end);
        at = static_cast<std::size_t>(end - bytes.begin()) + 1;
        const std::string& name = names[line];
        if (line == 0 || line == 5) {
            if (text != name) return std::nullopt;
            continue;
        }
        if (text.compare(0, name.size(), name) != 0) return std::nullopt;
        fields[line] = text.substr(name.size());
    }
    RecoveryCopy copy;
    const auto title = unescaped(fields[1]);
    const auto path = unescaped(fields[2]);
    const auto time = unescaped(fields[3]);
    if (!title || !path || !time) return std::nullopt;
    const std::string& length = fields[4];
    if (length.empty() || length.size() > 9 || !std::all_of(length.begin(), length.end(), [](char c) {
            return c >= '0' && c <= '9';
        }))
        return std::nullopt;
    if (std::stoul(length) != bytes.size() - at) return std::nullopt;
    copy.title = *title;
    copy.path = *path;
    copy.time = *time;
    copy.image.assign(bytes.begin() + static_cast<std::ptrdiff_t>(at), bytes.end());
    return copy;
}

std::vector<RecoveryListing> list_recovery_copies(const fs::path& folder, bool declined)
{
    std::vector<RecoveryListing> found;
    std::error_code ec;
    for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
        const fs::path& file = it->path();
        if (file.extension() != recovery_copy_extension || !it->is_regular_file(ec)) continue;
        RecoveryListing listing{file, declined, std::nullopt};
        if (it->file_size(ec) <= largest_copy && !ec) {
            std::ifstream in(file, std::ios::binary);
            const std::vector<std::uint8_t> bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
            listing.copy = decode_recovery_copy(bytes);
        }
        ec.clear();
        found.push_back(std::move(listing));
    }
    // Oldest first by the time each was written; a damaged copy by its name, last.
    std::sort(found.begin(), found.end(), [](const RecoveryListing& a, const RecoveryListing& b) {
        const std::string ta = a.copy ? a.copy->time : "~";
        const std::string tb = b.copy ? b.copy->time : "~";
        return ta != tb ? ta < tb : a.file.filename() < b.file.filename();
    });
    return found;
}

std::vector<RecoveryListing> all_recovery_copies(const fs::path& home)
{
    auto copies = list_recovery_copies(home / recovery_folder_name);
    auto declined = list_recovery_copies(home / recovery_folder_name / declined_folder_name, true);
    copies.insert(copies.end(), std::make_move_iterator(declined.begin()), std::make_move_iterator(declined.end()));
    return copies;
}

std::string recovery_time_text(const LocalTime& t)
{
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", t.year, t.month, t.day, t.hour, t.minute,
                  t.second);
    return text;
}

}  // namespace tesselo
