#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "core/ir/rc_codes.h"
#include "core/model/configuration.h"

namespace tesselo {

// One code set of the library's directory.
struct IrCodesetEntry {
    std::string label;  // "tv000:"
    std::uint32_t offset = 0;
    int key_count = 0;
    int code_id = 0;
};

// The library as read from 5150LIb.bin; empty when the file is missing or
// not a library.
struct IrLibraryDirectory {
    std::vector<IrCodesetEntry> codesets;
    std::vector<std::int16_t> format_ids;
};
IrLibraryDirectory read_ir_directory(const std::vector<std::uint8_t>& library);

// The byte offset of a code set by its label ("tv000:"); 0 for a label that
// the library does not have (no code set starts at 0: the header does).
std::uint32_t check_deviceoffset(const std::vector<std::uint8_t>& library, const std::string& label);

// The access to the library file, by handle.
struct GetIR {
    std::filesystem::path path;
    std::filesystem::file_time_type stamp{};
    std::vector<std::uint8_t> bytes;
};

std::unique_ptr<GetIR> CreateGetIR();
void DestroyGetIR(std::unique_ptr<GetIR>& handle);

// Fills the format record and the code words of key `key_index` of the code
// set at `code_set_offset`; the number of words (word 0 is the format id), or
// 0 when the library, the code set or the key is not there. The buffers are
// left as they were on 0.
int GetIRCode(GetIR* handle, std::uint32_t code_set_offset, int key_index, IrFormatRecord& format_buffer,
              IrCodeWords& data_buffer, const std::filesystem::path& library_path);

// Fills the format record of a format id: 1, or 0 when the library does not
// have it (the buffer is left as it was).
int GetIRType(GetIR* handle, int format_id, IrFormatRecord& format_buffer,
              const std::filesystem::path& library_path);

}  // namespace tesselo
