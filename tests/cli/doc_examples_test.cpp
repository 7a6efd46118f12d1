// The examples of the README and of docs/*.md do what their text says: every
// ```console block is run, command by command, in a scratch folder with a
// fresh home folder and the built programs on the PATH, and what each
// command prints must be what the block shows under it.
//
// In a block, a line "$ COMMAND" is a command (a here-document that it opens
// runs on to its end marker); the lines up to the next command are what it
// prints, standard output and standard error as a terminal shows them; a
// line "..." stands for any number of lines. The blocks of one file run in
// order in one folder, so that a later example may use a file an earlier
// one made. The remote emulator's ports (127.0.0.1:5100, 127.0.0.1:5101, ...)
// are replaced by free ports, one for each.
#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <filesystem>
#include <fstream>
#include <map>
#include <netinet/in.h>
#include <regex>
#include <sstream>
#include <sys/socket.h>
#include <unistd.h>

#include "cli/cli_runner.h"
#include "support/test_app.h"

namespace tesselo::testing {
namespace {

namespace fs = std::filesystem;

struct Command {
    std::string text;                   // as the shell reads it
    std::vector<std::string> expected;  // the lines it prints
    int line = 0;                       // in the document
};

struct Block {
    std::vector<Command> commands;
};

std::vector<std::string> lines_of(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream in(text);
    std::string line;
    while (std::getline(in, line)) lines.push_back(line);
    return lines;
}

std::vector<Block> console_blocks(const fs::path& document)
{
    std::ifstream in(document);
    std::stringstream all;
    all << in.rdbuf();
    const auto lines = lines_of(all.str());
    std::vector<Block> blocks;
    const std::regex here_document("<<-?'?([A-Za-z_]+)'?");
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i] != "```console") continue;
        Block block;
        for (++i; i < lines.size() && lines[i] != "```"; ++i) {
            const std::string& line = lines[i];
            if (line.rfind("$ ", 0) == 0) {
                Command command{line.substr(2), {}, static_cast<int>(i + 1)};
                std::smatch end;
                if (std::regex_search(command.text, end, here_document)) {
                    const std::string marker = end[1];
                    while (++i < lines.size()) {
                        command.text += "\n" + lines[i];
                        if (lines[i] == marker) break;
                    }
                }
                block.commands.push_back(command);
            } else if (!block.commands.empty()) {
                block.commands.back().expected.push_back(line);
            } else {
                ADD_FAILURE() << document << ":" << i + 1 << ": output before any command";
            }
        }
        blocks.push_back(block);
    }
    return blocks;
}

// Lines against the expected ones, where "..." matches any run of lines.
bool matches(const std::vector<std::string>& expected, std::size_t e, const std::vector<std::string>& actual,
             std::size_t a)
{
    if (e == expected.size()) return a == actual.size();
    if (expected[e] == "...") {
        for (std::size_t skip = a; skip <= actual.size(); ++skip)
            if (matches(expected, e + 1, actual, skip)) return true;
        return false;
    }
    return a < actual.size() && expected[e] == actual[a] && matches(expected, e + 1, actual, a + 1);
}

std::string joined(const std::vector<std::string>& lines)
{
    std::string text;
    for (const auto& l : lines) text += l + "\n";
    return text;
}

int free_port()
{
    const int s = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    int port = 0;
    if (bind(s, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0 &&
        getsockname(s, reinterpret_cast<sockaddr*>(&address), &size) == 0)
        port = ntohs(address.sin_port);
    close(s);
    return port;
}

// Runs the blocks of one document in `folder`; each command's output is
// checked against its block.
void run_examples(const fs::path& document, const fs::path& folder)
{
    const auto blocks = console_blocks(document);
    // Each port of the examples, 51NN, becomes a free one.
    const std::regex example_port("127\\.0\\.0\\.1:51[0-9][0-9]");
    std::map<std::string, std::string> ports;
    const auto free_ports = [&](const std::string& text) {
        std::string out;
        std::sregex_iterator it(text.begin(), text.end(), example_port), end;
        std::size_t at = 0;
        for (; it != end; ++it) {
            auto& port = ports[it->str()];
            if (port.empty()) port = "127.0.0.1:" + std::to_string(free_port());
            out += text.substr(at, static_cast<std::size_t>(it->position()) - at) + port;
            at = static_cast<std::size_t>(it->position() + it->length());
        }
        return out + text.substr(at);
    };
    const std::string marker = "@@@ tesselo example @@@";
    for (const Block& block : blocks) {
        // One shell for the block: a job started with & runs on to its later lines.
        std::string script = "exec 2>&1\ncd " + shell_quote(folder.string()) + "\n";
        for (const Command& c : block.commands)
            script += "echo '" + marker + "'\n" + free_ports(c.text) + "\n";
        script += "wait\n";
        const fs::path file = folder / ".example.sh";
        std::ofstream(file) << script;
        const std::string environment = "env -i PATH=" + shell_quote(std::string(TESSELO_BUILD_BIN) + ":/usr/bin:/bin") +
                                        " HOME=" + shell_quote(folder.string()) + " TESSELO_HOME=" +
                                        shell_quote((folder / "home").string()) + " LANG=C.UTF-8 ";
        FILE* pipe = popen((environment + "sh " + shell_quote(file.string()) + " </dev/null").c_str(), "r");
        ASSERT_NE(pipe, nullptr);
        std::string out;
        char buffer[4096];
        std::size_t n;
        while ((n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0) out.append(buffer, n);
        pclose(pipe);
        // The output of each command, between the markers.
        std::vector<std::vector<std::string>> printed;
        for (const auto& line : lines_of(out)) {
            if (line == marker) printed.emplace_back();
            else if (!printed.empty()) printed.back().push_back(line);
        }
        ASSERT_EQ(printed.size(), block.commands.size()) << document << ": the block at line "
                                                         << block.commands.front().line << " stopped early:\n" << out;
        for (std::size_t i = 0; i < block.commands.size(); ++i) {
            const Command& c = block.commands[i];
            std::vector<std::string> expected;
            for (const auto& line : c.expected) expected.push_back(free_ports(line));
            EXPECT_TRUE(matches(expected, 0, printed[i], 0))
                << document.filename() << ":" << c.line << ": $ " << c.text << "\nexpected:\n"
                << joined(expected) << "printed:\n" << joined(printed[i]);
        }
    }
}

std::vector<fs::path> documents()
{
    std::vector<fs::path> found{fs::path(TESSELO_SOURCE_DIR) / "README.md"};
    for (const auto& entry : fs::directory_iterator(fs::path(TESSELO_SOURCE_DIR) / "docs"))
        if (entry.path().extension() == ".md") found.push_back(entry.path());
    std::sort(found.begin() + 1, found.end());
    return found;
}

TEST(DocExamples, EveryConsoleBlockDoesWhatItsTextSays)
{
#ifndef TESSELO_WITH_WINDOWS
    // The manuals show the programs as they are built with Qt: without it
    // tesselo-cli has no overview.
    GTEST_SKIP() << "tesselo-cli is built without Qt";
#endif
    int blocks = 0;
    for (const fs::path& document : documents()) {
        const auto found = console_blocks(document);
        if (found.empty()) continue;
        blocks += static_cast<int>(found.size());
        TempFolder folder;
        SCOPED_TRACE(document.string());
        run_examples(document, folder.path());
    }
    // The README's first session and the command-line manual have examples.
    EXPECT_FALSE(console_blocks(fs::path(TESSELO_SOURCE_DIR) / "README.md").empty());
    EXPECT_GE(console_blocks(fs::path(TESSELO_SOURCE_DIR) / "docs" / "cli.md").size(), 10u);
    EXPECT_GT(blocks, 0);
}

TEST(DocExamples, TheReadmeShowsAFirstSessionInFiveLines)
{
    const auto blocks = console_blocks(fs::path(TESSELO_SOURCE_DIR) / "README.md");
    ASSERT_FALSE(blocks.empty());
    EXPECT_EQ(blocks.front().commands.size(), 5u);
    for (const Command& c : blocks.front().commands) {
        EXPECT_NE(c.text.find("tesselo-cli "), std::string::npos) << c.text;
        EXPECT_EQ(c.text.find('\n'), std::string::npos) << c.text;
    }
}

TEST(DocExamples, ExpectedLinesMatchWithGaps)
{
    EXPECT_TRUE(matches({"a", "...", "d"}, 0, {"a", "b", "c", "d"}, 0));
    EXPECT_TRUE(matches({"a", "..."}, 0, {"a"}, 0));
    EXPECT_FALSE(matches({"a", "d"}, 0, {"a", "b", "d"}, 0));
    EXPECT_FALSE(matches({"a"}, 0, {"a", "b"}, 0));
}

}  // namespace
}  // namespace tesselo::testing
