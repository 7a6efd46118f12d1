#include "tree_fixture.h"

#include "core/image/image_reader.h"
#include "core/image/image_writer.h"
#include "core/tree/page_windows.h"
#include "core/tree/selection.h"

namespace tesselo {
namespace {

using TreeViewTest = testing::TreeTest;

TEST_F(TreeViewTest, ADocumentWithNoDeviceShowsHomeWithItsPropertiesAndPage1Alone)
{
    addtotreeview(t.app, slot);
    EXPECT_EQ(keys(), (std::vector<std::string>{"HOME1", "HOME1PROPERTIES", "HOME1\\PAGE1"}));
    EXPECT_EQ(tree().node(1).text, "HOME");
    EXPECT_EQ(tree().node(1).image, "home");
    EXPECT_EQ(tree().node(2).text, "PROPERTIES");
    EXPECT_EQ(tree().node(2).image, "properties");
    EXPECT_EQ(tree().node(3).text, "PAGE1");
    EXPECT_EQ(tree().node(3).image, "tv");
}

TEST_F(TreeViewTest, AfterAReloadTheDeviceNumbered5InRow2IsNumbered2)
{
    add_devices(5);
    remove_device(2);
    remove_device(2);
    remove_device(2);  // rows: DEVICE1, DEVICE5
    // The user named device 5 "TV".
    KeyLabel tv;
    tv.bytes = {2, 20, 22, 0, 0, 0, 0, 0, 0, 0};
    config().device_name_table[2].name = tv;
    ASSERT_EQ(config().device_name_table[2].node_key, "DEVICE51");
    auto image = build_image(config());
    ASSERT_FALSE(image.empty());
    auto loaded = load_image(image, slot);
    config() = *loaded;
    addtotreeview(t.app, slot);
    EXPECT_EQ(config().device_name_table[2].node_key, "DEVICE21");
    EXPECT_EQ(tree().node(tree().find("DEVICE21")).text, "TV");
    EXPECT_EQ(config().device_numbers_used[1], 1);
    EXPECT_EQ(config().device_numbers_used[4], 0);
    EXPECT_EQ(config().home_pages[0].node_key[2], "DEVICE21");
}

TEST_F(TreeViewTest, HiddenDevicesAndPagesGetTheirImagesAndPagesAreNumberedAnew)
{
    add_devices(2);
    config().device_table[2].hidden = 255;
    config().page_table[1].hidden = 255;
    addtotreeview(t.app, slot);
    EXPECT_EQ(tree().node(tree().find("DEVICE21")).image, "hide device");
    EXPECT_EQ(tree().node(tree().find("DEVICE11\\PAGE1")).image, "hide tv");
    EXPECT_FALSE(tree().node(tree().find("DEVICE11")).expanded);
}

TEST_F(TreeViewTest, AClickRecordsTheSelectionAndFillsThePanel)
{
    add_devices(1);
    select("DEVICE11");
    TreeSelection& s = t.app.selection();
    EXPECT_EQ(s.node_key, "DEVICE11");
    EXPECT_EQ(s.image, "device");
    EXPECT_EQ(s.slot, 0);
    EXPECT_EQ(s.panel, TreeSelection::Panel::device);
    EXPECT_EQ(s.panel_device_row, 1);
    EXPECT_EQ(s.panel_text, "DEVICE1");
    select("DEVICE11PROPERTIES");
    EXPECT_EQ(s.panel, TreeSelection::Panel::device);
    EXPECT_EQ(s.panel_device_row, 1);
    select("HOME1");
    EXPECT_EQ(s.panel, TreeSelection::Panel::home);
    select("DEVICE11\\PAGE1");
    EXPECT_EQ(s.panel, TreeSelection::Panel::page);
}

TEST_F(TreeViewTest, The46thPageWindowIsRefusedWithOutOfMemory)
{
    add_devices(1);
    select("DEVICE11");
    for (int i = 0; i < 45; ++i) addpage(t.app, add_ordinary);
    const int device = tree().find("DEVICE11");
    for (int child : std::vector<int>(tree().node(device).children))
        if (tree().node(child).image == "tv" && t.app.page_windows().all().size() < 45) open_page(t.app, slot, child);
    ASSERT_EQ(t.app.page_windows().all().size(), 45u);
    t.take_lines();
    EXPECT_FALSE(open_page(t.app, slot, tree().last_child(device)));
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{"message \"Kelvaro Tesselo 3\" \"Out of Memory\""}));
    EXPECT_EQ(t.app.page_windows().all()[9].pagelabel, "010/046");
}

TEST_F(TreeViewTest, OpeningAPageWritesItsLogLine)
{
    add_devices(1);
    open_page(t.app, slot, tree().find("DEVICE11\\PAGE1"));
    EXPECT_EQ(t.log_lines().back(), "\"Open page PAGE1/DEVICE1-DEVICE11\\PAGE1\"");
}

TEST_F(TreeViewTest, TreesOfTwoDocumentsHoldTheirOwnKeys)
{
    ASSERT_EQ(muNew(t.app), 1);
    add_devices(1);
    EXPECT_NE(t.app.tree(1).find("DEVICE12"), 0);
    EXPECT_EQ(t.app.tree(0).find("DEVICE12"), 0);
    EXPECT_EQ(t.app.tree(1).node(1).key, "HOME2");
}

}  // namespace
}  // namespace tesselo
