#pragma once

#include <filesystem>
#include <iostream>
#include <memory>
#include <string>

#include "core/app/application.h"
#include "app/cli/cli_clock.h"
#include "core/document/scripted_ui.h"
#include "platform/posix_file_store.h"
#include "platform/posix_launcher.h"

namespace tesselo::cli {

// Exit statuses of tesselo-cli.
inline constexpr int exit_done = 0;
inline constexpr int exit_refused = 1;
inline constexpr int exit_usage = 2;
inline constexpr int exit_unanswered = 3;

// One run of tesselo-cli: the application with the command line's ports.
struct CliContext {
    explicit CliContext(const std::filesystem::path& home, std::ostream& out = std::cout)
        : ui(out), app(ui, clock, launcher, files, home), output(out)
    {
    }
    ScriptedUi ui;
    CliClock clock;
    PosixLauncher launcher;
    PosixFileStore files;
    Application app;
    std::ostream& output;
    // Set when the link's description could not be understood; the words say why.
    std::string link_error;
    // Why the editor greys what a script line asked for: the line is refused
    // with these words.
    std::string greyed;
};

}  // namespace tesselo::cli
