// The tree's Cut, Copy, Paste, Delete, Move Up, Move Down, Hide and drags,
// as script operations.
#include <gtest/gtest.h>

#include <fstream>
#include <nlohmann/json.hpp>
#include <string>

#include "cli/cli_runner.h"
#include "support/test_app.h"

namespace tesselo {
namespace {

using namespace tesselo::testing;

struct CliTreeEdit : ::testing::Test {
    TempFolder home;
    std::string arg() const { return "--home " + shell_quote(home.path().string()); }
    CliResult script(const std::string& lines)
    {
        return run_cli("script - " + arg(), "new\nadd-device\nadd-device\n" + lines);
    }
};

TEST_F(CliTreeEdit, MoveUpPutsTheSecondDeviceFirstAndItsKeyStays)
{
    const auto json = (home.path() / "moved.json").string();
    const auto r = script("select DEVICE21\nmove-up\ndump " + json + "\n");
    ASSERT_EQ(r.status, 0) << r.out;
    std::ifstream in(json);
    const auto j = nlohmann::json::parse(in);
    EXPECT_EQ(j["device_name_table"][1]["node_key"], "DEVICE21");
    EXPECT_EQ(j["device_name_table"][2]["node_key"], "DEVICE11");
}

TEST_F(CliTreeEdit, MoveUpOnTheFirstDeviceIsRefusedAsTheGreyedItem)
{
    const auto r = script("select DEVICE11\nmove-up\n");
    EXPECT_EQ(r.status, 0);  // a script goes on after a refusal
    const auto down = script("select DEVICE21\nmove-down\nselect DEVICE11\nmove-up\n");
    EXPECT_EQ(down.status, 0);
}

TEST_F(CliTreeEdit, HideBracketsTheDeviceAndTheSelectedPage)
{
    const auto r = script("select DEVICE11\nhide\nselect DEVICE21\\PAGE1\nhide\ntree\n");
    ASSERT_EQ(r.status, 0) << r.out;
    EXPECT_NE(r.out.find("\tDEVICE11\t[DEVICE1]\thide device\n"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("\tDEVICE21\\PAGE1\t[PAGE1]\thide tv\n"), std::string::npos) << r.out;
}

TEST_F(CliTreeEdit, FocusTreeThenCopyAndPasteMakesAThirdDevice)
{
    const auto r = script("select DEVICE11\nfocus tree\ncopy\npaste\ntree\n");
    ASSERT_EQ(r.status, 0) << r.out;
    EXPECT_NE(r.out.find("\tDEVICE31\tDEVICE1\tdevice\n"), std::string::npos) << r.out;
}

TEST_F(CliTreeEdit, CutThenPasteOfAPageAndDeleteOfADevice)
{
    const auto r = script("select DEVICE11\nadd-page\nselect DEVICE11\\PAGE2\nfocus tree\ncut\nselect DEVICE21\npaste\n"
                          "select DEVICE11\ndelete\ntree\n");
    ASSERT_EQ(r.status, 0) << r.out;
    EXPECT_EQ(r.out.find("DEVICE11"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("\tDEVICE21\\PAGE2\tPAGE2\ttv\n"), std::string::npos) << r.out;
}

TEST_F(CliTreeEdit, ExceedingThePagesIsTheMessageUnderItsTitle)
{
    std::string lines = "select DEVICE11\n";
    for (int i = 0; i < 100; ++i) lines += "add-page\n";
    lines += "focus tree\ncopy\npaste\n";
    const auto r = script(lines);
    EXPECT_EQ(r.status, 0);
    EXPECT_NE(r.out.find("message \"Kelvarzo Tesselo 3\" \"Exceed Devices or Exceed Pages\""), std::string::npos) << r.out;
}

TEST_F(CliTreeEdit, DragCopiesAPageOntoAnotherDocumentsDeviceAndHomeRefuses)
{
    const auto r = script("new\nadd-device\nactivate 0\nselect DEVICE11\\PAGE1\ndrag HOME2 1\ndrag DEVICE12 1\ntree\n");
    ASSERT_EQ(r.status, 0) << r.out;
    // The drop's document is the active one now: its tree is printed.
    EXPECT_NE(r.out.find("\tDEVICE12\\PAGE2\tPAGE2\ttv\n"), std::string::npos) << r.out;
    const auto bad = script("select DEVICE11\ndrag NOSUCHKEY\n");
    EXPECT_EQ(bad.status, 2);
}

}  // namespace
}  // namespace tesselo
