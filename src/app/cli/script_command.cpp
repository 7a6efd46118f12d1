#include <fstream>

#include "app/cli/commands.h"
#include "app/cli/input_file.h"
#include "app/cli/script_runner.h"

namespace tesselo::cli {

void add_script_command(CLI::App& app, const GlobalOptions& options, CommandRun& run)
{
    auto* cmd = app.add_subcommand("script");
    auto file = std::make_shared<std::string>();
    cmd->add_option("FILE", *file, "the script")->required();
    cmd->callback([&options, &run, file] {
        run = [&options, file] {
            auto ctx = make_context(options);
            if (*file == "-") return run_script(*ctx, std::cin);
            std::ifstream in;
            if (!open_input_script(*file, in)) return exit_usage;
            return run_script(*ctx, in);
        };
    });
}

}  // namespace tesselo::cli
