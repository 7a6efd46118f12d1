#include <gtest/gtest.h>

#include "core/document/lifecycle.h"
#include "core/tree/adding.h"
#include "core/tree/link_repair.h"
#include "core/tree/tree_model.h"
#include "core/tree/tree_view.h"
#include "support/step_document.h"
#include "support/test_app.h"

namespace tesselo {
namespace {

using testing::chain_faults;

// Hand-worked tables: steps and lists are written row by row, so that each
// case shows the numbers the repair must reach.
struct LinkRepair : ::testing::Test {
    std::unique_ptr<Configuration> doc = std::make_unique<Configuration>();
    Configuration& c = *doc;
    void SetUp() override
    {
        init_new_configuration(c, 0);
        testing::add_test_device(c, 0, 1, 1, "TV");
        testing::add_test_device(c, 0, 2, 1, "VCR");
        testing::add_test_device(c, 0, 3, 4, "DVD");
    }
    void step(int row, std::uint8_t type, std::uint8_t low, std::uint8_t high, std::uint16_t value = 0,
              std::uint8_t extra = 0, std::uint16_t next = end_of_list)
    {
        c.action_steps.steps[static_cast<std::size_t>(row)] = {type, low, high, value, extra, next};
        ++c.action_steps.step_total;
    }
    void list(int l, int first, int count)
    {
        c.action_lists.entries[static_cast<std::size_t>(l)] = {static_cast<std::int16_t>(first), static_cast<std::uint8_t>(count)};
        ++c.action_lists.list_count;
    }
    SoftKey& dvd_key(int page, int slot) { return c.device_pages[static_cast<std::size_t>(2 + page)].slots[static_cast<std::size_t>(slot)]; }
    const ActionStep& at(int row) const { return c.action_steps.steps[static_cast<std::size_t>(row)]; }
    std::vector<int> chain(int l) const { return steps_of_list(c, l); }
    // The DVD's HOME key: device 3 stands in HOME row 0, slot 3.
    SoftKey& dvd_home_key() { return c.home_pages[0].slots[3]; }
};

TEST_F(LinkRepair, AThreeStepListLosingItsMiddleLinkKeepsTwoStepsChained)
{
    step(4, step_delay, 10, 0, 0, 0, 9);
    step(9, step_link, 2, 0, 17, 1, 2);
    step(2, step_beep, 10, 0, 400, 0);
    list(0, 4, 3);
    c.hardkeys[41].action_list = 0;
    Cut_Softlinkthiskey(c, 2, 0, 17);
    EXPECT_EQ(chain(0), (std::vector<int>{4, 2}));
    EXPECT_EQ(c.action_lists.entries[0].step_count, 2);
    EXPECT_EQ(at(4).next_step, 2);
    EXPECT_EQ(at(9), (ActionStep{255, 255, 0, 0, 1, 65535}));
    EXPECT_EQ(c.action_steps.step_total, 2);
    EXPECT_EQ(c.hardkeys[41].action_list, 0);
    EXPECT_EQ(chain_faults(c), "");
}

TEST_F(LinkRepair, AKeyWhoseOnlyStepWasTheLinkRemainsWithNoAction)
{
    step(0, step_delay, 10, 0);
    list(0, 0, 1);
    step(1, step_link, 1, 255, 5, 5);
    list(1, 1, 1);
    dvd_key(0, 1) = SoftKey{0, 1, 30, 1, 0};
    c.page_table[3].key_count = 2;
    c.hardkeys[0].action_list = 0;
    Cut_hardlinkthiskey(c, 1, 4);
    EXPECT_EQ(c.action_lists.entries[1].step_count, 0);
    EXPECT_EQ(c.action_lists.entries[1].first_step, 0);
    EXPECT_EQ(c.action_lists.list_count, 1);
    EXPECT_EQ(c.action_steps.step_total, 1);
    EXPECT_EQ(dvd_key(0, 1).action_list, no_index);
    EXPECT_EQ(dvd_key(0, 1).position, 1);
    EXPECT_EQ(c.page_table[3].key_count, 2);
    EXPECT_EQ(c.hardkeys[0].action_list, 0);
    EXPECT_EQ(chain_faults(c), "");
}

TEST_F(LinkRepair, TheFirstOfSeveralStepsGoesAndTheListStartsAtItsNext)
{
    step(3, step_link, 2, 0, 8, 1, 5);
    step(5, step_delay, 10, 0);
    list(6, 3, 2);
    c.hardkeys[50].action_list = 6;
    Cut_marcolink(c, 2, 0, 8);
    EXPECT_EQ(c.action_lists.entries[6].first_step, 5);
    EXPECT_EQ(chain(6), std::vector<int>{5});
    EXPECT_EQ(at(3).next_step, end_of_list);
    EXPECT_EQ(at(3).param_high, 0);  // the narrow form leaves param_high
    EXPECT_EQ(chain_faults(c), "");
}

TEST_F(LinkRepair, DeletingPage2OfDevice3RenumbersJumpsAndRemovesTheJumpToIt)
{
    step(0, step_jump, 3, 3);          // a key elsewhere jumps to place 3
    list(0, 0, 1);
    c.hardkeys[41 + 7].action_list = 0;
    step(1, step_delay, 5, 0, 0, 0, 2);
    step(2, step_jump, 3, 1);          // another key jumps to place 1, the second page
    list(1, 1, 2);
    c.hardkeys[41 + 8].action_list = 1;
    step(3, step_link, 3, 2, 40, 2);   // a link behind the page moves up too
    list(2, 3, 1);
    c.hardkeys[41 + 9].action_list = 2;
    step(4, step_jump, 3, 0);          // a jump in front of it stays
    list(3, 4, 1);
    c.hardkeys[41 + 10].action_list = 3;
    Cut_marcojumplink(c, 3, 1);
    EXPECT_EQ(at(0).param_high, 2);
    EXPECT_EQ(at(2), (ActionStep{255, 255, 0, 0, 0, 65535}));
    EXPECT_EQ(chain(1), std::vector<int>{1});
    EXPECT_EQ(at(3).param_high, 1);
    EXPECT_EQ(at(4).param_high, 0);
    EXPECT_EQ(chain_faults(c), "");
}

TEST_F(LinkRepair, TheHomeKeyOfADeviceWhoseShownPageGoesJumpsToTheNextVisiblePage)
{
    step(0, step_jump, 3, 0);
    list(0, 0, 1);
    dvd_home_key().action_list = 0;
    c.page_table[4].hidden = hidden_flag;  // place 1 hidden, place 2 shown
    Cut_marcojumplink(c, 3, 0);
    // Re-aimed at place 2, which becomes place 1 once the first page is gone.
    EXPECT_EQ(at(0).step_type, step_jump);
    EXPECT_EQ(at(0).param_low, 3);
    EXPECT_EQ(at(0).param_high, 1);
    EXPECT_EQ(chain_faults(c), "");
}

TEST_F(LinkRepair, WithAllPagesHiddenTheHomeKeyJumpsToTheHomePageItStandsOn)
{
    step(0, step_jump, 3, 2);
    list(0, 0, 1);
    dvd_home_key().action_list = 0;
    for (int p = 3; p < 7; ++p) c.page_table[static_cast<std::size_t>(p)].hidden = hidden_flag;
    Cut_marcojumplink(c, 3, 2);
    EXPECT_EQ(at(0).param_low, 0);
    EXPECT_EQ(at(0).param_high, 0);
    EXPECT_EQ(c.action_steps.step_total, 1);
}

TEST_F(LinkRepair, AHomeKeyBelowSixJumpsHomeToPage0AndDevice7ToPage1)
{
    for (int d = 4; d <= 7; ++d) testing::add_test_device(c, 0, d, 1, "X");
    step(0, step_jump, 7, 0);
    list(0, 0, 1);
    c.home_pages[1].slots[2].action_list = 0;  // device 7: HOME row 1, slot 2
    Cut_marcojumplink(c, 7, 0);
    EXPECT_EQ(at(0).param_low, 0);
    EXPECT_EQ(at(0).param_high, 1);
}

TEST_F(LinkRepair, AHomeKeysJumpToALowerPageIsLoweredUnlessItIsTheFirst)
{
    step(0, step_jump, 3, 1);
    list(0, 0, 1);
    dvd_home_key().action_list = 0;
    Cut_marcojumplink(c, 3, 2);
    EXPECT_EQ(at(0).param_high, 0);
}

TEST_F(LinkRepair, AHomeKeysJumpInsideItsListIsNotTheHomeKeysOwnAndGoes)
{
    step(0, step_delay, 10, 0, 0, 0, 1);
    step(1, step_jump, 3, 1);
    list(0, 0, 2);
    dvd_home_key().action_list = 0;
    Cut_marcojumplink(c, 3, 1);
    EXPECT_EQ(chain(0), std::vector<int>{0});
    EXPECT_EQ(chain_faults(c), "");
}

TEST_F(LinkRepair, PhaseTwoSendsAStepOnThePageToTheNewLastPage)
{
    step(0, step_link, 3, 3, 40, 1);
    list(0, 0, 1);
    c.hardkeys[45].action_list = 0;
    c.device_table[3].page_count = 3;  // the caller has already taken the page away
    Cut_marcojumplink(c, 3, 3);
    EXPECT_EQ(at(0).param_high, 2);
}

TEST_F(LinkRepair, DeviceRemovalCutsJumpsAndLinksIntoItAndFreesThePageKeysLists)
{
    step(0, step_jump, 2, 0);
    list(0, 0, 1);
    dvd_key(0, 1) = SoftKey{0, 1, 30, 0, 0};
    c.page_table[3].key_count = 2;
    step(1, step_link, 2, 255, 3, 3, 2);
    step(2, step_jump, 1, 0);
    list(1, 1, 2);
    c.hardkeys[45].action_list = 1;
    step(3, step_link, 1, 0, 8, 1);
    list(2, 3, 1);
    c.hardkeys[46].action_list = 2;
    Cut_devicehardlink(c, 2);
    EXPECT_EQ(dvd_key(0, 1).action_list, no_index);
    EXPECT_EQ(chain(1), std::vector<int>{2});
    EXPECT_EQ(chain(2), std::vector<int>{3});
    EXPECT_EQ(c.action_lists.list_count, 2);
    EXPECT_EQ(c.action_steps.step_total, 2);
    EXPECT_EQ(chain_faults(c), "");
}

TEST_F(LinkRepair, PageRemovalCutsItsLinksAndClearsParamHigh)
{
    step(0, step_link, 3, 1, 40, 1, 1);
    step(1, step_link, 3, 1, 41, 2, 2);
    step(2, step_link, 3, 0, 42, 3);
    list(0, 0, 3);
    c.hardkeys[45].action_list = 0;
    Cut_marcolinkpage(c, 3, 1);
    EXPECT_EQ(chain(0), std::vector<int>{2});
    EXPECT_EQ(at(0), (ActionStep{255, 255, 0, 0, 1, 65535}));
    EXPECT_EQ(at(1), (ActionStep{255, 255, 0, 0, 2, 65535}));
    EXPECT_EQ(chain_faults(c), "");
}

TEST_F(LinkRepair, AnEmptyStepTableIsLeftAlone)
{
    c.action_steps.steps[0] = {step_link, 2, 0, 17, 1, 65535};  // not counted: the table is empty
    Cut_Softlinkthiskey(c, 2, 0, 17);
    EXPECT_EQ(at(0).step_type, step_link);
}

TEST_F(LinkRepair, RepointFirstpageAimsTheHomeKeyAtTheFirstShownPage)
{
    step(0, step_jump, 3, 0);
    list(0, 0, 1);
    dvd_home_key().action_list = 0;
    c.page_table[3].hidden = hidden_flag;
    c.page_table[4].hidden = hidden_flag;
    repoint_firstpage(c, "DEVICE31", 3, "DEVICE31\\PAGE2");
    EXPECT_EQ(at(0).param_low, 3);
    EXPECT_EQ(at(0).param_high, 2);
    for (int p = 3; p < 7; ++p) c.page_table[static_cast<std::size_t>(p)].hidden = hidden_flag;
    repoint_firstpage(c, "DEVICE31", 3, "DEVICE31\\PAGE3");
    EXPECT_EQ(at(0).param_high, 2);  // no shown page: the jump is left
}

}  // namespace
}  // namespace tesselo


namespace tesselo {
namespace {

// The HOME key rule on a document grown by the editor's own commands.
TEST(LinkRepairOnAnAddedDevice, TheHomeKeysJumpFollowsItsFirstPageAway)
{
    testing::TestApp t;
    ASSERT_EQ(muNew(t.app), 0);
    muInsertdevice(t.app);
    click_node(t.app, 0, t.app.tree(0).find("DEVICE11"));
    muInsertPage(t.app);
    muInsertPage(t.app);
    Configuration& c = t.app.config(0);
    ASSERT_EQ(c.device_table[1].page_count, 3);
    const auto& home_key = c.home_pages[0].slots[1];
    const int jump = c.action_lists.entries[static_cast<std::size_t>(home_key.action_list)].first_step;
    ASSERT_EQ(c.action_steps.steps[static_cast<std::size_t>(jump)].step_type, step_jump);
    EXPECT_EQ(c.action_steps.steps[static_cast<std::size_t>(jump)].param_high, 0);
    Cut_marcojumplink(c, 1, 0);
    // Re-aimed at the second page, which the removal makes the first.
    EXPECT_EQ(c.action_steps.steps[static_cast<std::size_t>(jump)].param_low, 1);
    EXPECT_EQ(c.action_steps.steps[static_cast<std::size_t>(jump)].param_high, 0);
    EXPECT_EQ(testing::chain_faults(c), "");
}

}  // namespace
}  // namespace tesselo
