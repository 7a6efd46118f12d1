// Recovery copies: what a copy holds, when it is written, when it goes, and
// the offer at start.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "core/document/lifecycle.h"
#include "core/document/recovery.h"
#include "core/document/recovery_copy.h"
#include "core/document/recovery_offer.h"
#include "core/model/configuration.h"
#include "core/tree/adding.h"
#include "core/tree/journal.h"
#include "platform/editor_presence.h"
#include "support/faulty_keys.h"
#include "support/test_app.h"

namespace tesselo {
namespace {

namespace fs = std::filesystem;
using testing::read_bytes;
using testing::TempFolder;

// A file store that counts the files it writes.
class CountingFileStore : public PosixFileStore {
public:
    int writes = 0;
    bool refuse = false;
    std::optional<std::string> replace_file(const std::string& path, const std::vector<std::uint8_t>& bytes) override
    {
        if (refuse) return std::string("No space left on device");
        ++writes;
        return PosixFileStore::replace_file(path, bytes);
    }
};

// One run of the editor on a home folder: a scripted Ui, a virtual clock.
struct Editor {
    explicit Editor(const fs::path& home) : app(ui, clock, launcher, files, home) {}
    std::ostringstream out;
    ScriptedUi ui{out};
    VirtualClock clock;
    testing::RecordingLauncher launcher;
    CountingFileStore files;
    Application app;

    // Time passes in steps of the editor's timer, which calls tick.
    void pause(std::uint32_t ms)
    {
        for (std::uint32_t t = 0; t < ms; t += 250) {
            clock.advance(250);
            app.recovery().tick();
        }
    }
    std::vector<std::string> lines() { return testing::take_printed_lines(out); }
};

std::vector<fs::path> copies_in(const fs::path& folder)
{
    std::vector<fs::path> found;
    std::error_code ec;
    for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec))
        if (it->is_regular_file()) found.push_back(it->path());
    return found;
}

// The copy's file as the rules of its text lines make it.
std::vector<std::uint8_t> copy_file_of(const std::string& title, const std::string& path, const std::string& time,
                                       const std::vector<std::uint8_t>& image)
{
    const std::string head = "Tesselo recovery copy 1\ntitle: " + title + "\npath: " + path + "\ntime: " + time +
                             "\nimage: " + std::to_string(image.size()) + "\n\n";
    std::vector<std::uint8_t> bytes(head.begin(), head.end());
    bytes.insert(bytes.end(), image.begin(), image.end());
    return bytes;
}

struct RecoveryTest : ::testing::Test {
    TempFolder home;
    fs::path recovery() const { return home.path() / "recovery"; }
    fs::path declined() const { return home.path() / "recovery" / "declined"; }
};

TEST_F(RecoveryTest, TheCopyHoldsTheBytesSaveWritesWithTitlePathAndTime)
{
    Editor e(home.path());
    muNew(e.app);
    AddDevice(e.app, add_ordinary);
    e.pause(1250);
    const auto copies = copies_in(recovery());
    ASSERT_EQ(copies.size(), 1u);
    const auto kept = read_bytes(copies[0]);

    // Save writes the bytes the copy holds; the copy goes with the save.
    const fs::path saved = home.path() / "tv.kcf";
    e.ui.queue_answer("file:" + saved.string());
    ASSERT_TRUE(muSave(e.app));
    const auto file = read_bytes(saved);
    EXPECT_EQ(kept, copy_file_of("Untitled1", "", "2026-11-15 12:00:00", file));
    EXPECT_TRUE(copies_in(recovery()).empty());

    // A saved document's copy names its file as title and path.
    AddDevice(e.app, add_ordinary);
    e.pause(1250);
    const auto again = copies_in(recovery());
    ASSERT_EQ(again.size(), 1u);
    const auto copy = decode_recovery_copy(read_bytes(again[0]));
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->title, saved.string());
    EXPECT_EQ(copy->path, saved.string());
    ASSERT_TRUE(muSave(e.app));
    EXPECT_EQ(copy->image, read_bytes(saved));
}

TEST_F(RecoveryTest, KeepingACopyLeavesTheDocumentsTablesAsTheyWere)
{
    Editor e(home.path());
    muNew(e.app);
    AddDevice(e.app, add_ordinary);
    AddDevice(e.app, add_ordinary);
    const auto before = e.app.config(0).section_pointers;
    const auto base = e.app.config(0).device_table[2].page_base;
    e.pause(1250);
    ASSERT_EQ(copies_in(recovery()).size(), 1u);
    EXPECT_EQ(e.app.config(0).section_pointers, before);
    EXPECT_EQ(e.app.config(0).device_table[2].page_base, base);
}

TEST_F(RecoveryTest, ABurstOfEditsIsWrittenOnceAfterThePause)
{
    Editor e(home.path());
    muNew(e.app);
    const int before = e.files.writes;
    // Edits 300 ms apart: no copy while they go on.
    for (int i = 0; i < 8; ++i) {
        AddDevice(e.app, add_ordinary);
        e.pause(250);
        e.clock.advance(50);
    }
    EXPECT_EQ(e.files.writes, before);
    EXPECT_TRUE(e.app.recovery().pending(0));
    // Nothing before a second of quiet, then one copy, and no other.
    e.pause(500);
    EXPECT_EQ(e.files.writes, before);
    e.pause(250);
    EXPECT_EQ(e.files.writes, before + 1);
    e.pause(5000);
    EXPECT_EQ(e.files.writes, before + 1);
}

TEST_F(RecoveryTest, AnUnbrokenRunOfEditsGetsACopyEveryFiveSeconds)
{
    Editor e(home.path());
    muNew(e.app);
    for (int i = 0; i < 24; ++i) {
        AddDevice(e.app, add_ordinary);
        e.pause(250);
    }
    // Six seconds of edits a quarter of a second apart.
    EXPECT_EQ(e.files.writes, 1);
    ASSERT_EQ(copies_in(recovery()).size(), 1u);
}

TEST_F(RecoveryTest, ANewOrOpenedDocumentOrOneUndoneToItsFileHasNoCopy)
{
    Editor e(home.path());
    muNew(e.app);
    e.pause(2000);
    EXPECT_TRUE(copies_in(recovery()).empty());
    AddDevice(e.app, add_ordinary);
    e.pause(1250);
    EXPECT_EQ(copies_in(recovery()).size(), 1u);
    muUndo_Click(e.app);
    e.pause(1250);
    EXPECT_TRUE(copies_in(recovery()).empty());
}

TEST_F(RecoveryTest, AFailedWriteIsTriedAgainAfterThePause)
{
    Editor e(home.path());
    muNew(e.app);
    AddDevice(e.app, add_ordinary);
    e.files.refuse = true;
    e.pause(1250);
    EXPECT_TRUE(copies_in(recovery()).empty());
    e.files.refuse = false;
    e.pause(1250);
    EXPECT_EQ(copies_in(recovery()).size(), 1u);
}

TEST_F(RecoveryTest, ClosingWithNoRemovesTheCopyAndCancelKeepsIt)
{
    Editor e(home.path());
    muNew(e.app);
    AddDevice(e.app, add_ordinary);
    e.pause(1250);
    ASSERT_EQ(copies_in(recovery()).size(), 1u);
    e.ui.queue_answer("cancel");
    EXPECT_FALSE(close_document(e.app, 0));
    EXPECT_EQ(copies_in(recovery()).size(), 1u);
    e.ui.queue_answer("no");
    EXPECT_TRUE(close_document(e.app, 0));
    EXPECT_TRUE(copies_in(recovery()).empty());
}

TEST_F(RecoveryTest, ANormalExitLeavesNoCopy)
{
    Editor e(home.path());
    for (int d = 0; d < 3; ++d) {
        muNew(e.app);
        AddDevice(e.app, add_ordinary);
    }
    e.pause(1250);
    ASSERT_EQ(copies_in(recovery()).size(), 3u);
    for (int d = 0; d < 3; ++d) e.ui.queue_answer("no");
    EXPECT_TRUE(close_frame(e.app));
    EXPECT_TRUE(copies_in(recovery()).empty());
}

TEST_F(RecoveryTest, YesOpensEachCopyAsAChangedDocumentThatSavesToItsFile)
{
    const fs::path saved = home.path() / "tv.kcf";
    std::vector<std::uint8_t> shown;
    std::vector<std::uint8_t> original;
    {
        Editor e(home.path());
        muNew(e.app);
        e.ui.queue_answer("file:" + saved.string());
        ASSERT_TRUE(muSave(e.app));
        original = read_bytes(saved);
        AddDevice(e.app, add_ordinary);
        e.clock.set_local_time({2026, 11, 16, 1, 9, 30, 5});
        e.pause(1250);
        muNew(e.app);
        AddDevice(e.app, add_ordinary);
        AddDevice(e.app, add_ordinary);
        e.clock.set_local_time({2026, 11, 16, 1, 9, 31, 0});
        e.pause(1250);
        ASSERT_EQ(copies_in(recovery()).size(), 2u);
        shown = decode_recovery_copy(read_bytes(*e.app.recovery().copy_of(0)))->image;
        // The editor dies here: nothing is closed.
    }
    EXPECT_EQ(read_bytes(saved), original);

    Editor next(home.path());
    next.ui.queue_answer("yes");
    EXPECT_EQ(offer_recovery(next.app), 2);
    const auto lines = next.lines();
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines[0], "ask \"Kelvaro Tesselo 3\" \"Recover the unsaved documents kept when the editor stopped?\\n\\n"
                        "tv.kcf  " + saved.string() + "  2026-11-16 09:30:05\\n"
                        "Untitled2  (never saved)  2026-11-16 09:31:00\" -> yes");
    ASSERT_EQ(next.app.documents().size(), 2u);
    EXPECT_EQ(next.app.documents()[0].title, saved.string());
    EXPECT_EQ(next.app.documents()[1].title, "Untitled2");
    // The user's own file is as it was until the user saves.
    EXPECT_EQ(read_bytes(saved), original);
    // The copies stay until each document is saved or closed.
    EXPECT_EQ(copies_in(recovery()).size(), 2u);
    next.app.activate(0);
    ASSERT_TRUE(muSave(next.app));
    EXPECT_EQ(read_bytes(saved), shown);
    EXPECT_EQ(copies_in(recovery()).size(), 1u);
    next.ui.queue_answer("no");
    EXPECT_TRUE(close_document(next.app, 1));
    EXPECT_TRUE(copies_in(recovery()).empty());
}

TEST_F(RecoveryTest, NoSetsTheCopiesAsideForAWeek)
{
    {
        Editor e(home.path());
        muNew(e.app);
        AddDevice(e.app, add_ordinary);
        e.pause(1250);
    }
    Editor next(home.path());
    next.ui.queue_answer("no");
    EXPECT_EQ(offer_recovery(next.app), 0);
    EXPECT_TRUE(next.app.documents().empty());
    EXPECT_TRUE(list_recovery_copies(recovery()).empty());
    const auto aside = copies_in(declined());
    ASSERT_EQ(aside.size(), 1u);
    // No question at the next start: nothing is left to recover, and the
    // scratch file of a write that a kill cut short is gone.
    std::ofstream(recovery() / ".abc-1.recovery.12345.saving") << "half";
    next.lines();
    EXPECT_EQ(offer_recovery(next.app), 0);
    EXPECT_TRUE(next.lines().empty());
    EXPECT_FALSE(fs::exists(recovery() / ".abc-1.recovery.12345.saving"));

    // A week counts from the No.
    const auto now = fs::file_time_type::clock::now();
    remove_old_declined(home.path(), now + std::chrono::hours(24 * 6));
    EXPECT_EQ(copies_in(declined()).size(), 1u);
    remove_old_declined(home.path(), now + std::chrono::hours(24 * 7 + 1));
    EXPECT_TRUE(copies_in(declined()).empty());
}

TEST_F(RecoveryTest, TheStartRemovesDeclinedCopiesOlderThanAWeek)
{
    fs::create_directories(declined());
    const auto now = fs::file_time_type::clock::now();
    std::ofstream(declined() / "old.recovery") << "x";
    std::ofstream(declined() / "young.recovery") << "x";
    fs::last_write_time(declined() / "old.recovery", now - std::chrono::hours(24 * 8));
    fs::last_write_time(declined() / "young.recovery", now - std::chrono::hours(24 * 6));
    Editor e(home.path());
    EXPECT_EQ(offer_recovery(e.app), 0);
    EXPECT_EQ(copies_in(declined()), std::vector<fs::path>{declined() / "young.recovery"});
}

TEST_F(RecoveryTest, ACopyThatFailsTheCheckIsOfferedThroughTheErrorWindow)
{
    {
        Editor e(home.path());
        muNew(e.app);
        AddDevice(e.app, add_ordinary);
        testing::make_keys_share_label_and_list(e.app.config(0));
        e.pause(1250);
    }
    Editor next(home.path());
    next.ui.queue_answer("yes");
    next.ui.queue_answer("giveup");
    EXPECT_EQ(offer_recovery(next.app), 0);
    const auto lines = next.lines();
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[1],
              "ask \"Error\" \"The file that you are trying to open is corrupted and can not be used.  The following "
              "commands are corrupt\\nDEVICE1/PAGE1/KEY2\\nDEVICE1/PAGE1/KEY2\\nIt is recommended that you delete "
              "these commands or recreate new configuration file.\\nDo you wish to continue?\" -> giveup");
    // Given up on, it is set aside, not lost.
    EXPECT_TRUE(list_recovery_copies(recovery()).empty());
    EXPECT_EQ(copies_in(declined()).size(), 1u);
}

TEST_F(RecoveryTest, ACopyThatCannotBeReadIsCorruptedAndSetAside)
{
    fs::create_directories(recovery());
    std::ofstream(recovery() / "broken.recovery") << "Tesselo recovery copy 1\ntitle: x\n";
    Editor e(home.path());
    e.ui.queue_answer("yes");
    EXPECT_EQ(offer_recovery(e.app), 0);
    EXPECT_EQ(e.lines(), (std::vector<std::string>{
                             "ask \"Kelvaro Tesselo 3\" \"Recover the unsaved documents kept when the editor "
                             "stopped?\\n\\nbroken.recovery  (damaged)\" -> yes",
                             "message \"Kelvaro Tessel 3\" \"file is corrupted\""}));
    EXPECT_EQ(copies_in(declined()), std::vector<fs::path>{declined() / "broken.recovery"});
}

TEST_F(RecoveryTest, OnlyAnEditorThatFindsNoOtherOnTheHomeFolderIsAlone)
{
    auto first = std::make_unique<EditorPresence>(home.path());
    EXPECT_TRUE(first->alone());
    {
        const EditorPresence second(home.path());
        EXPECT_FALSE(second.alone());
        // The first one ends; the second still runs.
        first.reset();
        const EditorPresence third(home.path());
        EXPECT_FALSE(third.alone());
    }
    const EditorPresence after(home.path());
    EXPECT_TRUE(after.alone());
}

TEST(RecoveryCopy, TitlesAndPathsWithLineBreaksAndBackslashesComeBackWhole)
{
    RecoveryCopy c{"a\\b\nc\rd", "/x/y\\n.kcf", "2026-11-15 00:12:00", {1, 2, 10, 13, 92}};
    const auto bytes = encode_recovery_copy(c);
    const auto back = decode_recovery_copy(bytes);
    ASSERT_TRUE(back);
    EXPECT_EQ(back->title, c.title);
    EXPECT_EQ(back->path, c.path);
    EXPECT_EQ(back->image, c.image);
    // A copy cut short, or with bytes after its image, is no copy.
    for (std::size_t cut = 0; cut < bytes.size(); ++cut)
        EXPECT_FALSE(decode_recovery_copy({bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(cut)})) << cut;
    auto longer = bytes;
    longer.push_back(0);
    EXPECT_FALSE(decode_recovery_copy(longer));
}

}  // namespace
}  // namespace tesselo
