#include "tree_fixture.h"

#include "core/tree/edit_state.h"
#include "core/tree/page_windows.h"
#include "core/tree/selection.h"

namespace tesselo {
namespace {

using JournalTest = testing::TreeTest;

// Tells what the views were told.
struct Recorder : ApplicationListener {
    std::vector<std::string> events;
    void page_window_closed(int slot, const std::string& caption) override
    {
        events.push_back("closed " + std::to_string(slot) + " " + caption);
    }
    void page_window_changed(int slot, const std::string& caption) override
    {
        events.push_back("changed " + std::to_string(slot) + " " + caption);
    }
    void tree_changed(int slot) override { events.push_back("tree " + std::to_string(slot)); }
    void edit_states_changed() override { events.push_back("states"); }
};

TEST_F(JournalTest, TheSixthEditLeavesFiveSlotsAndFiveUndosReachTheStateAfterTheFirst)
{
    std::vector<std::vector<std::string>> states;
    for (int i = 0; i < 6; ++i) {
        AddDevice(t.app, add_ordinary);
        states.push_back(keys());
    }
    EXPECT_EQ(t.app.journal().undo.count, 5);
    for (int i = 0; i < 5; ++i) muUndo_Click(t.app);
    EXPECT_EQ(keys(), states[0]);
    EXPECT_EQ(device_count(config()), 1);
    EXPECT_FALSE(t.app.edit_state().undo_button);
    EXPECT_TRUE(t.app.edit_state().undo_menu);
    // A sixth undo does nothing but disable the entry.
    const auto log = t.log_lines();
    muUndo_Click(t.app);
    EXPECT_FALSE(t.app.edit_state().undo_menu);
    EXPECT_EQ(keys(), states[0]);
    EXPECT_EQ(t.log_lines(), log);
}

TEST_F(JournalTest, UndoGoesBackThroughTwoDocumentsWhicheverWindowIsActive)
{
    ASSERT_EQ(muNew(t.app), 1);
    t.app.activate(0);
    AddDevice(t.app, add_ordinary);  // document slot 0
    t.app.activate(1);
    AddDevice(t.app, add_ordinary);  // document slot 1
    AddDevice(t.app, add_ordinary);
    t.app.activate(0);
    AddDevice(t.app, add_ordinary);
    // The active window is slot 0 throughout the undos.
    muUndo_Click(t.app);
    EXPECT_EQ(device_count(t.app.config(0)), 1);
    EXPECT_EQ(device_count(t.app.config(1)), 2);
    muUndo_Click(t.app);
    EXPECT_EQ(device_count(t.app.config(1)), 1);
    muUndo_Click(t.app);
    EXPECT_EQ(device_count(t.app.config(1)), 0);
    EXPECT_EQ(t.app.tree(1).count(), 3);
    muUndo_Click(t.app);
    EXPECT_EQ(device_count(t.app.config(0)), 0);
    // Redo goes forward through both again, in order.
    muRedo_Click(t.app);
    EXPECT_EQ(device_count(t.app.config(0)), 1);
    muRedo_Click(t.app);
    EXPECT_EQ(device_count(t.app.config(1)), 1);
    EXPECT_EQ(device_count(t.app.config(0)), 1);
}

TEST_F(JournalTest, UndoThenANewEditEmptiesRedoAndDisablesIt)
{
    add_devices(2);
    muUndo_Click(t.app);
    EXPECT_EQ(t.app.journal().redo.count, 1);
    EXPECT_TRUE(t.app.edit_state().redo_button);
    AddDevice(t.app, add_ordinary);
    EXPECT_EQ(t.app.journal().redo.count, 0);
    EXPECT_FALSE(t.app.edit_state().redo_button);
    muRedo_Click(t.app);
    EXPECT_FALSE(t.app.edit_state().redo_menu);
}

TEST_F(JournalTest, UndoOfADeviceAdditionClosesItsPageWindowsAndFreesItsNumber)
{
    add_devices(1);
    ASSERT_TRUE(open_page(t.app, slot, tree().find("HOME1\\PAGE1")));
    AddDevice(t.app, add_ordinary);
    select("DEVICE21");
    addpage(t.app, add_ordinary);
    ASSERT_TRUE(open_page(t.app, slot, tree().find("DEVICE21\\PAGE1")));
    ASSERT_TRUE(open_page(t.app, slot, tree().find("DEVICE21\\PAGE2")));
    ASSERT_TRUE(open_page(t.app, slot, tree().find("DEVICE11\\PAGE1")));
    EXPECT_EQ(t.app.page_windows().all()[2].pagelabel, "002/002");
    Recorder views;
    t.app.add_listener(&views);
    muUndo_Click(t.app);  // the page goes
    EXPECT_NE(std::find(views.events.begin(), views.events.end(), "closed 0 DEVICE21\\PAGE2"), views.events.end());
    muUndo_Click(t.app);  // the device goes
    t.app.remove_listener(&views);
    ASSERT_EQ(t.app.page_windows().all().size(), 2u);
    EXPECT_EQ(t.app.page_windows().all()[0].caption, "HOME1\\PAGE1");
    EXPECT_EQ(t.app.page_windows().all()[1].caption, "DEVICE11\\PAGE1");
    EXPECT_NE(std::find(views.events.begin(), views.events.end(), "closed 0 DEVICE21\\PAGE1"), views.events.end());
    EXPECT_NE(std::find(views.events.begin(), views.events.end(), "changed 0 HOME1\\PAGE1"), views.events.end());
    EXPECT_EQ(config().device_numbers_used[1], 0);
    AddDevice(t.app, add_ordinary);
    EXPECT_EQ(config().device_name_table[2].node_key, "DEVICE21");
}

TEST_F(JournalTest, UndoThenRedoGivesTheSameKeysAsBeforeTheUndo)
{
    add_devices(3);
    remove_device(2);  // the numbers are now 1 and 3
    select("DEVICE31");
    addpage(t.app, add_ordinary);
    const auto before = keys();
    muUndo_Click(t.app);
    EXPECT_NE(keys(), before);
    muRedo_Click(t.app);
    EXPECT_EQ(keys(), before);
    EXPECT_EQ(tree().node(tree().find("DEVICE31\\PAGE2")).text, "PAGE2");
    EXPECT_EQ(config().device_name_table[2].node_index, tree().find("DEVICE31"));
    EXPECT_EQ(config().page_table[3].node_index, tree().find("DEVICE31\\PAGE2"));
}

TEST_F(JournalTest, UndoEmptiesTheClipboardAlsoOneFilledFromAnotherDocument)
{
    add_devices(1);
    ASSERT_EQ(muNew(t.app), 1);
    t.app.edit_state().clipboard_kind = 2;
    t.app.edit_state().paste_state = 1;
    t.app.edit_state().paste_button = true;
    muUndo_Click(t.app);
    EXPECT_EQ(t.app.edit_state().clipboard_kind, 0);
    EXPECT_EQ(t.app.edit_state().paste_state, 0);
    EXPECT_FALSE(t.app.edit_state().paste_button);
}

TEST_F(JournalTest, UndoAndRedoWriteTheirLogLines)
{
    add_devices(1);
    muUndo_Click(t.app);
    muRedo_Click(t.app);
    const auto log = t.log_lines();
    ASSERT_GE(log.size(), 4u);
    EXPECT_EQ(std::vector<std::string>(log.end() - 4, log.end()),
              (std::vector<std::string>{"\"undo(start) - Untitled1\"", "\"undo - Untitled1\"", "\"redo(start) - Untitled1\"",
                                        "\"redo - Untitled1\""}));
}

TEST_F(JournalTest, AClosedDocumentsSnapshotsGoAndNeverReachTheDocumentThatTakesItsSlot)
{
    add_devices(2);
    muUndo_Click(t.app);  // one snapshot on each side
    ASSERT_EQ(t.app.journal().undo.count, 1);
    ASSERT_EQ(t.app.journal().redo.count, 1);
    t.ui.queue_answer("no");
    ASSERT_TRUE(close_document(t.app, 0));
    EXPECT_EQ(t.app.journal().undo.count, 0);
    EXPECT_EQ(t.app.journal().redo.count, 0);
    // With no document open both are greyed.
    EXPECT_FALSE(undo_enabled(t.app));
    EXPECT_FALSE(redo_enabled(t.app));

    // The next document takes the slot; Undo and Redo leave it as it is.
    ASSERT_EQ(muNew(t.app), 0);
    EXPECT_FALSE(undo_enabled(t.app));
    EXPECT_FALSE(redo_enabled(t.app));
    muUndo_Click(t.app);
    muRedo_Click(t.app);
    EXPECT_EQ(device_count(t.app.config(0)), 0);
    EXPECT_EQ(t.app.config(0).page_table[0].node_key, "HOME1\\PAGE1");
}

TEST_F(JournalTest, ClosingOneDocumentKeepsTheOthersSnapshotsInTheirOrder)
{
    ASSERT_EQ(muNew(t.app), 1);
    t.app.activate(0);
    AddDevice(t.app, add_ordinary);  // slot 0
    t.app.activate(1);
    AddDevice(t.app, add_ordinary);  // slot 1
    t.app.activate(0);
    AddDevice(t.app, add_ordinary);  // slot 0
    t.app.activate(1);
    AddDevice(t.app, add_ordinary);  // slot 1
    ASSERT_EQ(t.app.journal().undo.count, 4);
    t.ui.queue_answer("no");
    ASSERT_TRUE(close_document(t.app, 0));
    const Journal& j = t.app.journal();
    ASSERT_EQ(j.undo.count, 2);
    EXPECT_EQ(j.undo.document[0], 1);
    EXPECT_EQ(j.undo.document[1], 1);
    EXPECT_TRUE(undo_enabled(t.app));
    muUndo_Click(t.app);
    EXPECT_EQ(device_count(t.app.config(1)), 1);
    muUndo_Click(t.app);
    EXPECT_EQ(device_count(t.app.config(1)), 0);
    EXPECT_FALSE(undo_enabled(t.app));
    EXPECT_TRUE(redo_enabled(t.app));
}

TEST_F(JournalTest, ARefusedCloseKeepsTheDocumentsSnapshots)
{
    add_devices(1);
    t.ui.queue_answer("cancel");
    EXPECT_FALSE(close_document(t.app, 0));
    EXPECT_EQ(t.app.journal().undo.count, 1);
    EXPECT_TRUE(undo_enabled(t.app));
}

TEST_F(JournalTest, UndoSelectsTheSameNodeByItsKeyWhereItStillExists)
{
    add_devices(3);
    select("DEVICE21");
    ASSERT_TRUE(cut_devicepage(t.app, cut_mode_delete));
    select("DEVICE31");
    const int before = tree().selected();
    // DEVICE21's nodes come back in front of DEVICE31's: the index now names
    // another node.
    muUndo_Click(t.app);
    ASSERT_NE(tree().find("DEVICE21"), 0);
    ASSERT_NE(tree().find("DEVICE31"), before);
    EXPECT_EQ(tree().node(tree().selected()).key, "DEVICE31");
    EXPECT_EQ(t.app.selection().node_key, "DEVICE31");
}

TEST_F(JournalTest, ASnapshotKeepsTheLearnedKeyNumbersOfTheDocument)
{
    add_devices(1);
    config().learning_keys[3] = 77;
    muUndo_Click(t.app);
    EXPECT_EQ(config().learning_keys[3], 77);
}

}  // namespace
}  // namespace tesselo
