#pragma once

#include <string>
#include <vector>

#include "core/document/launcher.h"

namespace tesselo::bench {

// A launcher for benchmarks: nothing runs, nothing is started or opened.
class QuietLauncher final : public Launcher {
public:
    std::string program_path(const std::string& name) override { return name; }
    bool is_running(const std::string&) override { return false; }
    void bring_forward(const std::string&) override {}
    bool start(const std::string&, const std::vector<std::string>&, const std::string&) override { return false; }
    void end_process(const std::string&) override {}
    int open_document(const std::string&) override { return 2; }
};

}  // namespace tesselo::bench
