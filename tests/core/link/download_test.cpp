// Download: the wire order, the block loop with its sequence numbers and
// attempts, the progress bar, every failure's words, and temp.trl.
#include <gtest/gtest.h>

#include "core/document/lifecycle.h"
#include "core/image/checksum.h"
#include "core/image/image_writer.h"
#include "core/link/download.h"
#include "core/link/link_test_app.h"

namespace tesselo::testing {
namespace {

using emulator::Fault;

std::vector<std::uint8_t> test_image(std::size_t size)
{
    std::vector<std::uint8_t> image(size);
    for (std::size_t i = 0; i < size; ++i) image[i] = static_cast<std::uint8_t>(i * 7 + 3);
    return image;
}

const std::string failed_001 = "message \"Kelvaro Tesselo 3\" \"Download Failed(Error #001)! " + common_tail + "\"";
const std::string send_complete = "message \"Kelvaro Tesselo 3\" \"Send Complete!\"";

std::vector<std::uint8_t> block_frame(const std::vector<std::uint8_t>& block)
{
    return {block.begin(), block.begin() + 8};
}

TEST(Download, TheWireOrderOfATenThousandByteImage)
{
    LinkTestApp t;
    auto image = test_image(10000);
    download_image(t.app, image, image.size());
    const auto& wire = t.wire->wire;
    ASSERT_EQ(wire.size(), 11u);
    EXPECT_TRUE(wire[0].from_host);
    EXPECT_EQ(wire[0].bytes, bytes({0xF8}));
    EXPECT_EQ(wire[1].bytes, bytes({0xF6}));
    EXPECT_EQ(wire[2].bytes, frame_of(make_frame(tag_download)));
    EXPECT_FALSE(wire[3].from_host);
    EXPECT_EQ(wire[3].bytes.size(), 48u);
    const std::size_t counts[] = {4096, 4096, 1808};
    for (int b = 0; b < 3; ++b) {
        const auto& block = wire[4 + 2 * b];
        const auto& ack = wire[5 + 2 * b];
        ASSERT_TRUE(block.from_host);
        ASSERT_EQ(block.bytes.size(), counts[b] + 9);
        EXPECT_EQ(block_frame(block.bytes),
                  frame_of(make_frame(tag_download, static_cast<std::uint16_t>(counts[b]), static_cast<std::uint16_t>(b + 1))));
        EXPECT_EQ(block.bytes.back(), checksum(block.bytes.data(), counts[b] + 8));
        EXPECT_FALSE(ack.from_host);
        EXPECT_EQ(big_endian(ack.bytes.data(), 4), static_cast<unsigned>(b + 2));
    }
    EXPECT_EQ(wire[8].bytes[2], 0x07);
    EXPECT_EQ(wire[8].bytes[3], 0x10);
    EXPECT_EQ(wire[10].bytes, bytes({0xBD, 0xCF, 0, 0, 0, 0, 0, 0x8C}));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{send_complete});
    EXPECT_EQ(t.ui.icons.back(), Icon::none);
    EXPECT_TRUE(t.link_closed());
}

TEST(Download, TheRemoteKeepsTheImageWithItsOwnFourBytesAt100)
{
    LinkTestApp t;
    auto image = test_image(10000);
    download_image(t.app, image, image.size());
    EXPECT_EQ(std::vector<std::uint8_t>(image.begin() + 100, image.begin() + 104), bytes({0x51, 0x00, 0x03, 0x01}));
    EXPECT_EQ(t.remote->flash(), image);
    EXPECT_EQ(t.remote->downloads_completed, 1);
}

TEST(Download, ATimedOutReplyLeavesZerosAt100AndGoesOn)
{
    LinkTestApp t;
    t.fault(Fault::mute_reply);
    auto image = test_image(5000);
    download_image(t.app, image, image.size());
    EXPECT_EQ(std::vector<std::uint8_t>(image.begin() + 100, image.begin() + 104), bytes({0, 0, 0, 0}));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{send_complete});
}

TEST(Download, AShortReplyGoesOnWithWhatCame)
{
    LinkTestApp t;
    t.fault(Fault::short_reply);
    auto image = test_image(5000);
    download_image(t.app, image, image.size());
    EXPECT_EQ(std::vector<std::uint8_t>(image.begin() + 100, image.begin() + 104), bytes({0x51, 0x00, 0x03, 0x01}));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{send_complete});
}

TEST(Download, TheProgressBarsNumbers)
{
    LinkTestApp t;
    auto image = test_image(10000);
    download_image(t.app, image, image.size());
    const std::vector<std::pair<int, int>> expected = {{250, 10250}, {4346, 10250}, {8442, 10250}, {10250, 10250},
                                                       {10250, 10250}, {0, 10250}};
    EXPECT_EQ(t.ui.bar, expected);
}

TEST(Download, AnImageOfExactly8192BytesGoesOutAsTwoFullBlocksThenTheEndFrame)
{
    LinkTestApp t;
    auto image = test_image(8192);
    download_image(t.app, image, image.size());
    const auto writes = t.host_writes();
    ASSERT_EQ(writes.size(), 5u);
    EXPECT_EQ(writes[2].size(), 4105u);
    EXPECT_EQ(writes[3].size(), 4105u);
    EXPECT_EQ(writes[3][5], 2);
    EXPECT_EQ(writes[4], frame_of(make_frame(tag_download_end)));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{send_complete});
}

TEST(Download, AnImageUnder4096BytesGoesOutAsOneBlockWithSequenceOne)
{
    LinkTestApp t;
    auto image = test_image(3000);
    download_image(t.app, image, image.size());
    const auto writes = t.host_writes();
    ASSERT_EQ(writes.size(), 4u);
    EXPECT_EQ(writes[2].size(), 3009u);
    EXPECT_EQ(block_frame(writes[2]), frame_of(make_frame(tag_download, 3000, 1)));
    EXPECT_EQ(writes[2][2], 0x0B);
    EXPECT_EQ(writes[2][3], 0xB8);
}

TEST(Download, The256thBlockHasSeqHighOneAndSeqLowZero)
{
    LinkTestApp t;
    auto image = test_image(256 * 4096 + 100);
    download_image(t.app, image, image.size());
    const auto writes = t.host_writes();
    // wake-up, opening, 257 blocks, end frame
    ASSERT_EQ(writes.size(), 260u);
    EXPECT_EQ(writes[2 + 254][4], 0);
    EXPECT_EQ(writes[2 + 254][5], 255);
    EXPECT_EQ(writes[2 + 255][4], 1);
    EXPECT_EQ(writes[2 + 255][5], 0);
    EXPECT_EQ(writes[2 + 256][4], 1);
    EXPECT_EQ(writes[2 + 256][5], 1);
    EXPECT_EQ(t.remote->flash(), image);
}

TEST(Download, ARemoteThatNeverAcknowledgesCostsThreeTimes2000MsPerBlockAndStillCompletes)
{
    LinkTestApp t;
    t.fault(Fault::mute_ack);
    auto image = test_image(10000);
    download_image(t.app, image, image.size());
    const auto writes = t.host_writes();
    ASSERT_EQ(writes.size(), 2u + 9u + 1u);
    // The drain (1000 ms), then 3 blocks of 3 attempts of 2000 ms.
    EXPECT_EQ(t.clock.tick_count(), 1000u + 3u * 3u * 2000u);
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{send_complete});
}

TEST(Download, TheWindowSaysWhichBlockAndWhichAttemptGoesOutSoThatASilentRemoteShows)
{
    LinkTestApp t;
    t.fault(Fault::mute_ack);
    auto image = test_image(10000);
    download_image(t.app, image, image.size());
    const std::string unconfirmed = ": the remote did not confirm it";
    std::vector<std::string> expected;
    for (int block = 1; block <= 3; ++block)
        for (int attempt = 1; attempt <= 3; ++attempt)
            expected.push_back("Block " + std::to_string(block) + " of 3, attempt " + std::to_string(attempt) + " of 3" +
                               (attempt > 1 ? unconfirmed : ""));
    EXPECT_EQ(t.ui.activities, expected);
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{send_complete});
}

TEST(Download, ARemoteThatConfirmsEachBlockShowsOneAttemptABlock)
{
    LinkTestApp t;
    // 42 blocks: the last one holds the 10 bytes beyond 41 full ones.
    auto image = test_image(41 * 4096 + 10);
    download_image(t.app, image, image.size());
    ASSERT_EQ(t.ui.activities.size(), 42u);
    EXPECT_EQ(t.ui.activities.front(), "Block 1 of 42, attempt 1 of 3");
    EXPECT_EQ(t.ui.activities.back(), "Block 42 of 42, attempt 1 of 3");
    // An image of whole blocks has no block of nothing to tell.
    LinkTestApp exact;
    auto whole = test_image(8192);
    download_image(exact.app, whole, whole.size());
    EXPECT_EQ(exact.ui.activities, (std::vector<std::string>{"Block 1 of 2, attempt 1 of 3", "Block 2 of 2, attempt 1 of 3"}));
}

TEST(Download, OwnNumberAcknowledgementsMakeEveryBlockGoThreeTimes)
{
    LinkTestApp t;
    t.fault(Fault::own_number_ack);
    auto image = test_image(10000);
    download_image(t.app, image, image.size());
    const auto writes = t.host_writes();
    ASSERT_EQ(writes.size(), 2u + 9u + 1u);
    for (int b = 0; b < 3; ++b)
        for (int a = 0; a < 3; ++a) EXPECT_EQ(writes[2 + 3 * b + a][5], b + 1);
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{send_complete});
}

// "no usb device" is a failure of the link: the exclamation mark, unlike
// Upload's plain box.
TEST(Download, WithNoDeviceOnlyNoUsbDeviceIsShown)
{
    LinkTestApp t;
    t.fault(Fault::absent);
    auto image = test_image(3000);
    t.app.flags().learn_in_progress = true;
    download_image(t.app, image, image.size());
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{"message \"Kelvaro Tesselo 3\" \"no usb device\""});
    EXPECT_EQ(t.ui.icons, std::vector<Icon>{Icon::exclamation});
    EXPECT_FALSE(t.app.flags().learn_in_progress);
    EXPECT_TRUE(t.ui.bar.empty());
}

TEST(Download, FailuresOfTheOpeningAndTheAcksSay001WithTheCommonTail)
{
    // Rule A: an error answer is a reply with another tag.
    for (Fault f : {Fault::wrong_wakeup, Fault::empty_wakeup, Fault::empty_reply, Fault::wrong_reply_tag,
                    Fault::error_header, Fault::error_id, Fault::empty_ack}) {
        LinkTestApp t;
        t.fault(f);
        t.app.flags().learn_in_progress = true;
        auto image = test_image(5000);
        download_image(t.app, image, image.size());
        EXPECT_EQ(t.take_lines(), std::vector<std::string>{failed_001}) << emulator::fault_name(f);
        EXPECT_EQ(t.ui.icons, std::vector<Icon>{Icon::exclamation});
        EXPECT_TRUE(t.link_closed());
        EXPECT_FALSE(t.app.flags().learn_in_progress);
        EXPECT_EQ(t.remote->downloads_completed, 0);
    }
}

TEST(Download, AFailedWriteEndsWithoutAMessage)
{
    for (Fault f : {Fault::stall_writes, Fault::stall_frames, Fault::stall_data, Fault::stall_end_frame}) {
        LinkTestApp t;
        t.fault(f);
        auto image = test_image(5000);
        download_image(t.app, image, image.size());
        EXPECT_TRUE(t.take_lines().empty()) << emulator::fault_name(f);
        EXPECT_TRUE(t.link_closed());
    }
}

TEST(Download, ATimedOutWakeUpAnswerGoesOn)
{
    LinkTestApp t;
    t.fault(Fault::mute_wakeup);
    auto image = test_image(5000);
    download_image(t.app, image, image.size());
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{send_complete});
}

TEST(Download, ASilentRemoteStillEndsInSendComplete)
{
    LinkTestApp t;
    t.fault(Fault::silent);
    auto image = test_image(5000);
    download_image(t.app, image, image.size());
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{send_complete});
}

TEST(Download, TheMenuCommandWritesTempTrlAsItWentToTheRemoteAndLogs)
{
    LinkTestApp t;
    ASSERT_EQ(muNew(t.app), 0);
    muDownload_Click(t.app);
    const auto sent = t.remote->flash();
    ASSERT_GT(sent.size(), 1000u);
    const auto file = read_bytes(t.home.path() / "temp.trl");
    ASSERT_EQ(file.size(), sent.size() + 2000);
    EXPECT_TRUE(std::equal(sent.begin(), sent.end(), file.begin()));
    EXPECT_EQ(std::vector<std::uint8_t>(file.begin() + 100, file.begin() + 104), bytes({0x51, 0x00, 0x03, 0x01}));
    const auto log = t.log_lines();
    ASSERT_GE(log.size(), 2u);
    EXPECT_EQ(log[log.size() - 2], "\"download(start) - Untitled1\"");
    EXPECT_EQ(log.back(), "\"Untitled1-Download to QM4100/QM5100\"");
    EXPECT_EQ(t.ui.window_events, (std::vector<std::string>{"show Download with bar", "unload"}));
    EXPECT_EQ(t.ui.wait_depth, 0);
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{send_complete});
}

TEST(Download, SavingInDownloadModeReachesTheRemote)
{
    LinkTestApp t;
    ASSERT_EQ(muNew(t.app), 0);
    const auto path = t.home.path() / "scratch.trl";
    ASSERT_TRUE(save_tofile(t.app, path.string(), 1, 0));
    EXPECT_EQ(t.remote->downloads_completed, 1);
    const auto file = read_bytes(path);
    ASSERT_EQ(file.size(), t.remote->flash().size() + 2000);
    EXPECT_TRUE(std::equal(t.remote->flash().begin(), t.remote->flash().end(), file.begin()));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{send_complete});
}

TEST(Download, TempTrlIsWrittenEvenAfterAFailure)
{
    LinkTestApp t;
    t.fault(Fault::absent);
    ASSERT_EQ(muNew(t.app), 0);
    muDownload_Click(t.app);
    const auto file = read_bytes(t.home.path() / "temp.trl");
    EXPECT_GT(file.size(), 2000u);
    // The image's own bytes at 100 (the format stamp) stay: no remote gave its own.
    EXPECT_EQ(std::vector<std::uint8_t>(file.begin() + 100, file.begin() + 104), bytes({4, 5, 0, 4}));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{"message \"Kelvaro Tesselo 3\" \"no usb device\""});
    EXPECT_EQ(t.ui.window_events.back(), "unload");
}

}  // namespace
}  // namespace tesselo::testing
