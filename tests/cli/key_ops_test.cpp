#include <gtest/gtest.h>

#include "cli/cli_runner.h"
#include "support/test_app.h"

namespace tesselo {
namespace {

using namespace tesselo::testing;

struct CliKeys : ::testing::Test {
    TempFolder home;
    CliResult script(const std::string& lines) { return run_cli("script - --home " + shell_quote(home.path().string()), lines); }
};

const std::string device_page = "new\nadd-device\nselect DEVICE11\\PAGE1\n";

TEST_F(CliKeys, CopyPasteCutAndDeleteWorkOnTheSelectedKey)
{
    const auto r = script(device_page +
                          "key soft 1\nadd-delay 0.5\nadd-beep 0.1 2\n"
                          "focus key\ncopy\n"
                          "key hard 35\npaste\nsteps\n"
                          "key soft 1\ncut\nsteps\n"
                          "key soft 3\npaste\nsteps\n"
                          "key hard 35\ndelete\nsteps\n");
    EXPECT_EQ(r.status, 0) << r.out;
    EXPECT_EQ(r.out,
              "DELAY 0.5 S\nBEEP SOUND 0.1Sec \n"
              "DELAY 0.5 S\nBEEP SOUND 0.1Sec \n");
}

TEST_F(CliKeys, GreyedEntriesAreRefusedWithStatus2)
{
    // Nothing in the clipboard; a hard key can't be cut; the title row can't be deleted.
    for (const std::string lines : {"key hard 35\nfocus key\npaste\n", "key hard 35\nfocus key\ncut\n",
                                    "key soft 0\nfocus key\ndelete\n"}) {
        const auto r = script(device_page + lines + "add-device\n");
        EXPECT_EQ(r.status, 2) << lines;
        EXPECT_EQ(r.out, "");
    }
}

TEST_F(CliKeys, DragKeyInEachMode)
{
    const auto r = script(device_page +
                          "key hard 0\nadd-delay 1\n"
                          "drag-key copy hard 1\nkey hard 1\nsteps\n"
                          "key hard 1\ndrag-key move soft 2\nkey soft 2\nsteps\nkey hard 1\nsteps\n"
                          "key soft 4\ndrag-key link soft 2\n"
                          "key soft 5 left\ndrag-key link hard 0\n"  // both sources are empty positions

                          "key hard 0\ndrag-key action soft 0\nkey soft 0\nsteps\n"
                          "key soft 0\ndrag-key move soft 1\n");
    EXPECT_EQ(r.status, 0) << r.out;
    EXPECT_EQ(r.out,
              "DELAY 1 S\n"
              "DELAY 1 S\n"
              "message \"Kelvaro Tesselo 3\" \"No Key can be linked\"\n"
              "message \"Kelvaro Tesselo 3\" \"No Key can be linked\"\n"
              "DELAY 1 S\n");
}

TEST_F(CliKeys, BadDragLinesAreBadUsage)
{
    EXPECT_EQ(script(device_page + "key hard 0\ndrag-key fly hard 1\n").status, 2);
    EXPECT_EQ(script(device_page + "key hard 0\ndrag-key copy soft 9\n").status, 2);
    EXPECT_EQ(script(device_page + "focus sideways\n").status, 2);
}

}  // namespace
}  // namespace tesselo
