#include <gtest/gtest.h>

#include "core/ir/rc_codes.h"
#include "core/keys/ir_step_names.h"
#include "support/step_document.h"

namespace tesselo {
namespace {

std::vector<std::uint8_t> bytes(const std::string& text) { return {text.begin(), text.end()}; }

struct IrStepRows : ::testing::Test {
    std::unique_ptr<Configuration> doc = std::make_unique<Configuration>();
    Configuration& c = *doc;
    LibraryStepNames names{bytes("*0007 = ACME#tv001,vcr002\n"),
                           bytes("tv001:\n;&*^\n;POWER\n\tdw\t00005h\n;MUTE\n\tdw\t00005h\n")};
    void SetUp() override
    {
        init_new_configuration(c, 0);
        testing::add_test_device(c, 0, 1, 1, "TV");
    }
    // Stores `count` words as IR record `record` and adds a step naming it.
    std::string row(std::uint8_t type, const IrCodeWords& words, int count, int record = 3)
    {
        c.ir_data.record(record) = words;
        c.ir_data_index[static_cast<std::size_t>(record)].length = static_cast<std::uint8_t>(count * 2);
        const int step = testing::add_step(c, testing::hard_place(c, 1, 0), type, record);
        return display_marcostep(c, step, names).value_or("(none)");
    }
};

TEST_F(IrStepRows, RcCodesAreNamedByTheirDecodedFields)
{
    IrCodeWords w{};
    EXPECT_EQ(row(step_rc5, w, encode_rc5(w, 0, 12)), "RC5 0 12");
    EXPECT_EQ(row(step_rc5x, w, encode_rc5x(w, 3, 70, 9), 4), "RC5X 3 70 9");
    EXPECT_EQ(row(step_rc6, w, encode_rc6(w, 200, 17), 5), "RC6 200 17");
    EXPECT_EQ(row(step_rc6a, w, encode_rc6a(w, 32768, 4, 12), 6), "RC6A 32768 4 12");
}

TEST_F(IrStepRows, ALibraryCodeShowsDeviceTypeBrandAndKeyName)
{
    const int step = testing::add_step(c, testing::hard_place(c, 1, 0), step_ir_code, 2, 7, 1);
    EXPECT_EQ(display_marcostep(c, step, names), "IR CODE T V-ACME- - MUTE");
}

TEST_F(IrStepRows, AnUnknownLibraryCodeIsShownAsAMyDatabaseCode)
{
    const int step = testing::add_step(c, testing::hard_place(c, 1, 0), step_ir_code, 2, 8, 0);
    EXPECT_EQ(display_marcostep(c, step, names), "MYDATABASE CODE   ");
}

TEST_F(IrStepRows, AFreeStepAddsNoRow)
{
    EXPECT_FALSE(display_marcostep(c, 100, names));
}

}  // namespace
}  // namespace tesselo
