// Links and jumps kept whole when pages and devices are deleted from the tree.
#include "core/keys/key_clipboard_document.h"
#include "core/tree/device_clipboard.h"
#include "core/tree/hiding.h"
#include "core/tree/page_windows.h"
#include "tree_invariants.h"

namespace tesselo::testing {
namespace {

// Three devices; device 3 has four pages.
struct DeviceRemoval : ClipDocument {
    static int right(int row) { return 3 + 2 * row; }
    const std::string dvd = "DEVICE31";
    void SetUp() override
    {
        ClipDocument::SetUp();
        AddDevice(t.app, add_ordinary);
        for (int i = 0; i < 3; ++i) {
            select(dvd);
            addpage(t.app, add_ordinary);
        }
    }
    // A step of `type` into device 3's place `place` on the key in LCD row `row` of DEVICE1's page.
    void add_into(int row, std::uint8_t type, int place, std::uint16_t value = 0, std::uint8_t extra = 0)
    {
        click_key(page1, right(row));
        ASSERT_GE(add_plain(page1, type, 3 + 256 * place, value, extra), 0);
    }
    std::vector<ActionStep> key_steps(int row)
    {
        std::vector<ActionStep> out;
        for (int s : steps_of_list(*c, key_action_list(*c, soft_place(*c, page1, static_cast<std::uint8_t>(row)))))
            out.push_back(c->action_steps.steps[static_cast<std::size_t>(s)]);
        return out;
    }
    const ActionStep& dvd_home_jump()
    {
        const SoftKey& key = c->home_pages[0].slots[3];
        return c->action_steps.steps[static_cast<std::size_t>(c->action_lists.entries[static_cast<std::size_t>(key.action_list)].first_step)];
    }
    void remove(const std::string& key)
    {
        select(key);
        ASSERT_TRUE(cut_devicepage(t.app, cut_mode_delete));
        expect_invariants(t.app, 0);
        EXPECT_EQ(chain_faults(*c), "");
    }
    // The label row of the key in LCD row `row` of `page`, made when missing.
    std::uint16_t key_on(const std::string& page, int row)
    {
        click_key(page, right(row));
        add_plain(page, step_delay, 1);
        return static_cast<std::uint16_t>(softkey_at(*c, soft_place(*c, page, static_cast<std::uint8_t>(row)))->label_index);
    }
};

TEST_F(DeviceRemoval, AThreeStepListWhoseMiddleLinksIntoADeletedPageKeepsTwoStepsChained)
{
    const std::uint16_t target = key_on("DEVICE31\\PAGE2", 0);
    click_key(page1, right(0));
    add_plain(page1, step_delay, 1);
    add_into(0, step_link, 1, target, 0);
    click_key(page1, right(0));
    add_plain(page1, step_beep, 2);
    remove("DEVICE31\\PAGE2");
    const auto steps = key_steps(0);
    ASSERT_EQ(steps.size(), 2u);
    EXPECT_EQ(steps[0].step_type, step_delay);
    EXPECT_EQ(steps[1].step_type, step_beep);
}

TEST_F(DeviceRemoval, AKeyWhoseOnlyStepWasTheLinkRemainsWithNoAction)
{
    const std::uint16_t target = key_on("DEVICE31\\PAGE3", 0);
    add_into(1, step_link, 2, target, 0);
    const int label = softkey_at(*c, soft_place(*c, page1, 1))->label_index;
    remove("DEVICE31\\PAGE3");
    const SoftKey* key = softkey_at(*c, soft_place(*c, page1, 1));
    ASSERT_NE(key, nullptr);
    EXPECT_EQ(key->label_index, label);
    EXPECT_EQ(key->action_list, no_index);
}

TEST_F(DeviceRemoval, DeletingPage2OfDevice3LowersAJumpToPlace3AndRemovesAJumpToPlace1)
{
    add_into(0, step_jump, 3);
    add_into(1, step_jump, 1);
    remove("DEVICE31\\PAGE2");
    ASSERT_EQ(key_steps(0).size(), 1u);
    EXPECT_EQ(key_steps(0)[0].param_high, 2);
    EXPECT_TRUE(key_steps(1).empty());
    EXPECT_EQ(t.log_lines().back(), "\"delete page DEVICE3/PAGE2 - Untitled1\"");
}

TEST_F(DeviceRemoval, TheHomeKeyOfADeviceWhoseShownPageGoesJumpsToTheNextVisiblePage)
{
    select("DEVICE31\\PAGE2");
    ASSERT_TRUE(hide_page(t.app));
    remove("DEVICE31\\PAGE1");
    // PAGE3, the first shown page left, stands at place 1 now.
    EXPECT_EQ(dvd_home_jump().param_low, 3);
    EXPECT_EQ(dvd_home_jump().param_high, 1);
}

TEST_F(DeviceRemoval, WithAllOtherPagesHiddenTheHomeKeyJumpsToTheHomePageItStandsOn)
{
    for (const char* page : {"DEVICE31\\PAGE2", "DEVICE31\\PAGE3", "DEVICE31\\PAGE4"}) {
        select(page);
        ASSERT_TRUE(hide_page(t.app));
    }
    remove("DEVICE31\\PAGE1");
    EXPECT_EQ(dvd_home_jump().param_low, 0);
    EXPECT_EQ(dvd_home_jump().param_high, 0);
}

TEST_F(DeviceRemoval, DeletingADeviceRenumbersTheStepsIntoTheDevicesBehindIt)
{
    add_into(0, step_jump, 2);
    click_key(page2, right(0));
    add_plain(page2, step_jump, 2);  // a jump into DEVICE2 itself, from its own page
    remove("DEVICE21");
    ASSERT_EQ(key_steps(0).size(), 1u);
    EXPECT_EQ(key_steps(0)[0].param_low, 2);
    // DEVICE1's HOME key is unchanged.
    const SoftKey& first = c->home_pages[0].slots[1];
    EXPECT_EQ(c->action_steps.steps[static_cast<std::size_t>(c->action_lists.entries[static_cast<std::size_t>(first.action_list)].first_step)].param_low, 1);
    EXPECT_EQ(c->home_pages[0].node_key[2], dvd);
    const SoftKey& moved = c->home_pages[0].slots[2];
    EXPECT_EQ(c->action_steps.steps[static_cast<std::size_t>(c->action_lists.entries[static_cast<std::size_t>(moved.action_list)].first_step)].param_low, 2);
    EXPECT_EQ(c->page_table[2].node_key, "DEVICE31\\PAGE1");
}

TEST_F(DeviceRemoval, DeletingADeviceWithOpenPagesLogsThatItClosesThemAll)
{
    for (const std::string page : {dvd + "\\PAGE1", dvd + "\\PAGE3"}) ASSERT_TRUE(open_page(t.app, 0, t.app.tree(0).find(page)));
    ASSERT_TRUE(open_page(t.app, 0, t.app.tree(0).find(page1)));
    remove(dvd);
    std::vector<std::string> closing;
    for (const auto& line : t.log_lines())
        if (line.find("close") != std::string::npos) closing.push_back(line);
    EXPECT_EQ(closing, std::vector<std::string>{"\"close all page (Delete device) \""});
    ASSERT_EQ(t.app.page_windows().all().size(), 1u);
    EXPECT_EQ(t.app.page_windows().all()[0].caption, page1);
    // A device without open pages closes none, and says nothing of it.
    t.take_lines();
    const std::size_t before = t.log_lines().size();
    remove("DEVICE21");
    for (std::size_t i = before; i < t.log_lines().size(); ++i)
        EXPECT_EQ(t.log_lines()[i].find("close all page"), std::string::npos) << t.log_lines()[i];
}

TEST_F(DeviceRemoval, AfterRemovalTheCountsAtTheHeadOfBothTablesAreTheRowsInUse)
{
    click_key(page2, right(3));
    for (int i = 0; i < 5; ++i) add_plain(page2, step_delay, i);
    click_key(page2, 40);
    add_code(page2, rc5(1, 2));
    remove("DEVICE21");
    int lists = 0, steps = 0;
    for (const auto& e : c->action_lists.entries) lists += e.step_count > 0;
    for (const auto& s : c->action_steps.steps) steps += s.step_type != 255;
    EXPECT_EQ(c->action_lists.list_count, lists);
    EXPECT_EQ(c->action_steps.step_total, steps);
}

}  // namespace
}  // namespace tesselo::testing
