// The faults of tesselo-remote-emu over tcp come to the host as they do in
// process: an empty_* fault as a read of 0, a stall_* fault as a failed
// write. What each exchange then shows follows from its rules.
#include <gtest/gtest.h>

#include <fstream>

#include "cli/cli_runner.h"
#include "cli/emulator_process.h"
#include "support/test_app.h"

namespace tesselo::testing {
namespace {

namespace fs = std::filesystem;

const std::string tail = "\\rPlease check the connection and make sure PC Link mode is activated, and then try again";
const std::string load = "status \"Load Configuration\"\n";

std::string message(const std::string& text) { return "message \"Kelvaro Tesselo 3\" \"" + text + "\"\n"; }

struct LinkFaults : ::testing::Test {
    TempFolder home;
    std::string h = "--home " + shell_quote(home.path().string());

    // A new configuration saved in the home folder.
    std::string configuration()
    {
        const auto path = (home.path() / "c.kcf").string();
        EXPECT_EQ(run_cli(h + " new " + shell_quote(path)).status, 0);
        return path;
    }
    // A flash file that holds that configuration's image: the file without its tail of 2000 bytes.
    std::string flash()
    {
        const auto bytes = read_bytes(configuration());
        const auto path = home.path() / "flash.bin";
        std::ofstream out(path, std::ios::binary);
        out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size() - 2000));
        return path.string();
    }
    CliResult run(const std::string& fault, const std::string& command, std::vector<std::string> extra = {})
    {
        extra.insert(extra.end(), {"--fault", fault});
        EmulatorProcess emu(extra);
        EXPECT_GT(emu.port(), 0);
        return run_cli(h + " --link " + emu.link() + " " + command);
    }
    CliResult download(const std::string& fault) { return run(fault, "download " + shell_quote(configuration())); }
    CliResult upload(const std::string& fault)
    {
        const std::string f = flash();
        return run(fault, "upload " + shell_quote((home.path() / "back.kcf").string()), {"--flash", f});
    }
};

TEST_F(LinkFaults, AnEmptyWakeUpAnswerIsAReadOfZero)
{
    const auto r = download("empty_wakeup");
    EXPECT_EQ(r.out, load + message("Download Failed(Error #001)! " + tail));
    EXPECT_EQ(r.status, 1);
}

TEST_F(LinkFaults, AnEmptyInformationReplyIsAReadOfZero)
{
    const auto r = run("empty_reply", "clock");
    EXPECT_EQ(r.out, "status \"Download Failed(Error #002)! \"\n");
    EXPECT_EQ(r.status, 1);
}

TEST_F(LinkFaults, AnEmptyAckIsAReadOfZero)
{
    const auto r = download("empty_ack");
    EXPECT_EQ(r.out, load + message("Download Failed(Error #001)! " + tail));
}

TEST_F(LinkFaults, AnEmptyBlockHeaderEndsTheUploadWithoutAMessage)
{
    const auto r = upload("empty_header");
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.status, 1);
    EXPECT_FALSE(fs::exists(home.path() / "back.kcf"));
}

TEST_F(LinkFaults, StalledWritesEndTheClockSyncWithoutAMessage)
{
    const auto r = run("stall_writes", "clock");
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.status, 1);
}

TEST_F(LinkFaults, AStalledOpeningFrameEndsTheDownloadWithoutAMessage)
{
    const auto r = download("stall_frames");
    EXPECT_EQ(r.out, load);
}

TEST_F(LinkFaults, AStalledDataFrameFailsTheClockSyncAtOnce)
{
    const auto r = run("stall_data", "clock");
    EXPECT_EQ(r.out, message("Download Failed(Error #001)! " + tail));
}

TEST_F(LinkFaults, AStalledEndFrameStillEndsInSendComplete)
{
    const auto r = run("stall_end_frame", "clock");
    EXPECT_EQ(r.out, message("Send Complete!"));
    EXPECT_EQ(r.status, 0);
}

TEST_F(LinkFaults, AStalledGoAheadEndsTheUploadWithoutAMessage)
{
    const auto r = upload("stall_go_ahead");
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.status, 1);
}

}  // namespace
}  // namespace tesselo::testing
