// Every command that reads a configuration file refuses what is no regular
// file, or is larger than any configuration can be, at once: status 2 and
// the same words for the same fault in every command.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sys/stat.h>

#include "cli/cli_runner.h"
#include "support/test_app.h"

namespace tesselo {
namespace {

using namespace tesselo::testing;
namespace fs = std::filesystem;

// Before each run: a bound on time, so that a command that waits on a FIFO
// fails instead of hanging; and, where the build has no address sanitizer
// (which needs its own address space), a bound on memory for /dev/zero.
std::string bounded()
{
#if defined(__SANITIZE_ADDRESS__)
    return "timeout 20 ";
#else
    return "ulimit -v 2000000; timeout 20 ";
#endif
}

struct CliBadPaths : ::testing::Test {
    TempFolder home;
    std::string arg() const { return "--home " + shell_quote(home.path().string()); }

    // Each command that reads FILE, with FILE in its place; its standard
    // error is what is collected.
    std::vector<std::string> commands(const std::string& file) const
    {
        const std::string f = shell_quote(file);
        const std::string out = shell_quote((home.path() / "out.kcf").string());
        return {"info " + f,           "check " + f,
                "dump " + f + " " + arg(), "tree " + f + " " + arg(),
                "resave " + f + " " + out + " " + arg(), "--link emulator download " + f + " " + arg(),
                "simulate " + f + " " + arg()};
    }

    // Every command answers `file` with status 2 and "cannot read FILE: WORDS".
    void refused(const std::string& file, const std::string& words)
    {
        for (const auto& command : commands(file)) {
            const auto r = run_cli(command + " 2>&1 >/dev/null", {}, bounded());
            EXPECT_EQ(r.status, 2) << command;
            EXPECT_EQ(r.out, "tesselo-cli: cannot read " + file + ": " + words + "\n") << command;
        }
    }
};

TEST_F(CliBadPaths, AFolderIsRefused) { refused(home.path().string(), "Is a directory"); }

TEST_F(CliBadPaths, AFifoIsRefusedWithoutWaitingForAWriter)
{
    const auto fifo = home.path() / "fifo.kcf";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    refused(fifo.string(), "Not a regular file");
}

TEST_F(CliBadPaths, ADeviceThatNeverEndsIsRefused) { refused("/dev/zero", "Not a regular file"); }

TEST_F(CliBadPaths, AFileLargerThanAnyConfigurationIsRefused)
{
    // 5 MiB: no configuration comes near 1 MiB. Made sparse, it costs no disk.
    const auto big = home.path() / "big.kcf";
    std::ofstream(big).close();
    fs::resize_file(big, 5u << 20);
    refused(big.string(), "File too large");
}

TEST_F(CliBadPaths, AMissingFileHasTheSameWordsInEveryCommand)
{
    refused((home.path() / "missing.kcf").string(), "No such file or directory");
}

TEST_F(CliBadPaths, AFileWhoseUserMayNotReadItHasTheSameWordsInEveryCommand)
{
    const auto locked = home.path() / "locked.kcf";
    ASSERT_EQ(run_cli("new " + shell_quote(locked.string()) + " " + arg()).status, 0);
    fs::permissions(locked, fs::perms::owner_write);
    fs::permissions(home.path(), fs::perms::all);
    // Root may read any file; the commands run as a user who may not.
    const std::string user = ::geteuid() == 0 ? "setpriv --reuid=65534 --regid=65534 --clear-groups " : "";
    for (const auto& command : commands(locked.string())) {
        const auto r = run_cli(command + " 2>&1 >/dev/null", {}, bounded() + user);
        EXPECT_EQ(r.status, 2) << command;
        EXPECT_EQ(r.out, "tesselo-cli: cannot read " + locked.string() + ": Permission denied\n") << command;
    }
}

}  // namespace
}  // namespace tesselo
