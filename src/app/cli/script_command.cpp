#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "app/cli/commands.h"
#include "app/cli/script_runner.h"

namespace tesselo::cli {

namespace {

// A script may come from a pipe as well as from a file; a folder is refused
// with the words that every command uses for a file it cannot read.
std::optional<std::string> script_unreadable(const std::string& path, std::ifstream& in)
{
    std::error_code ec;
    if (std::filesystem::is_directory(path, ec)) return std::make_error_code(std::errc::is_a_directory).message();
    errno = 0;
    in.open(path);
    if (!in) return std::generic_category().message(errno ? errno : EIO);
    return std::nullopt;
}

}  // namespace

void add_script_command(CLI::App& app, const GlobalOptions& options, CommandRun& run)
{
    auto* cmd = app.add_subcommand("script", "replays the operations in FILE ('-' reads standard input)");
    auto file = std::make_shared<std::string>();
    cmd->add_option("FILE", *file, "the script")->required();
    cmd->callback([&options, &run, file] {
        run = [&options, file] {
            auto ctx = make_context(options);
            if (*file == "-") return run_script(*ctx, std::cin);
            std::ifstream in;
            if (const auto why = script_unreadable(*file, in)) {
                std::cerr << "tesselo-cli: cannot read " << *file << ": " << *why << '\n';
                return exit_usage;
            }
            return run_script(*ctx, in);
        };
    });
}

}  // namespace tesselo::cli
