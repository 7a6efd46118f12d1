// After an upload the formats are filled in again from their ids: the four
// RC formats from their fixed records, the others from the IR library.
#include <gtest/gtest.h>

#include <fstream>

#include "core/ir/ir_library_layout.h"
#include "core/ir/ir_library_writer.h"
#include "core/ir/rc_formats.h"
#include "core/ir/rebuild_ir_formats.h"
#include "support/test_app.h"

namespace tesselo::testing {
namespace {

IrFormatRecord record_of(void (*fill)(IrFormatRecord&))
{
    IrFormatRecord r{};
    r.fill(77);
    fill(r);
    return r;
}

TEST(RebuildIrFormats, RcFormatsFromTheirRecordsAndOthersFromTheLibrary)
{
    TestApp t;
    IrLibraryContent content;
    IrFormatRecord nec{};
    for (std::size_t i = 0; i < nec.size(); ++i) nec[i] = static_cast<std::int16_t>(1000 + i);
    content.formats.push_back({300, nec});
    std::filesystem::create_directories(t.home.path() / "Data base");
    const auto bytes = write_ir_library(content);
    std::ofstream(t.home.path() / "Data base" / ir_library_file, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));

    Configuration& c = t.app.config(0);
    c.ir_formats.format_count = 7;
    const std::int16_t ids[] = {5, 90, 25, 206, 300, 999, 5};
    for (std::size_t i = 0; i < 7; ++i) c.ir_format_ids[i] = ids[i];
    c.ir_formats.records[7].fill(55);  // past the count: untouched
    rebuild_ir_formats(t.app, 0);

    EXPECT_EQ(c.ir_formats.records[0], record_of(default_IR5Type));
    EXPECT_EQ(c.ir_formats.records[1], record_of(default_IR5XType));
    EXPECT_EQ(c.ir_formats.records[2], record_of(default_IR60Type));
    EXPECT_EQ(c.ir_formats.records[3], record_of(default_IR6AType));
    EXPECT_EQ(c.ir_formats.records[4], nec);
    // A format the library does not have keeps what the record held before.
    EXPECT_EQ(c.ir_formats.records[5], nec);
    EXPECT_EQ(c.ir_formats.records[6], record_of(default_IR5Type));
    IrFormatRecord untouched{};
    untouched.fill(55);
    EXPECT_EQ(c.ir_formats.records[7], untouched);
}

TEST(RebuildIrFormats, NoFormatsNoChange)
{
    TestApp t;
    Configuration& c = t.app.config(0);
    c.ir_formats.records[0].fill(9);
    rebuild_ir_formats(t.app, 0);
    EXPECT_EQ(c.ir_formats.records[0][0], 9);
}

}  // namespace
}  // namespace tesselo::testing
