#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "core/document/application.h"
#include "core/document/clock.h"
#include "core/document/launcher.h"
#include "core/document/scripted_ui.h"

namespace tesselo::testing {

// A launcher that remembers what it was asked and answers as told.
class RecordingLauncher : public Launcher {
public:
    bool running = false;
    bool start_succeeds = true;
    int open_result = 33;
    std::vector<std::string> calls;

    bool is_running(const std::string& program) override
    {
        calls.push_back("is_running " + program);
        return running;
    }
    void bring_forward(const std::string& program) override { calls.push_back("bring_forward " + program); }
    bool start(const std::string& program, const std::string& folder) override
    {
        calls.push_back("start " + program + " in " + folder);
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

// An application with the scripted Ui, a virtual clock and a recording
// launcher, its home folder a fresh temporary one.
struct TestApp {
    TempFolder home;
    std::ostringstream out;
    ScriptedUi ui{out};
    VirtualClock clock;
    RecordingLauncher launcher;
    Application app{ui, clock, launcher, home.path()};

    // The lines printed so far, and forget them.
    std::vector<std::string> take_lines()
    {
        std::vector<std::string> lines;
        std::istringstream in(out.str());
        for (std::string line; std::getline(in, line);) lines.push_back(line);
        out.str("");
        return lines;
    }
    std::vector<std::string> log_lines() const
    {
        std::vector<std::string> lines;
        std::ifstream in(home.path() / "logfile_20261115.txt");
        for (std::string line; std::getline(in, line);) lines.push_back(line);
        return lines;
    }
};

inline std::vector<std::uint8_t> read_bytes(const std::filesystem::path& path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

}  // namespace tesselo::testing
