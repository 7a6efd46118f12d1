// The script's restore: Tools > Restore Default Configuration, its question
// answered from the queue.
#include <gtest/gtest.h>

#include "cli/cli_runner.h"
#include "support/test_app.h"

namespace tesselo {
namespace {

using namespace tesselo::testing;

struct CliRestore : ::testing::Test {
    TempFolder home;
    std::string arg() const { return "--home " + shell_quote(home.path().string()); }
};

const std::string question = "ask \"Kelvaro Tesselo 3\" \"Do you want to restore the default configuration?\"";

const std::string new_tree =
    "1\t0\tHOME1\tHOME\thome\n"
    "2\t1\tHOME1PROPERTIES\tPROPERTIES\tproperties\n"
    "3\t1\tHOME1\\PAGE1\tPAGE1\ttv\n";

// As the commands leave it: the second page was added last, so it has the
// highest index, and it is printed where the tree shows it.
const std::string two_devices_added =
    new_tree +
    "4\t0\tDEVICE11\tDEVICE1\tdevice\n"
    "5\t4\tDEVICE11PROPERTIES\tDEVICE1 PROPERTIES\tproperties\n"
    "6\t4\tDEVICE11\\PAGE1\tPAGE1\ttv\n"
    "10\t4\tDEVICE11\\PAGE2\tPAGE2\ttv\n"
    "7\t0\tDEVICE21\tDEVICE2\tdevice\n"
    "8\t7\tDEVICE21PROPERTIES\tDEVICE2 PROPERTIES\tproperties\n"
    "9\t7\tDEVICE21\\PAGE1\tPAGE1\ttv\n";

// As an Undo rebuilds it from the tables, in tree order, with the same keys.
const std::string two_devices =
    new_tree +
    "4\t0\tDEVICE11\tDEVICE1\tdevice\n"
    "5\t4\tDEVICE11PROPERTIES\tDEVICE1 PROPERTIES\tproperties\n"
    "6\t4\tDEVICE11\\PAGE1\tPAGE1\ttv\n"
    "7\t4\tDEVICE11\\PAGE2\tPAGE2\ttv\n"
    "8\t0\tDEVICE21\tDEVICE2\tdevice\n"
    "9\t8\tDEVICE21PROPERTIES\tDEVICE2 PROPERTIES\tproperties\n"
    "10\t8\tDEVICE21\\PAGE1\tPAGE1\ttv\n";

TEST_F(CliRestore, NoKeepsTheDocumentYesEmptiesItAndUndoBringsItBack)
{
    const auto r = run_cli("script - " + arg(),
                           "new\nadd-device\nadd-device\nselect DEVICE11\nadd-page\n"
                           "answer no\nrestore\ntree\n"
                           "answer yes\nrestore\ntree\n"
                           "undo\ntree\n");
    EXPECT_EQ(r.status, 0) << r.out;
    EXPECT_EQ(r.out, question + " -> no\n" + two_devices_added + question + " -> yes\n" + new_tree + two_devices);
}

TEST_F(CliRestore, WithoutAnAnswerTheScriptStopsWith3)
{
    const auto r = run_cli("script - " + arg(), "new\nadd-device\nrestore\ntree\n");
    EXPECT_EQ(r.status, 3) << r.out;
}

TEST_F(CliRestore, WithoutADocumentTheLineIsBad)
{
    EXPECT_EQ(run_cli("script - " + arg(), "restore\n").status, 2);
    EXPECT_EQ(run_cli("script - " + arg(), "new\nrestore now\n").status, 2);
}

}  // namespace
}  // namespace tesselo
