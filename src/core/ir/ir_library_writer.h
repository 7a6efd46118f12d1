#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/ir/rc_codes.h"
#include "core/model/configuration.h"

namespace tesselo {

// What the library holds, before it is written into its three files.
struct IrLibraryKey {
    std::string name;
    IrCodeWords words{};
    int count = 0;
};

struct IrLibraryCodeset {
    std::string label;  // "tv000:"
    std::string brand;
    std::int16_t format_id = 0;
    std::vector<IrLibraryKey> keys;
};

struct IrLibraryFormat {
    std::int16_t id = 0;
    IrFormatRecord record{};
};

struct IrLibraryContent {
    std::vector<IrLibraryFormat> formats;
    // In the order of their labels; the code id of a code set is its place
    // in this list plus 1.
    std::vector<IrLibraryCodeset> codesets;
};

// 5150LIb.bin, Lib_KEY.ASM and F-QX5150 Brandlist.txt of that content.
std::vector<std::uint8_t> write_ir_library(const IrLibraryContent& content);
std::string write_ir_keylist(const IrLibraryContent& content);
std::string write_ir_brandlist(const IrLibraryContent& content);

}  // namespace tesselo
