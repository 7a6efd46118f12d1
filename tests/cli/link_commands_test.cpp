// Download, upload and clock sync through tesselo-cli, against the emulator
// in the same process and against tesselo-remote-emu over tcp.
#include <gtest/gtest.h>

#include <fstream>

#include "cli/cli_runner.h"
#include "cli/emulator_process.h"
#include "support/test_app.h"

namespace tesselo::testing {
namespace {

const std::string send_complete = "message \"Kelvaro Tesselo 3\" \"Send Complete!\"\n";
const std::string upload_finished = "message \"Kelvaro Tesselo 3\" \"Upload Data Finished\"\n";

TEST(LinkCommands, DownloadAFileAndUploadItIntoAnotherWithTheEmulatorInside)
{
    TempFolder home;
    const std::string h = "--home " + shell_quote(home.path().string());
    const auto first = home.path() / "first.kcf";
    const auto back = home.path() / "back.kcf";
    ASSERT_EQ(run_cli(h + " new " + shell_quote(first.string())).status, 0);
    const auto d = run_cli(h + " --link emulator download " + shell_quote(first.string()));
    EXPECT_EQ(d.status, 0);
    EXPECT_EQ(d.out, "status \"Load Configuration\"\n" + send_complete);
    const auto u = run_cli(h + " --link emulator upload " + shell_quote(back.string()));
    EXPECT_EQ(u.status, 0);
    EXPECT_EQ(u.out, upload_finished + "status \"Save Configuration\"\n");
    EXPECT_EQ(read_bytes(back), read_bytes(home.path() / "temp.trl"));
}

TEST(LinkCommands, DownloadOfAFileThatIsNoConfigurationIsBadInput)
{
    TempFolder home;
    const std::string h = "--home " + shell_quote(home.path().string());
    EXPECT_EQ(run_cli(h + " --link emulator download /nonexistent/file.kcf").status, 2);
    const auto junk = home.path() / "junk.kcf";
    std::ofstream(junk) << "not a configuration";
    const auto r = run_cli(h + " --link emulator download " + shell_quote(junk.string()));
    EXPECT_EQ(r.status, 2);
    EXPECT_FALSE(std::filesystem::exists(home.path() / "remote-flash.bin"));
}

TEST(LinkCommands, AnUploadFromARemoteThatIsNotThereFails)
{
    TempFolder home;
    EmulatorProcess emu({"--fault", "absent"});
    ASSERT_GT(emu.port(), 0);
    const auto out = home.path() / "never.kcf";
    const auto r = run_cli("--home " + shell_quote(home.path().string()) + " --link " + emu.link() + " upload " +
                           shell_quote(out.string()));
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out, "message \"Kelvaro Tesselo 3\" \"no usb device\"\n");
    EXPECT_FALSE(std::filesystem::exists(out));
}

TEST(LinkCommands, DownloadUploadAndClockOverTcpAgainstTheEmulatorProgram)
{
    TempFolder home;
    const auto flash = home.path() / "flash.bin";
    const auto back = home.path() / "back.kcf";
    EmulatorProcess emu({"--flash", flash.string()});
    ASSERT_GT(emu.port(), 0);
    const auto r = run_cli("--home " + shell_quote(home.path().string()) + " --link " + emu.link() + " script -",
                           "new\ndownload\nupload\nsave-as \"" + back.string() + "\"\nclock\n");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, send_complete + upload_finished + "status \"Save Configuration\"\n" + send_complete);
    const auto sent = read_bytes(flash);
    const auto scratch = read_bytes(home.path() / "temp.trl");
    ASSERT_GT(sent.size(), 1000u);
    ASSERT_EQ(scratch.size(), sent.size() + 2000);
    EXPECT_TRUE(std::equal(sent.begin(), sent.end(), scratch.begin()));
    // What came back is what went: the remote's four bytes at 100 included.
    EXPECT_EQ(read_bytes(back), scratch);
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
