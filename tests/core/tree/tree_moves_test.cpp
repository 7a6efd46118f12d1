// Moving, hiding and dragging devices and pages in the tree.
#include "core/keys/key_clipboard_document.h"
#include "core/tree/device_clipboard.h"
#include "core/tree/hiding.h"
#include "core/tree/popup_menu.h"
#include "core/tree/tree_drag.h"
#include "core/tree/tree_moves.h"
#include "tree_invariants.h"

namespace tesselo::testing {
namespace {

struct TreeMoves : ClipDocument {
    Configuration& cfg(int slot = 0) { return t.app.config(slot); }
    const ActionStep& home_jump(const std::string& device)
    {
        for (const auto& home : cfg().home_pages)
            for (int s = 1; s < softkeys_per_page; ++s)
                if (home.node_key[static_cast<std::size_t>(s)] == device)
                    return cfg().action_steps.steps[static_cast<std::size_t>(
                        cfg().action_lists.entries[static_cast<std::size_t>(home.slots[static_cast<std::size_t>(s)].action_list)]
                            .first_step)];
        static ActionStep none;
        ADD_FAILURE() << device;
        return none;
    }
    void add_page_to(const std::string& device)
    {
        select(device);
        addpage(t.app, add_ordinary);
    }
    std::vector<std::string> root_keys()
    {
        std::vector<std::string> keys;
        for (int r : t.app.tree(0).roots()) keys.push_back(t.app.tree(0).node(r).key);
        return keys;
    }
    std::vector<std::string> child_keys(const std::string& key)
    {
        std::vector<std::string> keys;
        const TreeModel& tree = t.app.tree(0);
        for (int c : tree.node(tree.find(key)).children) keys.push_back(tree.node(c).key);
        return keys;
    }
};

TEST_F(TreeMoves, ADeviceMovedUpKeepsItsNumberKeyPagesAndHardKeysAndJumpsToItStillArrive)
{
    add_page_to("DEVICE21");
    // DEVICE2's hard key under picture 33 (key 33) has a delay; a key of DEVICE1 jumps to DEVICE2's second page.
    click_key(page2, 33);
    add_plain(page2, step_delay, 7);
    click_key(page1, 3);
    add_plain(page1, step_jump, 2 + 256);  // device 2, place 1
    auto& jump = cfg().action_steps.steps[static_cast<std::size_t>(steps_of_list(cfg(), key_action_list(cfg(), soft_place(cfg(), page1, 0)))[0])];
    select("DEVICE21");
    ASSERT_TRUE(Move_treeviewup(t.app));
    EXPECT_EQ(root_keys(), (std::vector<std::string>{"HOME1", "DEVICE21", "DEVICE11"}));
    EXPECT_EQ(child_keys("DEVICE21"), (std::vector<std::string>{"DEVICE21PROPERTIES", "DEVICE21\\PAGE1", "DEVICE21\\PAGE2"}));
    EXPECT_EQ(cfg().device_name_table[1].node_key, "DEVICE21");
    EXPECT_EQ(cfg().device_table[1].page_count, 2);
    EXPECT_EQ(cfg().page_table[1].node_key, "DEVICE21\\PAGE1");
    EXPECT_EQ(cfg().page_table[3].node_key, "DEVICE11\\PAGE1");
    // The hard keys went with it: row 1's block now holds the delay.
    EXPECT_NE(cfg().hardkeys[static_cast<std::size_t>(1 * 41 + 33)].action_list, no_index);
    EXPECT_EQ(cfg().hardkeys[static_cast<std::size_t>(2 * 41 + 33)].action_list, no_index);
    // The jump into it follows its row, and its HOME key jumps to it still.
    EXPECT_EQ(jump.param_low, 1);
    EXPECT_EQ(jump.param_high, 1);
    EXPECT_EQ(home_jump("DEVICE21").param_low, 1);
    EXPECT_EQ(home_jump("DEVICE11").param_low, 2);
    // The HOME keys changed names, but the grid stayed.
    EXPECT_EQ(cfg().home_pages[0].node_key[1], "DEVICE21");
    EXPECT_EQ(cfg().home_pages[0].slots[1].position, 1);
    EXPECT_EQ(t.log_lines().back(), "\"move DEVICE2 up - Untitled1\"");
    EXPECT_EQ(t.app.tree(0).node(t.app.tree(0).selected()).key, "DEVICE21");
    expect_invariants(t.app, 0);
}

TEST_F(TreeMoves, MovingTheFirstPageDownTakesTheHomeKeysJumpAlong)
{
    add_page_to("DEVICE11");
    ASSERT_EQ(home_jump("DEVICE11").param_high, 0);
    select("DEVICE11\\PAGE1");
    ASSERT_TRUE(Move_treeviewdown(t.app));
    EXPECT_EQ(child_keys("DEVICE11"), (std::vector<std::string>{"DEVICE11PROPERTIES", "DEVICE11\\PAGE2", "DEVICE11\\PAGE1"}));
    EXPECT_EQ(cfg().page_table[1].node_key, "DEVICE11\\PAGE2");
    EXPECT_EQ(home_jump("DEVICE11").param_high, 1);
    EXPECT_EQ(t.log_lines().back(), "\"move PAGE1 down - Untitled1\"");
    expect_invariants(t.app, 0);
}

TEST_F(TreeMoves, APageNeverMovesAboveThePropertiesNode)
{
    add_page_to("DEVICE11");
    select("DEVICE11\\PAGE1");
    const auto before = t.app.journal().undo.count;
    EXPECT_FALSE(Move_treeviewup(t.app));
    EXPECT_EQ(t.app.journal().undo.count, before);
    EXPECT_EQ(child_keys("DEVICE11").front(), "DEVICE11PROPERTIES");
    tree_key_down(t.app, TreeShortcut::ctrl_up);
    EXPECT_EQ(child_keys("DEVICE11").front(), "DEVICE11PROPERTIES");
    for (const PopupItem& item : build_popup(t.app, 0))
        if (item.key == "Move Up") EXPECT_EQ(item.state, popup_greyed);
    // Nor does the first device go above HOME, nor the last down.
    select("DEVICE11");
    EXPECT_FALSE(Move_treeviewup(t.app));
    select("DEVICE21");
    EXPECT_FALSE(Move_treeviewdown(t.app));
    tree_key_down(t.app, TreeShortcut::ctrl_up);
    EXPECT_EQ(root_keys(), (std::vector<std::string>{"HOME1", "DEVICE21", "DEVICE11"}));
}

TEST_F(TreeMoves, HidingEveryPageLeavesTheHomeJumpAndALaterNewPageTakesOver)
{
    add_page_to("DEVICE11");
    select("DEVICE11\\PAGE2");
    ASSERT_TRUE(hide_page(t.app));
    EXPECT_EQ(t.log_lines().back(), "\"hide page - DEVICE1/[PAGE2] - Untitled1\"");
    select("DEVICE11\\PAGE1");
    ASSERT_TRUE(hide_page(t.app));
    // The first page is hidden now: the jump went to the second, then stayed.
    EXPECT_EQ(cfg().device_table[1].visible_pages, 0);
    EXPECT_EQ(home_jump("DEVICE11").param_high, 0);
    EXPECT_EQ(node_text("DEVICE11\\PAGE1"), "[PAGE1]");
    EXPECT_EQ(t.app.tree(0).node(t.app.tree(0).find("DEVICE11\\PAGE1")).image, "hide tv");
    add_page_to("DEVICE11");
    EXPECT_EQ(home_jump("DEVICE11").param_high, 2);
    expect_invariants(t.app, 0);
    select("DEVICE11\\PAGE1");
    ASSERT_TRUE(hide_page(t.app));
    EXPECT_EQ(t.log_lines().back(), "\"unhide page - DEVICE1/PAGE1 - Untitled1\"");
    EXPECT_EQ(home_jump("DEVICE11").param_high, 0);
    expect_invariants(t.app, 0);
}

TEST_F(TreeMoves, AHiddenDeviceStaysHiddenAfterMovesAndUndoAndABracketedNameLosesOneCharacterEachEnd)
{
    select("DEVICE11");
    ASSERT_TRUE(hide_device(t.app));
    auto log = t.log_lines();
    EXPECT_EQ(log[log.size() - 2], "\"hide device(start) 0\"");
    EXPECT_EQ(log.back(), "\"hide device - [DEVICE1] - Untitled1\"");
    EXPECT_EQ(node_text("DEVICE11"), "[DEVICE1]");
    EXPECT_EQ(cfg().device_table[1].hidden, 255);
    EXPECT_EQ(cfg().home_pages[0].slots[1].key_state, 128);
    select("DEVICE11");
    ASSERT_TRUE(Move_treeviewdown(t.app));
    EXPECT_EQ(cfg().device_table[2].hidden, 255);
    EXPECT_EQ(t.app.tree(0).node(t.app.tree(0).find("DEVICE11")).image, "hide device");
    expect_invariants(t.app, 0);
    muUndo_Click(t.app);
    EXPECT_EQ(cfg().device_table[1].hidden, 255);
    EXPECT_EQ(node_text("DEVICE11"), "[DEVICE1]");
    expect_invariants(t.app, 0);
    // A name that itself begins with "[" is cut by one character at each end.
    t.app.tree(0).node(t.app.tree(0).find("DEVICE11")).text = "[[TV]]";
    select("DEVICE11");
    ASSERT_TRUE(hide_device(t.app));
    EXPECT_EQ(node_text("DEVICE11"), "[TV]");
    EXPECT_EQ(t.log_lines().back(), "\"unhide device - [TV] - Untitled1\"");
    EXPECT_EQ(cfg().home_pages[0].slots[1].key_state, 0);
}

TEST_F(TreeMoves, DraggingADeviceOnItselfCopiesItToTheEnd)
{
    const int source = t.app.tree(0).find("DEVICE11");
    ASSERT_TRUE(drag_treeview(t.app, 0, source, 0, source));
    EXPECT_EQ(root_keys(), (std::vector<std::string>{"HOME1", "DEVICE11", "DEVICE21", "DEVICE31"}));
    EXPECT_EQ(node_text("DEVICE31"), "DEVICE1");
    const auto log = t.log_lines();
    EXPECT_EQ(log.back(), "\"Drag treeview(device) DEVICE1 - Untitled1\"");
    EXPECT_NE(std::find(log.begin(), log.end(), "\"Drag treeview(device) (start) - Untitled1\""), log.end());
    expect_invariants(t.app, 0);
}

TEST_F(TreeMoves, APageDraggedOntoAnotherDocumentsDeviceIsCopiedThereAndHomeRefusesADrop)
{
    ASSERT_EQ(muNew(t.app), 1);
    AddDevice(t.app, add_ordinary);
    const int page = t.app.tree(0).find(page1);
    EXPECT_FALSE(tree_drop_allowed(t.app, 1, t.app.tree(1).find("HOME2")));
    EXPECT_FALSE(drag_treeview(t.app, 0, page, 1, t.app.tree(1).find("HOME2\\PAGE1")));
    ASSERT_TRUE(drag_treeview(t.app, 0, page, 1, t.app.tree(1).find("DEVICE12")));
    EXPECT_NE(t.app.tree(1).find("DEVICE12\\PAGE2"), 0);
    EXPECT_EQ(t.app.active()->slot, 1);
    EXPECT_EQ(t.log_lines().back(), "\"Drag treeview(page) PAGE1 - Untitled2\"");
    // The source is untouched: a dragged page is copied, not moved.
    EXPECT_NE(t.app.tree(0).find(page1), 0);
    expect_invariants(t.app, 0);
    expect_invariants(t.app, 1);
    // HOME itself does not drag.
    EXPECT_FALSE(drag_treeview(t.app, 1, 1, 1, t.app.tree(1).find("DEVICE12")));
}

}  // namespace
}  // namespace tesselo::testing
