#include <gtest/gtest.h>

#include "cli/cli_runner.h"
#include "support/test_app.h"

namespace tesselo {
namespace {

using namespace tesselo::testing;

struct CliSteps : ::testing::Test {
    TempFolder home;
    CliResult script(const std::string& lines) { return run_cli("script - --home " + shell_quote(home.path().string()), lines); }
};

// A new document with one device, its first page selected.
const std::string device_page = "new\nadd-device\nselect DEVICE11\\PAGE1\n";

TEST_F(CliSteps, StepsAreAddedMovedDeletedAndEditedOnTheSelectedKey)
{
    const auto r = script(device_page +
                          "key soft 1\n"
                          "add-delay 0.5\n"
                          "add-beep 0.1 2\n"
                          "add-jump HOME1\\PAGE1\n"
                          "add-link hard DEVICE11 22\n"
                          "steps\n"
                          "step-up 2\n"
                          "step-down 4\n"
                          "delete-step 3\n"
                          "edit-step 2\n"
                          "add-delay 2.56\n"
                          "steps\n");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out,
              "DELAY 0.5 S\n"
              "BEEP SOUND 0.1Sec \n"
              "JUMP TO HOME PAGE1\n"
              "LINK TO DEVICE1ENTER-HARD-\n"
              "BEEP SOUND 0.1Sec \n"
              "DELAY 2.6 S\n"
              "LINK TO DEVICE1ENTER-HARD-\n");
}

TEST_F(CliSteps, RefusalsPrintTheirMessagesAndTheScriptGoesOn)
{
    std::string lines = device_page + "key hard 35\nadd-delay 0.05\nadd-delay 32.01\nadd-jump DEVICE11\\PAGE1\n";
    for (int i = 0; i < 41; ++i) lines += "add-delay 1\n";
    lines += "add-link soft DEVICE11\\PAGE1 2\n";
    const auto r = script(lines);
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out,
              "message \"Kelvarzo Tesselo 3\" \"Please enter 0.1 - 32 sec\"\n"
              "message \"Kelvarzo Tesselo 3\" \"Please enter 0.1 - 32 sec\"\n"
              "message \"Kelvarzo Tesselo 3\" \"Select a valid page     \"\n"
              "message \"Add Delay\" \"Exceed marco steps!\"\n"
              "message \"Kelvarzo Tesselo 3\" \"Please select a valid button or hard button or device\"\n");
}

TEST_F(CliSteps, ALinkToASoftKeyAndToAPagesTitleRow)
{
    const auto r = script(device_page +
                          "add-page\nselect DEVICE11\\PAGE2\nkey soft 3\nadd-delay 1\n"
                          "select DEVICE11\\PAGE1\nkey soft 1\n"
                          "add-link soft DEVICE11\\PAGE2 3\nadd-link soft DEVICE11\\PAGE2 0\nsteps\n");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, "LINK TO DEVICE1PAGE-2-\nLINK TO DEVICE1PAGE-2-DEVICE1\n");
}

TEST_F(CliSteps, UndoTakesAStepBack)
{
    const auto r = script(device_page + "key soft 2\nadd-delay 1\nadd-delay 2\nundo\nsteps\n");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, "DELAY 1 S\n");
}

TEST_F(CliSteps, LinesThatNameNothingAreBadUsage)
{
    EXPECT_EQ(script(device_page + "key soft 6\n").status, 2);
    EXPECT_EQ(script(device_page + "key hard 56\n").status, 2);
    EXPECT_EQ(script(device_page + "steps\n").status, 2);         // no key selected
    EXPECT_EQ(script("new\nkey soft 1\n").status, 2);              // no page selected
    EXPECT_EQ(script(device_page + "key soft 1\nedit-step 1\n").status, 2);
    EXPECT_EQ(script(device_page + "key soft 1\nadd-link hard DEVICE11 16\n").status, 2);
}

}  // namespace
}  // namespace tesselo
