// What the editor greys, a script refuses: the line ends the script with
// status 2 and says why, and nothing after it runs.
#include <gtest/gtest.h>

#include "cli/cli_runner.h"
#include "support/test_app.h"

namespace tesselo {
namespace {

using namespace tesselo::testing;

struct CliGreyed : ::testing::Test {
    TempFolder home;
    // Standard output and standard error together: the refusal is the last line.
    CliResult script(const std::string& lines)
    {
        return run_cli("script - --home " + shell_quote(home.path().string()) + " 2>&1", lines);
    }
    static std::string last_line(const std::string& out)
    {
        std::string text = out;
        if (!text.empty() && text.back() == '\n') text.pop_back();
        const auto cut = text.rfind('\n');
        return cut == std::string::npos ? text : text.substr(cut + 1);
    }
    // `line` after `lines` stops the script as line `number`, with status 2 and why.
    void expect_greyed(const std::string& lines, int number, const std::string& line, const std::string& why)
    {
        const auto r = script(lines + line + "\nsteps\n");
        EXPECT_EQ(r.status, 2) << line;
        EXPECT_EQ(last_line(r.out), "line " + std::to_string(number) + ": cannot run '" + line + "': " + why);
    }
    // The script runs whole, and its last line is `last`.
    void expect_done(const std::string& lines, const std::string& last)
    {
        const auto r = script(lines);
        EXPECT_EQ(r.status, 0) << r.out;
        EXPECT_EQ(last_line(r.out), last);
    }
};

const std::string two_devices = "new\nadd-device\nadd-device\n";

TEST_F(CliGreyed, StepsOnAKeyPunchedThroughFromAnotherDevice)
{
    const std::string owner = two_devices + "select DEVICE11\\PAGE1\nkey hard 22\nanswer ok\npunch on\n";
    const std::string punched = owner + "select DEVICE21\\PAGE1\nkey hard 22\n";
    for (const std::string line : {"add-delay 1", "add-beep 0.2 4", "add-jump HOME1\\PAGE1", "add-ir rc5 0 12",
                                   "delete-step 1", "edit-step 1", "test-ir rc5 0 12"})
        expect_greyed(punched, 10, line, "the key is punched through from another device, whose steps it runs");
    // The owner's own list stays editable.
    expect_done(owner + "add-delay 1\nsteps\n", "DELAY 1 S");
}

TEST_F(CliGreyed, AddIrOnALeftButtonLinkedToTheRightOne)
{
    const std::string left = two_devices + "select DEVICE11\\PAGE1\nkey soft 2 left\n";
    expect_greyed(left, 6, "add-ir rc5 0 12", "the left button is linked to the right side button, whose key it runs");
    // With Link to Right side button cleared the left key takes steps of its own.
    expect_done(left + "link-right off\nadd-ir rc5 0 12\nsteps\n", "RC5 0 12");
}

TEST_F(CliGreyed, AddIrOnAnEmptyRowOfAHomePage)
{
    expect_greyed(two_devices + "select HOME1\\PAGE1\nkey soft 3\n", 6, "add-ir rc5 0 12",
                  "an empty row of a HOME page is no key");
}

TEST_F(CliGreyed, PasteAfterDelete)
{
    const std::string copied = two_devices + "select DEVICE11\nfocus tree\ncopy\n";
    expect_done(copied + "paste\n", "");
    expect_greyed(copied + "select DEVICE21\ndelete\n", 9, "paste", "the Edit menu's Paste is greyed here");
}

TEST_F(CliGreyed, ASplitKeyOnTheTitleRow)
{
    expect_greyed(two_devices + "select DEVICE11\\PAGE1\nkey soft 0 left\n", 6, "link-right off",
                  "the title row gets no left key of its own");
    // Row 1 splits as before.
    expect_done(two_devices + "select DEVICE11\\PAGE1\nkey soft 1 left\nlink-right off\n", "");
}

}  // namespace
}  // namespace tesselo
