#include <gtest/gtest.h>

#include <filesystem>

#include "cli/cli_runner.h"
#include "support/test_app.h"

namespace tesselo {
namespace {

using namespace tesselo::testing;
namespace fs = std::filesystem;

const std::string rc5_format =
    "format: 0A13 0000 1002 0515 0515 0536 0000 A641" + [] {
        std::string zeros;
        for (int i = 8; i < 32; ++i) zeros += " 0000";
        return zeros;
    }() + "\n";

// A home folder with the generated "Data base" folder.
struct CliLibrary : ::testing::Test {
    TempFolder home;
    void SetUp() override
    {
        fs::copy(fs::path(TESSELO_BUILD_BIN) / "Data base", home.path() / "Data base", fs::copy_options::recursive);
    }
    CliResult run(const std::string& args) { return run_cli(args + " --home " + shell_quote(home.path().string())); }
};

TEST(CliIrEncode, Rc5WordsAsFourHexDigits)
{
    const auto r = run_cli("ir encode rc5 0 0");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, "count: 8\n" + rc5_format + "data: 0002 8010 0806 1F00 3F00 1F00 3F00 FC00\n");
}

TEST(CliIrEncode, TheOtherProtocols)
{
    auto r = run_cli("ir encode rc6 0 0");
    EXPECT_EQ(r.status, 0);
    EXPECT_NE(r.out.find("count: 12\n"), std::string::npos);
    EXPECT_NE(r.out.find("data: 0019 C010 1C10 9535 5550 95C5 5550 9535 5550 95C5 5550 5555\n"), std::string::npos) << r.out;
    r = run_cli("ir encode rc6a 32768 0 0");
    EXPECT_EQ(r.status, 0);
    EXPECT_NE(r.out.find("data: 0019 0000 2C20 A939 5555 5550 5555 5555\n"), std::string::npos) << r.out;
    r = run_cli("ir encode rc5x 0 0 0");
    EXPECT_EQ(r.status, 0);
    EXPECT_NE(r.out.find("count: 9\nformat: 1613 0010 1004"), std::string::npos) << r.out;
}

TEST(CliIrEncode, RefusalsWithTheDialogsWords)
{
    auto r = run_cli("ir encode rc6a 128 1 1");
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out, "message \"Kelvarzo Tesselo 3\" \"Please enter (0 - 127)/(32768 - 65535)\"\n");
    r = run_cli("ir encode rc5 32 1");
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out, "message \"Kelvarzo Tesselo 3\" \"Please enter 0 - 31\"\n");
    r = run_cli("ir encode rc5x 1 200 1");
    EXPECT_EQ(r.out, "message \"Kelvarzo Tesselo 3\" \"Please enter 0 -127\"\n");
    r = run_cli("ir encode rc5x 1 1 64");
    EXPECT_EQ(r.out, "message \"Kelvarzo Tesselo 3\" \"Please enter 0 - 63\"\n");
    r = run_cli("ir encode rc6 1 256");
    EXPECT_EQ(r.out, "message \"Kelvarzo Tesselo 3\" \"Please enter 0 - 255\"\n");
    EXPECT_EQ(run_cli("ir encode rc7 1 1").status, 2);
    EXPECT_EQ(run_cli("ir encode rc5 1").status, 2);
}

TEST(CliIrDecode, TheFormsAndUnknown)
{
    auto r = run_cli("ir decode 2 8010 0806 1F00 3F00 1F00 3F00 FC00");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, "rc5 0 0\n");
    // The words the rules do not read may be anything.
    r = run_cli("ir decode 0002 8010 0806 1F00 3F00 1F00 3F00 FC01");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, "rc5 0 0\n");
    r = run_cli("ir decode 0x19 0 2C20 A939 5555 5550 5556 5559");
    EXPECT_EQ(r.out, "rc6a 32768 1 2\n");
    r = run_cli("ir decode 0019 C010 1C10 9535 5550 95C5 5550 9535 5550 95C5 5550 5556");
    EXPECT_EQ(r.out, "rc6 0 1\n");
    r = run_cli("ir decode 0 8010 0F18 AD54 B554 AD54 B554 AAAA AA00");
    EXPECT_EQ(r.out, "rc5x 0 0 0\n");
    r = run_cli("ir decode 1 2 3");
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out, "unknown\n");
    EXPECT_EQ(run_cli("ir decode 12345").status, 2);
    EXPECT_EQ(run_cli("ir decode xyz").status, 2);
}

TEST_F(CliLibrary, CategoriesBrandsCodesetsKeysAndCode)
{
    auto r = run("library categories");
    EXPECT_EQ(r.status, 0);
    EXPECT_NE(r.out.find("01\ttv\tT V\n02\tvcr\tVCR\n"), std::string::npos);
    EXPECT_NE(r.out.find("13\tpj\tPROJECTOR\n"), std::string::npos);
    r = run("library brands tv");
    EXPECT_EQ(r.out, "RC-5\nRC-6\n");
    r = run("library brands 13");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, "");
    r = run("library codesets vcr RC-5");
    EXPECT_EQ(r.out, "vcr000:\tCode Set-000\nvcr001:\tCode Set-001\n");
    r = run("library keys vcr000");
    EXPECT_NE(r.out.find("\n16\tPLAY\n"), std::string::npos) << r.out;
    r = run("library code tv000: 11");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, "count: 8\n" + rc5_format + "data: 0005 8010 0806 1F00 3F00 1F00 3F00 CC00\n");
    const auto keys = run("library keys tv000").out;
    EXPECT_NE(keys.find("\n11\tPOWER\n"), std::string::npos) << keys;
}

TEST(CliHome, ANewHomeFolderGetsTheDataBaseFolderBesideTheProgram)
{
    TempFolder parent;
    const auto home = parent.path() / "new home";
    const auto r = run_cli("--home " + shell_quote(home.string()) + " library brands tv");
    EXPECT_EQ(r.status, 0);
    EXPECT_TRUE(fs::exists(home / "Data base" / "5150LIb.bin"));
}

TEST_F(CliLibrary, RefusalsAndBadUsage)
{
    EXPECT_EQ(run("library code tv999 0").status, 1);
    EXPECT_EQ(run("library code tv000 999").status, 1);
    EXPECT_EQ(run("library code tv000 x").status, 2);
    EXPECT_EQ(run("library brands nothing").status, 2);
    EXPECT_EQ(run("library shelves").status, 2);
    // A Data base folder that holds no library.
    fs::remove_all(home.path() / "Data base");
    fs::create_directories(home.path() / "Data base");
    EXPECT_EQ(run("library brands tv").status, 2);
}

}  // namespace
}  // namespace tesselo
