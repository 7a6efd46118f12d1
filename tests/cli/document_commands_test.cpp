#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "cli/cli_runner.h"
#include "support/test_app.h"

namespace tesselo {
namespace {

using namespace tesselo::testing;
namespace fs = std::filesystem;

std::string home_arg(const TempFolder& home) { return "--home " + shell_quote(home.path().string()); }

TEST(CliNew, WritesANewConfiguration)
{
    TempFolder home;
    const auto out = home.path() / "new.kcf";
    const auto r = run_cli("new " + shell_quote(out.string()) + " " + home_arg(home));
    EXPECT_EQ(r.status, 0) << r.out;
    EXPECT_EQ(r.out, "status \"Save Configuration\"\n");
    // The image of a new Configuration and the 2000-byte tail.
    EXPECT_EQ(fs::file_size(out), static_cast<std::uintmax_t>(160267 + 164 + 410 + 164 + 738 + 7 + 7680 + 4 + 4 + 10 + 2 + 2 + 2 + 6 + 2000));
}

TEST(CliNew, AnUnwritablePlaceIsRefusedWithExit1)
{
    TempFolder home;
    const auto r = run_cli("new " + shell_quote((home.path() / "missing" / "x.kcf").string()) + " " + home_arg(home));
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.out.find("message \"Kelvaro Tesselo 3\" \"Unable to write "), std::string::npos) << r.out;
}

TEST(CliInfo, HeaderSizesAndCounts)
{
    TempFolder home;
    const auto file = home.path() / "a.kcf";
    ASSERT_EQ(run_cli("new " + shell_quote(file.string()) + " " + home_arg(home)).status, 0);
    const auto r = run_cli("info " + shell_quote(file.string()));
    EXPECT_EQ(r.status, 0);
    EXPECT_NE(r.out.find("entry_0: 4096\n"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("entry_9: 92361\n"), std::string::npos);
    EXPECT_NE(r.out.find("devices: 0\npages: 1\nsoft_keys: 1\nsteps: 0\nlists: 0\nir_formats: 0\nir_records: 0\nlearned_codes: 0\n"),
              std::string::npos)
        << r.out;
    const auto size = fs::file_size(file);
    EXPECT_NE(r.out.find("image_size: " + std::to_string(size - 2000) + "\nfile_size: " + std::to_string(size) + "\n"),
              std::string::npos);
}

TEST(CliInfo, AFileThatIsNoImageExits2)
{
    TempFolder home;
    const auto file = home.path() / "junk.kcf";
    std::ofstream(file) << "hello";
    EXPECT_EQ(run_cli("info " + shell_quote(file.string())).status, 2);
    EXPECT_EQ(run_cli("info " + shell_quote((home.path() / "none.kcf").string())).status, 2);
}

TEST(CliScript, NewSaveAsAndCloseWithItsQuestion)
{
    TempFolder home;
    const auto file = home.path() / "s.kcf";
    const std::string script = "new\n# a comment\nsave-as \"" + file.string() + "\"\nanswer no\nclose\n";
    const auto r = run_cli("script - " + home_arg(home), script);
    EXPECT_EQ(r.status, 0) << r.out;
    EXPECT_EQ(r.out, "status \"Save Configuration\"\n"
                     "ask \"Kelvaro Tesselo 3\" \"Do you want to save the changes to s.kcf?\" -> no\n");
    EXPECT_TRUE(fs::exists(file));
}

TEST(CliScript, ARefusalLetsTheScriptGoOn)
{
    TempFolder home;
    std::string script;
    for (int i = 0; i < 11; ++i) script += "new\n";
    script += "activate 9\n";
    const auto r = run_cli("script - " + home_arg(home), script);
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, "message \"Kelvaro Tessel 3\" \"Exceed files open\"\n");
}

TEST(CliScript, AQuestionWithNoQueuedAnswerExits3)
{
    TempFolder home;
    const auto r = run_cli("script - " + home_arg(home), "new\nclose\n");
    EXPECT_EQ(r.status, 3);
}

TEST(CliScript, UnknownOperationsAndBadLinesExit2)
{
    TempFolder home;
    EXPECT_EQ(run_cli("script - " + home_arg(home), "fly away\n").status, 2);
    EXPECT_EQ(run_cli("script - " + home_arg(home), "new\nactivate 7\n").status, 2);
    EXPECT_EQ(run_cli("script - " + home_arg(home), "answer maybe\n").status, 2);
    EXPECT_EQ(run_cli("script - " + home_arg(home), "save-as \"open quote\n").status, 2);
}

TEST(CliScript, TheLogIsWrittenInTheHomeFolder)
{
    TempFolder home;
    ASSERT_EQ(run_cli("script - " + home_arg(home), "new\n").status, 0);
    bool found = false;
    for (const auto& e : fs::directory_iterator(home.path()))
        if (e.path().filename().string().rfind("logfile_", 0) == 0) {
            std::ifstream in(e.path());
            std::string all((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
            EXPECT_EQ(all, "\"add new (start) \"\n\"open new file - Untitled1\"\n");
            found = true;
        }
    EXPECT_TRUE(found);
}

}  // namespace
}  // namespace tesselo
