#include <gtest/gtest.h>

#include "core/keys/page_canvas.h"
#include "core/model/configuration.h"

namespace tesselo {
namespace {

TEST(PageCanvas, HardKeyIndexFollowsNoOrderOfThePictures)
{
    EXPECT_EQ(check_hardkeyindex(33), 33);
    EXPECT_EQ(check_actcualhardindex(0), 2);
    EXPECT_EQ(check_hardkeyindex(0), 1);
    EXPECT_EQ(check_hardkeyindex(55), 26);
    for (int i = 3; i <= 17; ++i) EXPECT_EQ(check_hardkeyindex(i), -1) << i;
    for (int key = 0; key <= 40; ++key) EXPECT_EQ(check_hardkeyindex(check_actcualhardindex(key)), key);
    EXPECT_EQ(check_actcualhardindex(41), -1);
}

TEST(PageCanvas, SideButtonsCarryRowAndSide)
{
    const int expected[] = {0, 128, 1, 129, 2, 130, 3, 131, 4, 132, 5, 133};
    for (int index = 3; index <= 14; ++index) {
        EXPECT_EQ(side_button_position(index), expected[index - 3]);
        EXPECT_EQ(picture_of_position(expected[index - 3]), index);
        EXPECT_EQ(side_button_row(index), (index - 3) / 2);
    }
    EXPECT_EQ(side_button_position(2), -1);
    EXPECT_EQ(picture_of_position(6), -1);
}

TEST(PageCanvas, PicturesStandAtTheirTwips)
{
    const TwipRect r22 = key_picture_rect(22);
    EXPECT_EQ(r22.left, 900);
    EXPECT_EQ(r22.top, 4215);
    EXPECT_EQ(r22.width, 420);
    const TwipRect r47 = key_picture_rect(47);
    EXPECT_EQ(r47.left, 885);
    EXPECT_EQ(r47.top, 7965);
    const TwipRect r54 = key_picture_rect(54);
    EXPECT_EQ(r54.top, 8640);
    EXPECT_EQ(lcd_row_rect(0).height, 225);
    EXPECT_EQ(lcd_row_rect(5).top, 1605);
    // Every picture lies on the body.
    const TwipRect body = remote_body_rect();
    for (int i = 0; i < key_picture_count; ++i) {
        const TwipRect r = key_picture_rect(i);
        EXPECT_GE(r.left, body.left);
        EXPECT_LE(r.left + r.width, body.left + body.width) << i;
        EXPECT_LE(r.top + r.height, body.top + body.height) << i;
    }
}

TEST(PageCanvas, TagsAndCounterHaveThreeDigits)
{
    EXPECT_EQ(GenTagString(7), "007");
    EXPECT_EQ(GenTagString(42), "042");
    EXPECT_EQ(GenTagString(1234), "1234");
    EXPECT_EQ(BuildTagText(0, 12), "000+012");
}

TEST(PageCanvas, NewDocumentHomePageShowsHomeInTheTitleRow)
{
    auto config = std::make_unique<Configuration>();
    init_new_configuration(*config, 0);
    PageRef page;
    page.home = true;
    const auto rows = lcd_page_rows(*config, page);
    ASSERT_TRUE(rows[0].has_right);
    EXPECT_EQ(rows[0].right, config->device_name_table[0].name);
    for (int r = 1; r < lcd_rows; ++r) EXPECT_FALSE(rows[static_cast<std::size_t>(r)].has_right || rows[static_cast<std::size_t>(r)].has_left);
    EXPECT_EQ(softkey_slot_at(*config, page, 1), -1);
    EXPECT_EQ(key_step_count(*config, page, 5), 0);
    EXPECT_EQ(key_step_count(*config, page, 0), 0);
}

TEST(PageCanvas, SoftKeysShowTheirLabelsOnTheirSide)
{
    auto config = std::make_unique<Configuration>();
    init_new_configuration(*config, 0);
    auto& page_row = config->device_pages[3];
    page_row.slots[1] = SoftKey{0, 2, 10, 7, 0};
    page_row.slots[2] = SoftKey{0, 130, 11, no_index, 0};
    config->page_table[2].key_count = 3;
    config->softkey_labels[10].bytes = {2, 1, 2};
    config->softkey_labels[11].bytes = {0x21, 3};
    config->action_lists.entries[7] = {0, 4};
    config->device_name_table[1].name.bytes = {1, 4};
    PageRef page{false, 0, 3, 1, 2, 1, 1};
    const auto rows = lcd_page_rows(*config, page);
    EXPECT_TRUE(rows[2].has_right);
    EXPECT_TRUE(rows[2].has_left);
    EXPECT_EQ(rows[2].left.alignment(), align_left);
    EXPECT_EQ(rows[0].right, config->device_name_table[1].name);
    EXPECT_EQ(key_step_count(*config, page, 7), 4);
    EXPECT_EQ(key_step_count(*config, page, 8), 0);
    config->hardkeys[1 * hardkeys_per_device + 33].action_list = 7;
    EXPECT_EQ(key_step_count(*config, page, 33), 4);
}

TEST(PageCanvas, EveryLookupSearchesAllTwelveSlotsSlotZeroIncluded)
{
    // Keys stand in their slots in the order they were made: here row 2's key
    // in slot 0 and the title row's key behind it, in slot 1.
    auto config = std::make_unique<Configuration>();
    init_new_configuration(*config, 0);
    auto& page_row = config->device_pages[3];
    page_row.slots[0] = SoftKey{0, 2, 10, 7, 0};
    page_row.slots[1] = SoftKey{0, 0, no_index, 8, 0};
    config->page_table[2].key_count = 2;
    config->softkey_labels[10].bytes = {2, 1, 2};
    config->action_lists.entries[7] = {0, 4};
    config->action_lists.entries[8] = {4, 2};
    config->device_name_table[1].name.bytes = {1, 4};
    PageRef page{false, 0, 3, 1, 2, 1, 1};
    EXPECT_EQ(softkey_slot_at(*config, page, 2), 0);
    EXPECT_EQ(softkey_slot_at(*config, page, 0), 1);
    EXPECT_EQ(key_step_count(*config, page, 3 + 2 * 2), 4);  // row 2's right button
    EXPECT_EQ(key_step_count(*config, page, 3), 2);          // the title row's key
    const auto rows = lcd_page_rows(*config, page);
    ASSERT_TRUE(rows[2].has_right);
    EXPECT_EQ(rows[2].right, config->softkey_labels[10]);
    EXPECT_EQ(rows[0].right, config->device_name_table[1].name);
}

}  // namespace
}  // namespace tesselo
