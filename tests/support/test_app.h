#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "core/app/application.h"
#include "core/document/clock.h"
#include "core/document/launcher.h"
#include "core/document/scripted_ui.h"
#include "platform/posix_file_store.h"

namespace tesselo::testing {

// A launcher that remembers what it was asked and answers as told.
class RecordingLauncher : public Launcher {
public:
    bool running = false;
    bool start_succeeds = true;
    int open_result = 33;
    std::vector<std::string> calls;
    // The folder our programs stand in.
    std::string program_folder = "/opt/tesselo/bin";

    std::string program_path(const std::string& name) override { return program_folder + "/" + name; }

    bool is_running(const std::string& program) override
    {
        calls.push_back("is_running " + program);
        return running;
    }
    void bring_forward(const std::string& program) override { calls.push_back("bring_forward " + program); }
    bool start(const std::string& program, const std::vector<std::string>& arguments,
               const std::string& folder) override
    {
        std::string line = "start " + program;
        for (const auto& a : arguments) line += " " + a;
        calls.push_back(line + " in " + folder);
        return start_succeeds;
    }
    void end_process(const std::string& program) override { calls.push_back("end_process " + program); }
    int open_document(const std::string& path) override
    {
        calls.push_back("open_document " + path);
        return open_result;
    }
};

// A fresh folder below the system's temporary folder, removed at the end.
class TempFolder {
public:
    TempFolder()
    {
        std::random_device rd;
        path_ = std::filesystem::temp_directory_path() / ("tesselo-test-" + std::to_string(rd()) + std::to_string(rd()));
        std::filesystem::create_directories(path_);
    }
    ~TempFolder()
    {
        std::error_code ec;
        std::filesystem::remove_all(path_, ec);
    }
    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

// The lines printed into `out` so far, one a line; `out` forgets them.
inline std::vector<std::string> take_printed_lines(std::ostringstream& out)
{
    std::vector<std::string> lines;
    std::istringstream in(out.str());
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    out.str("");
    return lines;
}

inline std::vector<std::uint8_t> read_bytes(const std::filesystem::path& path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

}  // namespace tesselo::testing

namespace tesselo::testing {

// A scripted Ui that also remembers the dialogs it was shown and the progress
// and wait cursor it was given.
class RecordingUi : public ScriptedUi {
public:
    using ScriptedUi::ScriptedUi;
    struct Dialog {
        std::string kind, title, filter, suggested;
    };
    std::vector<Dialog> dialogs;
    std::vector<std::pair<int, int>> progress_values;
    std::vector<Icon> icons;
    int wait_depth = 0;
    int wait_calls = 0;

    void message(const std::string& title, const std::string& text, Icon icon) override
    {
        icons.push_back(icon);
        ScriptedUi::message(title, text, icon);
    }
    Answer ask(const std::string& title, const std::string& text, Buttons buttons, Icon icon) override
    {
        icons.push_back(icon);
        return ScriptedUi::ask(title, text, buttons, icon);
    }
    std::optional<std::string> open_file(const std::string& title, const std::string& filter) override
    {
        dialogs.push_back({"open", title, filter, {}});
        return ScriptedUi::open_file(title, filter);
    }
    std::optional<std::string> save_file(const std::string& title, const std::string& filter,
                                         const std::string& suggested) override
    {
        dialogs.push_back({"save", title, filter, suggested});
        return ScriptedUi::save_file(title, filter, suggested);
    }
    void progress(int value, int maximum) override { progress_values.emplace_back(value, maximum); }
    void wait_cursor(bool on) override
    {
        wait_depth += on ? 1 : -1;
        if (on) ++wait_calls;
    }
};

// An application with a scripted Ui, a virtual clock and a recording
// launcher, its home folder a fresh temporary one.
template <typename UiType>
struct BasicTestApp {
    TempFolder home;
    std::ostringstream out;
    UiType ui{out};
    VirtualClock clock;
    RecordingLauncher launcher;
    PosixFileStore files;
    Application app{ui, clock, launcher, files, home.path()};

    // The lines printed so far, and forget them.
    std::vector<std::string> take_lines() { return take_printed_lines(out); }
    // The lines of the day's log (the virtual clock's day).
    std::vector<std::string> log_lines() const
    {
        std::vector<std::string> lines;
        std::ifstream in(home.path() / "logfile_20261115.txt");
        for (std::string line; std::getline(in, line);) lines.push_back(line);
        return lines;
    }
};

using TestApp = BasicTestApp<ScriptedUi>;
using RecordingApp = BasicTestApp<RecordingUi>;

}  // namespace tesselo::testing
