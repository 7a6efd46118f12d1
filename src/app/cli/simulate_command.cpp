// simulate FILE [SCRIPT]: the image run as the remote runs it, headless, with
// the gestures of SCRIPT (or standard input).
#include <fstream>
#include <iostream>

#include "app/cli/commands.h"
#include "app/cli/input_file.h"
#include "app/cli/script_runner.h"
#include "app/cli/script_targets.h"
#include "core/image/byte_reader.h"
#include "core/keys/ir_step_names.h"
#include "core/sim/remote_simulator.h"

namespace tesselo::cli {

namespace {

// One gesture; false when the line cannot be understood.
bool run_gesture(RemoteSimulator& sim, const ScriptArgs& w, std::ostream& out)
{
    const auto print = [&out](const std::vector<SimAction>& actions) {
        for (const auto& a : actions) out << a.line << '\n';
    };
    if (w.size() == 1 && w[0] == "screen") {
        for (const auto& line : sim.screen()) out << line << '\n';
        return true;
    }
    if (w.size() == 1 && w[0] == "home") {
        sim.home();
        return true;
    }
    if (w.size() == 2 && w[0] == "page" && (w[1] == "next" || w[1] == "prev")) {
        if (w[1] == "next") sim.page_next();
        else sim.page_prev();
        return true;
    }
    if (w.size() >= 3 && w[0] == "press" && w[1] == "soft" && (w.size() == 3 || (w.size() == 4 && w[3] == "left"))) {
        const int row = number_in(w[2], 0, 5);
        if (row < 0) return false;
        print(sim.press_soft(row, w.size() == 4));
        return true;
    }
    if (w.size() == 3 && w[0] == "press" && w[1] == "hard") {
        const int key = number_in(w[2], 0, hardkeys_per_device - 1);
        if (key < 0) return false;
        print(sim.press_hard(key));
        return true;
    }
    return false;
}

int command_simulate(const GlobalOptions& options, const std::string& file, const std::string& script)
{
    auto ctx = make_context(options, std::cerr);
    std::vector<std::uint8_t> bytes;
    if (!read_input_file(file, bytes)) return exit_usage;
    const LibraryStepNames names(ctx->app.home(), &ctx->app.my_database());
    std::unique_ptr<RemoteSimulator> sim;
    try {
        sim = RemoteSimulator::from_image(std::move(bytes), names);
    } catch (const ImageBoundsError&) {
        report_corrupted(file);
        return exit_usage;
    }
    std::ifstream script_file;
    if (!script.empty() && script != "-" && !open_input_script(script, script_file)) return exit_usage;
    std::istream& in = script_file.is_open() ? static_cast<std::istream&>(script_file) : std::cin;
    std::string line;
    for (int number = 1; std::getline(in, line); ++number) {
        const auto words = split_script_line(line);
        if (!words || words->empty()) {
            if (!words) {
                std::cerr << "line " << number << ": an unclosed quote\n";
                return exit_usage;
            }
            continue;
        }
        if (!run_gesture(*sim, *words, std::cout)) {
            std::cerr << "line " << number << ": cannot run '" << line << "'\n";
            return exit_usage;
        }
    }
    return exit_done;
}

}  // namespace

void add_simulate_command(CLI::App& app, const GlobalOptions& options, CommandRun& run)
{
    auto* cmd = app.add_subcommand("simulate");
    auto file = std::make_shared<std::string>();
    auto script = std::make_shared<std::string>();
    cmd->add_option("FILE", *file, "a .kcf file or temp.trl")->required();
    cmd->add_option("SCRIPT", *script, "the gestures ('-' or none: standard input)");
    cmd->callback([&options, &run, file, script] {
        run = [&options, file, script] { return command_simulate(options, *file, *script); };
    });
}

}  // namespace tesselo::cli
