#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace tesselo::cli {

// One line of the program's help: how it is written, and what it does. The
// help is the one source of the manual page (made from --help-all) and of the
// tables of docs/cli.md (checked against it).
struct HelpEntry {
    std::string usage;
    std::string description;
};

// Every form of every command, in the order of the manual.
const std::vector<HelpEntry>& command_help();
// Every script operation; forms of one family share a line ("save / save-as PATH").
const std::vector<HelpEntry>& script_operation_help();
// The gestures of `simulate` and what a press prints.
const std::vector<HelpEntry>& simulator_gesture_help();
const std::vector<HelpEntry>& simulator_action_help();

// The description of the command at `path` ("new", "ir encode"), for its own
// --help: the entries of its forms, joined.
std::string command_description(const std::string& path);

// The names that a usage line's forms begin with: "save / save-as PATH" gives
// save and save-as.
std::vector<std::string> usage_names(const std::string& usage);

// --help: the options and the commands. --help-all adds the script
// operations, the simulator's gestures, the exit status and the environment.
std::string help_text(const CLI::App& app, bool all);

}  // namespace tesselo::cli
