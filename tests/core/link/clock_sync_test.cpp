// Clock Sync: the BCD frame, its three attempts, and where each message goes.
#include <gtest/gtest.h>

#include "core/link/clock_sync.h"
#include "core/link/link_test_app.h"

namespace tesselo::testing {
namespace {

using emulator::Fault;

const std::string send_complete = "message \"Kelvaro Tesselo 3\" \"Send Complete!\"";
const std::string failed_001 = "message \"Kelvaro Tesselo 3\" \"Download Failed(Error #001)! " + common_tail + "\"";

LocalTime at(int h, int m, int s) { return {2026, 11, 15, 0, h, m, s}; }

TEST(ClockSync, At090503TheDataBytesAre090503)
{
    LinkTestApp t;
    t.clock.set_local_time(at(9, 5, 3));
    clock_sync(t.app);
    EXPECT_EQ(t.remote->clock_bcd, (std::array<std::uint8_t, 3>{0x09, 0x05, 0x03}));
    EXPECT_EQ(t.remote->clock_syncs, 1);
    const auto writes = t.host_writes();
    ASSERT_EQ(writes.size(), 4u);
    EXPECT_EQ(writes[2], bytes({0xAA, 0xCD, 0x00, 0x03, 0x00, 0x01, 0x00, 0x7B, 0x09, 0x05, 0x03, 0x07}));
    EXPECT_EQ(writes[3], bytes({0xBA, 0xCD, 0, 0, 0, 0, 0, 0x87}));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{send_complete});
    EXPECT_EQ(t.log_lines().back(), "\"Clock sync\"");
    EXPECT_TRUE(t.link_closed());
    EXPECT_EQ(t.ui.wait_depth, 0);
}

TEST(ClockSync, LeavesTheLearnFlagAlone)
{
    LinkTestApp t;
    t.app.flags().learn_in_progress = true;
    clock_sync(t.app);
    EXPECT_TRUE(t.app.flags().learn_in_progress);
}

TEST(ClockSync, At235959TheDataBytesAre235959)
{
    const auto f = clock_frame(at(23, 59, 59));
    EXPECT_EQ(f[8], 0x23);
    EXPECT_EQ(f[9], 0x59);
    EXPECT_EQ(f[10], 0x59);
    EXPECT_EQ(clock_frame(at(21, 7, 59))[9], 0x07);
}

TEST(ClockSync, OnlyTheAckNumberTwoIsAccepted)
{
    for (Fault f : {Fault::own_number_ack, Fault::wrong_ack}) {
        LinkTestApp t;
        t.fault(f);
        clock_sync(t.app);
        EXPECT_EQ(t.take_lines(), std::vector<std::string>{failed_001}) << emulator::fault_name(f);
        EXPECT_EQ(t.ui.icons, std::vector<Icon>{Icon::exclamation});
        EXPECT_EQ(t.host_writes().size(), 2u + 3u);  // three attempts, no end frame
        EXPECT_EQ(t.remote->clock_syncs, 0);
        EXPECT_TRUE(t.link_closed());
    }
}

TEST(ClockSync, AGoodAckAtTheThirdAttemptStillEndsInSendComplete)
{
    LinkTestApp t;
    t.fault(Fault::third_ack);
    t.clock.set_local_time(at(12, 34, 56));
    clock_sync(t.app);
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{send_complete});
    const auto writes = t.host_writes();
    ASSERT_EQ(writes.size(), 2u + 3u + 1u);
    // Every attempt carries the same time.
    EXPECT_EQ(writes[2], writes[3]);
    EXPECT_EQ(writes[3], writes[4]);
    EXPECT_EQ(t.remote->clock_syncs, 1);
}

TEST(ClockSync, AnAckOfEightBytesThatIsBadOrWronglyNumberedTakesTheNextAttempt)
{
    for (Fault f : {Fault::bad_ack_checksum, Fault::own_number_ack}) {
        LinkTestApp t;
        t.fault(f);
        clock_sync(t.app);
        EXPECT_EQ(t.take_lines(), std::vector<std::string>{failed_001}) << emulator::fault_name(f);
        EXPECT_EQ(t.host_writes().size(), 5u);
    }
}

TEST(ClockSync, WithoutAnAckOfEightBytesTheExchangeFailsAtOnce)
{
    // A silent remote, an ack that completes with nothing and a short ack:
    // nothing was received, and no second attempt is made.
    for (Fault f : {Fault::mute_ack, Fault::empty_ack, Fault::short_ack}) {
        LinkTestApp t;
        t.fault(f);
        clock_sync(t.app);
        EXPECT_EQ(t.take_lines(), std::vector<std::string>{failed_001}) << emulator::fault_name(f);
        EXPECT_EQ(t.host_writes().size(), 3u) << emulator::fault_name(f);
        EXPECT_EQ(t.remote->clock_syncs, 0);
        EXPECT_TRUE(t.link_closed());
    }
}

TEST(ClockSync, AFailedDataWriteFailsAtOnce)
{
    LinkTestApp t;
    t.fault(Fault::stall_data);
    clock_sync(t.app);
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{failed_001});
    EXPECT_EQ(t.host_writes().size(), 3u);
}

TEST(ClockSync, NoDeviceAndAnEmptyReplyGoToTheAddIrCodeStatusLine)
{
    LinkTestApp t;
    t.fault(Fault::absent);
    clock_sync(t.app);
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{"status \"no usb device\""});
    EXPECT_TRUE(t.ui.icons.empty());

    LinkTestApp e;
    e.fault(Fault::empty_reply);
    clock_sync(e.app);
    EXPECT_EQ(e.take_lines(), std::vector<std::string>{"status \"Download Failed(Error #002)! \""});
    EXPECT_TRUE(e.ui.icons.empty());
    EXPECT_TRUE(e.link_closed());
}

TEST(ClockSync, AMissingOrWrongWakeUpAnswerShowsNothing)
{
    for (Fault f : {Fault::wrong_wakeup, Fault::empty_wakeup, Fault::stall_writes, Fault::stall_frames}) {
        LinkTestApp t;
        t.fault(f);
        clock_sync(t.app);
        EXPECT_TRUE(t.take_lines().empty()) << emulator::fault_name(f);
        EXPECT_TRUE(t.link_closed());
    }
}

TEST(ClockSync, RuleBRefusalsShowTheHandshakingWordsAlone)
{
    const std::pair<Fault, std::string> cases[] = {
        {Fault::bad_reply_checksum, "Handshaking Error #1. Try again!"},
        {Fault::error_header, "Handshaking Header Error . Try again!"},
        {Fault::error_id, "Handshaking ID Error . Try again!"},
    };
    for (const auto& [f, words] : cases) {
        LinkTestApp t;
        t.fault(f);
        clock_sync(t.app);
        EXPECT_EQ(t.take_lines(), std::vector<std::string>{"message \"Kelvaro Tesselo 3\" \"" + words + "\""});
        EXPECT_EQ(t.ui.icons, std::vector<Icon>{Icon::exclamation});
        EXPECT_EQ(t.host_writes().size(), 2u);
    }
}

TEST(ClockSync, AFailedEndFrameStillLogsAndSaysSendComplete)
{
    LinkTestApp t;
    t.fault(Fault::stall_end_frame);
    clock_sync(t.app);
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{send_complete});
    EXPECT_EQ(t.log_lines().back(), "\"Clock sync\"");
    EXPECT_EQ(t.remote->clock_syncs, 0);
    EXPECT_TRUE(t.link_closed());
}

}  // namespace
}  // namespace tesselo::testing
