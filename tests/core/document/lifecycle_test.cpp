#include <gtest/gtest.h>

#include <filesystem>

#include "core/document/lifecycle.h"
#include "core/document/log.h"
#include "core/keys/step_commands.h"
#include "core/tree/selection.h"
#include "core/tree/tree_model.h"
#include "core/tree/tree_view.h"
#include "support/test_app.h"

namespace tesselo {
namespace {

using testing::read_bytes;
using testing::RecordingApp;

TEST(MuNew, TakesTheFirstFreeSlotWithAnUntitledTitle)
{
    RecordingApp t;
    EXPECT_EQ(muNew(t.app), 0);
    EXPECT_EQ(muNew(t.app), 1);
    EXPECT_EQ(t.app.documents()[0].title, "Untitled1");
    EXPECT_EQ(t.app.documents()[1].title, "Untitled2");
    EXPECT_EQ(t.app.documents()[1].slot, 1);
    EXPECT_EQ(t.app.slot_in_use[0], 1);
    EXPECT_EQ(t.app.slot_in_use[1], 1);
    EXPECT_EQ(t.app.slot_in_use[2], 0);
    EXPECT_EQ(t.app.active_document(), 1);
    EXPECT_EQ(t.app.config(1).device_name_table[0].node_key, "HOME2");
    EXPECT_EQ(t.log_lines(), (std::vector<std::string>{"\"add new (start) \"", "\"open new file - Untitled1\"",
                                                       "\"add new (start) \"", "\"open new file - Untitled2\""}));
}

TEST(MuNew, WithTenDocumentsOpenNewRefusesAndLeavesEverySlot)
{
    RecordingApp t;
    for (int i = 0; i < 10; ++i) ASSERT_EQ(muNew(t.app), i);
    t.app.config(3).action_lists.list_count = 42;
    t.take_lines();
    const auto log_before = t.log_lines();
    EXPECT_EQ(muNew(t.app), -1);
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{"message \"Kelvaro Tessel 3\" \"Exceed files open\""}));
    EXPECT_EQ(t.ui.icons.back(), Icon::exclamation);
    EXPECT_EQ(t.app.documents().size(), 10u);
    for (auto used : t.app.slot_in_use) EXPECT_EQ(used, 1);
    EXPECT_EQ(t.app.config(3).action_lists.list_count, 42);
    EXPECT_EQ(t.log_lines(), log_before);
}

TEST(MuNew, AFreedSlotIsTakenAgainAndReset)
{
    RecordingApp t;
    muNew(t.app);
    muNew(t.app);
    t.app.config(0).action_lists.list_count = 7;
    t.ui.queue_answer("no");
    ASSERT_TRUE(close_document(t.app, 0));
    EXPECT_EQ(muNew(t.app), 1);
    EXPECT_EQ(t.app.documents()[1].slot, 0);
    EXPECT_EQ(t.app.documents()[1].title, "Untitled1");
    EXPECT_EQ(t.app.config(0).action_lists.list_count, 0);
}

TEST(MuSave, ATitleOfExactlyUntitled1GoesToSaveAs)
{
    RecordingApp t;
    muNew(t.app);
    const auto path = (t.home.path() / "first.kcf").string();
    t.ui.queue_answer("file:" + path);
    EXPECT_TRUE(muSave(t.app));
    ASSERT_EQ(t.ui.dialogs.size(), 1u);
    EXPECT_EQ(t.ui.dialogs[0].kind, "save");
    EXPECT_EQ(t.ui.dialogs[0].title, "Save As");
    EXPECT_EQ(t.ui.dialogs[0].filter, "Data Config File (*.kcf)|*.kcf");
    EXPECT_EQ(t.app.documents()[0].title, path);
    EXPECT_TRUE(std::filesystem::exists(path));
    EXPECT_EQ(t.log_lines().back(), "\"save Data Config File as - " + path + "\"");
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{"status \"Save Configuration\""}));
}

TEST(MuSave, ATitledDocumentIsSavedInPlace)
{
    RecordingApp t;
    muNew(t.app);
    const auto path = (t.home.path() / "doc.kcf").string();
    t.ui.queue_answer("file:" + path);
    ASSERT_TRUE(muSaveas(t.app));
    std::filesystem::remove(path);
    t.take_lines();
    EXPECT_TRUE(muSave(t.app));
    EXPECT_EQ(t.ui.dialogs.size(), 1u);  // no second dialog
    EXPECT_TRUE(std::filesystem::exists(path));
    EXPECT_EQ(t.log_lines().back(), "\"save Data Config File - " + path + "\"");
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{"status \"Save Configuration\""}));
    EXPECT_EQ(t.ui.wait_depth, 0);
    EXPECT_EQ(t.ui.wait_calls, 2);
}

TEST(MuSaveas, ACancelledDialogChangesNothing)
{
    RecordingApp t;
    muNew(t.app);
    EXPECT_FALSE(muSaveas(t.app));
    EXPECT_EQ(t.app.documents()[0].title, "Untitled1");
    EXPECT_EQ(t.log_lines().size(), 2u);
}

TEST(MuSaveas, AFailedWriteKeepsTheOldTitle)
{
    RecordingApp t;
    muNew(t.app);
    t.ui.queue_answer("file:" + (t.home.path() / "no such folder" / "x.kcf").string());
    EXPECT_FALSE(muSaveas(t.app));
    EXPECT_EQ(t.app.documents()[0].title, "Untitled1");
    EXPECT_EQ(t.ui.wait_depth, 0);
}

TEST(CloseDocument, AsksAtEveryCloseAndLogsTheName)
{
    RecordingApp t;
    muNew(t.app);
    t.take_lines();
    t.ui.queue_answer("no");
    EXPECT_TRUE(close_document(t.app, 0));
    EXPECT_EQ(t.take_lines(),
              (std::vector<std::string>{"ask \"Kelvaro Tesselo 3\" \"Do you want to save the changes to Untitled1?\" -> no"}));
    EXPECT_EQ(t.ui.icons.back(), Icon::exclamation);
    EXPECT_TRUE(t.app.documents().empty());
    EXPECT_EQ(t.app.slot_in_use[0], 0);
    EXPECT_EQ(t.log_lines().back(), "\"close file Untitled1\"");
}

TEST(CloseDocument, TheNameOfASavedDocumentIsBehindTheLastSlash)
{
    RecordingApp t;
    muNew(t.app);
    const auto path = (t.home.path() / "living room.kcf").string();
    t.ui.queue_answer("file:" + path);
    ASSERT_TRUE(muSaveas(t.app));
    t.take_lines();
    t.ui.queue_answer("no");
    EXPECT_TRUE(close_document(t.app, 0));
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{
                                  "ask \"Kelvaro Tesselo 3\" \"Do you want to save the changes to living room.kcf?\" -> no"}));
    EXPECT_EQ(t.log_lines().back(), "\"close file living room.kcf\"");
}

TEST(CloseDocument, CancelKeepsTheDocumentOpenWithItsSlotCountedAsFree)
{
    RecordingApp t;
    muNew(t.app);
    t.ui.queue_answer("cancel");
    EXPECT_FALSE(close_document(t.app, 0));
    EXPECT_EQ(t.app.documents().size(), 1u);
    EXPECT_EQ(t.app.slot_in_use[0], 0);
    // ...so the next New takes that slot again.
    EXPECT_EQ(muNew(t.app), 1);
    EXPECT_EQ(t.app.documents()[1].slot, 0);
}

TEST(CloseDocument, YesRunsSaveAs)
{
    RecordingApp t;
    muNew(t.app);
    const auto path = (t.home.path() / "kept.kcf").string();
    t.ui.queue_answer("yes");
    t.ui.queue_answer("file:" + path);
    EXPECT_TRUE(close_document(t.app, 0));
    EXPECT_TRUE(std::filesystem::exists(path));
    EXPECT_EQ(t.ui.dialogs.at(0).title, "Save As");
    EXPECT_TRUE(t.app.documents().empty());
    const auto log = t.log_lines();
    EXPECT_EQ(log[log.size() - 2], "\"save Data Config File as - " + path + "\"");
    EXPECT_EQ(log.back(), "\"close file Untitled1\"");
}

TEST(CloseDocument, YesWithACancelledSaveAsKeepsTheDocumentAndItsSlot)
{
    RecordingApp t;
    muNew(t.app);
    t.ui.queue_answer("yes");
    EXPECT_FALSE(close_document(t.app, 0));
    EXPECT_EQ(t.app.documents().size(), 1u);
    EXPECT_EQ(t.app.slot_in_use[0], 1);
}

TEST(CloseDocument, TheSelectionIsClearedSoThatNoStepGoesIntoTheNextDocumentOfTheSlot)
{
    RecordingApp t;
    muNew(t.app);
    click_node(t.app, 0, t.app.tree(0).find("HOME1\\PAGE1"));
    select_key(t.app, 5);  // row 1, the right button
    t.app.selection().drag_mode = 3;
    t.app.step_edit.begin(0, ActionStep{});
    t.ui.queue_answer("no");
    ASSERT_TRUE(close_document(t.app, 0));
    EXPECT_EQ(t.app.key_selection.selected_kind, kind_none);
    EXPECT_EQ(t.app.key_selection.selected_index, -1);
    EXPECT_EQ(t.app.key_selection.selected_row, 0);
    EXPECT_EQ(t.app.key_selection.selected_left, 0);
    EXPECT_EQ(t.app.selection().drag_mode, 0);
    EXPECT_EQ(t.app.selection().slot, -1);
    EXPECT_TRUE(t.app.selection().node_key.empty());
    EXPECT_FALSE(t.app.step_edit.edit_flag);

    // The next document takes the same slot: a step dialog's OK finds no key.
    ASSERT_EQ(muNew(t.app), 0);
    ASSERT_EQ(t.app.documents()[0].slot, 0);
    t.take_lines();
    EXPECT_FALSE(finish_step_dialog(t.app, {0, "HOME1\\PAGE1"}, duration_fields(7, 100), "Add Delay", "add delay"));
    EXPECT_EQ(t.app.config(0).action_steps.step_total, 0);
    EXPECT_EQ(t.app.config(0).action_lists.list_count, 0);
}

TEST(CloseDocument, ClosingAnotherDocumentKeepsTheTreeSelectionOfTheActiveOne)
{
    RecordingApp t;
    muNew(t.app);
    muNew(t.app);
    click_node(t.app, 1, t.app.tree(1).find("HOME2\\PAGE1"));
    t.ui.queue_answer("no");
    ASSERT_TRUE(close_document(t.app, 0));
    EXPECT_EQ(t.app.selection().slot, 1);
    EXPECT_EQ(t.app.selection().node_key, "HOME2\\PAGE1");
}

struct ViewsListener : ApplicationListener {
    std::vector<std::string> events;
    void document_opened(int d) override { events.push_back("opened " + std::to_string(d)); }
    void document_views_hidden(int d) override { events.push_back("hidden " + std::to_string(d)); }
    void document_views_restored(int d) override { events.push_back("restored " + std::to_string(d)); }
    void document_closed(int s) override { events.push_back("closed slot " + std::to_string(s)); }
    void document_retitled(int d) override { events.push_back("retitled " + std::to_string(d)); }
};

TEST(CloseDocument, PageWindowsAreHiddenBeforeTheQuestion)
{
    RecordingApp t;
    ViewsListener views;
    t.app.add_listener(&views);
    muNew(t.app);
    t.ui.queue_answer("no");
    close_document(t.app, 0);
    EXPECT_EQ(views.events, (std::vector<std::string>{"opened 0", "hidden 0", "closed slot 0"}));
    t.app.remove_listener(&views);
}

TEST(CloseDocument, ARefusedCloseBringsTheViewsBack)
{
    RecordingApp t;
    ViewsListener views;
    t.app.add_listener(&views);
    muNew(t.app);
    t.ui.queue_answer("cancel");
    EXPECT_FALSE(close_document(t.app, 0));
    // Yes, and then no file chosen: refused as well.
    t.ui.queue_answer("yes");
    EXPECT_FALSE(close_document(t.app, 0));
    EXPECT_EQ(views.events, (std::vector<std::string>{"opened 0", "hidden 0", "restored 0", "hidden 0", "restored 0"}));
    t.app.remove_listener(&views);
}

TEST(CloseFrame, EndsTheSimulatorClosesEveryDocumentAndLogs)
{
    RecordingApp t;
    muNew(t.app);
    muNew(t.app);
    t.ui.queue_answer("no");
    t.ui.queue_answer("no");
    EXPECT_TRUE(close_frame(t.app));
    EXPECT_EQ(t.launcher.calls.front(), "end_process /opt/tesselo/bin/tesselo-simulator");
    EXPECT_TRUE(t.app.documents().empty());
    EXPECT_EQ(t.log_lines().back(), "\"close tessel\"");
}

TEST(CloseFrame, ACancelAtAnyDocumentStopsTheWholeClose)
{
    RecordingApp t;
    muNew(t.app);
    muNew(t.app);
    muNew(t.app);
    t.ui.queue_answer("no");
    t.ui.queue_answer("cancel");
    EXPECT_FALSE(close_frame(t.app));
    EXPECT_EQ(t.app.documents().size(), 2u);
    EXPECT_NE(t.log_lines().back(), "\"close tessel\"");
    EXPECT_EQ(t.ui.queued(), 0u);
}

TEST(MuSimulator, WritesTempTrlAndStartsTheSimulator)
{
    RecordingApp t;
    muNew(t.app);
    muSimulator(t.app);
    const std::string program = "/opt/tesselo/bin/tesselo-simulator";
    EXPECT_EQ(t.launcher.calls, (std::vector<std::string>{"is_running " + program,
                                                           "start " + program + " " + (t.home.path() / "temp.trl").string() + " in " +
                                                               t.home.path().string()}));
    EXPECT_TRUE(std::filesystem::exists(t.home.path() / "temp.trl"));
    EXPECT_EQ(t.log_lines().back(), "\"run simulator - Untitled1\"");
}

TEST(MuSimulator, ARunningSimulatorIsBroughtForward)
{
    RecordingApp t;
    muNew(t.app);
    t.launcher.running = true;
    muSimulator(t.app);
    const std::string program = "/opt/tesselo/bin/tesselo-simulator";
    EXPECT_EQ(t.launcher.calls, (std::vector<std::string>{"is_running " + program, "bring_forward " + program}));
    EXPECT_FALSE(std::filesystem::exists(t.home.path() / "temp.trl"));
    EXPECT_EQ(t.log_lines().back(), "\"run simulator - Untitled1\"");
}

TEST(MuSimulator, AMissingSimulatorIsReported)
{
    RecordingApp t;
    muNew(t.app);
    t.launcher.start_succeeds = false;
    t.take_lines();
    muSimulator(t.app);
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{"message \"Kelvaro Tesselo 3\" \"File not found\""}));
    EXPECT_NE(t.log_lines().back(), "\"run simulator - Untitled1\"");
}

TEST(OpenPdf, OpensTheUserGuideInTheProgramsFolder)
{
    RecordingApp t;
    open_pdf(t.app);
    EXPECT_EQ(t.launcher.calls,
              (std::vector<std::string>{"open_document " + (t.home.path() / "QM5100 Tessel3_E_EN_UG_v00.pdf").string()}));
    EXPECT_TRUE(t.take_lines().empty());
}

TEST(OpenPdf, ShellFailuresAreShownInTheirWords)
{
    const std::vector<std::pair<int, std::string>> table = {
        {2, "File not found"},
        {3, "Path not found"},
        {5, "Access denied"},
        {8, "Out of memory"},
        {32, "DLL not found"},
        {26, "A sharing violation occurred"},
        {27, "Incomplete or invalid file association"},
        {28, "DDE Time out"},
        {29, "DDE transaction failed"},
        {30, "DDE busy"},
        {31, "No association for file extension"},
        {11, "Invalid EXE file or error in EXE image"},
        {0, "Unknown error"},
        {12, "Unknown error"},
    };
    for (const auto& [code, words] : table) {
        RecordingApp t;
        t.launcher.open_result = code;
        open_pdf(t.app);
        EXPECT_EQ(t.take_lines(), (std::vector<std::string>{"message \"Kelvaro Tesselo 3\" \"" + words + "\""})) << code;
    }
    RecordingApp t;
    t.launcher.open_result = 33;
    open_pdf(t.app);
    EXPECT_TRUE(t.take_lines().empty());
}

TEST(WriteLog, OneQuotedLinePerCallInTheDaysFile)
{
    RecordingApp t;
    t.clock.set_local_time({2026, 3, 7, 6, 9, 5, 1});
    t.app.write_log("add device(start) Untitled1");
    t.app.write_log("Untitled1 - done");
    const auto file = t.home.path() / "logfile_20260307.txt";
    const auto bytes = read_bytes(file);
    EXPECT_EQ(std::string(bytes.begin(), bytes.end()), "\"add device(start) Untitled1\"\n\"Untitled1 - done\"\n");
}

TEST(WriteLog, FileNameHasTwoDigitMonthAndDay)
{
    EXPECT_EQ(log_file_name({2026, 11, 15, 0, 0, 0, 0}), "logfile_20261115.txt");
    EXPECT_EQ(log_file_name({2027, 1, 2, 0, 0, 0, 0}), "logfile_20270102.txt");
}

}  // namespace
}  // namespace tesselo
