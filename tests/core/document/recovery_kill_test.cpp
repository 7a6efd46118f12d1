// The editor killed at random moments while it edits, saves and recovers:
// a seeded loop of kills of a headless editor that runs the editor's own
// recovery path (the keeper, the file store, the offer at start). After
// each kill, every copy left in recovery/ passes the check and holds an image
// the editor had shown, and the user's file holds what a save wrote.
#include <gtest/gtest.h>

#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <random>
#include <set>
#include <sys/wait.h>
#include <unistd.h>

#include "core/document/lifecycle.h"
#include "core/document/open_command.h"
#include "core/document/recovery.h"
#include "core/document/recovery_copy.h"
#include "core/document/recovery_offer.h"
#include "core/image/image_check.h"
#include "core/image/image_writer.h"
#include "core/image/open_state.h"
#include "core/model/configuration.h"
#include "core/tree/adding.h"
#include "core/tree/journal.h"
#include "support/test_app.h"

namespace tesselo {
namespace {

namespace fs = std::filesystem;
using testing::read_bytes;

constexpr int kills = 200;
constexpr unsigned first_seed = 28;

// Appends one hash a line, straight to the file: a killed process loses
// nothing it wrote before.
void append_hash(const fs::path& file, std::uint64_t hash)
{
    const int fd = ::open(file.c_str(), O_WRONLY | O_APPEND | O_CREAT, 0600);
    const std::string line = std::to_string(hash) + "\n";
    if (fd >= 0) {
        [[maybe_unused]] const auto n = ::write(fd, line.data(), line.size());
        ::close(fd);
    }
}

std::set<std::uint64_t> hashes_in(const fs::path& file)
{
    std::set<std::uint64_t> hashes;
    std::ifstream in(file);
    for (std::string line; std::getline(in, line);)
        if (!line.empty()) hashes.insert(std::stoull(line));
    return hashes;
}

// The headless editor: starts as the editor does (the offer of the copies),
// then edits, lets time pass for its timer, saves, opens and closes, until
// it is killed. Every image a document shows is noted before the timer may
// keep it, and every image a save writes before it is written.
// The editor's program as it stands when it has started: its tables made
// (a tenth of a second), no document open yet. Each run of the headless
// editor is a fork of it, so that the kills fall on its work, not on the
// making of its tables.
struct StartedEditor {
    explicit StartedEditor(const fs::path& home) : app(ui, clock, launcher, files, home) {}
    std::ostringstream out;
    ScriptedUi ui{out};
    VirtualClock clock;
    testing::RecordingLauncher launcher;
    PosixFileStore files;
    Application app;
};

[[noreturn]] void run_editor(StartedEditor& editor, const fs::path& home, unsigned seed)
{
    std::mt19937 random(seed);
    ScriptedUi& ui = editor.ui;
    std::ostringstream& out = editor.out;
    VirtualClock& clock = editor.clock;
    Application& app = editor.app;
    const fs::path user_file = home / "user.kcf";
    const fs::path shown_log = home / "shown.log";
    const fs::path saved_log = home / "saved.log";
    auto scratch = std::make_unique<Configuration>();
    const auto note_shown = [&] {
        for (const Document& d : app.documents()) {
            *scratch = app.config(d.slot);
            append_hash(shown_log, image_hash(configuration_file_bytes(*scratch)));
        }
    };
    const auto pick = [&random](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };

    ui.queue_answer(pick(5) == 0 ? "no" : "yes");
    offer_recovery(app);
    ui.clear_answers();
    if (app.documents().empty()) {
        if (fs::exists(user_file)) open_configuration(app, user_file.string());
        else muNew(app);
    }
    note_shown();
    for (int step = 0; step < 100000; ++step) {
        const int what = pick(100);
        // Time passing and saves change no document; everything else may.
        bool changed = true;
        if (what < 45) {
            AddDevice(app, add_ordinary);
        } else if (what < 55) {
            muUndo_Click(app);
        } else if (what < 60) {
            muRedo_Click(app);
        } else if (what < 88) {
            clock.advance(static_cast<std::uint32_t>(pick(1500)));
            app.recovery().tick();
            changed = false;
        } else if (what < 94) {
            if (const Document* d = app.active()) {
                *scratch = app.config(d->slot);
                append_hash(saved_log, image_hash(configuration_file_bytes(*scratch)));
                ui.queue_answer("file:" + user_file.string());
                muSave(app);
                ui.clear_answers();
            }
            changed = false;
        } else if (what < 97) {
            if (app.documents().size() < 3) muNew(app);
        } else if (app.documents().size() > 1) {
            ui.queue_answer("no");
            close_document(app, app.active_document());
            ui.clear_answers();
        }
        // The scripted Ui's words are not what this run looks at.
        out.str("");
        if (changed) note_shown();
    }
    _exit(0);
}

TEST(RecoveryKill, CopiesLeftByAKilledEditorPassTheCheckAndHoldAnImageItHadShown)
{
    testing::TempFolder home;
    StartedEditor editor(home.path());
    std::mt19937 random(first_seed);
    std::uniform_int_distribution<int> delay_us(10000, 150000);
    std::uniform_int_distribution<int> progress_bytes(1, 600);
    std::uniform_int_distribution<int> extra_us(0, 10000);
    const fs::path shown_log = home.path() / "shown.log";
    const auto log_size = [&shown_log] {
        std::error_code ec;
        const auto size = fs::file_size(shown_log, ec);
        return ec ? std::uintmax_t{0} : size;
    };
    int copies_checked = 0;
    int saves_seen = 0;
    int starts_with_copies = 0;
    for (int kill = 0; kill < kills; ++kill) {
        const unsigned seed = first_seed + static_cast<unsigned>(kill);
        if (!list_recovery_copies(home.path() / "recovery").empty()) ++starts_with_copies;
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        const std::uintmax_t before = log_size();
        if (child == 0) run_editor(editor, home.path(), seed);
        // Mostly the kill waits for the editor's own progress, some states
        // shown (so that a slow build, the sanitizers', meets as many copies
        // as a fast one), then a moment more; one kill in five is at a
        // moment of the clock alone, the start included.
        if (random() % 5 == 0) {
            ::usleep(static_cast<useconds_t>(delay_us(random)));
        } else {
            const std::uintmax_t target = before + static_cast<std::uintmax_t>(progress_bytes(random));
            for (int waited = 0; waited < 5000 && log_size() < target; ++waited) ::usleep(1000);
            ::usleep(static_cast<useconds_t>(extra_us(random)));
        }
        ::kill(child, SIGKILL);
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << "seed " << seed;

        const auto shown = hashes_in(home.path() / "shown.log");
        for (const RecoveryListing& l : all_recovery_copies(home.path())) {
            ASSERT_TRUE(l.copy) << l.file << " after the kill of seed " << seed;
            ErrorList errors;
            std::vector<std::string> rows;
            EXPECT_FALSE(check_image(l.copy->image, errors, rows)) << l.file << " seed " << seed;
            EXPECT_TRUE(shown.count(image_hash(l.copy->image))) << l.file << " seed " << seed;
            ++copies_checked;
        }
        // No half copy: nothing in recovery/ but the copies, the declined ones,
        // and the scratch file of a write the kill cut short, which the next
        // start removes.
        std::error_code ec;
        for (fs::directory_iterator it(home.path() / "recovery", ec), end; !ec && it != end; it.increment(ec)) {
            const auto name = it->path().filename().string();
            const bool cut_short = name.front() == '.' && it->path().extension() == ".saving";
            EXPECT_TRUE(name == "declined" || it->path().extension() == ".recovery" || cut_short) << name << " seed " << seed;
        }
        const fs::path user_file = home.path() / "user.kcf";
        if (fs::exists(user_file)) {
            EXPECT_TRUE(hashes_in(home.path() / "saved.log").count(image_hash(read_bytes(user_file))))
                << "seed " << seed;
            ++saves_seen;
        }
    }
    // The loop met copies, saves and starts that recover, not only starts.
    RecordProperty("copies_checked", copies_checked);
    RecordProperty("starts_with_copies", starts_with_copies);
    EXPECT_GT(copies_checked, kills / 2);
    EXPECT_GT(saves_seen, kills / 2);
    EXPECT_GT(starts_with_copies, kills / 4);
}

}  // namespace
}  // namespace tesselo
