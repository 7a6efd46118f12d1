#pragma once

// The application that a harness drives, made once for all runs: a scripted
// Ui that prints nowhere, the virtual clock, and a home folder that can never
// exist (below a device), so that millions of runs write no log.
#include <ostream>

#include "core/app/application.h"
#include "core/document/clock.h"
#include "core/document/lifecycle.h"
#include "core/document/scripted_ui.h"
#include "platform/posix_file_store.h"
#include "platform/posix_launcher.h"

namespace tesselo::fuzzing {

struct FuzzApp {
    std::ostream sink{nullptr};
    ScriptedUi ui{sink};
    VirtualClock clock;
    PosixLauncher launcher;
    PosixFileStore files;
    Application app{ui, clock, launcher, files, "/dev/null/tesselo-fuzz"};

    // Closes the document without saving it, as a user who answers No.
    void close(int document)
    {
        ui.clear_answers();
        ui.queue_answer("no");
        close_document(app, document);
        ui.clear_answers();
    }
};

inline FuzzApp& fuzz_app()
{
    static FuzzApp* app = new FuzzApp;  // lives to the end of the process
    return *app;
}

}  // namespace tesselo::fuzzing
