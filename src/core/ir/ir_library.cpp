#include "core/ir/ir_library.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <fstream>
#include <iterator>

#include "core/image/byte_reader.h"
#include "core/ir/ir_library_layout.h"

namespace tesselo {

namespace {

std::uint32_t u32(const ByteReader& r, std::int64_t at)
{
    return static_cast<std::uint32_t>(r.u16(at)) | (static_cast<std::uint32_t>(r.u16(at + 2)) << 16);
}

bool is_library(const std::vector<std::uint8_t>& bytes)
{
    return bytes.size() >= static_cast<std::size_t>(irlib::header_bytes) &&
           std::memcmp(bytes.data(), irlib::magic, sizeof irlib::magic) == 0 &&
           ByteReader(bytes).u16(irlib::at_version) == irlib::version;
}

std::string read_label(const ByteReader& r, std::int64_t at)
{
    std::string label;
    for (int i = 0; i < irlib::label_bytes; ++i) {
        const auto c = r.u8(at + i);
        if (c == 0) break;
        label += static_cast<char>(c);
    }
    return label;
}

// Loads the file into the handle when it is not there yet or has changed.
const std::vector<std::uint8_t>* library_bytes(GetIR* handle, const std::filesystem::path& path)
{
    if (!handle) return nullptr;
    std::error_code ec;
    const auto stamp = std::filesystem::last_write_time(path, ec);
    if (ec) return nullptr;
    if (handle->path != path || handle->stamp != stamp || handle->bytes.empty()) {
        std::ifstream in(path, std::ios::binary);
        if (!in) return nullptr;
        handle->bytes.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
        handle->path = path;
        handle->stamp = stamp;
    }
    return &handle->bytes;
}

bool find_format(const std::vector<std::uint8_t>& bytes, int format_id, IrFormatRecord& record)
{
    const ByteReader r(bytes);
    const int count = r.u16(irlib::at_format_count);
    const std::uint32_t table = u32(r, irlib::at_format_table);
    for (int i = 0; i < count; ++i) {
        const std::int64_t at = table + static_cast<std::int64_t>(i) * irlib::format_entry_bytes;
        if (r.i16(at) != format_id) continue;
        for (int w = 0; w < ir_format_words; ++w) record[static_cast<std::size_t>(w)] = r.i16(at + 4 + 2 * w);
        return true;
    }
    return false;
}

std::string lower(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

}  // namespace

std::filesystem::path data_base_file(const std::filesystem::path& home, const std::string& name)
{
    const auto folder = home / "Data base";
    const auto exact = folder / name;
    std::error_code ec;
    if (std::filesystem::exists(exact, ec)) return exact;
    for (std::filesystem::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec))
        if (lower(it->path().filename().string()) == lower(name)) return it->path();
    return exact;
}

IrLibraryDirectory read_ir_directory(const std::vector<std::uint8_t>& library)
{
    IrLibraryDirectory dir;
    if (!is_library(library)) return dir;
    try {
        const ByteReader r(library);
        const int formats = r.u16(irlib::at_format_count);
        const std::uint32_t table = u32(r, irlib::at_format_table);
        for (int i = 0; i < formats; ++i)
            dir.format_ids.push_back(r.i16(table + static_cast<std::int64_t>(i) * irlib::format_entry_bytes));
        const int count = r.u16(irlib::at_codeset_count);
        const std::uint32_t at = u32(r, irlib::at_directory);
        for (int i = 0; i < count; ++i) {
            const std::int64_t e = at + static_cast<std::int64_t>(i) * irlib::directory_entry_bytes;
            dir.codesets.push_back({read_label(r, e), u32(r, e + 8), r.u16(e + 12), r.u16(e + 14)});
        }
    } catch (const ImageBoundsError&) {
        return {};
    }
    return dir;
}

std::uint32_t check_deviceoffset(const std::vector<std::uint8_t>& library, const std::string& label)
{
    // A plain walk of the directory: a few hundred comparisons at most, at the
    // user's pace.
    for (const auto& entry : read_ir_directory(library).codesets)
        if (entry.label == label) return entry.offset;
    return 0;
}

std::unique_ptr<GetIR> CreateGetIR() { return std::make_unique<GetIR>(); }

void DestroyGetIR(std::unique_ptr<GetIR>& handle) { handle.reset(); }

int GetIRCode(GetIR* handle, std::uint32_t code_set_offset, int key_index, IrFormatRecord& format_buffer,
              IrCodeWords& data_buffer, const std::filesystem::path& library_path)
{
    const auto* bytes = library_bytes(handle, library_path);
    if (!bytes || !is_library(*bytes) || key_index < 0) return 0;
    // Only an offset of the directory is a code set.
    bool known = false;
    for (const auto& entry : read_ir_directory(*bytes).codesets)
        if (entry.offset == code_set_offset && code_set_offset != 0) known = true;
    if (!known) return 0;
    try {
        const ByteReader r(*bytes);
        const std::int64_t block = code_set_offset;
        const int format_id = r.i16(block + irlib::label_bytes);
        const int keys = r.u16(block + irlib::label_bytes + 2);
        if (key_index >= keys) return 0;
        const std::int64_t key = block + irlib::codeset_header_bytes +
                                 static_cast<std::int64_t>(key_index) * irlib::key_record_bytes;
        const int count = r.u16(key);
        if (count < 1 || count > ir_record_words) return 0;
        IrCodeWords words{};
        for (int w = 0; w < count; ++w) words[static_cast<std::size_t>(w)] = r.i16(key + 4 + 2 * w);
        IrFormatRecord format{};
        if (!find_format(*bytes, format_id, format)) return 0;
        format_buffer = format;
        data_buffer = words;
        return count;
    } catch (const ImageBoundsError&) {
        return 0;
    }
}

int GetIRType(GetIR* handle, int format_id, IrFormatRecord& format_buffer, const std::filesystem::path& library_path)
{
    const auto* bytes = library_bytes(handle, library_path);
    if (!bytes || !is_library(*bytes)) return 0;
    try {
        IrFormatRecord format{};
        if (!find_format(*bytes, format_id, format)) return 0;
        format_buffer = format;
        return 1;
    } catch (const ImageBoundsError&) {
        return 0;
    }
}

}  // namespace tesselo
