#pragma once

#include <string>
#include <vector>

#include "core/document/launcher.h"

namespace tesselo {

// Processes are found by their executable in /proc; documents open with
// xdg-open, the desktop's own viewer.
class PosixLauncher final : public Launcher {
public:
    std::string program_path(const std::string& name) override;
    bool is_running(const std::string& program) override;
    void bring_forward(const std::string& program) override;
    bool start(const std::string& program, const std::vector<std::string>& arguments,
               const std::string& working_folder) override;
    void end_process(const std::string& program) override;
    int open_document(const std::string& path) override;

    // The processes whose executable is `program`.
    static std::vector<int> processes_of(const std::string& program);
};

}  // namespace tesselo
