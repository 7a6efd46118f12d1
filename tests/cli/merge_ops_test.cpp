// The script's merge: File > Merge Configuration with the file dialog
// answered, its status line, and the Undo that takes it back.
#include <gtest/gtest.h>

#include <fstream>

#include "cli/cli_runner.h"
#include "support/test_app.h"

namespace tesselo {
namespace {

using namespace tesselo::testing;

struct CliMerge : ::testing::Test {
    TempFolder home;
    std::string arg() const { return "--home " + shell_quote(home.path().string()); }
    std::string file(const std::string& name) const { return (home.path() / name).string(); }

    // Two devices; the first page's hard key at picture 20 jumps to the
    // second device's second page, links to the first device's OFF key and
    // sends RC5 3 17.
    std::string built()
    {
        const auto out = file("built.kcf");
        const auto r = run_cli("script - " + arg(),
                               "new\nadd-device\nadd-device\nselect DEVICE21\nadd-page\nselect DEVICE11\\PAGE1\n"
                               "key hard 20\nadd-jump DEVICE21\\PAGE2\nadd-link hard DEVICE11 0\nadd-ir rc5 3 17\n"
                               "save-as " + out + "\n");
        EXPECT_EQ(r.status, 0) << r.out;
        return out;
    }
};

const std::string one_device =
    "1\t0\tHOME1\tHOME\thome\n"
    "2\t1\tHOME1PROPERTIES\tPROPERTIES\tproperties\n"
    "3\t1\tHOME1\\PAGE1\tPAGE1\ttv\n"
    "4\t0\tDEVICE11\tDEVICE1\tdevice\n"
    "5\t4\tDEVICE11PROPERTIES\tDEVICE1 PROPERTIES\tproperties\n"
    "6\t4\tDEVICE11\\PAGE1\tPAGE1\ttv\n";

TEST_F(CliMerge, TheFilesDevicesComeBehindWithTheirStepsAndUndoTakesThemBack)
{
    const auto merged = built();
    const auto r = run_cli("script - " + arg(), "new\nadd-device\nmerge " + merged +
                                                    "\ntree\nselect DEVICE21\\PAGE1\nkey hard 20\nsteps\nundo\ntree\n");
    EXPECT_EQ(r.status, 0) << r.out;
    // The file's DEVICE1 and DEVICE2 are rows 2 and 3: the jump and the link follow them.
    EXPECT_EQ(r.out, "status \"2 devices merged, 0 steps dropped\"\n" + one_device +
                         "7\t0\tDEVICE21\tDEVICE1\tdevice\n"
                         "8\t7\tDEVICE21PROPERTIES\tDEVICE1 PROPERTIES\tproperties\n"
                         "9\t7\tDEVICE21\\PAGE1\tPAGE1\ttv\n"
                         "10\t0\tDEVICE31\tDEVICE2\tdevice\n"
                         "11\t10\tDEVICE31PROPERTIES\tDEVICE2 PROPERTIES\tproperties\n"
                         "12\t10\tDEVICE31\\PAGE1\tPAGE1\ttv\n"
                         "13\t10\tDEVICE31\\PAGE2\tPAGE2\ttv\n"
                         "JUMP TO DEVICE2 PAGE2\nLINK TO DEVICE1OFF-HARD-\nRC5 3 17\n" +
                         one_device);
}

TEST_F(CliMerge, AFileThatIsNoConfigurationIsARefusalAndTheScriptGoesOn)
{
    const auto junk = file("junk.kcf");
    std::ofstream(junk) << "junk";
    const auto r = run_cli("script - " + arg(), "new\nadd-device\nmerge " + junk + "\ntree\n");
    EXPECT_EQ(r.status, 0) << r.out;
    EXPECT_EQ(r.out, "message \"Kelvaro Tessel 3\" \"file is corrupted\"\n" + one_device);
}

TEST_F(CliMerge, WithoutADocumentOrAPathTheLineIsBad)
{
    EXPECT_EQ(run_cli("script - " + arg(), "merge " + file("x.kcf") + "\n").status, 2);
    EXPECT_EQ(run_cli("script - " + arg(), "new\nmerge\n").status, 2);
}

}  // namespace
}  // namespace tesselo
