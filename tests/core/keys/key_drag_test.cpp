#include "core/keys/hardkey_pictures.h"
#include "core/keys/key_behaviours.h"
#include "key_clipboard_document.h"

namespace tesselo::testing {
namespace {

using KeyDrag = ClipDocument;

TEST(KeyDragMode, OnlyTheExactShiftStatesFiveFourAndTwoChooseAnotherModeThanMove)
{
    EXPECT_EQ(drag_mode_of_shift(5), drag_link);
    EXPECT_EQ(drag_mode_of_shift(4), drag_action);
    EXPECT_EQ(drag_mode_of_shift(2), drag_copy);
    for (int shift : {0, 1, 3, 6, 7}) EXPECT_EQ(drag_mode_of_shift(shift), drag_move) << shift;
}

TEST(KeyDragMode, LockedPicturesAndTheTitleRowsMove)
{
    for (int p : {15, 16, 17}) EXPECT_FALSE(drag_starts(false, p, drag_copy));
    for (int p : {0, 1, 2, 18, 33, 55}) {
        EXPECT_FALSE(drag_starts(true, p, drag_copy)) << p;
        EXPECT_TRUE(drag_starts(false, p, drag_copy)) << p;
    }
    EXPECT_TRUE(drag_starts(true, 5, drag_move));
    EXPECT_FALSE(drag_starts(false, 3, drag_move));
    EXPECT_FALSE(drag_starts(false, 4, drag_move));
    EXPECT_TRUE(drag_starts(false, 3, drag_action));
}

TEST_F(KeyDrag, DraggingWithAltPastesTheStepsButLeavesTheTargetsLabel)
{
    click(page1, 0);
    add_plain(page1, step_delay, 5);
    c->hardkey_labels[hardkeys_per_device + 1] = label_of("SRC");
    c->hardkey_labels[hardkeys_per_device + 2] = label_of("DST");
    ASSERT_TRUE(drop_key(t.app, {at(page1), 0}, {at(page1), 1}, drag_mode_of_shift(4)));
    EXPECT_EQ(step_numbers(page1, 1), std::vector<int>{5});
    EXPECT_EQ(c->hardkey_labels[hardkeys_per_device + 2], label_of("DST"));
    const auto log = t.log_lines();
    EXPECT_NE(std::find(log.begin(), log.end(), "\"Drag action(start) - DEVICE11\\PAGE1\""), log.end());
    EXPECT_EQ(log.back(), "\"Drag(action) from DEVICE11\\PAGE1 hard 0 to DEVICE11\\PAGE1 hard 1\"");
    // With Ctrl the label comes along.
    ASSERT_TRUE(drop_key(t.app, {at(page1), 0}, {at(page1), 40}, drag_copy));
    EXPECT_EQ(c->hardkey_labels[hardkeys_per_device + check_hardkeyindex(40)], label_of("SRC"));
    EXPECT_EQ(t.log_lines().back(), "\"Drag(copy) from DEVICE11\\PAGE1 hard 0 to DEVICE11\\PAGE1 hard 40\"");
}

TEST_F(KeyDrag, TheFirstRowsKeyCannotBeMovedButItsActionCanBeCopiedFrom)
{
    click(page1, 3);
    add_plain(page1, step_delay, 9);
    const auto before = c->device_pages[0].slots;
    EXPECT_FALSE(drop_key(t.app, {at(page1), 3}, {at(page1), 5}, drag_move));
    EXPECT_EQ(c->device_pages[0].slots, before);
    ASSERT_TRUE(drop_key(t.app, {at(page1), 3}, {at(page1), 5}, drag_action));
    EXPECT_EQ(step_numbers(page1, 5), std::vector<int>{9});
    EXPECT_EQ(step_numbers(page1, 3), std::vector<int>{9});
}

TEST_F(KeyDrag, AMoveTakesTheKeyAwayAndWritesItWithItsLabelAtTheTarget)
{
    click(page1, 5);
    add_plain(page1, step_delay, 3);
    c->softkey_labels[static_cast<std::size_t>(c->device_pages[0].slots[1].label_index)] = label_of("DVD");
    ASSERT_TRUE(drop_key(t.app, {at(page1), 5}, {at(page2), 9}, drag_move));
    EXPECT_LT(place(page1, 5)->slot, 0);
    const auto moved = place(page2, 9);
    ASSERT_GE(moved->slot, 0);
    EXPECT_EQ(c->softkey_labels[static_cast<std::size_t>(softkey_at(*c, *moved)->label_index)], label_of("DVD"));
    EXPECT_EQ(step_numbers(page2, 9), std::vector<int>{3});
    const auto log = t.log_lines();
    EXPECT_NE(std::find(log.begin(), log.end(), "\"Drag move(start) - DEVICE21\\PAGE1\""), log.end());
    EXPECT_EQ(log.back(), "\"Drag(move) from DEVICE11\\PAGE1 row 1 to DEVICE21\\PAGE1 row 3\"");
    EXPECT_EQ(chain_faults(*c), "");
}

TEST_F(KeyDrag, ARowCarriesTwoKeysOnlyOnceTheLeftButtonIsUnlinked)
{
    click(page1, 0);
    add_plain(page1, step_delay, 4);
    // An empty left button of an empty row: the key made is the right one.
    ASSERT_TRUE(drop_key(t.app, {at(page1), 0}, {at(page1), 6}, drag_copy));
    EXPECT_GE(place(page1, 5)->slot, 0);
    EXPECT_LT(place(page1, 6)->slot, 0);
    // Now the right key stands: the left button takes nothing.
    EXPECT_FALSE(drop_key(t.app, {at(page1), 0}, {at(page1), 6}, drag_copy));
    click(page1, 6);
    ASSERT_TRUE(Check3_Click(t.app, at(page1), false));
    ASSERT_TRUE(drop_key(t.app, {at(page1), 0}, {at(page1), 6}, drag_copy));
    EXPECT_EQ(step_numbers(page1, 6), std::vector<int>{4});
}

TEST_F(KeyDrag, LinkingAKeyToItselfByDroppingOnItselfAddsNothing)
{
    click(page1, 5);
    add_plain(page1, step_delay, 4);
    EXPECT_FALSE(drop_key(t.app, {at(page1), 5}, {at(page1), 5}, drag_link));
    EXPECT_EQ(types(page1, 5), std::vector<int>{step_delay});
}

TEST_F(KeyDrag, AnEmptyPositionCannotBeLinkedFromButGetsANewKeyAsTarget)
{
    messages();
    EXPECT_FALSE(drop_key(t.app, {at(page1), 7}, {at(page1), 0}, drag_link));
    EXPECT_EQ(messages(), std::vector<std::string>{"message \"Kelvaro Tesselo 3\" \"No Key can be linked\""});
    EXPECT_TRUE(types(page1, 0).empty());
    ASSERT_TRUE(drop_key(t.app, {at(page1), 0}, {at(page1), 9}, drag_link));
    EXPECT_GE(place(page1, 9)->slot, 0);
    EXPECT_EQ(types(page1, 9), std::vector<int>{step_link});
    EXPECT_EQ(t.log_lines().back(), "\"Drag(link) from DEVICE11\\PAGE1 hard 0 to DEVICE11\\PAGE1 row 3\"");
}

TEST_F(KeyDrag, TheTitleRowsKeyHasNoNumberSoALinkFromItSaysNoKeyCanBeLinked)
{
    ASSERT_GE(place(page2, 3)->slot, 0);
    EXPECT_EQ(softkey_at(*c, *place(page2, 3))->label_index, no_index);
    messages();
    const int steps = c->action_steps.step_total;
    EXPECT_FALSE(drop_key(t.app, {at(page2), 3}, {at(page1), 5}, drag_link));
    EXPECT_EQ(messages(), std::vector<std::string>{"message \"Kelvaro Tesselo 3\" \"No Key can be linked\""});
    EXPECT_EQ(c->action_steps.step_total, steps);
    EXPECT_TRUE(types(page1, 5).empty());
    EXPECT_EQ(t.log_lines().back(), "\"Drag link(start) - DEVICE11\\PAGE1\"");
}

TEST_F(KeyDrag, HardKeyIndexThirtyThreeIsPictureThirtyThreeAndIndexZeroPictureTwo)
{
    ASSERT_TRUE(drop_key(t.app, {at(page2), 33}, {at(page1), 0}, drag_link));
    ASSERT_TRUE(drop_key(t.app, {at(page2), 2}, {at(page1), 0}, drag_link));
    const auto rows = steps_of_list(*c, key_action_list(*c, *place(page1, 0)));
    ASSERT_EQ(rows.size(), 2U);
    const ActionStep& to33 = c->action_steps.steps[static_cast<std::size_t>(rows[0])];
    const ActionStep& to0 = c->action_steps.steps[static_cast<std::size_t>(rows[1])];
    EXPECT_EQ(to33, (ActionStep{step_link, 2, 255, 34, 34, static_cast<std::uint16_t>(rows[1])}));
    EXPECT_EQ(to0, (ActionStep{step_link, 2, 255, 1, 1, end_of_list}));
}

TEST_F(KeyDrag, ASoftSourceLinksByPagePlaceKeyNumberAndPosition)
{
    click(page2, 8);  // row 2 left: made as the right key of row 2
    add_plain(page2, step_delay, 1);
    const auto source = place(page2, 7);
    ASSERT_GE(source->slot, 0);
    ASSERT_TRUE(drop_key(t.app, {at(page2), 7}, {at(page1), 0}, drag_link));
    const auto rows = steps_of_list(*c, key_action_list(*c, *place(page1, 0)));
    ASSERT_EQ(rows.size(), 1U);
    const int label = softkey_at(*c, *source)->label_index;
    EXPECT_EQ(c->action_steps.steps[static_cast<std::size_t>(rows[0])],
              (ActionStep{step_link, 2, 0, static_cast<std::uint16_t>(label), 2, end_of_list}));
}

TEST_F(KeyDrag, ALinkToAKeyWithFortyStepsSaysExceedMarcoStepsUnderCreateLink)
{
    click(page1, 0);
    for (int i = 0; i < steps_per_list; ++i) add_plain(page1, step_delay, i);
    messages();
    EXPECT_FALSE(drop_key(t.app, {at(page1), 1}, {at(page1), 0}, drag_link));
    EXPECT_EQ(messages(), std::vector<std::string>{"message \"Create Link\" \"Exceed marco steps!\""});
}

TEST_F(KeyDrag, ADropOnALockedPictureDoesNothing)
{
    click(page1, 0);
    add_plain(page1, step_delay, 4);
    EXPECT_FALSE(drop_key(t.app, {at(page1), 0}, {at(page1), 16}, drag_copy));
    EXPECT_FALSE(drop_key(t.app, {at(page1), 0}, {at(page1), 3}, drag_move));
    EXPECT_EQ(step_numbers(page1, 0), std::vector<int>{4});
}

}  // namespace
}  // namespace tesselo::testing
