// The Add IR Code dialog's OK and the IR storage behind it: one record per
// code, one format per protocol, the banks, offsets and closing words, the
// limits in their order, learned slots, and the overwrite of a step.
#include "core/ir/edit_ir_fixture.h"
#include "core/ir/ir_storage.h"
#include "core/ir/learn_test_ir.h"
#include "core/ir/my_database_forms.h"
#include "core/ir/rc_formats.h"
#include "core/tree/journal.h"

namespace tesselo::testing {
namespace {

const std::string exceed_ir = "message \"Kelvaro Tesselo 3\" \"Exceed ir data\"";
const std::string exceed_doc = "message \"Kelvaro Tesselo 3\" \"Exceed Marco steps\"";
const std::string exceed_key = "message \"Edit IR\" \"Exceed marco steps!\"";
const std::string store_fault = "message \"Kelvarzo Tesselo 3\" \"The selected IR maybe error please select again!\"";

// The RC5 words of system S, command C, as the protocol's rules give them.
std::vector<std::int16_t> rc5_words(int s, int c)
{
    const int w = ((~s & 31) * 256) | (c >= 64 ? 0x4000 : 0);
    const int x = (~c & 63) * 4;
    return {2, static_cast<std::int16_t>(0x8010), 0x0806, static_cast<std::int16_t>(w),
            static_cast<std::int16_t>(w | 0x2000), static_cast<std::int16_t>(w), static_cast<std::int16_t>(w | 0x2000),
            static_cast<std::int16_t>(x * 256)};
}

TEST_F(EditIrTest, TheSameRc5CodeOnTwoKeysIsStoredOnceAndSentByTwoSteps)
{
    const int before = config().action_steps.step_total;
    ASSERT_TRUE(add_rc5(0, 12));
    soft_key(2);
    ASSERT_TRUE(add_rc5(0, 12));
    EXPECT_EQ(config().ir_data.record_count, 1);
    EXPECT_EQ(config().action_steps.step_total, before + 2);
    const auto a = steps();
    ASSERT_EQ(a.size(), 1u);
    EXPECT_EQ(a[0].step_type, step_rc5);
    EXPECT_EQ(a[0].param_low, 0);
    EXPECT_EQ(a[0].param_high, 0);
    EXPECT_EQ(a[0].value, 3000);
    soft_key(1);
    EXPECT_EQ(steps()[0].param_low, 0);
}

TEST_F(EditIrTest, ARecordHoldsItsFormatIndexTheWordsAndTheClosingWords)
{
    ASSERT_TRUE(add_rc5(0, 12));
    ASSERT_TRUE(add_rc5(3, 64));
    const auto expect = [&](int record, std::vector<std::int16_t> words, int offset) {
        const auto& r = config().ir_data.record(record);
        words[0] = 0;  // the RC5 format's index
        for (std::size_t i = 0; i < words.size(); ++i) EXPECT_EQ(r[i], words[i]) << record << " word " << i;
        EXPECT_EQ(r[8], 3000);
        EXPECT_EQ(r[9], 0);
        EXPECT_EQ(config().ir_data_index[static_cast<std::size_t>(record)].length, 16);
        EXPECT_EQ(config().ir_data_index[static_cast<std::size_t>(record)].offset, offset);
    };
    expect(0, rc5_words(0, 12), 0);
    // The end of the record before: 16 bytes of words and 4 of closing words.
    expect(1, rc5_words(3, 64), 20);
}

TEST_F(EditIrTest, TheFirstCodeOfAProtocolAddsOneFormatAndTheSecondNone)
{
    ASSERT_TRUE(add_rc5(0, 1));
    EXPECT_EQ(config().ir_formats.format_count, 1);
    EXPECT_EQ(config().ir_format_ids[0], 5);
    IrFormatRecord rc5{};
    default_IR5Type(rc5);
    EXPECT_EQ(config().ir_formats.records[0], rc5);
    ASSERT_TRUE(add_rc5(0, 2));
    EXPECT_EQ(config().ir_formats.format_count, 1);
    ASSERT_TRUE(add([&] { rc(rc_protocol_rc6, "0", "0"); }));
    EXPECT_EQ(config().ir_formats.format_count, 2);
    EXPECT_EQ(config().ir_format_ids[1], 25);
    // Word 0 of the RC6 record is its format's index.
    EXPECT_EQ(config().ir_data.record(2)[0], 1);
    ASSERT_TRUE(add([&] { rc(rc_protocol_rc6a, "3", "4", "", "127"); }));
    ASSERT_TRUE(add([&] { rc(rc_protocol_rc5x, "1", "2", "3"); }));
    EXPECT_EQ(config().ir_formats.format_count, 4);
    EXPECT_EQ(config().ir_format_ids[2], 206);
    EXPECT_EQ(config().ir_format_ids[3], 90);
}

TEST_F(EditIrTest, ARecordLiesInTheBankOfItsNumberDividedBy900)
{
    // 905 codes: record 904 is the fifth of bank 1.
    for (int i = 0; i < 905; ++i) {
        IrCodeValue code;
        code.format_id = 5;
        code.word_count = 3;
        code.words = {0, static_cast<std::int16_t>(i), 7};
        ASSERT_TRUE(store_ir_code(config(), code));
    }
    EXPECT_EQ(config().ir_data.record_count, 905);
    EXPECT_EQ(&config().ir_data.record(904), &config().ir_data.records[1 * 900 + 4]);
    EXPECT_EQ(config().ir_data.records[904][1], 904);
    EXPECT_EQ(config().ir_data_index[904].offset, 904 * (6 + 4));
}

TEST_F(EditIrTest, TheDurationIsDefault3000OrTheMinimumFieldTimes100)
{
    ASSERT_TRUE(add_rc5(0, 1));
    ASSERT_TRUE(add([&] { rc5(0, 2); }, "0.5"));
    ASSERT_TRUE(add([&] { rc5(0, 3); }, "10"));
    ASSERT_TRUE(add([&] { rc5(0, 4); }, "0.01"));
    const auto s = steps();
    ASSERT_EQ(s.size(), 4u);
    EXPECT_EQ(s[0].value, 3000);
    EXPECT_EQ(s[1].value, 50);
    EXPECT_EQ(s[2].value, 1000);
    EXPECT_EQ(s[3].value, 1);
}

TEST_F(EditIrTest, TheUpDownStopsAt001AndAt10)
{
    EditIR dialog(t.app, target());
    EXPECT_EQ(dialog.Label4, "0.01");
    dialog.UpDown1_down();
    EXPECT_EQ(dialog.Label4, "0.01");
    dialog.UpDown1_up();
    EXPECT_EQ(dialog.Label4, "0.02");
    dialog.Label4 = "9.99";
    dialog.UpDown1_up();
    EXPECT_EQ(dialog.Label4, "10");
    dialog.UpDown1_up();
    EXPECT_EQ(dialog.Label4, "10");
    EXPECT_EQ(duration_range_label, "(0.01 - 10 sec)");
}

TEST_F(EditIrTest, AValueOutsideTheRangeSaysSoOnLeavingAndFallsBackTo001)
{
    EditIR dialog(t.app, target());
    dialog.choose_minimum();
    for (const std::string bad : {"10.5", "0", "0.001", ""}) {
        dialog.Label4 = bad;
        dialog.leave_duration();
        EXPECT_EQ(dialog.Label4, "0.01") << bad;
        EXPECT_EQ(t.take_lines(), std::vector<std::string>{"message \"Kelvarzo Tesselo 3\" \"Please enter 0.01 - 10\""}) << bad;
    }
    dialog.Label4 = "3.5";
    dialog.leave_duration();
    EXPECT_EQ(dialog.Label4, "3.5");
    EXPECT_TRUE(t.take_lines().empty());
    dialog.Label4.clear();
    for (char c : std::string("1x.2")) dialog.key_press(c);
    EXPECT_EQ(dialog.Label4, "1.2");
}

TEST_F(EditIrTest, AnEmptyNameLineSaysInvalidIRcodeAndTheDialogStays)
{
    const int journalled = t.app.journal().undo.count;
    EditIR dialog(t.app, target());
    EXPECT_FALSE(dialog.ok());
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{"status \"Invalid IRcode\""});
    EXPECT_TRUE(steps().empty());
    EXPECT_EQ(t.app.journal().undo.count, journalled);
}

TEST_F(EditIrTest, EachSourceWritesItsLogWordsWithTheWindowsCaption)
{
    ASSERT_TRUE(add_rc5(0, 1));
    ASSERT_TRUE(add([&] { rc(rc_protocol_rc5x, "1", "2", "3"); }));
    ASSERT_TRUE(add([&] { rc(rc_protocol_rc6, "1", "2"); }));
    ASSERT_TRUE(add([&] { rc(rc_protocol_rc6a, "1", "2", "", "3"); }));
    ASSERT_TRUE(add([&] { library("tv000", 1); }));
    ASSERT_TRUE(add([&] { learned(1); }));
    std::vector<std::string> starts;
    for (const auto& line : t.log_lines())
        if (line.find(" (start) - ") != std::string::npos) starts.push_back(line);
    EXPECT_EQ(starts, (std::vector<std::string>{
                          "\"Add RC5 (start) - DEVICE11\\PAGE1\"", "\"Add RC5X (start) - DEVICE11\\PAGE1\"",
                          "\"Add RC60 (start) - DEVICE11\\PAGE1\"", "\"Add RC6A (start) - DEVICE11\\PAGE1\"",
                          "\"Add IR (start) - DEVICE11\\PAGE1\"", "\"Add learning (start) - DEVICE11\\PAGE1\""}));
    EXPECT_EQ(t.log_lines().back(), "\"add learning code - DEVICE1-PAGE1/row 1\"");
}

TEST_F(EditIrTest, MyDatabaseKindsLogAsTheLibraryAndAsLearning)
{
    EXPECT_EQ(ir_source_word(ir_type_mydatabase), "IR");
    EXPECT_EQ(ir_source_word(ir_type_mydatabase_learned), "learning");
}

TEST_F(EditIrTest, AStepOnAHardKeyAndOnHomeSayWhereTheyLand)
{
    hard_key(0);
    ASSERT_TRUE(add_rc5(0, 1));
    EXPECT_EQ(t.log_lines().back(), "\"add RC5 0 1 - DEVICE1-PAGE1/(hardkey)1\"");
    select_page("HOME1\\PAGE1");
    // Row 2 of HOME is the second device's key; an empty row of HOME gets no key.
    soft_key(2);
    ASSERT_TRUE(add_rc5(0, 2));
    EXPECT_EQ(t.log_lines().back(), "\"add RC5 0 2 - HOME-PAGE1/row 2\"");
    soft_key(3);
    EXPECT_FALSE(add_rc5(0, 3));
    EXPECT_EQ(config().page_table[0].key_count, 3);
}

TEST_F(EditIrTest, ALibraryCodeNamesItsCodeInValueAndExtra)
{
    ASSERT_TRUE(add([&] { library("tv000", 3); }));
    const auto s = steps();
    ASSERT_EQ(s.size(), 1u);
    EXPECT_EQ(s[0].step_type, step_ir_code);
    EXPECT_EQ(s[0].value, t.app.current_ir.library_code);
    EXPECT_EQ(s[0].extra, 3);
    EditIR dialog(t.app, target());
    EXPECT_TRUE(dialog.duration_applies());  // no code chosen yet
    library("tv000", 4);
    EXPECT_FALSE(dialog.duration_applies());
}

TEST_F(EditIrTest, ALibraryCodeFromMyDatabaseFindsItsFormatsIdByTheFormatsWords)
{
    library("tv000", 3);
    const IrCodeValue registered = t.app.current_ir.value();
    ASSERT_NE(registered.format_id, 0);
    ASSERT_EQ(register_ir_code(t.app.ui(), t.app.my_database(), {"ACME", "TV", "X1", "POWER"}, registered),
              RegisterOutcome::registered);
    // The record holds no id: the kind is 4 and the word count.
    MyKeyRecord record;
    ASSERT_EQ(t.app.my_database().get_mykey_record(11, record), 1);
    EXPECT_EQ(record.kind, 4u | static_cast<std::uint32_t>(registered.word_count) << 8);
    t.app.current_ir = CurrentIrCode{};
    NewIRData pick(t.app);
    for (const auto& [level, name] : {std::pair{level_brand, "ACME"}, std::pair{level_device, "TV"},
                                      std::pair{level_model, "X1"}, std::pair{level_function, "POWER"}})
        ASSERT_TRUE(pick.choose_name(level, name)) << name;
    ASSERT_TRUE(pick.ok());
    EXPECT_EQ(t.app.current_ir.format_id, registered.format_id);
    EXPECT_EQ(t.app.current_ir.format_record(), registered.format);
}

// Fills ir_data up to its 8000 records with codes of one word each.
void fill_records(Configuration& c)
{
    for (int i = c.ir_data.record_count; i < 8000; ++i) {
        IrCodeValue code;
        code.format_id = 5;
        code.word_count = 2;
        code.words = {0, static_cast<std::int16_t>(i)};
        ASSERT_TRUE(append_ir_record(c, code));
    }
}

TEST_F(EditIrTest, The8001stCodeIsRefusedEvenWhenItIsAlreadyStored)
{
    ASSERT_TRUE(add_rc5(0, 12));
    fill_records(config());
    ASSERT_EQ(config().ir_data.record_count, 8000);
    t.take_lines();
    const int steps_before = config().action_steps.step_total;
    EXPECT_FALSE(add_rc5(0, 13));
    EXPECT_FALSE(add_rc5(0, 12));  // stored as record 0, still refused: the check stands before the search
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{exceed_ir, exceed_ir}));
    EXPECT_EQ(config().action_steps.step_total, steps_before);
    EXPECT_EQ(t.ui.icons, (std::vector<Icon>{Icon::exclamation, Icon::exclamation}));
    // The limit holds for a learned code too, though it takes no record, and
    // leaves its learned slot free.
    EXPECT_FALSE(add([&] { learned(9); }));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{exceed_ir});
    EXPECT_EQ(check_learntotalno(config()), 0);
    EXPECT_EQ(config().action_steps.step_total, steps_before);
}

TEST_F(EditIrTest, TheRecordLimitStandsAfterTheOverwritePath)
{
    ASSERT_TRUE(add_rc5(0, 12));
    ASSERT_TRUE(add_rc5(0, 13));
    fill_records(config());
    t.take_lines();
    // Rewriting step 2 with the code already in record 0 stores nothing new.
    ASSERT_EQ(begin_step_edit(t.app, target(), 2), step_rc5);
    EXPECT_TRUE(add([&] { rc5(0, 12); }));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{});
    EXPECT_EQ(step_number_value(steps()[1]), 0);
    EXPECT_EQ(config().ir_data.record_count, 8000);
}

TEST_F(EditIrTest, ARefusedStepLeavesNoRecordFormatOrLearnedSlot)
{
    // An empty row of a HOME page is no key: no step can be added there.
    select_page("HOME1\\PAGE1");
    soft_key(4);
    t.take_lines();
    EXPECT_FALSE(add_rc5(0, 12));
    EXPECT_FALSE(add([&] { learned(9); }));
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{store_fault, store_fault}));
    EXPECT_EQ(config().ir_data.record_count, 0);
    EXPECT_EQ(config().ir_formats.format_count, 0);
    EXPECT_EQ(check_learntotalno(config()), 0);
    EXPECT_EQ(config().page_table[0].key_count, 3);  // HOME and its two devices' keys
}

TEST_F(EditIrTest, The8000thStepIsTheLastAndComesBeforeTheRecordCheck)
{
    // The count of steps in use is what the check reads.
    Configuration& c = config();
    c.action_steps.step_total = 7999;
    ASSERT_EQ(c.action_steps.step_total, 7999);
    EXPECT_TRUE(add_rc5(0, 1));
    EXPECT_FALSE(add_rc5(0, 2));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{exceed_doc});
}

TEST_F(EditIrTest, The41stStepOfAKeyIsRefusedUnderEditIR)
{
    for (int i = 0; i < 40; ++i) ASSERT_TRUE(add_rc5(0, i % 64)) << i;
    const int records = config().ir_data.record_count;
    t.take_lines();
    EXPECT_FALSE(add_rc5(1, 1));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{exceed_key});
    // Refused before anything was stored.
    EXPECT_EQ(config().ir_data.record_count, records);
    EXPECT_EQ(steps().size(), 40u);
}

TEST_F(EditIrTest, AFullFormatTableIsAFaultBeforeAnyChange)
{
    for (int i = 0; i < 400; ++i) {
        config().ir_format_ids[static_cast<std::size_t>(i)] = static_cast<std::int16_t>(1000 + i);
    }
    config().ir_formats.format_count = 400;
    const int journalled = t.app.journal().undo.count;
    t.take_lines();
    EXPECT_FALSE(add_rc5(0, 1));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{store_fault});
    EXPECT_EQ(config().ir_data.record_count, 0);
    EXPECT_TRUE(steps().empty());
    EXPECT_EQ(t.app.journal().undo.count, journalled);
}

TEST_F(EditIrTest, OkJournalsTheDocumentSoUndoTakesTheCodeBack)
{
    const int journalled = t.app.journal().undo.count;
    ASSERT_TRUE(add_rc5(0, 1));
    EXPECT_EQ(t.app.journal().undo.count, journalled + 1);
    muUndo_Click(t.app);
    EXPECT_EQ(config().ir_data.record_count, 0);
    EXPECT_TRUE(steps().empty());
}

TEST(LearningBitmap, TheHighestBitIsTheLowestSlotAndAFullByteIsPassedOver)
{
    Configuration c;
    clear_configuration(c);
    EXPECT_EQ(check_learnkeyno(c), 0);
    EXPECT_EQ(c.learning_bitmap[0], 0x80);
    EXPECT_EQ(check_learnkeyno(c), 1);
    EXPECT_EQ(c.learning_bitmap[0], 0xC0);
    c.learning_bitmap[0] = 255;
    c.learning_bitmap[1] = 0xFE;
    EXPECT_EQ(check_learnkeyno(c), 15);
    EXPECT_EQ(check_learntotalno(c), 16);
    EXPECT_EQ(learning_memory_free(c), 1);
    c.learning_bitmap.fill(255);
    EXPECT_EQ(learning_memory_free(c), 0);
    EXPECT_EQ(check_learnkeyno(c), -1);
    EXPECT_EQ(check_learntotalno(c), 1000);
}

TEST_F(EditIrTest, ALearnedCodeTakesASlotItsBytesAndItsKeysNumber)
{
    ASSERT_TRUE(add([&] { learned(7); }));
    const auto s = steps();
    ASSERT_EQ(s.size(), 1u);
    EXPECT_EQ(s[0].step_type, step_learning);
    EXPECT_EQ(step_number_value(s[0]), 0);
    EXPECT_EQ(config().learning_memory[0][0], 7);
    EXPECT_EQ(config().learning_memory[0][63], 7 + 63);
    const auto place = locate_key(config(), page, t.app.key_selection);
    EXPECT_EQ(config().learning_keys[0], softkey_at(config(), *place)->label_index);
    hard_key(2);  // hard key index 0
    ASSERT_TRUE(add([&] { learned(8); }));
    EXPECT_EQ(config().learning_keys[1], 1000 + 1 * 41 + 0);
    EXPECT_EQ(config().ir_data.record_count, 0);
}

TEST_F(EditIrTest, AKeyWithLearnedCodesGivesBackItsSlotsAndTheFreedSlotIsTakenFirst)
{
    ASSERT_TRUE(add([&] { learned(1); }));
    ASSERT_TRUE(add([&] { learned(2); }));
    soft_key(2);
    ASSERT_TRUE(add([&] { learned(3); }));
    EXPECT_EQ(check_learntotalno(config()), 3);
    soft_key(1);
    const auto place = locate_key(config(), page, t.app.key_selection);
    delete_marcostep(config(), key_action_list(config(), *place));
    set_key_action_list(config(), *place, no_index);
    EXPECT_EQ(check_learntotalno(config()), 1);
    EXPECT_EQ(config().learning_bitmap[0], 0x20);  // slot 2 alone
    soft_key(3);
    ASSERT_TRUE(add([&] { learned(4); }));
    EXPECT_EQ(step_number_value(steps()[0]), 0);
}

TEST_F(EditIrTest, WithEveryLearnedSlotUsedALearnedCodeIsRefused)
{
    config().learning_bitmap.fill(255);
    t.take_lines();
    EXPECT_FALSE(add([&] { learned(1); }));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{"message \"Kelvaro Tesselo 3\" \"Learning memory full\""});
    EXPECT_TRUE(steps().empty());
}

TEST_F(EditIrTest, DeletingOneOfTwoStepsThatSendOneCodeKeepsTheCodeForTheOther)
{
    ASSERT_TRUE(add_rc5(0, 12));
    soft_key(2);
    ASSERT_TRUE(add_rc5(0, 12));
    ASSERT_TRUE(DeleteBt(t.app, target(), 1));
    EXPECT_EQ(config().ir_data.record(0)[3], rc5_words(0, 12)[3]);
    soft_key(1);
    ASSERT_TRUE(DeleteBt(t.app, target(), 1));
    // The last step that sent it is gone: its cells are released.
    for (int w = 0; w <= 9; ++w) EXPECT_EQ(config().ir_data.record(0)[static_cast<std::size_t>(w)], 255) << w;
    EXPECT_EQ(config().ir_data_index[0].length, 16);
}

TEST_F(EditIrTest, OverwriteReplacesTheDoubleClickedStepInPlaceAndLogsIt)
{
    ASSERT_TRUE(add_rc5(0, 1));
    ASSERT_TRUE(add_rc5(0, 2));
    ASSERT_TRUE(add_rc5(0, 3));
    const auto before = step_numbers();
    ASSERT_EQ(begin_step_edit(t.app, target(), 2), step_rc5);
    {
        EditIR dialog(t.app, target());
        EXPECT_TRUE(dialog.ir_overwrite());
        EXPECT_EQ(t.app.current_ir.name, "RC5 0 2");
        rc(rc_protocol_rc6, "5", "6");
        dialog.choose_minimum();
        dialog.Label4 = "2";
        ASSERT_TRUE(dialog.ok());
    }
    EXPECT_EQ(step_numbers(), before);
    const auto s = steps();
    EXPECT_EQ(s[1].step_type, step_rc6);
    EXPECT_EQ(step_number_value(s[1]), 3);
    EXPECT_EQ(s[1].value, 200);
    EXPECT_EQ(s[1].next_step, before[2]);
    EXPECT_EQ(config().ir_data.record(1)[0], 255);  // the old code, no longer sent, is released
    EXPECT_EQ(t.log_lines().back(), "\"overwrite RC5 0 2 from DEVICE1-PAGE1/row 1 to RC6 5 6\"");
    EXPECT_FALSE(t.app.step_edit.edit_flag);
}

TEST_F(EditIrTest, OverwritingALearnedStepGivesItsSlotBack)
{
    ASSERT_TRUE(add([&] { learned(1); }));
    ASSERT_EQ(begin_step_edit(t.app, target(), 1), step_learning);
    {
        EditIR dialog(t.app, target());
        EXPECT_EQ(t.app.current_ir.current_ir_data[0], 1);
        EXPECT_EQ(t.app.current_ir.name, "LEARNING CODE");
        rc5(0, 9);
        ASSERT_TRUE(dialog.ok());
    }
    EXPECT_EQ(check_learntotalno(config()), 0);
    EXPECT_EQ(steps()[0].step_type, step_rc5);
}

TEST_F(EditIrTest, CancelInEditModeChangesNothingAndClearsTheFlag)
{
    ASSERT_TRUE(add_rc5(0, 1));
    begin_step_edit(t.app, target(), 1);
    EditIR dialog(t.app, target());
    dialog.cancel();
    EXPECT_FALSE(t.app.step_edit.edit_flag);
    EXPECT_EQ(steps()[0].step_type, step_rc5);
}

}  // namespace
}  // namespace tesselo::testing
