#include "tree_fixture.h"

#include "core/tree/edit_state.h"
#include "core/tree/page_windows.h"
#include "core/tree/popup_menu.h"
#include "core/tree/tree_commands.h"

namespace tesselo {
namespace {

struct PopupTest : testing::TreeTest {
    std::vector<std::string> ran;

    // Installs every operation that comes from elsewhere, recording its calls.
    void install_all()
    {
        TreeCommands& c = t.app.tree_commands();
        const auto rec = [this](const char* name) { return [this, name](Application&) { ran.push_back(name); }; };
        c.move_up = rec("move_up");
        c.move_down = rec("move_down");
        c.hide_device = rec("hide_device");
        c.hide_page = rec("hide_page");
        c.cut = rec("cut");
        c.remove = rec("delete");
        c.copy = rec("copy");
        c.paste = rec("paste");
        c.label = rec("label");
    }
    // key|caption|type|state of each item.
    std::vector<std::string> menu()
    {
        std::vector<std::string> out;
        for (const auto& i : build_popup(t.app, slot))
            out.push_back(i.key + "|" + i.caption + "|" + std::to_string(i.type) + "|" + std::to_string(i.state));
        return out;
    }
};

const std::string div = "||2048|0";

TEST_F(PopupTest, HomeNode)
{
    select("HOME1");
    EXPECT_EQ(menu(), (std::vector<std::string>{"Add Device|Add Device  ALT-D|0|0", div, "Add Page|Add Page    ALT-P|0|3"}));
}

TEST_F(PopupTest, HomePage)
{
    select("HOME1\\PAGE1");
    EXPECT_EQ(menu(), (std::vector<std::string>{"Open Page|Open Page|0|0", div, "Add Device|Add Device  ALT-D|0|0", div,
                                                "Add Page|Add Page    ALT-P|0|3"}));
}

TEST_F(PopupTest, SelectingAndRightClickingAPropertiesNodeOpensNoMenu)
{
    add_devices(1);
    select("DEVICE11PROPERTIES");
    EXPECT_TRUE(menu().empty());
    select("HOME1PROPERTIES");
    EXPECT_TRUE(menu().empty());
}

TEST_F(PopupTest, DeviceWithEveryOperationInstalled)
{
    install_all();
    add_devices(3);
    select("DEVICE21");
    EXPECT_EQ(menu(), (std::vector<std::string>{
                          "Add Device|Add Device  ALT-D|0|0", "Add Page|Add Page    ALT-P|0|0", div,
                          "Open All Pages|Open All Pages|0|0", div, "Cut|Cut|0|0", "Copy|Copy|0|0", "Paste|Paste|0|3",
                          "Delete|Delete|0|0", div, "Expand|Expand|0|3", "Collapse|Collapse|0|0", div,
                          "Move Up|Move Up      Ctrl-Up|0|0", "Move Down|Move Down  Ctrl-Down|0|0",
                          "Hide Device|Hide Device|0|0", div, "Label|Label|0|0", "Properties|Properties|0|0"}));
    // The first device cannot move up, the last not down; a hidden one is checked.
    select("DEVICE11");
    EXPECT_EQ(menu()[13], "Move Up|Move Up      Ctrl-Up|0|3");
    select("DEVICE31");
    EXPECT_EQ(menu()[14], "Move Down|Move Down  Ctrl-Down|0|3");
    tree().node(tree().find("DEVICE31")).image = "hide device";
    tree().node(tree().find("DEVICE31")).expanded = false;
    select("DEVICE31");
    EXPECT_EQ(menu()[15], "Hide Device|Hide Device|0|8");
    EXPECT_EQ(menu()[10], "Expand|Expand|0|0");
    EXPECT_EQ(menu()[11], "Collapse|Collapse|0|3");
    t.app.edit_state().paste_button = true;
    EXPECT_EQ(menu()[7], "Paste|Paste|0|0");
}

TEST_F(PopupTest, DevicePageWithEveryOperationInstalled)
{
    install_all();
    add_devices(1);
    select("DEVICE11\\PAGE1");
    EXPECT_EQ(menu(), (std::vector<std::string>{"Open Page|Open Page|0|0", div, "Add Page|Add Page    ALT-P|0|0", div,
                                                "Cut|Cut|0|0", "Copy|Copy|0|0", "Paste|Paste|0|3", "Delete|Delete|0|0", div,
                                                "Move Up|Move Up      Ctrl-Up|0|3", "Move Down|Move Down  Ctrl-Down|0|3",
                                                "Hide Page|Hide Page|0|0"}));
    addpage(t.app, add_ordinary);
    select("DEVICE11\\PAGE1");
    EXPECT_EQ(menu()[9], "Move Up|Move Up      Ctrl-Up|0|3");
    EXPECT_EQ(menu()[10], "Move Down|Move Down  Ctrl-Down|0|0");
    select("DEVICE11\\PAGE2");
    EXPECT_EQ(menu()[9], "Move Up|Move Up      Ctrl-Up|0|0");
    EXPECT_EQ(menu()[10], "Move Down|Move Down  Ctrl-Down|0|3");
    // Paste of a page needs a page in the clipboard.
    t.app.edit_state().paste_button = true;
    t.app.edit_state().clipboard_kind = 2;
    EXPECT_EQ(menu()[6], "Paste|Paste|0|3");
    t.app.edit_state().clipboard_kind = 1;
    EXPECT_EQ(menu()[6], "Paste|Paste|0|0");
    tree().node(tree().find("DEVICE11\\PAGE2")).image = "hide tv";
    select("DEVICE11\\PAGE2");
    EXPECT_EQ(menu()[11], "Hide Page|Hide Page|0|8");
}

TEST_F(PopupTest, ItemsWhoseOperationIsNotInstalledStayGreyed)
{
    add_devices(2);
    select("DEVICE21");
    // A program that leaves out the tree's clipboard, moves and hiding.
    TreeCommands& c = t.app.tree_commands();
    c.cut = c.copy = c.paste = c.remove = c.move_up = c.move_down = c.hide_device = nullptr;
    for (const auto& item : build_popup(t.app, slot)) {
        const bool elsewhere = item.key == "Cut" || item.key == "Copy" || item.key == "Paste" || item.key == "Delete" ||
                               item.key == "Move Up" || item.key == "Move Down" || item.key == "Hide Device";
        if (elsewhere) EXPECT_EQ(item.state, popup_greyed) << item.key;
        // The application itself installs the Label command.
        if (item.key == "Label") EXPECT_EQ(item.state, popup_enabled);
    }
}

TEST_F(PopupTest, ItemsDispatchByTheirKeys)
{
    install_all();
    add_devices(2);
    select("DEVICE11");
    cPopup1_ItemClick(t.app, "Add Device");
    EXPECT_NE(tree().find("DEVICE31"), 0);
    select("DEVICE11");
    cPopup1_ItemClick(t.app, "Add Page");
    EXPECT_NE(tree().find("DEVICE11\\PAGE2"), 0);
    select("DEVICE11");
    for (const char* item : {"Move Up", "Move Down", "Hide Device", "Hide Page", "Cut", "Delete", "Copy", "Paste", "Label"})
        cPopup1_ItemClick(t.app, item);
    EXPECT_EQ(ran, (std::vector<std::string>{"move_up", "move_down", "hide_device", "hide_page", "cut", "delete", "copy",
                                             "paste", "label"}));
    EXPECT_EQ(t.app.edit_state().clipboard_source, "treeview");
    cPopup1_ItemClick(t.app, "Open All Pages");
    EXPECT_EQ(t.app.page_windows().all().size(), 2u);
    cPopup1_ItemClick(t.app, "Collapse");
    EXPECT_FALSE(tree().node(tree().find("DEVICE11")).expanded);
    cPopup1_ItemClick(t.app, "Expand");
    EXPECT_TRUE(tree().node(tree().find("DEVICE11")).expanded);
    select("DEVICE21\\PAGE1");
    cPopup1_ItemClick(t.app, "Open Page");
    EXPECT_EQ(t.app.page_windows().all().size(), 3u);
}

TEST_F(PopupTest, OpenAllPagesOnHomeOrItsPropertiesOrItsPageOpensHomesPages)
{
    add_devices(1);
    for (const char* node : {"HOME1", "HOME1PROPERTIES", "HOME1\\PAGE1"}) {
        t.app.page_windows().all().clear();
        select(node);
        open_allpage(t.app);
        ASSERT_EQ(t.app.page_windows().all().size(), 1u) << node;
        EXPECT_EQ(t.app.page_windows().all()[0].caption, "HOME1\\PAGE1") << node;
    }
    // A device's properties node opens the device's pages.
    t.app.page_windows().all().clear();
    select("DEVICE11PROPERTIES");
    open_allpage(t.app);
    ASSERT_EQ(t.app.page_windows().all().size(), 1u);
    EXPECT_EQ(t.app.page_windows().all()[0].caption, "DEVICE11\\PAGE1");
}

TEST_F(PopupTest, ShortcutsRunTheSameOperationsWithTheMenusGuards)
{
    install_all();
    tree_key_down(t.app, TreeShortcut::alt_d);
    tree_key_down(t.app, TreeShortcut::alt_d);
    select("DEVICE11");
    tree_key_down(t.app, TreeShortcut::alt_p);
    EXPECT_NE(tree().find("DEVICE11\\PAGE2"), 0);
    select("DEVICE11");
    tree_key_down(t.app, TreeShortcut::ctrl_up);  // the first device: nothing
    tree_key_down(t.app, TreeShortcut::ctrl_down);
    select("DEVICE21");
    tree_key_down(t.app, TreeShortcut::ctrl_down);  // the last device: nothing
    tree_key_down(t.app, TreeShortcut::ctrl_up);
    select("DEVICE11\\PAGE1");
    tree_key_down(t.app, TreeShortcut::ctrl_up);  // no page in front: nothing
    tree_key_down(t.app, TreeShortcut::ctrl_down);
    select("DEVICE11\\PAGE2");
    tree_key_down(t.app, TreeShortcut::ctrl_down);  // the last: nothing
    tree_key_down(t.app, TreeShortcut::ctrl_up);
    EXPECT_EQ(ran, (std::vector<std::string>{"move_down", "move_up", "move_down", "move_up"}));
}

TEST_F(PopupTest, AltPOnAHomePageReachesAddPageWhichDoesNothing)
{
    select("HOME1\\PAGE1");
    tree_key_down(t.app, TreeShortcut::alt_p);
    EXPECT_EQ(tree().count(), 3);
    EXPECT_EQ(t.log_lines().back(), "\"add page(start) Untitled1\"");
}

TEST_F(PopupTest, PropertiesAsksForThePropertiesWindow)
{
    struct Views : ApplicationListener {
        int shown = 0;
        void properties_requested() override { ++shown; }
    } views;
    t.app.add_listener(&views);
    add_devices(1);
    select("DEVICE11");
    cPopup1_ItemClick(t.app, "Properties");
    t.app.remove_listener(&views);
    EXPECT_EQ(views.shown, 1);
}

}  // namespace
}  // namespace tesselo
