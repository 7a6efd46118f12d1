#pragma once

#include <filesystem>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <system_error>

#include "core/app/application.h"
#include "core/document/clock.h"
#include "core/document/scripted_ui.h"
#include "core/keys/key_locator.h"
#include "core/keys/key_selection.h"
#include "platform/posix_file_store.h"
#include "quiet_launcher.h"

namespace tesselo::bench {

// An application for a benchmark: its home a fresh folder of its own below
// the system's temporary folder, removed at the end; its scripted Ui prints
// into `out` and answers from its queue; the clock is virtual.
struct BenchHost {
    std::filesystem::path home;
    std::ostringstream out;
    ScriptedUi ui{out};
    VirtualClock clock;
    QuietLauncher launcher;
    PosixFileStore files;
    std::unique_ptr<Application> app;

    explicit BenchHost(const std::string& name)
        : home(std::filesystem::temp_directory_path() / (name + "-" + std::to_string(std::random_device{}())))
    {
        std::filesystem::create_directories(home);
        app = std::make_unique<Application>(ui, clock, launcher, files, home);
    }
    ~BenchHost()
    {
        std::error_code ec;
        std::filesystem::remove_all(home, ec);
    }
    BenchHost(const BenchHost&) = delete;
    BenchHost& operator=(const BenchHost&) = delete;
};

// The place of hard key `key` (0 to 40) of device row `device`.
inline KeyPlace hard_key_place(int device, int key)
{
    KeyPlace place;
    place.kind = kind_hard;
    place.device = device;
    place.hard_entry = device * hardkeys_per_device + key;
    return place;
}

}  // namespace tesselo::bench
