// add-ir, test-ir and mydb through tesselo-cli: each source, the duration,
// rewriting a step, My Database's names, and Test IR against the emulator.
#include <gtest/gtest.h>

#include <filesystem>

#include "cli/cli_runner.h"
#include "support/test_app.h"

namespace tesselo {
namespace {

using namespace tesselo::testing;
namespace fs = std::filesystem;

struct CliIr : ::testing::Test {
    TempFolder home;
    void SetUp() override
    {
        fs::copy(fs::path(TESSELO_BUILD_BIN) / "Data base", home.path() / "Data base", fs::copy_options::recursive);
    }
    CliResult script(const std::string& lines, const std::string& link = "emulator")
    {
        return run_cli("--home " + shell_quote(home.path().string()) + " --link " + link + " script -", lines);
    }
};

const std::string device_key = "new\nadd-device\nselect DEVICE11\\PAGE1\nkey soft 1\n";

TEST_F(CliIr, EachProtocolAndTheLibraryBecomeAStepOfTheSelectedKey)
{
    const auto r = script(device_key +
                          "add-ir rc5 0 12\n"
                          "add-ir rc5x 1 100 33\n"
                          "add-ir rc6 200 17\n"
                          "add-ir rc6a 127 3 4\n"
                          "add-ir rc6a 40000 3 4\n"
                          "add-ir library tv000 3\n"
                          "add-ir rc5 0 12 duration 0.5\n"
                          "steps\n");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out,
              "RC5 0 12\n"
              "RC5X 1 100 33\n"
              "RC6 200 17\n"
              "RC6A 127 3 4\n"
              "RC6A 40000 3 4\n"
              "IR CODE T V-RC-5- - 3\n"
              "RC5 0 12\n");
}

TEST_F(CliIr, ADurationOutsideTheRangeSaysSoAndFallsBackToTheLeast)
{
    const auto r = script(device_key + "add-ir rc5 0 1 duration 11\nadd-ir rc5 0 2 duration 10\nsteps\n");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, "message \"Kelvarzo Tesselo 3\" \"Please enter 0.01 - 10\"\nRC5 0 1\nRC5 0 2\n");
}

TEST_F(CliIr, AFieldOutOfRangeIsRefusedAndTheDialogIsCancelled)
{
    const auto r = script(device_key + "add-ir rc5 32 1\nadd-ir rc6a 128 1 1\nsteps\n");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out,
              "message \"Kelvarzo Tesselo 3\" \"Please enter 0 - 31\"\n"
              "message \"Kelvarzo Tesselo 3\" \"Please enter (0 - 127)/(32768 - 65535)\"\n");
}

TEST_F(CliIr, EditStepThenAddIrRewritesThatStep)
{
    const auto r = script(device_key + "add-ir rc5 0 1\nadd-delay 1\nadd-ir rc5 0 3\nedit-step 3\nadd-ir rc6 5 6\nsteps\n");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, "RC5 0 1\nDELAY 1 S\nRC6 5 6\n");
}

TEST_F(CliIr, AnUnknownCodeSetOrKeyNamesNothingThatExists)
{
    EXPECT_EQ(script(device_key + "add-ir library tv999 1\n").status, 2);
    EXPECT_EQ(script(device_key + "add-ir library tv000 999\n").status, 2);
    EXPECT_EQ(script(device_key + "add-ir rc5 1\n").status, 2);
    EXPECT_EQ(script("new\nadd-ir rc5 0 1\n").status, 2);  // no key selected
}

TEST_F(CliIr, MyDatabaseRegistersAndPicksAndItsRowsShowTheNames)
{
    const auto r = script(device_key +
                          "add-ir mydb ACME TV X1 POWER\n"
                          "mydb add brand ACME\n"
                          "mydb add brand ACME\n"
                          "mydb add device \"MY TV\"\n"
                          "mydb add model X1\n"
                          "mydb add function POWER\n"
                          "add-ir rc5 3 4\n"
                          "mydb register \"Select one\" \"MY TV\" X1 POWER\n"
                          "mydb register ACME \"MY TV\" X1 POWER\n"
                          "answer cancel\n"
                          "mydb register ACME \"MY TV\" X1 POWER\n"
                          "add-ir mydb ACME \"MY TV\" X1 POWER\n"
                          "steps\n");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out,
              "message \"Kelvaro Tesselo 3\" \"Mydatabase is empty!\"\n"
              "message \"Kelvaro Tesselo 3\" \"<ACME> already exist\"\n"
              "message \"Kelvaro Tesselo 3\" \"Please enter Brand name\"\n"
              "ask \"Kelvaro Tesselo 3\" \"Do you want to overwirte the code?\" -> cancel\n"
              "RC5 3 4\n"
              "MYDATABASE CODE ACME-MY TV- X1- POWER\n");
    EXPECT_TRUE(fs::exists(home.path() / "mykey.fil"));
    EXPECT_EQ(fs::file_size(home.path() / "mykey.fil"), 11u * 212u);
    // A name that no list holds names nothing that exists.
    EXPECT_EQ(script("mydb register ACME \"NO SUCH\" X1 POWER\n").status, 2);
    EXPECT_EQ(script("mydb add colour RED\n").status, 2);
}

TEST_F(CliIr, LearnAndTestIrReachTheEmulatedRemote)
{
    const auto r = script(device_key + "add-ir learn\nsteps\ntest-ir rc5 0 12\ntest-ir learn duration 0.1\n");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out,
              "status \"Ready\"\n"
              "status \"LEARN OK\"\n"
              "LEARNING CODE  \n"
              "status \"    \"\n"
              "status \"sending data...\"\n"
              "status \"send completed\"\n"
              "status \"Ready\"\n"
              "status \"LEARN OK\"\n"
              "status \"    \"\n"
              "status \"sending data...\"\n"
              "status \"send completed\"\n");
}

TEST_F(CliIr, WithoutARemoteLearnSaysNoUsbDevice)
{
    const auto r = script(device_key + "add-ir learn\ntest-ir rc5 0 1\nsteps\n", "tcp:127.0.0.1:1");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out,
              "status \"no usb device\"\n"
              "status \"    \"\n"
              "status \"no usb device\"\n"
              "status \"no usb device\"\n");
}

TEST_F(CliIr, CodesSurviveASaveAndAnOpen)
{
    const auto file = "\"" + (home.path() / "codes.kcf").string() + "\"";
    ASSERT_EQ(script(device_key + "add-ir rc5 0 12\nadd-ir learn\nkey hard 20\nadd-ir library tv000 5\nsave-as " + file + "\n").status, 0);
    const auto r = script("open " + file + "\nselect DEVICE11\\PAGE1\nkey soft 1\nsteps\nkey hard 20\nsteps\n");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, "status \"Load Configuration\"\nRC5 0 12\nLEARNING CODE  \nIR CODE T V-RC-5- - 5\n");
}

}  // namespace
}  // namespace tesselo
