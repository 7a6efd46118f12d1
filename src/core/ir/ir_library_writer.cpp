#include "core/ir/ir_library_writer.h"

#include <cstdio>

#include "core/ir/ir_library_layout.h"

namespace tesselo {

namespace {

void put16(std::vector<std::uint8_t>& b, std::size_t at, std::uint32_t v)
{
    b[at] = static_cast<std::uint8_t>(v & 0xFF);
    b[at + 1] = static_cast<std::uint8_t>((v >> 8) & 0xFF);
}

void put32(std::vector<std::uint8_t>& b, std::size_t at, std::uint32_t v)
{
    put16(b, at, v & 0xFFFF);
    put16(b, at + 2, v >> 16);
}

void put_label(std::vector<std::uint8_t>& b, std::size_t at, const std::string& label)
{
    for (std::size_t i = 0; i < label.size() && i < static_cast<std::size_t>(irlib::label_bytes); ++i)
        b[at + i] = static_cast<std::uint8_t>(label[i]);
}

std::size_t aligned(std::size_t n)
{
    return (n + irlib::alignment - 1) / irlib::alignment * irlib::alignment;
}

}  // namespace

std::vector<std::uint8_t> write_ir_library(const IrLibraryContent& content)
{
    const std::size_t format_table = irlib::header_bytes;
    const std::size_t directory = aligned(format_table + content.formats.size() * irlib::format_entry_bytes);
    std::size_t end = aligned(directory + content.codesets.size() * irlib::directory_entry_bytes);
    std::vector<std::size_t> offsets;
    for (const auto& set : content.codesets) {
        offsets.push_back(end);
        end = aligned(end + irlib::codeset_header_bytes + set.keys.size() * irlib::key_record_bytes);
    }
    std::vector<std::uint8_t> b(end, 0);
    for (std::size_t i = 0; i < sizeof irlib::magic; ++i) b[i] = static_cast<std::uint8_t>(irlib::magic[i]);
    put16(b, irlib::at_version, irlib::version);
    put16(b, irlib::at_format_count, static_cast<std::uint32_t>(content.formats.size()));
    put16(b, irlib::at_codeset_count, static_cast<std::uint32_t>(content.codesets.size()));
    put32(b, irlib::at_format_table, static_cast<std::uint32_t>(format_table));
    put32(b, irlib::at_directory, static_cast<std::uint32_t>(directory));
    put32(b, irlib::at_file_size, static_cast<std::uint32_t>(end));
    for (std::size_t f = 0; f < content.formats.size(); ++f) {
        const std::size_t at = format_table + f * irlib::format_entry_bytes;
        put16(b, at, static_cast<std::uint16_t>(content.formats[f].id));
        for (std::size_t w = 0; w < content.formats[f].record.size(); ++w)
            put16(b, at + 4 + 2 * w, static_cast<std::uint16_t>(content.formats[f].record[w]));
    }
    for (std::size_t s = 0; s < content.codesets.size(); ++s) {
        const auto& set = content.codesets[s];
        const std::size_t e = directory + s * irlib::directory_entry_bytes;
        put_label(b, e, set.label);
        put32(b, e + 8, static_cast<std::uint32_t>(offsets[s]));
        put16(b, e + 12, static_cast<std::uint32_t>(set.keys.size()));
        put16(b, e + 14, static_cast<std::uint32_t>(s + 1));
        const std::size_t block = offsets[s];
        put_label(b, block, set.label);
        put16(b, block + 8, static_cast<std::uint16_t>(set.format_id));
        put16(b, block + 10, static_cast<std::uint32_t>(set.keys.size()));
        put16(b, block + 12, static_cast<std::uint32_t>(s + 1));
        for (std::size_t k = 0; k < set.keys.size(); ++k) {
            const std::size_t at = block + irlib::codeset_header_bytes + k * irlib::key_record_bytes;
            put16(b, at, static_cast<std::uint32_t>(set.keys[k].count));
            for (int w = 0; w < set.keys[k].count && w < ir_record_words; ++w)
                put16(b, at + 4 + 2 * static_cast<std::size_t>(w),
                      static_cast<std::uint16_t>(set.keys[k].words[static_cast<std::size_t>(w)]));
        }
    }
    return b;
}

std::string write_ir_keylist(const IrLibraryContent& content)
{
    std::string text =
        "; Lib_KEY.ASM: the key names and code words of every code set of 5150LIb.bin.\n"
        "; Each code set's table follows its label and the table mark; a key is a\n"
        "; comment line with its name and a dw line with its words (word 0 the format id).\n";
    for (const auto& set : content.codesets) {
        text += set.label + "\n;&*^\n";
        for (const auto& key : set.keys) {
            text += ";" + key.name + "\n\tdw\t";
            for (int w = 0; w < key.count; ++w) {
                char word[16];
                std::snprintf(word, sizeof word, "%s0%04Xh", w ? "," : "",
                              static_cast<unsigned>(static_cast<std::uint16_t>(key.words[static_cast<std::size_t>(w)])));
                text += word;
            }
            text += "\n";
        }
    }
    return text;
}

std::string write_ir_brandlist(const IrLibraryContent& content)
{
    std::string text = "F-QX5150 Brandlist: the brand of every code of 5150LIb.bin, by code id.\n";
    for (std::size_t s = 0; s < content.codesets.size(); ++s) {
        const auto& set = content.codesets[s];
        char id[16];
        std::snprintf(id, sizeof id, "*%04u", static_cast<unsigned>(s + 1));
        std::string label = set.label;
        if (!label.empty() && label.back() == ':') label.pop_back();
        text += std::string(id) + " = " + set.brand + "#" + label + "\n";
    }
    return text;
}

}  // namespace tesselo
