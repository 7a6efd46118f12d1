#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "core/ir/ir_data_dialog.h"
#include "core/ir/ir_library.h"
#include "core/ir/ir_library_layout.h"
#include "core/ir/rc_codes.h"
#include "support/test_app.h"

namespace tesselo {
namespace {

using namespace tesselo::testing;
namespace fs = std::filesystem;

// A home folder with a copy of the generated "Data base" folder.
struct IrDataTest : ::testing::Test {
    TestApp t;
    void SetUp() override
    {
        fs::copy(fs::path(TESSELO_BUILD_BIN) / "Data base", t.home.path() / "Data base", fs::copy_options::recursive);
    }
};

TEST_F(IrDataTest, CategoryBrandCodeSetAndFunction)
{
    IRData dialog(t.app);
    const auto categories = dialog.categories();
    ASSERT_EQ(categories.size(), 13u);
    EXPECT_EQ(categories[0], "T V");
    EXPECT_EQ(categories[12], "PROJECTOR");
    dialog.choose_category(0);
    EXPECT_EQ(dialog.brands(), (std::vector<std::string>{"RC-5", "RC-6"}));
    dialog.choose_brand(0);
    EXPECT_EQ(dialog.codesets(), (std::vector<std::string>{"Code Set-000", "Code Set-001"}));
    EXPECT_EQ(dialog.codeset_labels(), (std::vector<std::string>{"tv000:", "tv001:"}));
    dialog.choose_codeset(1);
    ASSERT_FALSE(dialog.functions().empty());
    EXPECT_EQ(dialog.functions()[0], "0");
    const auto power = std::find(dialog.functions().begin(), dialog.functions().end(), "POWER");
    ASSERT_NE(power, dialog.functions().end());
    dialog.choose_function(static_cast<int>(power - dialog.functions().begin()));
    ASSERT_TRUE(dialog.ok());
    EXPECT_TRUE(t.take_lines().empty());
    const auto& code = t.app.current_ir;
    EXPECT_EQ(code.current_ir_type, 0);
    EXPECT_EQ(code.name, "IR CODE tv001:");
    EXPECT_EQ(code.current_ir_word_count, 8);
    EXPECT_EQ(code.format_id, 5);
    EXPECT_EQ(code.library_label, "tv001:");
    EXPECT_EQ(code.library_code, 2);
    RcFields f;
    ASSERT_EQ(Get_RC5_Code(code.ir_code_words, code.ir_code_word_count, f), 1);
    EXPECT_EQ(f.system, 1);
    EXPECT_EQ(f.command, 12);
    EXPECT_EQ(code.current_ir_data[0], 5);  // word 0, the format id, low byte first
    EXPECT_EQ(code.current_ir_format[0], 0x13);
}

TEST_F(IrDataTest, ACategoryWithoutCodesIsPresentAndEmpty)
{
    IRData dialog(t.app);
    dialog.choose_category(12);
    EXPECT_TRUE(dialog.brands().empty());
    dialog.choose_brand(0);
    EXPECT_TRUE(dialog.codesets().empty());
}

TEST_F(IrDataTest, NoFunctionChosen)
{
    IRData dialog(t.app);
    t.app.current_ir.name = "RC5 1 2";
    EXPECT_FALSE(dialog.ok());
    dialog.choose_category(1);
    dialog.choose_brand(0);
    dialog.choose_codeset(0);
    EXPECT_FALSE(dialog.ok());
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{"message \"Kelvaro Tesselo 3\" \"Please select the function key\"",
                                                        "message \"Kelvaro Tesselo 3\" \"Please select the function key\""}));
    EXPECT_EQ(t.app.current_ir.name, "RC5 1 2");
    // Choosing another brand forgets the function.
    dialog.choose_function(0);
    dialog.choose_brand(0);
    EXPECT_FALSE(dialog.ok());
}

TEST_F(IrDataTest, AMissingLibraryLeavesTheListsEmpty)
{
    fs::remove_all(t.home.path() / "Data base");
    IRData dialog(t.app);
    EXPECT_EQ(dialog.categories().size(), 13u);
    dialog.choose_category(0);
    EXPECT_TRUE(dialog.brands().empty());
}

TEST_F(IrDataTest, ALibraryThatCannotGiveTheKeyChangesNothing)
{
    // The listing and the brand list are there; the library is not a library.
    std::ofstream(t.home.path() / "Data base" / "5150LIb.bin", std::ios::trunc) << "garbage";
    IRData dialog(t.app);
    dialog.choose_category(0);
    dialog.choose_brand(0);
    dialog.choose_codeset(0);
    dialog.choose_function(0);
    t.app.current_ir.name = "RC6 1 1";
    EXPECT_FALSE(dialog.ok());
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{
                                  "message \"Kelvarzo Tesselo 3\" \"The selected IR maybe error please select again!\""});
    EXPECT_EQ(t.app.current_ir.name, "RC6 1 1");
}

}  // namespace
}  // namespace tesselo

namespace tesselo {
namespace {

TEST_F(IrDataTest, TheLibraryIsFoundUnderTheOtherCaseOfItsName)
{
    const auto folder = t.home.path() / "Data base";
    fs::rename(folder / "5150LIb.bin", folder / "5150Lib.bin");
    EXPECT_EQ(ir_library_path(t.home.path()), folder / "5150Lib.bin");
    IRData dialog(t.app);
    dialog.choose_category(0);
    dialog.choose_brand(1);
    dialog.choose_codeset(0);
    dialog.choose_function(0);
    EXPECT_TRUE(dialog.ok());
    EXPECT_EQ(t.app.current_ir.name, "IR CODE tv002:");
    EXPECT_EQ(t.app.current_ir.current_ir_word_count, 12);
}

}  // namespace
}  // namespace tesselo
