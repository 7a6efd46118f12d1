#include <gtest/gtest.h>

#include "core/ir/rc56_edit.h"
#include "core/ir/rc_formats.h"
#include "support/test_app.h"

namespace tesselo {
namespace {

using namespace tesselo::testing;

struct Rc56EditTest : ::testing::Test {
    TestApp t;
    RC56Edit dialog{t.ui, t.app.current_ir};

    std::string message(const std::string& text) { return "message \"Kelvarzo Tesselo 3\" \"" + text + "\""; }
    // Leaves `field` with `text` in it and gives the lines printed.
    std::pair<bool, std::vector<std::string>> leave(RcField field, const std::string& text)
    {
        (field == RcField::Text1 ? dialog.Text1 : field == RcField::Text2 ? dialog.Text2
                                  : field == RcField::Text3 ? dialog.Text3 : dialog.Text4) = text;
        const bool ok = dialog.leave_field(field);
        return {ok, t.take_lines()};
    }
    void expect_refused(RcField field, const std::string& text, const std::string& words)
    {
        const auto [ok, lines] = leave(field, text);
        EXPECT_FALSE(ok) << text;
        EXPECT_EQ(lines, std::vector<std::string>{message(words)}) << text;
    }
    void expect_taken(RcField field, const std::string& text)
    {
        const auto [ok, lines] = leave(field, text);
        EXPECT_TRUE(ok) << text;
        EXPECT_TRUE(lines.empty()) << text;
    }
};

TEST_F(Rc56EditTest, FieldsPerProtocolAndTheDisabledOnes)
{
    dialog.choose_protocol(rc_protocol_rc5);
    EXPECT_TRUE(dialog.enabled(RcField::Text1) && dialog.enabled(RcField::Text3));
    EXPECT_FALSE(dialog.enabled(RcField::Text2) || dialog.enabled(RcField::Text4));
    dialog.choose_protocol(rc_protocol_rc5x);
    EXPECT_TRUE(dialog.enabled(RcField::Text4));
    EXPECT_FALSE(dialog.enabled(RcField::Text2));
    dialog.choose_protocol(rc_protocol_rc6);
    EXPECT_FALSE(dialog.enabled(RcField::Text2) || dialog.enabled(RcField::Text4));
    dialog.choose_protocol(rc_protocol_rc6a);
    EXPECT_TRUE(dialog.enabled(RcField::Text2));
    EXPECT_FALSE(dialog.enabled(RcField::Text4));
}

TEST_F(Rc56EditTest, RangeLabelsChangeWithTheProtocol)
{
    for (int p : {rc_protocol_rc5, rc_protocol_rc5x}) {
        dialog.choose_protocol(p);
        EXPECT_EQ(dialog.range_label(RcField::Text3), "(0-31)");
        EXPECT_EQ(dialog.range_label(RcField::Text1), "(0-127)");
    }
    for (int p : {rc_protocol_rc6, rc_protocol_rc6a}) {
        dialog.choose_protocol(p);
        EXPECT_EQ(dialog.range_label(RcField::Text3), "(0-255)");
        EXPECT_EQ(dialog.range_label(RcField::Text1), "(0-255)");
    }
}

TEST_F(Rc56EditTest, CommandMessagesPerProtocol)
{
    dialog.choose_protocol(rc_protocol_rc5);
    expect_refused(RcField::Text1, "128", "Please enter 0 - 127");
    expect_taken(RcField::Text1, "127");
    dialog.choose_protocol(rc_protocol_rc5x);
    expect_refused(RcField::Text1, "128", "Please enter 0 -127");
    expect_taken(RcField::Text1, "0");
    for (int p : {rc_protocol_rc6, rc_protocol_rc6a}) {
        dialog.choose_protocol(p);
        expect_refused(RcField::Text1, "256", "Please enter 0 - 255");
        expect_taken(RcField::Text1, "255");
    }
}

TEST_F(Rc56EditTest, SystemMessagesPerProtocol)
{
    for (int p : {rc_protocol_rc5, rc_protocol_rc5x}) {
        dialog.choose_protocol(p);
        expect_refused(RcField::Text3, "32", "Please enter 0 - 31");
        expect_refused(RcField::Text3, "-1", "Please enter 0 - 31");
        expect_taken(RcField::Text3, "31");
    }
    for (int p : {rc_protocol_rc6, rc_protocol_rc6a}) {
        dialog.choose_protocol(p);
        expect_refused(RcField::Text3, "256", "Please enter 0 - 255");
        expect_taken(RcField::Text3, "255");
    }
}

TEST_F(Rc56EditTest, DataAndCustomerMessages)
{
    dialog.choose_protocol(rc_protocol_rc5x);
    expect_refused(RcField::Text4, "64", "Please enter 0 - 63");
    expect_taken(RcField::Text4, "63");
    dialog.choose_protocol(rc_protocol_rc6a);
    expect_refused(RcField::Text2, "128", "Please enter (0 - 127)/(32768 - 65535)");
    expect_refused(RcField::Text2, "32767", "Please enter (0 - 127)/(32768 - 65535)");
    expect_refused(RcField::Text2, "65536", "Please enter (0 - 127)/(32768 - 65535)");
    expect_taken(RcField::Text2, "127");
    expect_taken(RcField::Text2, "32768");
    expect_taken(RcField::Text2, "65535");
}

TEST_F(Rc56EditTest, TextThatIsNoNumberIsOutOfRange)
{
    dialog.choose_protocol(rc_protocol_rc5);
    expect_refused(RcField::Text1, "", "Please enter 0 - 127");
    expect_refused(RcField::Text1, "12a", "Please enter 0 - 127");
    expect_refused(RcField::Text3, "99999999999999", "Please enter 0 - 31");
    expect_taken(RcField::Text3, " 7 ");
}

TEST_F(Rc56EditTest, ADisabledFieldIsNotChecked)
{
    dialog.choose_protocol(rc_protocol_rc5);
    expect_taken(RcField::Text4, "999");
    expect_taken(RcField::Text2, "128");
}

TEST_F(Rc56EditTest, OkWithRc5FillsTheCurrentCode)
{
    dialog.choose_protocol(rc_protocol_rc5);
    dialog.Text3 = "0";
    dialog.Text1 = "0";
    ASSERT_TRUE(dialog.ok());
    EXPECT_TRUE(t.take_lines().empty());
    const auto& code = t.app.current_ir;
    EXPECT_EQ(code.current_ir_type, 1);
    EXPECT_EQ(code.current_ir_word_count, 8);
    EXPECT_EQ(code.name, "RC5 0 0");
    EXPECT_EQ(code.format_id, 5);
    IrFormatRecord rc5;
    default_IR5Type(rc5);
    EXPECT_EQ(code.format_record(), rc5);
    // Words low byte first: 2, 0x8010, 0x0806, 0x1F00, 0x3F00, 0x1F00, 0x3F00, 0xFC00.
    const std::uint8_t data[] = {2, 0, 0x10, 0x80, 0x06, 0x08, 0, 0x1F, 0, 0x3F, 0, 0x1F, 0, 0x3F, 0, 0xFC};
    for (std::size_t i = 0; i < sizeof data; ++i) EXPECT_EQ(code.current_ir_data[i], data[i]) << i;
    for (std::size_t i = sizeof data; i < 64; ++i) EXPECT_EQ(code.current_ir_data[i], 0) << i;
    EXPECT_EQ(code.current_ir_format[0], 0x13);
    EXPECT_EQ(code.current_ir_format[1], 0x0A);
}

TEST_F(Rc56EditTest, OkCaptionsOfTheOtherProtocols)
{
    dialog.choose_protocol(rc_protocol_rc5x);
    dialog.Text3 = "3";
    dialog.Text1 = "100";
    dialog.Text4 = "9";
    ASSERT_TRUE(dialog.ok());
    EXPECT_EQ(t.app.current_ir.name, "RC5X 3 100 9");
    EXPECT_EQ(t.app.current_ir.current_ir_type, 2);
    EXPECT_EQ(t.app.current_ir.current_ir_word_count, 9);
    dialog.choose_protocol(rc_protocol_rc6);
    ASSERT_TRUE(dialog.ok());
    EXPECT_EQ(t.app.current_ir.name, "RC6 3 100");
    EXPECT_EQ(t.app.current_ir.current_ir_type, 3);
    EXPECT_EQ(t.app.current_ir.current_ir_word_count, 12);
    dialog.choose_protocol(rc_protocol_rc6a);
    dialog.Text2 = "40000";
    ASSERT_TRUE(dialog.ok());
    EXPECT_EQ(t.app.current_ir.name, "RC6A 40000 3 100");
    EXPECT_EQ(t.app.current_ir.current_ir_type, 4);
    EXPECT_EQ(t.app.current_ir.current_ir_word_count, 8);
    EXPECT_EQ(t.app.current_ir.current_customer_code, 40000);
    EXPECT_EQ(t.app.current_ir.format_id, 206);
    // Words over 255 and negative ones are split all the same: 0x2C20 low byte first.
    EXPECT_EQ(t.app.current_ir.current_ir_data[4], 0x20);
    EXPECT_EQ(t.app.current_ir.current_ir_data[5], 0x2C);
}

TEST_F(Rc56EditTest, OkRefusesCustomer128AndKeepsTheCurrentCode)
{
    dialog.choose_protocol(rc_protocol_rc5);
    dialog.Text3 = "1";
    dialog.Text1 = "2";
    ASSERT_TRUE(dialog.ok());
    const auto before = t.app.current_ir.current_ir_data;
    dialog.choose_protocol(rc_protocol_rc6a);
    dialog.Text2 = "128";
    EXPECT_FALSE(dialog.ok());
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{message("Please enter (0 - 127)/(32768 - 65535)")});
    EXPECT_EQ(t.app.current_ir.current_ir_data, before);
    EXPECT_EQ(t.app.current_ir.name, "RC5 1 2");
    dialog.Text2 = "127";
    EXPECT_TRUE(dialog.ok());
    EXPECT_EQ(t.app.current_ir.current_ir_word_count, 7);
    dialog.Text2 = "32768";
    EXPECT_TRUE(dialog.ok());
    EXPECT_EQ(t.app.current_ir.current_ir_word_count, 8);
}

TEST_F(Rc56EditTest, OkWithAFieldOutOfRangeSaysSoAndStays)
{
    dialog.choose_protocol(rc_protocol_rc5);
    dialog.Text3 = "40";
    dialog.Text1 = "1";
    EXPECT_FALSE(dialog.ok());
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{message("Please enter 0 - 31")});
    EXPECT_TRUE(t.app.current_ir.name.empty());
}

TEST_F(Rc56EditTest, AStoredCodeFillsTheFieldsAgain)
{
    IrCodeWords words{};
    ASSERT_TRUE(dialog.load_code(words, encode_rc6a(words, 33000, 7, 8)));
    EXPECT_EQ(dialog.protocol(), rc_protocol_rc6a);
    EXPECT_EQ(dialog.Text2, "33000");
    EXPECT_EQ(dialog.Text3, "7");
    EXPECT_EQ(dialog.Text1, "8");
    ASSERT_TRUE(dialog.load_code(words, encode_rc5x(words, 1, 2, 3)));
    EXPECT_EQ(dialog.protocol(), rc_protocol_rc5x);
    EXPECT_EQ(dialog.Text4, "3");
    IrCodeWords zero{};
    EXPECT_FALSE(dialog.load_code(zero, 8));
}

}  // namespace
}  // namespace tesselo
