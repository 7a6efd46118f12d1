// tesselo-cli recover: the copies the editor keeps, listed and written out.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "cli/cli_runner.h"
#include "core/document/recovery_copy.h"
#include "support/test_app.h"

namespace tesselo::testing {
namespace {

namespace fs = std::filesystem;

void write_file(const fs::path& path, const std::vector<std::uint8_t>& bytes)
{
    fs::create_directories(path.parent_path());
    std::ofstream out(path, std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

struct RecoverCommand : ::testing::Test {
    TempFolder home;
    std::string run(const std::string& args, int& status)
    {
        const auto r = run_cli("--home " + shell_quote(home.path().string()) + " " + args + " 2>&1");
        status = r.status;
        return r.out;
    }
};

TEST_F(RecoverCommand, ListsUnsavedThenDeclinedThenNamesADamagedCopy)
{
    const fs::path recovery = home.path() / "recovery";
    write_file(recovery / "b.recovery", encode_recovery_copy({"Untitled1", "", "2026-11-24 09:41:08", {1, 2, 3}}));
    write_file(recovery / "a.recovery", encode_recovery_copy({"/x/tv.kcf", "/x/tv.kcf", "2026-11-24 09:41:09", {4}}));
    write_file(recovery / "declined" / "c.recovery",
               encode_recovery_copy({"/x/old.kcf", "/x/old.kcf", "2026-11-20 10:00:00", {5, 6}}));
    write_file(recovery / "broken.recovery", {'x'});
    int status = -1;
    EXPECT_EQ(run("recover --list", status), "1\t2026-11-24 09:41:08\tunsaved\tUntitled1\t\n"
                                             "2\t2026-11-24 09:41:09\tunsaved\t/x/tv.kcf\t/x/tv.kcf\n"
                                             "3\t\tdamaged\tbroken.recovery\t\n"
                                             "4\t2026-11-20 10:00:00\tdeclined\t/x/old.kcf\t/x/old.kcf\n");
    EXPECT_EQ(status, 0);

    const fs::path out = home.path() / "out.kcf";
    EXPECT_EQ(run("recover 4 " + shell_quote(out.string()), status), "");
    EXPECT_EQ(status, 0);
    EXPECT_EQ(read_bytes(out), (std::vector<std::uint8_t>{5, 6}));
    // The copy stays where it is.
    EXPECT_TRUE(fs::exists(recovery / "declined" / "c.recovery"));

    EXPECT_EQ(run("recover 3 " + shell_quote(out.string()), status), "tesselo-cli: recovery copy 3 is damaged\n");
    EXPECT_EQ(status, 2);
    EXPECT_EQ(run("recover 0 " + shell_quote(out.string()), status), "tesselo-cli: recover needs --list, or N and OUT\n");
    EXPECT_EQ(status, 2);
    EXPECT_EQ(run("recover 5 " + shell_quote(out.string()), status), "tesselo-cli: no recovery copy 5\n");
    EXPECT_EQ(status, 2);
}

TEST_F(RecoverCommand, NeedsTheListOrANumberAndAFile)
{
    int status = -1;
    for (const char* args : {"recover", "recover 1", "recover --list 1 out.kcf"}) {
        EXPECT_EQ(run(args, status), "tesselo-cli: recover needs --list, or N and OUT\n") << args;
        EXPECT_EQ(status, 2) << args;
    }
}

TEST_F(RecoverCommand, AnOutThatCannotBeWrittenIsRefused)
{
    write_file(home.path() / "recovery" / "a.recovery", encode_recovery_copy({"Untitled1", "", "t", {1}}));
    int status = -1;
    const std::string out = run("recover 1 " + shell_quote((home.path() / "missing" / "x.kcf").string()), status);
    EXPECT_EQ(out, "message \"Kelvaro Tesselo 3\" \"Unable to write " + (home.path() / "missing" / "x.kcf").string() +
                       "\\rNo such file or directory\"\n");
    EXPECT_EQ(status, 1);
}

}  // namespace
}  // namespace tesselo::testing
