#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace tesselo {

// The files of the "Data base" folder that the IR library is made of.
inline const std::string ir_library_file = "5150LIb.bin";
inline const std::string ir_keylist_file = "Lib_KEY.ASM";
inline const std::string ir_brandlist_file = "F-QX5150 Brandlist.txt";

// The layout of 5150LIb.bin (docs/ir-library.md), little-endian throughout.
namespace irlib {
inline constexpr char magic[8] = {'T', 'S', 'L', 'I', 'R', 'L', 'I', 'B'};
inline constexpr std::uint16_t version = 1;
inline constexpr int header_bytes = 32;
inline constexpr int at_version = 8;
inline constexpr int at_format_count = 10;
inline constexpr int at_codeset_count = 12;
inline constexpr int at_format_table = 16;
inline constexpr int at_directory = 20;
inline constexpr int at_file_size = 24;

inline constexpr int format_entry_bytes = 80;  // id, reserved, 32 words, padding
inline constexpr int directory_entry_bytes = 16;  // label, offset, key count, code id
inline constexpr int label_bytes = 8;
inline constexpr int codeset_header_bytes = 16;  // label, format id, key count, code id, reserved
inline constexpr int key_record_bytes = 80;  // word count, reserved, 33 words, padding
inline constexpr int alignment = 16;
}  // namespace irlib

// A file of a home folder's "Data base" folder. The name is matched without
// regard to case when no file has it exactly, so that a folder written where
// names ignore case ("5150Lib.bin") is found all the same.
std::filesystem::path data_base_file(const std::filesystem::path& home, const std::string& name);

// The library's path in a home folder.
inline std::filesystem::path ir_library_path(const std::filesystem::path& home)
{
    return data_base_file(home, ir_library_file);
}

}  // namespace tesselo
