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
};

const std::string two_devices = "new\nadd-device\nadd-device\n";

TEST_F(CliGreyed, StepsOnAKeyPunchedThroughFromAnotherDevice)
{
    const std::string punched = two_devices +
                                "select DEVICE11\\PAGE1\nkey hard 22\nanswer ok\npunch on\n"
                                "select DEVICE21\\PAGE1\nkey hard 22\n";
    const std::string why = "the key is punched through from another device, whose steps it runs";
    for (const std::string line : {"add-delay 1", "add-beep 0.2 4", "add-jump HOME1\\PAGE1", "add-ir rc5 0 12",
                                   "delete-step 1", "edit-step 1", "test-ir rc5 0 12"}) {
        const auto r = script(punched + line + "\nsteps\n");
        EXPECT_EQ(r.status, 2) << line;
        EXPECT_EQ(last_line(r.out), "line 10: cannot run '" + line + "': " + why);
    }
    // The owner's own list stays editable.
    const auto owner = script(two_devices + "select DEVICE11\\PAGE1\nkey hard 22\nanswer ok\npunch on\nadd-delay 1\nsteps\n");
    EXPECT_EQ(owner.status, 0) << owner.out;
    EXPECT_EQ(last_line(owner.out), "DELAY 1 S");
}

TEST_F(CliGreyed, AddIrOnALeftButtonLinkedToTheRightOne)
{
    const auto r = script(two_devices + "select DEVICE11\\PAGE1\nkey soft 2 left\nadd-ir rc5 0 12\n");
    EXPECT_EQ(r.status, 2);
    EXPECT_EQ(last_line(r.out),
              "line 6: cannot run 'add-ir rc5 0 12': the left button is linked to the right side button, whose key it runs");
    // With Link to Right side button cleared the left key takes steps of its own.
    const auto split = script(two_devices + "select DEVICE11\\PAGE1\nkey soft 2 left\nlink-right off\nadd-ir rc5 0 12\nsteps\n");
    EXPECT_EQ(split.status, 0) << split.out;
    EXPECT_EQ(last_line(split.out), "RC5 0 12");
}

TEST_F(CliGreyed, AddIrOnAnEmptyRowOfAHomePage)
{
    const auto r = script(two_devices + "select HOME1\\PAGE1\nkey soft 3\nadd-ir rc5 0 12\n");
    EXPECT_EQ(r.status, 2);
    EXPECT_EQ(last_line(r.out), "line 6: cannot run 'add-ir rc5 0 12': an empty row of a HOME page is no key");
}

TEST_F(CliGreyed, PasteAfterDelete)
{
    const std::string copied = two_devices + "select DEVICE11\nfocus tree\ncopy\n";
    EXPECT_EQ(script(copied + "paste\n").status, 0);
    const auto r = script(copied + "select DEVICE21\ndelete\npaste\n");
    EXPECT_EQ(r.status, 2);
    EXPECT_EQ(last_line(r.out), "line 9: cannot run 'paste': the Edit menu's Paste is greyed here");
}

TEST_F(CliGreyed, ASplitKeyOnTheTitleRow)
{
    const auto r = script(two_devices + "select DEVICE11\\PAGE1\nkey soft 0 left\nlink-right off\n");
    EXPECT_EQ(r.status, 2);
    EXPECT_EQ(last_line(r.out), "line 6: cannot run 'link-right off': the title row gets no left key of its own");
    // Row 1 splits as before.
    EXPECT_EQ(script(two_devices + "select DEVICE11\\PAGE1\nkey soft 1 left\nlink-right off\n").status, 0);
}

}  // namespace
}  // namespace tesselo
