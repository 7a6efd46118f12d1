#include "tree_fixture.h"

#include "core/tree/edit_state.h"
#include "core/tree/page_windows.h"

namespace tesselo {
namespace {

using AddDeviceTest = testing::TreeTest;
using AddPageTest = testing::TreeTest;

TEST_F(AddDeviceTest, TheFirstAddInANewDocument)
{
    AddDevice(t.app, add_ordinary);
    const Configuration& c = config();
    // Device index 1, device number 1, key DEVICE and 11 in slot 0.
    EXPECT_EQ(c.device_name_table[1].node_key, "DEVICE11");
    EXPECT_EQ(c.device_numbers_used[0], 1);
    EXPECT_EQ(c.device_numbers_used[1], 0);
    EXPECT_EQ(tree().node(tree().find("DEVICE11")).text, "DEVICE1");
    // The name DEVICE1 in glyphs, in the device row and on the HOME key.
    const std::array<std::uint8_t, 10> name{7, 4, 5, 22, 9, 3, 5, 28, 0, 0};
    EXPECT_EQ(c.device_name_table[1].name.bytes, name);
    const SoftKey& home_key = c.home_pages[0].slots[1];
    EXPECT_EQ(home_key.position, 1);
    EXPECT_EQ(home_key.label_index, 0);
    EXPECT_EQ(home_key.action_list, 0);
    EXPECT_EQ(c.softkey_labels[0].bytes, name);
    EXPECT_EQ(c.home_pages[0].slots[0].label_index, 65535);
    EXPECT_EQ(c.home_pages[0].node_key[1], "DEVICE11");
    EXPECT_EQ(c.page_table[0].key_count, 2);
    // Its one step jumps to the device's first page.
    EXPECT_EQ(c.action_lists.entries[0].first_step, 0);
    EXPECT_EQ(c.action_lists.entries[0].step_count, 1);
    EXPECT_EQ(c.action_lists.list_count, 1);
    EXPECT_EQ(c.action_steps.step_total, 1);
    EXPECT_EQ(c.action_steps.steps[0].step_type, step_jump);
    EXPECT_EQ(c.action_steps.steps[0].param_low, 1);
    EXPECT_EQ(c.action_steps.steps[0].param_high, 0);
    // The first page "PAGE1".
    EXPECT_EQ(keys(), (std::vector<std::string>{"HOME1", "HOME1PROPERTIES", "HOME1\\PAGE1", "DEVICE11",
                                                "DEVICE11PROPERTIES", "DEVICE11\\PAGE1"}));
    EXPECT_EQ(tree().node(tree().find("DEVICE11PROPERTIES")).text, "DEVICE1 PROPERTIES");
    EXPECT_EQ(c.device_table[1].page_count, 1);
    EXPECT_EQ(c.device_table[1].visible_pages, 1);
    EXPECT_EQ(c.page_table[1].node_key, "DEVICE11\\PAGE1");
    EXPECT_EQ(c.page_table[1].key_count, 1);
    EXPECT_EQ(c.device_pages[0].node_key, "DEVICE11\\PAGE1");
    EXPECT_EQ(c.device_pages[0].slots[0].label_index, 65535);
    EXPECT_EQ(c.device_name_table[1].node_index, tree().find("DEVICE11"));
    EXPECT_EQ(c.page_table[1].node_index, tree().find("DEVICE11\\PAGE1"));
    // Its 41 hard keys have the default labels and no lists.
    EXPECT_EQ(c.hardkey_labels[41], c.hardkey_labels[0]);
    EXPECT_EQ(c.hardkeys[41 + 40].action_list, 65535);
    EXPECT_EQ(t.log_lines().back(), "\"Add device DEVICE1 - Untitled1\"");
    EXPECT_EQ(t.log_lines()[t.log_lines().size() - 2], "\"add device(start) 0\"");
    EXPECT_TRUE(t.app.edit_state().undo_button);
    EXPECT_EQ(t.app.journal().undo.count, 1);
}

TEST_F(AddDeviceTest, TheSixthDeviceMakesASecondHomePageAndItsKeyTakesPosition1)
{
    add_devices(1);
    // A HOME view open: its counter grows with the HOME pages.
    ASSERT_TRUE(open_page(t.app, slot, tree().find("HOME1\\PAGE1")));
    EXPECT_EQ(t.app.page_windows().all()[0].pagelabel, "001/001");
    add_devices(5);
    const Configuration& c = config();
    EXPECT_EQ(c.device_table[0].page_count, 2);
    EXPECT_EQ(c.page_table[0].key_count, 6);
    EXPECT_EQ(c.page_table[1].key_count, 2);
    EXPECT_EQ(c.page_table[1].node_key, "HOME1\\PAGE2");
    EXPECT_EQ(c.home_pages[1].slots[1].position, 1);
    EXPECT_EQ(c.home_pages[1].node_key[1], "DEVICE61");
    EXPECT_EQ(c.home_pages[1].node_key[0], "HOME1");
    EXPECT_EQ(c.home_pages[1].node_index[0], 1);
    EXPECT_EQ(c.home_pages[1].slots[0].label_index, 65535);
    EXPECT_EQ(c.home_pages[1].slots[0].action_list, 65535);
    EXPECT_EQ(t.app.page_windows().all()[0].pagelabel, "001/002");
    EXPECT_EQ(tree().node(tree().find("HOME1\\PAGE2")).parent, 1);
    // The device pages moved one place up behind the new HOME page.
    EXPECT_EQ(c.page_table[2].node_key, "DEVICE11\\PAGE1");
    EXPECT_EQ(c.page_table[7].node_key, "DEVICE61\\PAGE1");
    const ActionStep& jump = c.action_steps.steps[static_cast<std::size_t>(
        c.action_lists.entries[static_cast<std::size_t>(c.home_pages[1].slots[1].action_list)].first_step)];
    EXPECT_EQ(jump.param_low, 6);
}

TEST_F(AddDeviceTest, AfterDevice2Of3IsDeletedTheNextTakesNumber2YetGoesLast)
{
    add_devices(3);
    remove_device(2);
    AddDevice(t.app, add_ordinary);
    const Configuration& c = config();
    EXPECT_EQ(c.device_name_table[3].node_key, "DEVICE21");
    EXPECT_EQ(c.device_name_table[2].node_key, "DEVICE31");
    EXPECT_EQ(tree().roots().back(), tree().find("DEVICE21"));
    EXPECT_EQ(c.page_table[3].node_key, "DEVICE21\\PAGE1");
    EXPECT_EQ(c.home_pages[0].node_key[3], "DEVICE21");
    // DEVICE3 took the second place and its row; the new key the third.
    EXPECT_EQ(c.home_pages[0].node_key[2], "DEVICE31");
    EXPECT_EQ(c.home_pages[0].slots[2].position, 2);
    EXPECT_EQ(c.home_pages[0].slots[3].position, 3);
    EXPECT_EQ(t.log_lines().back(), "\"Add device DEVICE2 - Untitled1\"");
}

TEST_F(AddDeviceTest, ANewDeviceAlwaysGoesLastWhateverIsSelected)
{
    add_devices(2);
    select("DEVICE11\\PAGE1");
    AddDevice(t.app, add_ordinary);
    EXPECT_EQ(keys().back(), "DEVICE31\\PAGE1");
    EXPECT_EQ(config().device_name_table[3].node_key, "DEVICE31");
}

TEST_F(AddDeviceTest, StepsInUseFrom8000AreRefusedFirstAndNothingChanges)
{
    config().action_steps.step_total = 8000;
    const auto log = t.log_lines();
    AddDevice(t.app, add_ordinary);
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{"message \"Kelvaro Tesselo 3\" \"Exceed Marco steps\""}));
    EXPECT_EQ(t.ui.icons.back(), Icon::exclamation);
    EXPECT_EQ(t.log_lines(), log);
    EXPECT_EQ(t.app.journal().undo.count, 0);
    EXPECT_EQ(tree().count(), 3);
}

TEST_F(AddDeviceTest, CountLimits126PagesPass127AreRefused)
{
    add_devices(126);
    EXPECT_EQ(count_allpages(tree()), 127);
    t.take_lines();
    AddDevice(t.app, add_ordinary);
    EXPECT_TRUE(t.take_lines().empty());
    EXPECT_EQ(device_count(config()), 127);
    // The 126th and 127th devices share HOME page 26: no further row is needed.
    EXPECT_EQ(config().device_table[0].page_count, 26);
    EXPECT_EQ(config().page_table[25].key_count, 3);
    EXPECT_EQ(count_allpages(tree()), 128);
    const auto log = t.log_lines();
    AddDevice(t.app, add_ordinary);
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{"message \"Kelvarzo Tesselo 3\" \"Exceed Devices or Exceed Pages\""}));
    EXPECT_EQ(t.log_lines(), log);
    EXPECT_EQ(device_count(config()), 127);
}

TEST_F(AddDeviceTest, ThePreviousDevicesBlasterSettingIsInherited)
{
    add_devices(1);
    config().device_extra[1].option_b = 0x37;
    add_devices(1);
    EXPECT_EQ(config().device_extra[2].option_b, 0x07);
}

TEST_F(AddDeviceTest, APasteAddIsNotJournalledAndTakesTheClipboardsNameWithoutAPage)
{
    KeyLabel name;
    name.bytes = {3, 20, 22, 75, 0, 0, 0, 0, 0, 0};
    AddDevice(t.app, add_device_paste, &name);
    EXPECT_EQ(t.app.journal().undo.count, 0);
    EXPECT_EQ(tree().node(tree().find("DEVICE11")).text, "TV=");
    EXPECT_EQ(config().device_name_table[1].name, name);
    EXPECT_EQ(config().softkey_labels[0], name);
    EXPECT_EQ(tree().find("DEVICE11\\PAGE1"), 0);
    EXPECT_EQ(t.log_lines().back(), "\"Add device DEVICE1 - Untitled1\"");
}

TEST(AllocDeviceNumber, TakesTheFirstFreeFlagAnd129WhenAllAreSet)
{
    auto c = std::make_unique<Configuration>();
    c->device_numbers_used[0] = 1;
    EXPECT_EQ(alloc_devicenumber(*c), 2);
    EXPECT_EQ(c->device_numbers_used[1], 1);
    for (int i = 0; i < 128; ++i) c->device_numbers_used[static_cast<std::size_t>(i)] = 1;
    EXPECT_EQ(alloc_devicenumber(*c), 129);
    EXPECT_EQ(c->device_numbers_used[128], 0);
}

TEST(FindFreePageSlot, TheFirstRowWithAnEmptyKeyAnd128WhenNone)
{
    auto c = std::make_unique<Configuration>();
    c->device_pages[0].node_key = "x";
    EXPECT_EQ(find_freepageslot(*c), 1);
    for (auto& page : c->device_pages) page.node_key = "x";
    EXPECT_EQ(find_freepageslot(*c), 128);
}

TEST_F(AddPageTest, PagesTakeTheLowestFreeNumberAndStandLast)
{
    add_devices(2);
    select("DEVICE11");
    addpage(t.app, add_ordinary);
    addpage(t.app, add_ordinary);
    remove_page(1, 1);  // PAGE2 goes: the pages are numbered 1 and 3
    select("DEVICE11\\PAGE3");
    addpage(t.app, add_ordinary);
    const int device = tree().find("DEVICE11");
    EXPECT_EQ(tree().node(tree().last_child(device)).key, "DEVICE11\\PAGE2");
    const Configuration& c = config();
    EXPECT_EQ(c.device_table[1].page_count, 3);
    EXPECT_EQ(c.device_table[1].visible_pages, 3);
    EXPECT_EQ(c.page_table[1].node_key, "DEVICE11\\PAGE1");
    EXPECT_EQ(c.page_table[2].node_key, "DEVICE11\\PAGE3");
    EXPECT_EQ(c.page_table[3].node_key, "DEVICE11\\PAGE2");
    EXPECT_EQ(c.page_table[3].key_count, 1);
    EXPECT_EQ(c.page_table[4].node_key, "DEVICE21\\PAGE1");
    bool row_found = false;
    for (const auto& page : c.device_pages)
        if (page.node_key == "DEVICE11\\PAGE2") {
            row_found = true;
            EXPECT_EQ(page.slots[0].label_index, 65535);
            EXPECT_EQ(page.slots[0].action_list, 65535);
        }
    EXPECT_TRUE(row_found);
    EXPECT_EQ(t.log_lines().back(), "\"Add page - DEVICE1/PAGE2 - Untitled1\"");
}

TEST_F(AddPageTest, ADeviceWithAllPagesHiddenGetsAVisiblePageAndItsHomeKeyJumpsThere)
{
    add_devices(2);
    Configuration& c = config();
    c.page_table[2].hidden = 255;  // DEVICE21's only page
    c.device_table[2].visible_pages = 0;
    tree().node(tree().find("DEVICE21\\PAGE1")).image = image_hidden_page;
    select("DEVICE21");
    addpage(t.app, add_ordinary);
    const auto& list = c.action_lists.entries[static_cast<std::size_t>(c.home_pages[0].slots[2].action_list)];
    const ActionStep& jump = c.action_steps.steps[static_cast<std::size_t>(list.first_step)];
    EXPECT_EQ(jump.param_low, 2);
    EXPECT_EQ(jump.param_high, 1);
    EXPECT_EQ(c.page_table[3].node_key, "DEVICE21\\PAGE2");
    EXPECT_EQ(c.page_table[3].hidden, 0);
    EXPECT_EQ(c.device_table[2].visible_pages, 1);
}

TEST_F(AddPageTest, OnHomeTheStartLineIsLoggedAloneAndNothingChanges)
{
    add_devices(1);
    select("HOME1\\PAGE1");
    const int nodes = tree().count();
    addpage(t.app, add_ordinary);
    EXPECT_TRUE(t.take_lines().empty());
    EXPECT_EQ(tree().count(), nodes);
    EXPECT_EQ(t.log_lines().back(), "\"add page(start) Untitled1\"");
    select("HOME1");
    addpage(t.app, add_ordinary);
    EXPECT_EQ(tree().count(), nodes);
}

TEST_F(AddPageTest, OpenPageWindowsOfTheDeviceCountTheNewTotal)
{
    add_devices(1);
    ASSERT_TRUE(open_page(t.app, slot, tree().find("DEVICE11\\PAGE1")));
    EXPECT_EQ(t.app.page_windows().all()[0].pagelabel, "001/001");
    select("DEVICE11\\PAGE1");
    addpage(t.app, add_ordinary);
    EXPECT_EQ(t.app.page_windows().all()[0].pagelabel, "001/002");
}

TEST_F(AddPageTest, PasteModeAddsToTheLastDeviceWithoutASnapshot)
{
    add_devices(2);
    const int snapshots = t.app.journal().undo.count;
    select("HOME1");
    addpage(t.app, add_page_paste);
    EXPECT_EQ(t.app.journal().undo.count, snapshots);
    EXPECT_NE(tree().find("DEVICE21\\PAGE2"), 0);
}

TEST_F(AddPageTest, With127PagesOnDevicesAPageIsRefused)
{
    add_devices(1);
    select("DEVICE11");
    for (int i = 0; i < 126; ++i) addpage(t.app, add_ordinary);
    EXPECT_EQ(count_allpages(tree()), 128);
    t.take_lines();
    const auto log = t.log_lines();
    addpage(t.app, add_ordinary);
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{"message \"Kelvarzo Tesselo 3\" \"Exceed Devices or Exceed Pages\""}));
    EXPECT_EQ(t.log_lines(), log);
    EXPECT_EQ(config().device_table[1].page_count, 127);
}

}  // namespace
}  // namespace tesselo
