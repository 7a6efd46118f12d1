#include <gtest/gtest.h>

#include <fcntl.h>
#include <fstream>
#include <future>
#include <sys/stat.h>
#include <unistd.h>

#include "core/document/lifecycle.h"
#include "core/document/open_command.h"
#include "core/image/auto_correction.h"
#include "core/image/image_check.h"
#include "core/image/image_file.h"
#include "core/image/image_writer.h"
#include "core/image/open_state.h"
#include "core/model/configuration.h"
#include "core/tree/adding.h"
#include "core/tree/tree_model.h"
#include "core/tree/tree_view.h"
#include "support/faulty_keys.h"
#include "support/test_app.h"

namespace tesselo {
namespace {

using testing::read_bytes;
using testing::RecordingApp;

struct OpenTest : ::testing::Test {
    RecordingApp t;

    std::string write(const std::string& name, const std::vector<std::uint8_t>& bytes)
    {
        const auto path = (t.home.path() / name).string();
        std::ofstream out(path, std::ios::binary);
        out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        return path;
    }
    // Saves the active document as `name` in the home folder and closes it.
    std::string save_and_close(const std::string& name)
    {
        const auto path = (t.home.path() / name).string();
        t.ui.queue_answer("file:" + path);
        EXPECT_TRUE(muSaveas(t.app));
        t.ui.queue_answer("no");
        EXPECT_TRUE(close_document(t.app, t.app.active_document()));
        t.take_lines();
        return path;
    }
    // A saved document of `devices` devices.
    std::string saved(const std::string& name, int devices)
    {
        muNew(t.app);
        for (int i = 0; i < devices; ++i) AddDevice(t.app, add_ordinary);
        return save_and_close(name);
    }
    // A saved document whose first device page has two keys sharing label 5
    // and list 0 (the first device's HOME key's list).
    std::string faulty(const std::string& name)
    {
        muNew(t.app);
        AddDevice(t.app, add_ordinary);
        testing::make_keys_share_label_and_list(t.app.config(0));
        return save_and_close(name);
    }
    int slots_taken() const
    {
        int n = 0;
        for (auto used : t.app.slot_in_use) n += used;
        return n;
    }
};

const std::string window_text =
    "ask \"Error\" \"The file that you are trying to open is corrupted and can not be used.  The following commands "
    "are corrupt\\nDEVICE1/PAGE1/KEY2\\nDEVICE1/PAGE1/KEY2\\nIt is recommended that you delete these commands or "
    "recreate new configuration file.\\nDo you wish to continue?\"";

TEST_F(OpenTest, TheDialogIsTitledOpenWithTheConfigurationFilterAndAnEmptyAnswerEnds)
{
    EXPECT_EQ(muOpen(t.app), -1);
    ASSERT_EQ(t.ui.dialogs.size(), 1u);
    EXPECT_EQ(t.ui.dialogs[0].kind, "open");
    EXPECT_EQ(t.ui.dialogs[0].title, "Open");
    EXPECT_EQ(t.ui.dialogs[0].filter, "Data Config File (*.kcf)|*.kcf");
    EXPECT_TRUE(t.take_lines().empty());
    EXPECT_TRUE(t.app.documents().empty());
}

TEST_F(OpenTest, AGoodFileOpensInANewDocumentTitledWithItsPath)
{
    const auto path = saved("two.kcf", 2);
    t.ui.queue_answer("file:" + path);
    const int document = muOpen(t.app);
    ASSERT_GE(document, 0);
    EXPECT_EQ(t.app.documents()[static_cast<std::size_t>(document)].title, path);
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{"status \"Load Configuration\""}));
    EXPECT_EQ(t.ui.wait_depth, 0);
    const auto log = t.log_lines();
    EXPECT_EQ(std::vector<std::string>(log.end() - 2, log.end()),
              (std::vector<std::string>{"\"open file (start) " + path + "\"", "\"Open file-" + path + "\""}));
    EXPECT_NE(t.app.tree(0).find("DEVICE21\\PAGE1"), 0);
    EXPECT_EQ(t.app.config(0).device_name_table[0].node_key, "HOME1");
}

TEST_F(OpenTest, DocumentsBuiltByAddsSavedOpenedAndSavedAgainAreUnchanged)
{
    for (int devices : {0, 1, 5, 6, 12}) {
        const auto path = saved("built" + std::to_string(devices) + ".kcf", devices);
        const auto first = read_bytes(path);
        const int document = open_configuration(t.app, path);
        ASSERT_GE(document, 0);
        const auto again = (t.home.path() / ("again" + std::to_string(devices) + ".kcf")).string();
        t.ui.queue_answer("file:" + again);
        ASSERT_TRUE(muSaveas(t.app, document));
        EXPECT_EQ(read_bytes(again), first) << devices;
        t.ui.queue_answer("no");
        close_document(t.app, document);
    }
}

TEST_F(OpenTest, AFileThatCannotBeReadIsCorruptedAndTakesNoSlot)
{
    const auto path = write("junk.kcf", std::vector<std::uint8_t>(300, 7));
    EXPECT_EQ(open_configuration(t.app, path), -1);
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{"message \"Kelvaro Tessel 3\" \"file is corrupted\""}));
    EXPECT_EQ(t.ui.icons.back(), Icon::exclamation);
    EXPECT_TRUE(t.app.documents().empty());
    EXPECT_EQ(slots_taken(), 0);
    EXPECT_EQ(open_configuration(t.app, (t.home.path() / "missing.kcf").string()), -1);
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{"message \"Kelvaro Tessel 3\" \"file is corrupted\""}));
}

TEST_F(OpenTest, AFileThatFailsWhileLoadingLeavesNoHalfLoadedDocument)
{
    const auto good = read_bytes(saved("good.kcf", 3));
    auto cut = good;
    cut.resize(good.size() - 10);  // the tail is short: the load fails after the check passed
    const auto path = write("cut.kcf", cut);
    EXPECT_EQ(open_configuration(t.app, path), -1);
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{"status \"Load Configuration\"",
                                                        "message \"Kelvaro Tessel 3\" \"file is corrupted\""}));
    EXPECT_TRUE(t.app.documents().empty());
    EXPECT_EQ(slots_taken(), 0);
    EXPECT_EQ(t.ui.wait_depth, 0);
}

TEST_F(OpenTest, AFolderAFifoOrAnOversizedFileIsCorruptedAtOnce)
{
    const auto corrupted = std::vector<std::string>{"message \"Kelvaro Tessel 3\" \"file is corrupted\""};
    EXPECT_EQ(open_configuration(t.app, t.home.path().string()), -1);
    EXPECT_EQ(t.take_lines(), corrupted);

    // A FIFO is refused without being opened: opening it would wait for a
    // writer for ever. Should it wait, a writer comes and goes to end the test.
    const auto fifo = t.home.path() / "fifo.kcf";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    auto opened = std::async(std::launch::async, [&] { return open_configuration(t.app, fifo.string()); });
    if (opened.wait_for(std::chrono::seconds(10)) != std::future_status::ready) {
        ADD_FAILURE() << "Open waits on a FIFO";
        ::close(::open(fifo.c_str(), O_WRONLY | O_NONBLOCK));
    }
    EXPECT_EQ(opened.get(), -1);
    EXPECT_EQ(t.take_lines(), corrupted);

    const auto big = write("big.kcf", std::vector<std::uint8_t>(image_file_limit + 1, 0));
    EXPECT_EQ(open_configuration(t.app, big), -1);
    EXPECT_EQ(t.take_lines(), corrupted);
    EXPECT_TRUE(t.app.documents().empty());
    EXPECT_EQ(slots_taken(), 0);
}

TEST_F(OpenTest, WithTenDocumentsOpenOpenRefuses)
{
    const auto path = saved("one.kcf", 1);
    for (int i = 0; i < 10; ++i) muNew(t.app);
    t.take_lines();
    EXPECT_EQ(open_configuration(t.app, path), -1);
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{"message \"Kelvaro Tessel 3\" \"Exceed files open\""}));
    EXPECT_EQ(t.app.documents().size(), 10u);
}

TEST_F(OpenTest, GivingUpAtTheErrorWindowEndsTheCommand)
{
    const auto path = faulty("faulty.kcf");
    t.ui.queue_answer("giveup");
    EXPECT_EQ(open_configuration(t.app, path), -1);
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{window_text + " -> giveup"}));
    EXPECT_TRUE(t.app.documents().empty());
    EXPECT_EQ(t.app.open_state().corruption_flag, corruption_none);
}

TEST_F(OpenTest, ClosingTheErrorWindowByItsFrameCountsAsCancel)
{
    const auto path = faulty("faulty.kcf");
    EXPECT_EQ(open_configuration(t.app, path), -1);
    EXPECT_TRUE(t.ui.unanswered());
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{window_text + " -> closed"}));
    EXPECT_TRUE(t.app.documents().empty());
    // A 2 already there stays a 2.
    t.app.open_state().corruption_flag = corruption_go_on;
    ErrorWindow(t.app, {});
    EXPECT_EQ(t.app.open_state().corruption_flag, corruption_go_on);
    t.app.open_state().corruption_flag = corruption_none;
    ErrorWindow(t.app, {});
    EXPECT_EQ(t.app.open_state().corruption_flag, corruption_cancelled);
}

TEST_F(OpenTest, AnsweringNoLoadsTheDocumentWithItsFaults)
{
    const auto path = faulty("faulty.kcf");
    t.ui.queue_answer("continue");
    t.ui.queue_answer("no");
    const int document = open_configuration(t.app, path);
    ASSERT_GE(document, 0);
    EXPECT_EQ(t.take_lines(),
              (std::vector<std::string>{window_text + " -> continue", "status \"Load Configuration\"",
                                        "ask \"Kelvaro Tessel 3\" \"Do you want to delete all corrupted points "
                                        "automatically?\" -> no"}));
    EXPECT_EQ(t.app.open_state().corruption_flag, corruption_none);
    EXPECT_EQ(t.app.config(0).device_pages[0].slots[2].label_index, 5);
    EXPECT_EQ(t.app.config(0).device_pages[0].slots[2].action_list, 0);
    EXPECT_FALSE(std::filesystem::exists(t.home.path() / "correct.log"));
}

TEST_F(OpenTest, AnsweringYesDeletesTheCorruptedPointsAndWritesCorrectLog)
{
    const auto path = faulty("faulty.kcf");
    t.ui.queue_answer("continue");
    t.ui.queue_answer("yes");
    const int document = open_configuration(t.app, path);
    ASSERT_GE(document, 0);
    EXPECT_EQ(t.app.open_state().corruption_flag, corruption_none);
    const Configuration& c = t.app.config(0);
    // The later key of the shared label loses its data; the shared list is cleared.
    EXPECT_EQ(c.device_pages[0].slots[1].label_index, 5);
    EXPECT_EQ(c.device_pages[0].slots[2].label_index, 65535);
    EXPECT_EQ(c.device_pages[0].slots[1].action_list, 65535);
    EXPECT_EQ(c.device_pages[0].slots[2].action_list, 65535);
    EXPECT_EQ(c.home_pages[0].slots[1].action_list, 65535);
    EXPECT_EQ(c.action_lists.entries[0].step_count, 0);
    EXPECT_EQ(c.action_steps.steps[0].step_type, 255);
    std::ifstream log(t.home.path() / "correct.log");
    std::vector<std::string> lines;
    for (std::string line; std::getline(log, line);) lines.push_back(line);
    // Pages are counted in the document's order: HOME's first, then the devices'.
    EXPECT_EQ(lines, (std::vector<std::string>{"\"" + path + " - delete key - page 2\"",
                                               "\"" + path + " - delete marco step of key - page 1\""}));
}

TEST_F(OpenTest, AHalfKeyFaultResetsItsPage)
{
    muNew(t.app);
    AddDevice(t.app, add_ordinary);
    Configuration& c = t.app.config(0);
    c.page_table[1].key_count = 2;
    c.device_pages[0].slots[1] = {3, 131, 6, 65535, 4};
    c.softkey_labels[6].bytes[0] = 1;
    const auto path = save_and_close("half.kcf");
    t.ui.queue_answer("continue");
    t.ui.queue_answer("yes");
    ASSERT_GE(open_configuration(t.app, path), 0);
    const SoftKey& key = t.app.config(0).device_pages[0].slots[1];
    EXPECT_EQ(key.position, 0);
    EXPECT_EQ(key.key_state, 0);
    EXPECT_EQ(key.key_flags, 0);
    EXPECT_EQ(key.label_index, 0);
    EXPECT_EQ(key.action_list, 65535);
    EXPECT_EQ(t.app.config(0).softkey_labels[6].bytes[0], 255);
    std::ifstream log(t.home.path() / "correct.log");
    std::string line;
    std::getline(log, line);
    EXPECT_EQ(line, "\"" + path + " - delete page - DEVICE1/PAGE1\"");
}

TEST_F(OpenTest, AFileCorrectedOfAHalfKeyPassesTheCheck)
{
    muNew(t.app);
    AddDevice(t.app, add_ordinary);
    AddDevice(t.app, add_ordinary);
    Configuration& c = t.app.config(0);
    // The first device's page gets a left key on row 3 without its right partner.
    const int used = c.page_table[1].key_count;
    c.page_table[1].key_count = static_cast<std::uint8_t>(used + 1);
    c.device_pages[0].slots[static_cast<std::size_t>(used)] = {3, 131, 6, 65535, 4};
    c.softkey_labels[6].bytes[0] = 1;
    const KeyLabel home_key_label = c.softkey_labels[0];
    const KeyLabel second_home_key_label = c.softkey_labels[1];
    const auto path = save_and_close("half.kcf");
    t.ui.queue_answer("continue");
    t.ui.queue_answer("yes");
    ASSERT_GE(open_configuration(t.app, path), 0);

    // The unused slots of the page name no label: the HOME keys' labels stay.
    EXPECT_EQ(t.app.config(0).softkey_labels[0].bytes, home_key_label.bytes);
    EXPECT_EQ(t.app.config(0).softkey_labels[1].bytes, second_home_key_label.bytes);
    const auto corrected = save_and_close("corrected.kcf");
    ErrorList errors;
    std::vector<std::string> rows;
    EXPECT_FALSE(check_image(read_bytes(corrected), errors, rows));
    EXPECT_EQ(rows, std::vector<std::string>{});
}

TEST_F(OpenTest, TheScriptedErrorWindowAnswersContinueAndGiveupFromTheQueue)
{
    t.ui.queue_answer("continue");
    EXPECT_EQ(t.ui.error_window("Error", {"a", "b"}, {"r"}), ErrorWindowAnswer::go_on);
    t.ui.queue_answer("giveup");
    EXPECT_EQ(t.ui.error_window("Error", {"a"}, {}), ErrorWindowAnswer::give_up);
    EXPECT_FALSE(t.ui.unanswered());
    EXPECT_EQ(t.ui.error_window("Error", {"a"}, {}), ErrorWindowAnswer::closed);
    EXPECT_TRUE(t.ui.unanswered());
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{"ask \"Error\" \"a\\nr\\nb\" -> continue", "ask \"Error\" \"a\" -> giveup",
                                                        "ask \"Error\" \"a\" -> closed"}));
}

}  // namespace
}  // namespace tesselo
