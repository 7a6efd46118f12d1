#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>

#include "core/ir/brand_list.h"
#include "core/ir/ir_categories.h"
#include "core/ir/ir_data_dialog.h"
#include "core/ir/ir_library.h"
#include "core/ir/ir_library_layout.h"
#include "core/ir/key_list.h"
#include "core/ir/rc_codes.h"
#include "core/ir/rc_formats.h"
#include "support/test_app.h"

namespace tesselo {
namespace {

using namespace tesselo::testing;
namespace fs = std::filesystem;

// The library that the build generated, in build/bin/"Data base".
const IrLibraryFiles& shipped()
{
    static const IrLibraryFiles files = load_ir_library_files(TESSELO_BUILD_BIN);
    return files;
}

TEST(IrLibraryFiles, TheShippedFilesAreThereUnderTheirNames)
{
    const fs::path folder = fs::path(TESSELO_BUILD_BIN) / "Data base";
    EXPECT_TRUE(fs::is_regular_file(folder / "5150LIb.bin"));
    EXPECT_TRUE(fs::is_regular_file(folder / "Lib_KEY.ASM"));
    EXPECT_TRUE(fs::is_regular_file(folder / "F-QX5150 Brandlist.txt"));
    EXPECT_FALSE(shipped().library.empty());
    EXPECT_FALSE(shipped().keylist.empty());
    EXPECT_FALSE(shipped().brandlist.empty());
}

TEST(IrLibrary, EveryCodeSetCanBeFetchedWithItsFormatBrandAndKeyNames)
{
    const auto& files = shipped();
    const auto dir = read_ir_directory(files.library);
    ASSERT_FALSE(dir.codesets.empty());
    const auto records = read_brandlist(files.brandlist);
    auto handle = CreateGetIR();
    int keys_seen = 0;
    for (const auto& set : dir.codesets) {
        ASSERT_TRUE(parse_codeset_label(set.label)) << set.label;
        const auto offset = check_deviceoffset(files.library, set.label);
        ASSERT_EQ(offset, set.offset);
        ASSERT_GT(offset, 0u);
        const auto names = load_keynames(files.keylist, set.label);
        ASSERT_EQ(static_cast<int>(names.size()), set.key_count) << set.label;
        const std::string brand = search_brandname(files.brandlist, set.code_id);
        EXPECT_NE(brand, "Unknow code") << set.label;
        EXPECT_EQ(code_of_label(records, set.label), set.code_id);
        for (int k = 0; k < set.key_count; ++k) {
            IrFormatRecord format{};
            IrCodeWords words{};
            const int count = GetIRCode(handle.get(), offset, k, format, words, files.library_path);
            ASSERT_GT(count, 0) << set.label << " " << k;
            IrFormatRecord by_id{};
            ASSERT_EQ(GetIRType(handle.get(), words[0], by_id, files.library_path), 1);
            EXPECT_EQ(by_id, format);
            EXPECT_FALSE(decode_keyname(files.keylist, set.label, k).empty());
            // Every code is one of the protocols it was made from.
            RcFields f;
            EXPECT_EQ(Get_RC5_Code(words, count, f) + Get_RC6_m0_Code(words, count, f), 1) << set.label << " " << k;
            ++keys_seen;
        }
        IrFormatRecord format{};
        IrCodeWords words{};
        EXPECT_EQ(GetIRCode(handle.get(), offset, set.key_count, format, words, files.library_path), 0);
    }
    EXPECT_GT(keys_seen, 50);
}

TEST(IrLibrary, TheFormatsAreTheProtocolsOwn)
{
    auto handle = CreateGetIR();
    IrFormatRecord got{}, rc5{}, rc6{};
    default_IR5Type(rc5);
    default_IR60Type(rc6);
    ASSERT_EQ(GetIRType(handle.get(), 5, got, shipped().library_path), 1);
    EXPECT_EQ(got, rc5);
    ASSERT_EQ(GetIRType(handle.get(), 25, got, shipped().library_path), 1);
    EXPECT_EQ(got, rc6);
    got.fill(9);
    EXPECT_EQ(GetIRType(handle.get(), 90, got, shipped().library_path), 0);
    EXPECT_EQ(got[0], 9);  // left as it was
}

TEST(IrLibrary, PublishedCodesUnderTheirNames)
{
    // RC-5 system 0 (TV1), command 12 is standby: the key POWER of tv000.
    const auto& files = shipped();
    const auto names = load_keynames(files.keylist, "tv000:");
    const auto power = std::find(names.begin(), names.end(), "POWER");
    ASSERT_NE(power, names.end());
    auto handle = CreateGetIR();
    IrFormatRecord format{};
    IrCodeWords words{};
    const int count = GetIRCode(handle.get(), check_deviceoffset(files.library, "tv000:"),
                                static_cast<int>(power - names.begin()), format, words, files.library_path);
    RcFields f;
    ASSERT_EQ(Get_RC5_Code(words, count, f), 1);
    EXPECT_EQ(f.system, 0);
    EXPECT_EQ(f.command, 12);
    EXPECT_EQ(words[0], 5);
}

TEST(IrLibrary, LabelsAndOffsets)
{
    const auto dir = read_ir_directory(shipped().library);
    std::uint32_t last = 0;
    std::set<std::string> labels;
    for (const auto& set : dir.codesets) {
        EXPECT_EQ(set.offset % 16, 0u);
        EXPECT_GT(set.offset, last);
        last = set.offset;
        EXPECT_TRUE(labels.insert(set.label).second);
    }
    EXPECT_EQ(check_deviceoffset(shipped().library, "tv999:"), 0u);
    EXPECT_EQ(check_deviceoffset(shipped().library, "nothing"), 0u);
    EXPECT_EQ(check_deviceoffset({}, "tv000:"), 0u);
}

TEST(IrCategories, ThirteenWithTheirPrefixesAndNames)
{
    ASSERT_EQ(ir_categories.size(), 13u);
    const char* prefixes[] = {"tv", "vcr", "cbl", "sat", "cd", "dvd", "dvr", "ld", "md", "tun", "tap", "amp", "pj"};
    const char* names[] = {"T V", "VCR", "CABLE", "SATELLITE TUNER", "CD PLAYER / CD RECORDER", "DVD PLAYER",
                           "DVD RECORDER", "LD PLAYER", "MD RECORDER", "RECEIVER (TUNER)", "TAPE DECK", "AMPLIFIER",
                           "PROJECTOR"};
    for (int i = 0; i < 13; ++i) {
        EXPECT_EQ(check_libdevice(i), prefixes[i]);
        EXPECT_STREQ(ir_categories[static_cast<std::size_t>(i)].display_name, names[i]);
        EXPECT_EQ(std::stoi(ir_categories[static_cast<std::size_t>(i)].code), i + 1);
    }
    EXPECT_EQ(check_libdevice(13), "");
    EXPECT_EQ(codeset_label("tv", 0), "tv000:");
    EXPECT_EQ(codeset_label("vcr", 12), "vcr012:");
    EXPECT_EQ(codeset_display_name(7), "Code Set-007");
}

TEST(BrandList, UnknowCodeForZeroAndForAnIdWithoutEntry)
{
    const auto& brands = shipped().brandlist;
    EXPECT_EQ(search_brandname(brands, 0), "Unknow code");
    EXPECT_EQ(search_brandname(brands, 9999), "Unknow code");
    EXPECT_EQ(search_brandname(brands, -3), "Unknow code");
    EXPECT_EQ(search_brandname({}, 1), "Unknow code");
}

TEST(BrandList, TheRecordForm)
{
    // "*", four digits, three bytes, the name up to "#", then the code sets.
    const std::string text = "header line\n*0007 = ACME TV#tv001,vcr002\n*0012xyzOther#cd000\n*0013 = broken\n";
    const std::vector<std::uint8_t> bytes(text.begin(), text.end());
    EXPECT_EQ(search_brandname(bytes, 7), "ACME TV");
    EXPECT_EQ(search_brandname(bytes, 12), "Other");
    EXPECT_EQ(search_brandname(bytes, 13), "Unknow code");
    EXPECT_EQ(search_brandname(bytes, 1), "Unknow code");
    const auto records = read_brandlist(bytes);
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0].labels, (std::vector<std::string>{"tv001", "vcr002"}));
    EXPECT_EQ(brands_of_category(records, "vcr"), std::vector<std::string>{"ACME TV"});
    EXPECT_EQ(check_device(records, "tv", "ACME TV"), std::vector<std::string>{"tv001:"});
    EXPECT_EQ(code_of_label(records, "cd000:"), 12);
}

TEST(KeyList, NamesAfterTheMarkUpToTheNextTable)
{
    const std::string text =
        "; a listing\ntv000:\n;&*^\n;POWER\n\tdw\t00005h\n;MUTE\n\tdw\t00005h\n"
        "tv001:\n;&*^\n;PLAY\n\tdw\t00005h\n";
    const std::vector<std::uint8_t> bytes(text.begin(), text.end());
    EXPECT_EQ(load_keynames(bytes, "tv000:"), (std::vector<std::string>{"POWER", "MUTE"}));
    EXPECT_EQ(load_keynames(bytes, "tv001"), std::vector<std::string>{"PLAY"});
    EXPECT_TRUE(load_keynames(bytes, "tv002:").empty());
    EXPECT_EQ(decode_keyname(bytes, "tv000:", 1), "MUTE");
    EXPECT_EQ(decode_keyname(bytes, "tv000:", 2), "");
    EXPECT_TRUE(load_keynames({}, "tv000:").empty());
}

TEST(KeyList, TheListingsWordsAreTheLibrarysWords)
{
    // Each dw line of Lib_KEY.ASM holds the words that GetIRCode gives.
    const auto& files = shipped();
    const std::string text(files.keylist.begin(), files.keylist.end());
    const auto at = text.find("tv002:");
    ASSERT_NE(at, std::string::npos);
    const auto dw = text.find("dw\t", at);
    const auto end = text.find('\n', dw);
    const std::string line = text.substr(dw + 3, end - dw - 3);
    auto handle = CreateGetIR();
    IrFormatRecord format{};
    IrCodeWords words{};
    const int count = GetIRCode(handle.get(), check_deviceoffset(files.library, "tv002:"), 0, format, words,
                                files.library_path);
    std::string expected;
    for (int i = 0; i < count; ++i) {
        char w[16];
        std::snprintf(w, sizeof w, "%s0%04Xh", i ? "," : "", static_cast<unsigned>(static_cast<std::uint16_t>(words[static_cast<std::size_t>(i)])));
        expected += w;
    }
    EXPECT_EQ(line, expected);
}

TEST(IrLibrary, AMissingOrCorruptLibraryGivesNothing)
{
    TempFolder folder;
    auto handle = CreateGetIR();
    IrFormatRecord format{};
    format.fill(3);
    IrCodeWords words{};
    EXPECT_EQ(GetIRCode(handle.get(), 16, 0, format, words, folder.path() / "none.bin"), 0);
    EXPECT_EQ(GetIRCode(nullptr, 16, 0, format, words, shipped().library_path), 0);
    // Every cut of the real file, and every byte flipped in its directory.
    const auto& good = shipped().library;
    const auto path = folder.path() / "5150LIb.bin";
    const auto dir = read_ir_directory(good);
    const auto offset = dir.codesets.back().offset;
    for (std::size_t cut : {std::size_t{0}, std::size_t{10}, std::size_t{40}, static_cast<std::size_t>(offset) + 20, good.size() - 70}) {
        std::ofstream(path, std::ios::binary | std::ios::trunc).write(reinterpret_cast<const char*>(good.data()), static_cast<std::streamsize>(cut));
        auto fresh = CreateGetIR();
        EXPECT_EQ(GetIRCode(fresh.get(), offset, dir.codesets.back().key_count - 1, format, words, path), 0) << cut;
        EXPECT_EQ(format[0], 3);
    }
    auto bad = good;
    for (std::size_t i = 16; i < 32; ++i) bad[i] = 0xFF;
    std::ofstream(path, std::ios::binary | std::ios::trunc).write(reinterpret_cast<const char*>(bad.data()), static_cast<std::streamsize>(bad.size()));
    auto fresh = CreateGetIR();
    EXPECT_EQ(GetIRCode(fresh.get(), offset, 0, format, words, path), 0);
    EXPECT_EQ(GetIRType(fresh.get(), 5, format, path), 0);
    EXPECT_TRUE(read_ir_directory(bad).codesets.empty());
    // An offset that is no code set's.
    EXPECT_EQ(GetIRCode(handle.get(), offset + 16, 0, format, words, shipped().library_path), 0);
    DestroyGetIR(handle);
    EXPECT_EQ(handle, nullptr);
}

}  // namespace
}  // namespace tesselo
