// Download, upload and clock sync through tesselo-cli, against the emulator
// in the same process and against tesselo-remote-emu over tcp.
#include <gtest/gtest.h>

#include "cli/cli_runner.h"
#include "cli/emulator_process.h"
#include "support/test_app.h"

namespace tesselo::testing {
namespace {

const std::string send_complete = "message \"Kelvaro Tesselo 3\" \"Send Complete!\"\n";

TEST(LinkCommands, DownloadAndClockOverTcpAgainstTheEmulatorProgram)
{
    TempFolder home;
    const auto flash = home.path() / "flash.bin";
    EmulatorProcess emu({"--flash", flash.string()});
    ASSERT_GT(emu.port(), 0);
    const auto r = run_cli("--home " + shell_quote(home.path().string()) + " --link " + emu.link() + " script -",
                           "new\ndownload\nclock\n");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, send_complete + send_complete);
    const auto sent = read_bytes(flash);
    const auto scratch = read_bytes(home.path() / "temp.trl");
    ASSERT_GT(sent.size(), 1000u);
    ASSERT_EQ(scratch.size(), sent.size() + 2000);
    EXPECT_TRUE(std::equal(sent.begin(), sent.end(), scratch.begin()));

    const auto c = run_cli("--home " + shell_quote(home.path().string()) + " --link " + emu.link() + " clock");
    EXPECT_EQ(c.status, 0);
    EXPECT_EQ(c.out, send_complete);
}

TEST(LinkCommands, ARefusedConnectionIsNoUsbDevice)
{
    TempFolder home;
    EmulatorProcess emu({"--fault", "absent"});
    ASSERT_GT(emu.port(), 0);
    const auto r = run_cli("--home " + shell_quote(home.path().string()) + " --link " + emu.link() + " clock");
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out, "status \"no usb device\"\n");
}

TEST(LinkCommands, TheLinkComesFromTheEnvironmentWhenNotGiven)
{
    TempFolder home;
    setenv("TESSELO_LINK", "emulator", 1);
    const auto e = run_cli("--home " + shell_quote(home.path().string()) + " script -", "new\ndownload\n");
    unsetenv("TESSELO_LINK");
    EXPECT_EQ(e.status, 0);
    EXPECT_EQ(e.out, send_complete);
    EXPECT_TRUE(std::filesystem::exists(home.path() / "remote-flash.bin"));
}

TEST(LinkCommands, AnUnknownLinkIsBadUsage)
{
    TempFolder home;
    EXPECT_EQ(run_cli("--home " + shell_quote(home.path().string()) + " --link serial clock").status, 2);
    EXPECT_EQ(run_cli("--home " + shell_quote(home.path().string()) + " --link tcp:nohost clock").status, 2);
}

TEST(LinkCommands, TheEmulatorProgramListsItsFaults)
{
    FILE* p = popen((std::string(TESSELO_EMU) + " --help").c_str(), "r");
    ASSERT_NE(p, nullptr);
    std::string out;
    char buffer[4096];
    std::size_t n;
    while ((n = std::fread(buffer, 1, sizeof buffer, p)) > 0) out.append(buffer, n);
    EXPECT_EQ(pclose(p), 0);
    for (const char* name : {"silent", "slow", "wrong_wakeup", "own_number_ack", "error_header", "error_id",
                             "flash_fail", "no_data", "short_first_block", "stale_header"})
        EXPECT_NE(out.find(name), std::string::npos) << name;
}

}  // namespace
}  // namespace tesselo::testing
