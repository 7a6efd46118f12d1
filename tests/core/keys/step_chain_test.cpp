#include <gtest/gtest.h>

#include "core/document/lifecycle.h"
#include "core/keys/delay_beep_dialogs.h"
#include "core/keys/hardkey_pictures.h"
#include "core/keys/step_commands.h"
#include "core/model/softkey_labels.h"
#include "support/step_document.h"
#include "support/test_app.h"

namespace tesselo {
namespace {

using testing::add_step;
using testing::chain_faults;
using testing::hard_place;
using testing::soft_place;
using testing::TestApp;

struct StepChain : ::testing::Test {
    TestApp t;
    Configuration* c = nullptr;
    const std::string page = "DEVICE11\\PAGE1";
    void SetUp() override
    {
        ASSERT_EQ(muNew(t.app), 0);
        c = &t.app.config(0);
        testing::add_test_device(*c, 0, 1, 3, "TV");
        testing::add_test_device(*c, 0, 2, 2, "DVD");
        t.take_lines();
    }
    KeyTarget target() const { return {0, page}; }
    std::vector<int> chain(const KeyPlace& p) const { return steps_of_list(*c, key_action_list(*c, p)); }
};

TEST(HardkeyPictures, IndexFollowsNoOrderOfThePictures)
{
    EXPECT_EQ(check_hardkeyindex(33), 33);
    EXPECT_EQ(check_hardkeyindex(2), 0);
    EXPECT_EQ(check_hardkeyindex(0), 1);
    EXPECT_EQ(check_hardkeyindex(55), 26);
    for (int p : {3, 8, 14, 15, 16, 17, -1, 56}) EXPECT_EQ(check_hardkeyindex(p), -1) << p;
    for (int k = 0; k < 41; ++k) EXPECT_EQ(check_hardkeyindex(check_actcualhardindex(k)), k);
    EXPECT_EQ(check_actcualhardindex(0), 2);
    EXPECT_EQ(check_actcualhardindex(41), -1);
}

TEST(KeySelection, SetsKindRowSideAndPositionAsTheCanvasDoes)
{
    KeySelection s;
    s.select_picture(3);
    EXPECT_EQ(s.selected_kind, kind_soft);
    EXPECT_EQ(s.selected_row, 0);
    EXPECT_EQ(s.selected_left, 0);
    EXPECT_EQ(s.position(), 0);
    s.select_picture(14);
    EXPECT_EQ(s.selected_row, 15);
    EXPECT_EQ(s.selected_left, 1);
    EXPECT_EQ(s.position(), 133);
    s.select_picture(9);
    EXPECT_EQ(s.position(), 3);
    s.select_picture(22);
    EXPECT_EQ(s.selected_kind, kind_hard);
    EXPECT_EQ(s.selected_index, 22);
    EXPECT_EQ(position_picture(130), 8);
    EXPECT_EQ(position_picture(5), 13);
}

TEST_F(StepChain, HardKeyListIsFoundByDeviceAndKeyIndex)
{
    t.app.key_selection.select_picture(33);
    const auto place = locate_key(*c, page, t.app.key_selection);
    ASSERT_TRUE(place);
    EXPECT_EQ(place->hard_entry, 41 + 33);
    t.app.key_selection.select_picture(2);
    EXPECT_EQ(locate_key(*c, "DEVICE21\\PAGE2", t.app.key_selection)->hard_entry, 82);
    t.app.key_selection.select_picture(16);
    EXPECT_FALSE(locate_key(*c, page, t.app.key_selection));
}

TEST_F(StepChain, AppendMakesTheSoftKeyAsTheRightSideKey)
{
    t.app.key_selection.select_picture(8);  // row 2, left
    const int label = search_softkeyno(*c);
    ASSERT_GE(append_step(t.app, target(), duration_fields(step_delay, 50), add_delay_title), 0);
    const auto& slots = c->device_pages[0].slots;
    EXPECT_EQ(c->page_table[1].key_count, 2);  // behind HOME's one page
    EXPECT_EQ(slots[1].position, 2);
    EXPECT_EQ(slots[1].label_index, label);
    EXPECT_EQ(c->softkey_labels[static_cast<std::size_t>(label)].bytes[0], 0);
    EXPECT_EQ(c->action_lists.list_count, 1);
    EXPECT_EQ(slots[1].action_list, 0);
    EXPECT_EQ(chain_faults(*c), "");
}

TEST_F(StepChain, HomePageIsSearchedByRowAlone)
{
    auto place = soft_place(*c, "HOME1\\PAGE1", 129);
    EXPECT_EQ(place.slot, 1);  // device 1's HOME key
    add_step(*c, place, step_delay);
    EXPECT_EQ(c->home_pages[0].slots[1].action_list, 0);
}

TEST_F(StepChain, TheFortiethStepIsAcceptedAndTheFortyFirstRefused)
{
    t.app.key_selection.select_picture(5);
    for (int i = 0; i < 40; ++i) ASSERT_GE(append_step(t.app, target(), duration_fields(step_delay, 10), add_delay_title), 0);
    const auto place = locate_key(*c, page, t.app.key_selection);
    EXPECT_EQ(key_step_count(*c, *place), 40);
    t.take_lines();
    EXPECT_EQ(append_step(t.app, target(), duration_fields(step_delay, 10), add_delay_title), -1);
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{"message \"Add Delay\" \"Exceed marco steps!\""});
    EXPECT_EQ(c->action_steps.step_total, 40);
    EXPECT_EQ(chain_faults(*c), "");
}

TEST_F(StepChain, TheEightThousandthStepIsAcceptedTheNextRefusedEvenOnAnEmptyKey)
{
    // 200 hard keys of HOME and devices 1 to 4 with 40 steps each.
    for (int d = 0; d < 5; ++d) {
        if (d > 2) testing::add_test_device(*c, 0, d, 1, "X");
        for (int k = 0; k < 41 && c->action_steps.step_total < 8000; ++k)
            for (int n = 0; n < 40 && c->action_steps.step_total < 8000; ++n) ASSERT_GE(add_step(*c, hard_place(*c, d, k), step_delay), 0);
    }
    EXPECT_EQ(c->action_steps.step_total, 8000);
    EXPECT_EQ(c->action_steps.steps[7999].step_type, step_delay);
    t.app.key_selection.select_picture(7);
    EXPECT_EQ(append_step(t.app, target(), duration_fields(step_beep, 10), add_beep_title), -1);
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{"message \"Kelvaro Tesselo 3\" \"Exceed Marco steps\""});
    EXPECT_EQ(c->page_table[1].key_count, 1);  // no key was made
    EXPECT_EQ(c->action_steps.step_total, 8000);
    EXPECT_EQ(chain_faults(*c), "");
}

TEST_F(StepChain, DeletingTheOnlyStepFreesTheListForReuse)
{
    const auto place = hard_place(*c, 1, 5);
    add_step(*c, place, step_delay);
    EXPECT_EQ(c->hardkeys[46].action_list, 0);
    EXPECT_EQ(delete_marcostep_item(*c, place, 1), 0);
    EXPECT_EQ(c->hardkeys[46].action_list, no_index);
    EXPECT_EQ(c->action_lists.entries[0].step_count, 0);
    EXPECT_EQ(c->action_lists.list_count, 0);
    EXPECT_EQ(c->action_steps.step_total, 0);
    add_step(*c, hard_place(*c, 1, 6), step_beep);
    EXPECT_EQ(c->hardkeys[47].action_list, 0);
    EXPECT_EQ(chain_faults(*c), "");
}

TEST_F(StepChain, DeletingTheFirstStepMovesFirstStepAndFreedSlotsAreReusedLowestFirst)
{
    const auto a = hard_place(*c, 1, 0), b = hard_place(*c, 1, 1);
    add_step(*c, a, step_delay, 10);  // 0
    add_step(*c, a, step_delay, 20);  // 1
    add_step(*c, b, step_delay, 30);  // 2
    add_step(*c, a, step_delay, 40);  // 3
    EXPECT_EQ(delete_marcostep_item(*c, a, 1), 0);
    EXPECT_EQ(c->action_lists.entries[0].first_step, 1);
    EXPECT_EQ(add_step(*c, a, step_delay, 50), 0);
    EXPECT_EQ(chain(a), (std::vector<int>{1, 3, 0}));
    EXPECT_EQ(c->action_steps.steps[0].next_step, end_of_list);
    EXPECT_EQ(c->action_steps.steps[0].param_low, 50);
    EXPECT_EQ(chain_faults(*c), "");
}

TEST_F(StepChain, DeletingAMiddleStepRelinksItsPredecessor)
{
    const auto a = hard_place(*c, 1, 0);
    for (int i = 0; i < 3; ++i) add_step(*c, a, step_delay, 10 * (i + 1));
    EXPECT_EQ(delete_marcostep_item(*c, a, 2), 1);
    EXPECT_EQ(chain(a), (std::vector<int>{0, 2}));
    EXPECT_EQ(c->action_steps.steps[1], (ActionStep{255, 255, 255, 0, 0, 65535}));
    EXPECT_EQ(delete_marcostep_item(*c, a, 3), -1);
    EXPECT_EQ(chain_faults(*c), "");
}

TEST_F(StepChain, MovingALearnedCodeStepUpChangesNoNextStep)
{
    const auto a = hard_place(*c, 1, 0);
    add_step(*c, a, step_delay, 10);
    add_step(*c, a, step_learning, 7);
    const auto before0 = c->action_steps.steps[0].next_step, before1 = c->action_steps.steps[1].next_step;
    EXPECT_TRUE(move_marcostep_up(*c, key_action_list(*c, a), 2));
    EXPECT_EQ(c->action_steps.steps[0].step_type, step_learning);
    EXPECT_EQ(c->action_steps.steps[0].param_low, 7);
    EXPECT_EQ(c->action_steps.steps[1].step_type, step_delay);
    EXPECT_EQ(c->action_steps.steps[0].next_step, before0);
    EXPECT_EQ(c->action_steps.steps[1].next_step, before1);
    EXPECT_FALSE(move_marcostep_up(*c, key_action_list(*c, a), 1));
    EXPECT_FALSE(move_marcostep_down(*c, key_action_list(*c, a), 2));
    EXPECT_TRUE(move_marcostep_down(*c, key_action_list(*c, a), 1));
    EXPECT_EQ(c->action_steps.steps[0].step_type, step_delay);
}

TEST_F(StepChain, ADelayAndABeepOfOneDurationShareTheirParameters)
{
    const auto a = hard_place(*c, 1, 0);
    const int delay = add_step(*c, a, step_delay, 300);
    const int beep = add_step(*c, a, step_beep, 300, 600);
    const auto& d = c->action_steps.steps[static_cast<std::size_t>(delay)];
    const auto& b = c->action_steps.steps[static_cast<std::size_t>(beep)];
    EXPECT_EQ(d.param_low, b.param_low);
    EXPECT_EQ(d.param_high, b.param_high);
    EXPECT_EQ(d.param_low, 44);
    EXPECT_EQ(d.param_high, 1);
    EXPECT_NE(d.step_type, b.step_type);
    EXPECT_NE(d.value, b.value);
}

TEST_F(StepChain, EditInPlaceRewritesThePayloadAndNotTheChain)
{
    const auto a = hard_place(*c, 1, 0);
    add_step(*c, a, step_delay, 10);
    add_step(*c, a, step_delay, 20);
    rewrite_step(*c, 0, duration_fields(step_delay, 90));
    EXPECT_EQ(c->action_steps.steps[0].param_low, 90);
    EXPECT_EQ(c->action_steps.steps[0].next_step, 1);
    EXPECT_EQ(c->action_lists.entries[0].step_count, 2);
}

TEST_F(StepChain, DeleteIrdataSetsTheCodesCellsTo255AndKeepsItsIndex)
{
    c->ir_data_index[3] = {66, 10};
    for (auto& w : c->ir_data.record(3)) w = 7;
    const auto a = hard_place(*c, 1, 0);
    add_step(*c, a, step_rc5, 3);
    delete_marcostep_item(*c, a, 1);
    for (int w = 0; w <= 6; ++w) EXPECT_EQ(c->ir_data.record(3)[static_cast<std::size_t>(w)], 255) << w;
    EXPECT_EQ(c->ir_data.record(3)[7], 7);
    EXPECT_EQ(c->ir_data_index[3].length, 10);
}

TEST_F(StepChain, DeleteLearningSubtractsTheMaskWithoutCheckingTheBit)
{
    const auto a = hard_place(*c, 1, 0);
    c->learning_bitmap[0] = 0x80;
    add_step(*c, a, step_learning, 0);
    add_step(*c, a, step_learning, 9);    // byte 1, mask 64
    add_step(*c, a, step_learning, 15);   // byte 1, mask 1
    c->learning_bitmap[1] = 0x01;
    delete_marcostep_item(*c, a, 1);
    EXPECT_EQ(c->learning_bitmap[0], 0);
    delete_marcostep_item(*c, a, 1);      // bit 64 was never set: 1 - 64 wraps
    EXPECT_EQ(c->learning_bitmap[1], static_cast<std::uint8_t>(1 - 64));
    c->learning_bitmap[1] = 0;
    delete_marcostep_item(*c, a, 1);      // a zero byte is left alone
    EXPECT_EQ(c->learning_bitmap[1], 0);
}

TEST_F(StepChain, DeleteMarcostepFreesTheWholeChain)
{
    const auto a = hard_place(*c, 1, 0), b = hard_place(*c, 1, 1);
    for (int i = 0; i < 3; ++i) add_step(*c, a, step_delay);
    add_step(*c, b, step_beep);
    delete_marcostep(*c, key_action_list(*c, a));
    set_key_action_list(*c, a, no_index);
    EXPECT_EQ(c->action_steps.step_total, 1);
    EXPECT_EQ(c->action_lists.list_count, 1);
    EXPECT_EQ(chain_faults(*c), "");
}

TEST_F(StepChain, AKeyNamingAFreedListStartsANewOne)
{
    c->hardkeys[41].action_list = 5;  // as a damaged file may leave it
    c->action_lists.entries[5] = {77, 0};
    add_step(*c, hard_place(*c, 1, 0), step_delay);
    EXPECT_EQ(c->hardkeys[41].action_list, 0);
    EXPECT_EQ(chain(hard_place(*c, 1, 0)), std::vector<int>{0});
    EXPECT_EQ(chain_faults(*c), "");
}

TEST_F(StepChain, DeleteButtonWritesItsLogLines)
{
    t.app.key_selection.select_picture(22);
    append_step(t.app, target(), duration_fields(step_delay, 10), add_delay_title);
    EXPECT_FALSE(DeleteBt(t.app, target(), 2));
    EXPECT_TRUE(DeleteBt(t.app, target(), 1));
    const auto log = t.log_lines();
    ASSERT_GE(log.size(), 3u);
    EXPECT_EQ(log[log.size() - 3], "\"delete marco step DEVICE11\\PAGE1 hard 22 0\"");
    EXPECT_EQ(log[log.size() - 2], "\"-\"");
    EXPECT_EQ(log[log.size() - 1], "\"delete marco step DEVICE11\\PAGE1\"");
    EXPECT_TRUE(MoveUPBt(t.app, target(), 1) == false);
}

TEST(DeleteButton, SelectsTheRowNowAtThatIndexOrTheNewLast)
{
    EXPECT_EQ(row_after_delete(2, 3), 2);
    EXPECT_EQ(row_after_delete(4, 3), 3);
    EXPECT_EQ(row_after_delete(1, 0), 0);
}

TEST(StepEditor, EachTypeOpensItsOwnDialog)
{
    EXPECT_EQ(step_editor(0), "EditIR");
    EXPECT_EQ(step_editor(128), "EditIR");
    for (std::uint8_t t : {1, 2, 3, 4}) EXPECT_EQ(step_editor(t), "RC56Edit");
    EXPECT_EQ(step_editor(5), "Learning");
    EXPECT_EQ(step_editor(133), "Learning");
    EXPECT_EQ(step_editor(6), "Createjump");
    EXPECT_EQ(step_editor(7), "Delaytime");
    EXPECT_EQ(step_editor(8), "CreateLink");
    EXPECT_EQ(step_editor(9), "Addbeep");
    EXPECT_EQ(step_editor(255), "");
}

TEST_F(StepChain, MoveButtonsWriteTheirLogLinesAndDoNothingAtTheEnds)
{
    t.app.key_selection.select_picture(22);
    append_step(t.app, target(), duration_fields(step_delay, 10), add_delay_title);
    append_step(t.app, target(), duration_fields(step_beep, 20), add_beep_title);
    EXPECT_FALSE(MoveUPBt(t.app, target(), 1));
    EXPECT_FALSE(MoveDownBt(t.app, target(), 2));
    EXPECT_TRUE(MoveUPBt(t.app, target(), 2));
    EXPECT_EQ(t.log_lines().back(), "\"move marco step up\"");
    EXPECT_TRUE(MoveDownBt(t.app, target(), 1));
    EXPECT_EQ(t.log_lines().back(), "\"move marco step down\"");
    EXPECT_EQ(c->action_steps.steps[0].step_type, step_delay);
}

}  // namespace
}  // namespace tesselo
