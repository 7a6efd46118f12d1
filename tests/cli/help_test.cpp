// The program's help is the one source of its manual page and of the tables
// of docs/cli.md: it names every command and every script operation that the
// program knows, and nothing it does not.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <set>

#include "app/cli/commands.h"
#include "app/cli/help_text.h"
#include "app/cli/script_runner.h"
#include "cli/cli_runner.h"

namespace tesselo::testing {
namespace {

using namespace tesselo::cli;

// The commands as the parser knows them: "new", "ir encode", ...
void leaf_commands(CLI::App& app, const std::string& path, std::set<std::string>& out)
{
    const auto subs = app.get_subcommands([](CLI::App*) { return true; });
    if (subs.empty() && !path.empty()) out.insert(path);
    for (CLI::App* sub : subs) leaf_commands(*sub, path.empty() ? sub->get_name() : path + " " + sub->get_name(), out);
}

std::set<std::string> parser_commands()
{
    CLI::App app;
    GlobalOptions options;
    CommandRun run;
    add_all_commands(app, options, run);
    std::set<std::string> names;
    leaf_commands(app, "", names);
    return names;
}

TEST(CliHelp, DescribesEveryCommandOfTheParserAndNoOther)
{
    const auto commands = parser_commands();
    ASSERT_FALSE(commands.empty());
    for (const auto& command : commands) EXPECT_FALSE(command_description(command).empty()) << command;
    for (const auto& entry : command_help()) {
        // "ir encode rc5 S C | ..." belongs to "ir encode", "library code ..." to "library".
        bool known = false;
        for (const auto& command : commands)
            known = known || entry.usage == command || entry.usage.rfind(command + " ", 0) == 0;
        EXPECT_TRUE(known) << entry.usage;
    }
}

TEST(CliHelp, DescribesEveryScriptOperationAndNoOther)
{
    std::set<std::string> described;
    for (const auto& entry : script_operation_help())
        for (const auto& name : usage_names(entry.usage)) described.insert(name);
    std::set<std::string> known;
    for (const auto& [name, operation] : script_operations()) known.insert(name);
    EXPECT_EQ(described, known);
}

TEST(CliHelp, UsageNamesAreTheFirstWordsOfEachForm)
{
    EXPECT_EQ(usage_names("save / save-as PATH"), (std::vector<std::string>{"save", "save-as"}));
    EXPECT_EQ(usage_names("device ir|rf / blaster on|off"), (std::vector<std::string>{"device", "blaster"}));
    EXPECT_EQ(usage_names("new"), std::vector<std::string>{"new"});
}

TEST(CliHelp, HelpListsTheCommandsAndHelpAllTheScriptAndTheSimulator)
{
    const auto help = run_cli("--help");
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.out.rfind("tesselo-cli: ", 0), 0u);
    EXPECT_NE(help.out.find("Usage: tesselo-cli [OPTIONS] COMMAND [ARGS...]"), std::string::npos);
    for (const auto& entry : command_help()) EXPECT_NE(help.out.find("  " + entry.usage), std::string::npos) << entry.usage;
    EXPECT_EQ(help.out.find("Script operations:"), std::string::npos);

    const auto all = run_cli("--help-all");
    EXPECT_EQ(all.status, 0);
    for (const auto* section : {&script_operation_help(), &simulator_gesture_help(), &simulator_action_help()})
        for (const auto& entry : *section) EXPECT_NE(all.out.find("  " + entry.usage), std::string::npos) << entry.usage;
    for (const char* title : {"Commands:", "Script operations:", "Simulator gestures:", "Exit status:", "Environment:"})
        EXPECT_NE(all.out.find(std::string("\n") + title + "\n"), std::string::npos) << title;
    // Every line fits a terminal of 80 columns, but a usage longer than its column.
    std::size_t start = 0;
    while (start < all.out.size()) {
        const std::size_t end = all.out.find('\n', start);
        const std::string line = all.out.substr(start, end - start);
        const bool usage_alone = line.size() > 2 && line[2] != ' ' && line.find("   ") == std::string::npos;
        if (!usage_alone) EXPECT_LE(line.size(), 79u) << line;
        start = end + 1;
    }
}

TEST(CliHelp, VersionAndEachCommandsOwnHelp)
{
    const auto version = run_cli("--version");
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.out, "tesselo-cli " TESSELO_VERSION "\n");
    const auto encode = run_cli("ir encode --help");
    EXPECT_EQ(encode.status, 0);
    EXPECT_EQ(encode.out.rfind(command_description("ir encode") + "\n", 0), 0u);
    EXPECT_NE(encode.out.find("Usage: tesselo-cli ir encode"), std::string::npos);
}

// The rows of docs/cli.md's tables, by their header: "command", "operation",
// "gesture" or "action", each row its usage (out of its backticks) and its
// description, with the table's escaped bars read back.
std::map<std::string, std::set<std::pair<std::string, std::string>>> manual_tables()
{
    std::ifstream in(std::filesystem::path(TESSELO_SOURCE_DIR) / "docs" / "cli.md");
    std::map<std::string, std::set<std::pair<std::string, std::string>>> tables;
    std::string line;
    std::string kind;
    const auto unescape = [](std::string cell) {
        for (std::size_t at = cell.find("\\|"); at != std::string::npos; at = cell.find("\\|", at)) cell.erase(at, 1);
        return cell;
    };
    while (std::getline(in, line)) {
        if (line.empty() || line[0] != '|') {
            kind.clear();
            continue;
        }
        // Cells split on bars that are not escaped.
        std::vector<std::string> cells;
        std::string cell;
        for (std::size_t i = 1; i < line.size(); ++i) {
            if (line[i] == '|' && line[i - 1] != '\\') {
                cells.push_back(cell.substr(cell.find_first_not_of(' '), cell.find_last_not_of(' ') - cell.find_first_not_of(' ') + 1));
                cell.clear();
            } else {
                cell += line[i];
            }
        }
        if (cells.size() != 2) continue;
        if (kind.empty()) {
            kind = cells[0];
            continue;
        }
        if (cells[0].rfind("---", 0) == 0) continue;
        std::string usage = unescape(cells[0]);
        if (usage.size() > 2 && usage.front() == '`' && usage.back() == '`') usage = usage.substr(1, usage.size() - 2);
        tables[kind].insert({usage, unescape(cells[1])});
    }
    return tables;
}

std::set<std::pair<std::string, std::string>> rows_of(const std::vector<HelpEntry>& entries)
{
    std::set<std::pair<std::string, std::string>> rows;
    for (const auto& e : entries) rows.insert({e.usage, e.description});
    return rows;
}

TEST(CliHelp, TheManualsTablesAreTheHelpWordForWord)
{
    auto tables = manual_tables();
    EXPECT_EQ(tables["command"], rows_of(command_help()));
    EXPECT_EQ(tables["operation"], rows_of(script_operation_help()));
    EXPECT_EQ(tables["gesture"], rows_of(simulator_gesture_help()));
    EXPECT_EQ(tables["action"], rows_of(simulator_action_help()));
}

}  // namespace
}  // namespace tesselo::testing
