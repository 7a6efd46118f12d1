#include "core/document/lifecycle.h"
#include "core/model/hardkey_defaults.h"
#include "core/tree/link_repair.h"
#include "key_clipboard_document.h"

namespace tesselo::testing {
namespace {

using KeyClipboard = ClipDocument;

const std::string exceed_line = "message \"Kelvaro Tesselo 3\" \"Exceed Marco steps\"";
const std::string learning_line = "message \"Kelvaro Tesselo 3\" \"Learning memory full\"";

TEST_F(KeyClipboard, ALearnedCodeCopiedThenDeletedComesBackAtTheFirstFreeLearnedNumber)
{
    click(page1, 0);
    EXPECT_EQ(step_numbers(page1, 0), std::vector<int>{});
    add_code(page1, learned(0x11));  // learned number 0
    click(page1, 1);
    add_code(page1, learned(0x22));  // learned number 1
    ASSERT_EQ(step_numbers(page1, 1), std::vector<int>{1});
    ASSERT_TRUE(edit("muCopy"));
    ASSERT_TRUE(edit("muDelete"));
    click(page1, 0);
    ASSERT_TRUE(edit("muDelete"));
    EXPECT_EQ(check_learntotalno(*c), 0);
    click(page1, 40);
    ASSERT_TRUE(edit("muPaste"));
    EXPECT_EQ(types(page1, 40), std::vector<int>{step_learning});
    EXPECT_EQ(step_numbers(page1, 40), std::vector<int>{0});
    std::array<std::uint8_t, learning_slot_bytes> bytes{};
    bytes.fill(0x22);
    EXPECT_EQ(c->learning_memory[0], bytes);
    EXPECT_EQ(check_learntotalno(*c), 1);
    EXPECT_EQ(chain_faults(*c), "");
}

TEST_F(KeyClipboard, AKeyWithFortyStepsPastesWholeAndReplacesTheTargetsList)
{
    const int steps_before = c->action_steps.step_total;  // the devices' HOME keys
    const int lists_before = c->action_lists.list_count;
    click(page1, 0);
    for (int i = 1; i <= steps_per_list; ++i) add_plain(page1, step_delay, i);
    click(page1, 1);
    for (int i = 0; i < 3; ++i) add_plain(page1, step_beep, 50);
    click(page1, 0);
    ASSERT_TRUE(edit("muCopy"));
    click(page1, 1);
    ASSERT_TRUE(edit("muPaste"));
    std::vector<int> expected;
    for (int i = 1; i <= steps_per_list; ++i) expected.push_back(i);
    EXPECT_EQ(step_numbers(page1, 1), expected);
    EXPECT_EQ(types(page1, 1), std::vector<int>(steps_per_list, step_delay));
    EXPECT_EQ(c->action_steps.step_total, steps_before + 2 * steps_per_list);
    EXPECT_EQ(c->action_lists.list_count, lists_before + 2);
    EXPECT_EQ(chain_faults(*c), "");
}

TEST_F(KeyClipboard, PasteIntoAnotherDocumentDropsALinkSilently)
{
    click(page1, 0);
    add_plain(page1, step_delay, 10);
    add_plain(page1, step_link, 2, 255, 5);  // a link to hard key 4 of DEVICE21... as the dialog makes it
    add_plain(page1, step_beep, 20);
    ASSERT_EQ(types(page1, 0).size(), 3U);
    ASSERT_TRUE(edit("muCopy"));
    ASSERT_EQ(muNew(t.app), 1);
    AddDevice(t.app, add_ordinary);
    const std::string other = "DEVICE12\\PAGE1";
    click(other, 0);
    messages();
    ASSERT_TRUE(edit("muPaste"));
    EXPECT_EQ(types(other, 0), (std::vector<int>{step_delay, step_beep}));
    EXPECT_EQ(messages(), std::vector<std::string>{});
    EXPECT_EQ(chain_faults(t.app.config(1)), "");
    // The record is changed for good: the source document gets two steps too.
    click(page1, 1);
    ASSERT_TRUE(edit("muPaste"));
    EXPECT_EQ(types(page1, 1), (std::vector<int>{step_delay, step_beep}));
}

TEST_F(KeyClipboard, IrCodesArriveInAnotherDocumentWithTheirFormat)
{
    click(page1, 0);
    add_code(page1, rc5(3, 17));
    add_code(page1, learned(0x5A));
    ASSERT_TRUE(edit("muCopy"));
    ASSERT_EQ(muNew(t.app), 1);
    AddDevice(t.app, add_ordinary);
    const std::string other = "DEVICE12\\PAGE1";
    click(other, 33);
    ASSERT_TRUE(edit("muPaste"));
    Configuration& d = t.app.config(1);
    ASSERT_EQ(types(other, 33), (std::vector<int>{step_rc5, step_learning}));
    const auto numbers = step_numbers(other, 33);
    const IrCodeValue got = stored_ir_code(d, numbers[0]);
    const IrCodeValue want = rc5(3, 17);
    EXPECT_EQ(got.format_id, format_id_rc5);
    EXPECT_EQ(got.format, want.format);
    ASSERT_EQ(got.word_count, want.word_count);
    EXPECT_TRUE(std::equal(want.words.begin() + 1, want.words.begin() + want.word_count, got.words.begin() + 1));
    EXPECT_EQ(d.learning_memory[static_cast<std::size_t>(numbers[1])][0], 0x5A);
}

TEST_F(KeyClipboard, DeletingAHardKeyKeepsItsPlaceAndGivesBackItsStandardName)
{
    click(page1, 33);
    const int entry = 1 * hardkeys_per_device + 33;
    c->hardkey_labels[entry] = label_of("ABC");
    const int steps_before = c->action_steps.step_total;
    add_plain(page1, step_delay, 10);
    ASSERT_TRUE(edit("muDelete"));
    EXPECT_EQ(c->hardkeys[entry].action_list, no_index);
    EXPECT_EQ(c->hardkey_labels[entry], init_hardkey_defaults()[33]);
    EXPECT_EQ(c->action_steps.step_total, steps_before);
    EXPECT_EQ(log_back(), "\"delete key DEVICE11\\PAGE1 hard 33\"");
}

TEST_F(KeyClipboard, DeletingASoftKeyFreesItsLabelAndClosesUpThePagesSlots)
{
    for (int row : {1, 2, 3}) {
        click(page1, 3 + 2 * row);
        add_plain(page1, step_delay, row);
    }
    const auto& slots = c->device_pages[0].slots;
    ASSERT_EQ(c->page_table[1].key_count, 4);
    const int label = slots[2].label_index;
    const SoftKey third = slots[3];
    click(page1, 7);  // row 2
    ASSERT_TRUE(edit("muDelete"));
    EXPECT_EQ(c->page_table[1].key_count, 3);
    EXPECT_EQ(c->softkey_labels[static_cast<std::size_t>(label)].header(), free_byte);
    EXPECT_EQ(slots[2], third);
    EXPECT_EQ(slots[3], (SoftKey{0, 0, no_index, no_index, 0}));
    EXPECT_EQ(step_numbers(page1, 9), std::vector<int>{3});
    EXPECT_EQ(log_back(), "\"delete key DEVICE11\\PAGE1 row 2\"");
    EXPECT_EQ(chain_faults(*c), "");
}

TEST_F(KeyClipboard, CutHoldsTheKeyAndPasteWritesItWithItsLabel)
{
    click(page1, 5);
    add_plain(page1, step_delay, 7);
    c->softkey_labels[static_cast<std::size_t>(c->device_pages[0].slots[1].label_index)] = label_of("TV");
    t.take_lines();
    ASSERT_TRUE(edit("muCut"));
    EXPECT_EQ(c->page_table[1].key_count, 1);
    EXPECT_EQ(t.app.selection().drag_mode, drag_move);
    EXPECT_EQ(t.app.edit_state().paste_state, 2);
    click(page1, 11);  // row 4, empty: a key is made there
    ASSERT_TRUE(edit("muPaste"));
    const auto place4 = place(page1, 11);
    ASSERT_GE(place4->slot, 0);
    EXPECT_EQ(c->softkey_labels[static_cast<std::size_t>(softkey_at(*c, *place4)->label_index)], label_of("TV"));
    EXPECT_EQ(step_numbers(page1, 11), std::vector<int>{7});
    const auto log = t.log_lines();
    ASSERT_GE(log.size(), 3U);
    EXPECT_EQ(log[log.size() - 3], "\"cut key DEVICE11\\PAGE1 row 1\"");
    EXPECT_EQ(log[log.size() - 2], "\"paste key (start) \"");
    EXPECT_EQ(log[log.size() - 1], "\"Paste key DEVICE11\\PAGE1 row 4\"");
}

TEST_F(KeyClipboard, CopyWritesItsLogLinesAndEnablesPaste)
{
    click(page1, 0);
    EXPECT_FALSE(edit("muPaste"));
    ASSERT_TRUE(edit("muCopy"));
    const auto log = t.log_lines();
    ASSERT_GE(log.size(), 2U);
    EXPECT_EQ(log[log.size() - 2], "\"Copy key (start) DEVICE11\\PAGE1\"");
    EXPECT_EQ(log[log.size() - 1], "\"copy key DEVICE11\\PAGE1 hard 0\"");
    EXPECT_TRUE(t.app.edit_state().paste_button);
    EXPECT_EQ(t.app.edit_state().paste_state, 3);
    EXPECT_EQ(t.app.edit_state().clipboard_source, "key");
}

TEST_F(KeyClipboard, HardKeysAndTheTitleRowCannotBeCut)
{
    click(page1, 0);
    add_plain(page1, step_delay, 1);
    EXPECT_FALSE(edit("muCut"));
    EXPECT_EQ(types(page1, 0).size(), 1U);
    click(page1, 3);
    EXPECT_FALSE(edit("muCut"));
    EXPECT_FALSE(edit("muDelete"));
    EXPECT_EQ(c->page_table[1].key_count, 1);
}

TEST_F(KeyClipboard, ExceedMarcoStepsComesBeforeAnyChange)
{
    for (int i = 0; i < 3; ++i) AddDevice(t.app, add_ordinary);
    click(page1, 0);
    for (int i = 0; i < 10; ++i) add_plain(page1, step_delay, i);
    ASSERT_TRUE(edit("muCopy"));
    // Fill the document up to 7990 steps with the keys of its devices.
    for (int d = 1; d <= 5 && c->action_steps.step_total < 7990; ++d)
        for (int k = 1; k < hardkeys_per_device && c->action_steps.step_total < 7990; ++k)
            while (c->action_steps.step_total < 7990 && key_step_count(*c, hard_place(*c, d, k)) < steps_per_list)
                add_step(*c, hard_place(*c, d, k), step_beep, 1);
    ASSERT_EQ(c->action_steps.step_total, 7990);
    const auto before = c->action_steps;
    click(page2, 0);
    const int undo_before = t.app.journal().undo.count;
    messages();
    EXPECT_FALSE(edit("muPaste"));
    EXPECT_EQ(messages(), std::vector<std::string>{exceed_line});
    EXPECT_EQ(c->action_steps.steps, before.steps);
    EXPECT_EQ(c->action_steps.step_total, 7990);
    EXPECT_EQ(t.app.journal().undo.count, undo_before);
}

TEST_F(KeyClipboard, LearningMemoryFullComesBeforeAnyChange)
{
    click(page1, 0);
    add_code(page1, learned(1));
    add_code(page1, learned(2));
    ASSERT_TRUE(edit("muCopy"));
    while (check_learnkeyno(*c) != 998) {
    }
    ASSERT_EQ(learning_slots_free(*c), 1);
    const auto bitmap = c->learning_bitmap;
    click(page1, 1);
    add_plain(page1, step_delay, 4);
    messages();
    EXPECT_FALSE(edit("muPaste"));
    EXPECT_EQ(messages(), std::vector<std::string>{learning_line});
    EXPECT_EQ(c->learning_bitmap, bitmap);
    EXPECT_EQ(types(page1, 1), std::vector<int>{step_delay});
}

TEST_F(KeyClipboard, TheMiddleLinkToADeletedKeyGoesAndTheChainStaysWhole)
{
    click(page2, 7);  // row 2 of DEVICE21's page: the key linked to
    add_plain(page2, step_delay, 1);
    click(page1, 0);
    add_plain(page1, step_delay, 10);
    ASSERT_TRUE(drop_key(t.app, {at(page2), 7}, {at(page1), 0}, drag_link));
    click(page1, 0);
    add_plain(page1, step_beep, 20);
    ASSERT_EQ(types(page1, 0), (std::vector<int>{step_delay, step_link, step_beep}));
    click(page2, 7);
    ASSERT_TRUE(edit("muDelete"));
    EXPECT_EQ(types(page1, 0), (std::vector<int>{step_delay, step_beep}));
    EXPECT_EQ(chain_faults(*c), "");
}

TEST_F(KeyClipboard, AKeyWhoseOnlyStepLinkedADeletedKeyRemainsWithNoAction)
{
    click(page2, 33);
    add_plain(page2, step_delay, 1);
    click(page2, 34);
    add_plain(page2, step_delay, 1);
    ASSERT_TRUE(drop_key(t.app, {at(page2), 33}, {at(page1), 5}, drag_link));
    ASSERT_TRUE(drop_key(t.app, {at(page2), 34}, {at(page1), 0}, drag_link));
    click(page2, 33);
    ASSERT_TRUE(edit("muDelete"));
    const auto row1 = place(page1, 5);
    ASSERT_GE(row1->slot, 0);
    EXPECT_EQ(key_action_list(*c, *row1), no_index);
    // The link to the other hard key stays.
    EXPECT_EQ(types(page1, 0), std::vector<int>{step_link});
    EXPECT_EQ(chain_faults(*c), "");
}

TEST_F(KeyClipboard, TheClipboardOutlivesItsDocumentAndASlotTakenAgainKeepsJumps)
{
    click(page1, 0);
    add_plain(page1, step_jump, 2);
    add_plain(page1, step_delay, 3);
    ASSERT_TRUE(edit("muCopy"));
    t.ui.queue_answer("no");
    ASSERT_TRUE(close_document(t.app, 0));
    ASSERT_EQ(muNew(t.app), 0);
    AddDevice(t.app, add_ordinary);
    AddDevice(t.app, add_ordinary);
    click(page1, 1);
    ASSERT_TRUE(edit("muPaste"));
    EXPECT_EQ(types(page1, 1), (std::vector<int>{step_jump, step_delay}));
}

TEST_F(KeyClipboard, PastedMyDatabaseStepsPointAtTheCodeTheyPointedAt)
{
    const int row1 = 5, row2 = 7;  // the right buttons of rows 1 and 2
    click(page1, row1);
    const int record = *store_ir_code(*c, rc5(0, 12));
    const int slot = store_learned_code(*c, learned(0x33), 1);
    add_plain(page1, step_mydatabase, record);
    add_plain(page1, step_mydatabase_learning, slot);
    const std::vector<int> mydatabase_types{step_mydatabase, step_mydatabase_learning};
    const std::vector<int> numbers{record, slot};
    const int records = c->ir_data.record_count;
    const int learned_in_use = check_learntotalno(*c);
    ASSERT_TRUE(edit("muCopy"));
    for (int picture : {0, 40}) {
        click(page1, picture);
        ASSERT_TRUE(edit("muPaste"));
        EXPECT_EQ(types(page1, picture), mydatabase_types);
        EXPECT_EQ(step_numbers(page1, picture), numbers);
    }
    // Nothing of My Database goes with its steps, so after a Cut the code is
    // still where the steps pointed.
    click(page1, row1);
    ASSERT_TRUE(edit("muCut"));
    click(page1, row2);
    ASSERT_TRUE(edit("muPaste"));
    EXPECT_EQ(step_numbers(page1, row2), numbers);
    EXPECT_EQ(c->ir_data.record_count, records);
    EXPECT_EQ(check_learntotalno(*c), learned_in_use);

    // Another document keeps the code once, however often it is pasted there.
    ASSERT_EQ(muNew(t.app), 1);
    AddDevice(t.app, add_ordinary);
    const std::string other = "DEVICE12\\PAGE1";
    Configuration& o = t.app.config(1);
    for (int picture : {0, 40}) {
        click(other, picture);
        ASSERT_TRUE(edit("muPaste"));
        EXPECT_EQ(types(other, picture), mydatabase_types);
        EXPECT_EQ(step_numbers(other, picture), (std::vector<int>{0, 0}));
    }
    EXPECT_EQ(o.ir_data.record_count, 1);
    EXPECT_EQ(check_learntotalno(o), 1);
    const IrCodeValue sent = stored_ir_code(o, 0);
    const IrCodeValue copied = rc5(0, 12);
    EXPECT_EQ(sent.format_id, copied.format_id);
    EXPECT_TRUE(std::equal(copied.words.begin() + 1, copied.words.begin() + copied.word_count, sent.words.begin() + 1));
    EXPECT_EQ(o.learning_memory[0], learned(0x33).learned_bytes);
    EXPECT_EQ(chain_faults(o), "");
}

}  // namespace
}  // namespace tesselo::testing
