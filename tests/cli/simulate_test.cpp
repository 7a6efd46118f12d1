// tesselo-cli simulate: the gestures of a script on an image that a script
// of the editor's operations built.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "cli/cli_runner.h"
#include "support/test_app.h"

namespace tesselo {
namespace {

using namespace tesselo::testing;
namespace fs = std::filesystem;

struct CliSimulate : ::testing::Test {
    TempFolder home;
    std::string file;
    void SetUp() override
    {
        fs::copy(fs::path(TESSELO_BUILD_BIN) / "Data base", home.path() / "Data base", fs::copy_options::recursive);
        file = (home.path() / "remote.kcf").string();
        const auto made = run_cli("--home " + shell_quote(home.path().string()) + " script -",
                                  "new\nadd-device\nadd-device\nselect DEVICE11\\PAGE1\nkey soft 1\n"
                                  "add-ir rc5 0 12\nadd-delay 0.5\nadd-beep 0.1 1\nadd-jump DEVICE21\\PAGE1\n"
                                  "key soft 2\nadd-link soft DEVICE11\\PAGE1 1\nsave-as \"" + file + "\"\n");
        ASSERT_EQ(made.status, 0) << made.out;
    }
    CliResult simulate(const std::string& gestures, const std::string& image = {})
    {
        return run_cli("--home " + shell_quote(home.path().string()) + " simulate " +
                           shell_quote(image.empty() ? file : image),
                       gestures);
    }
};

TEST_F(CliSimulate, TheGesturesPrintTheDisplayAndWhatEachPressDoes)
{
    const auto r = simulate("screen\npress soft 1\nscreen\npress soft 2\nscreen\npage prev\nhome\npress soft 3\npress hard 40\n");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out,
              "page HOME 1/1\n"
              "row 0 \"HOME\"\n"
              "row 1 \"DEVICE1\"\n"
              "row 2 \"DEVICE2\"\n"
              "show 1 1\n"
              "page 1 1/1\n"
              "row 0 \"DEVICE1\"\n"
              "row 1 \"\"\n"
              "row 2 \"\"\n"
              "link 1 1 1\n"
              "send RC5 0 12\n"
              "wait 50\n"
              "beep 10 400\n"
              "show 2 1\n"
              "page 2 1/1\n"
              "row 0 \"DEVICE2\"\n"
              "nothing\n"
              "nothing\n");
}

TEST_F(CliSimulate, AScriptFileServesAsWellAsStandardInput)
{
    const auto script = home.path() / "gestures.txt";
    {
        std::ofstream out(script);
        out << "# the DEVICE2 key\npress soft 2\n";
    }
    const auto r = run_cli("--home " + shell_quote(home.path().string()) + " simulate " + shell_quote(file) + " " +
                           shell_quote(script.string()));
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, "show 2 1\n");
}

TEST_F(CliSimulate, AGestureThatCannotBeRunStopsWithStatus2)
{
    EXPECT_EQ(simulate("press soft 6\n").status, 2);
    EXPECT_EQ(simulate("press hard 41\n").status, 2);
    EXPECT_EQ(simulate("jump\n").status, 2);
    EXPECT_EQ(simulate("page up\n").status, 2);
}

TEST_F(CliSimulate, AFileThatIsNoImageOrIsMissingIsStatus2)
{
    const auto junk = home.path() / "junk.kcf";
    {
        std::ofstream out(junk);
        out << "no image";
    }
    EXPECT_EQ(simulate("screen\n", junk.string()).status, 2);
    EXPECT_EQ(simulate("screen\n", (home.path() / "none.kcf").string()).status, 2);
}

}  // namespace
}  // namespace tesselo
