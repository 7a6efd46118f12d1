#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "app/cli/cli_context.h"

namespace tesselo::cli {

// What every command shares: the home folder option, and the link to the
// remote (usb, tcp:HOST:PORT or emulator; else TESSELO_LINK, else usb).
struct GlobalOptions {
    std::string home;
    std::string link;
};

// Makes the application for one command, in the home folder the options,
// the environment or the rule of the program's folder choose.
std::unique_ptr<CliContext> make_context(const GlobalOptions& options);
// The same, with the messages printed to `messages` (so that a command's own
// output stays clean).
std::unique_ptr<CliContext> make_context(const GlobalOptions& options, std::ostream& messages);

// Each family of commands adds its subcommands; `run` is set to the chosen
// command's work and gives the exit status.
using CommandRun = std::function<int()>;
void add_document_commands(CLI::App& app, const GlobalOptions& options, CommandRun& run);
void add_file_commands(CLI::App& app, const GlobalOptions& options, CommandRun& run);
void add_script_command(CLI::App& app, const GlobalOptions& options, CommandRun& run);
void add_link_commands(CLI::App& app, const GlobalOptions& options, CommandRun& run);
void add_ir_commands(CLI::App& app, const GlobalOptions& options, CommandRun& run);
void add_simulate_command(CLI::App& app, const GlobalOptions& options, CommandRun& run);
void add_overview_command(CLI::App& app, const GlobalOptions& options, CommandRun& run);
void add_recover_command(CLI::App& app, const GlobalOptions& options, CommandRun& run);

// The --on-fault option of the commands that open a file: how the error
// window is answered (cancel, keep or correct).
void on_fault_option(CLI::App* cmd, std::string& on_fault);

// Every command of the program, each family in turn.
void add_all_commands(CLI::App& app, const GlobalOptions& options, CommandRun& run);

}  // namespace tesselo::cli
