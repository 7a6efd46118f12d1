// The byte link: finding the remote, open and close, reads and writes with
// their results, and the opening that every exchange starts with.
#include <gtest/gtest.h>

#include "core/image/checksum.h"
#include "core/link/clock_sync.h"
#include "core/link/exchange_opening.h"
#include "core/link/link_test_app.h"

namespace tesselo::testing {
namespace {

using emulator::Fault;

// A bus with the interfaces given, which counts what is asked of it.
class FakeBus : public Transport {
public:
    std::vector<std::string> paths;
    std::string opened;
    int reads = 0;
    int writes = 0;
    bool open_succeeds = true;
    std::vector<std::string> device_paths() override { return paths; }
    bool open(const std::string& path) override
    {
        opened = open_succeeds ? path : "";
        return open_succeeds;
    }
    void close() override { opened.clear(); }
    int read_pipe() const override { return opened.empty() ? -1 : 0x81; }
    int write_pipe() const override { return opened.empty() ? -1 : 0x02; }
    int read(std::uint8_t*, std::size_t, std::uint32_t) override { return ++reads, -1; }
    int write(const std::uint8_t*, std::size_t n, std::size_t& written, std::uint32_t) override
    {
        ++writes;
        written = n;
        return 1;
    }
};

struct BusApp : TestApp {
    FakeBus* bus = nullptr;
    BusApp()
    {
        auto b = std::make_unique<FakeBus>();
        bus = b.get();
        app.link().set_transport(std::move(b));
    }
};

TEST(Link, WithNoDevicePresentOpenGivesZeroAndThePathStaysEmpty)
{
    LinkTestApp t;
    t.fault(Fault::absent);
    EXPECT_EQ(t.app.link().open_usb(), 0);
    EXPECT_TRUE(t.app.link().usb_device_path.empty());
    EXPECT_TRUE(t.link_closed());

    TestApp bare;  // no bus at all
    EXPECT_EQ(bare.app.link().open_usb(), 0);
    EXPECT_TRUE(bare.app.link().usb_device_path.empty());
}

TEST(Link, TheSearchGoesPastOtherVendorsAndProductsAndFindsTheRemoteSecond)
{
    BusApp t;
    t.bus->paths = {"usb\\vid_1234&pid_5100\\1-1", "usb\\vid_1d5c&pid_5101\\1-2", "usb\\vid_1d5c&pid_5100\\1-3",
                    "usb\\vid_1d5c&pid_5100\\1-4"};
    // Lower case on the bus: matched, because the comparison runs on the upper-cased path.
    EXPECT_EQ(t.app.link().find_usb_device(), "USB\\VID_1D5C&PID_5100\\1-3");
    EXPECT_EQ(t.app.link().open_usb(), 1);
    EXPECT_EQ(t.bus->opened, "USB\\VID_1D5C&PID_5100\\1-3");
    EXPECT_EQ(t.app.link().read_pipe, 0x81);
    EXPECT_EQ(t.app.link().write_pipe, 0x02);
    t.app.link().close_usb();
    t.app.link().close_usb();  // twice is harmless
    EXPECT_TRUE(t.app.link().usb_device_path.empty());
    EXPECT_EQ(t.app.link().read_pipe, -1);
}

TEST(Link, AFoundDeviceThatWillNotOpenGivesZeroAndAClosedLink)
{
    BusApp t;
    t.bus->paths = {"USB\\VID_1D5C&PID_5100\\1-3"};
    t.bus->open_succeeds = false;
    EXPECT_EQ(t.app.link().open_usb(), 0);
    EXPECT_TRUE(t.app.link().usb_device_path.empty());
    EXPECT_EQ(t.app.link().read_pipe, -1);
    EXPECT_EQ(t.app.link().write_pipe, -1);
}

TEST(Link, TheFoundPathIsCutAtItsFirstNul)
{
    BusApp t;
    t.bus->paths = {std::string("usb\\vid_1d5c&pid_5100\\x\0junk", 29)};
    EXPECT_EQ(t.app.link().find_usb_device(), "USB\\VID_1D5C&PID_5100\\X");
}

TEST(Link, AReadOfZeroBytesGivesZeroWithoutTouchingTheDevice)
{
    BusApp t;
    t.bus->paths = {"USB\\VID_1D5C&PID_5100\\1"};
    ASSERT_EQ(t.app.link().open_usb(), 1);
    std::uint8_t b = 0;
    EXPECT_EQ(t.app.link().read_usb(&b, 0, 1000), 0);
    EXPECT_EQ(t.bus->reads, 0);
}

TEST(Link, ReadAndWriteWithNothingOpenGiveZero)
{
    LinkTestApp t;
    std::uint8_t b = wake_up_byte;
    std::size_t written = 9;
    EXPECT_EQ(t.app.link().read_usb(&b, 1, 1000), 0);
    EXPECT_EQ(t.app.link().write_usb(&b, 1, written, 200), 0);
    EXPECT_EQ(written, 0u);
    EXPECT_TRUE(t.wire->wire.empty());
    EXPECT_EQ(t.clock.tick_count(), 0u);
}

TEST(Link, ASilentDeviceTimesOutAOneByteReadWithMinusOneAfterTheTimeOut)
{
    LinkTestApp t;
    t.fault(Fault::silent);
    ASSERT_EQ(t.app.link().open_usb(), 1);
    std::uint8_t b = 0;
    const auto start = t.clock.tick_count();
    EXPECT_EQ(t.app.link().read_usb(&b, 1, 2000), -1);
    EXPECT_EQ(t.clock.tick_count() - start, 2000u);
}

TEST(Link, AReadThatCompletesWithNothingUntilTheTimeIsUsedUpGivesZero)
{
    LinkTestApp t;
    t.fault(Fault::empty_wakeup);
    ASSERT_EQ(t.app.link().open_usb(), 1);
    std::size_t written = 0;
    const std::uint8_t wake = wake_up_byte;
    ASSERT_EQ(t.app.link().write_usb(&wake, 1, written, 200), 1);
    EXPECT_EQ(written, 1u);
    std::uint8_t b = 0;
    EXPECT_EQ(t.app.link().read_usb(&b, 1, 1000), 0);
}

// A remote pulled from the bus: every read completes at once with nothing,
// and its pipes are gone.
class VanishedBus : public FakeBus {
public:
    explicit VanishedBus(VirtualClock& clock) : clock_(clock) {}
    bool gone = false;
    int read_pipe() const override { return gone ? -1 : FakeBus::read_pipe(); }
    int read(std::uint8_t*, std::size_t, std::uint32_t) override
    {
        clock_.advance(1);
        ++reads;
        return gone ? 0 : -1;
    }

private:
    VirtualClock& clock_;
};

TEST(Link, AfterTheDeviceHasGoneAReadGivesZeroAtOnceInsteadOfSpinning)
{
    TestApp t;
    auto owned = std::make_unique<VanishedBus>(t.clock);
    VanishedBus* bus = owned.get();
    bus->paths = {"USB\\VID_1D5C&PID_5100\\1"};
    t.app.link().set_transport(std::move(owned));
    ASSERT_EQ(t.app.link().open_usb(), 1);
    bus->gone = true;
    std::uint8_t b = 0;
    EXPECT_EQ(t.app.link().read_usb(&b, 1, 2000), 0);
    EXPECT_EQ(bus->reads, 1);
    // close_usb still closes what was open.
    t.app.link().close_usb();
    EXPECT_TRUE(bus->opened.empty());
}

TEST(Link, AWriteThatTimesOutGivesMinusOne)
{
    LinkTestApp t;
    t.fault(Fault::stall_writes);
    ASSERT_EQ(t.app.link().open_usb(), 1);
    std::size_t written = 0;
    const std::uint8_t wake = wake_up_byte;
    EXPECT_EQ(t.app.link().write_usb(&wake, 1, written, 200), -1);
    EXPECT_EQ(written, 0u);
    EXPECT_EQ(t.clock.tick_count(), 200u);
}

TEST(Link, ALongerTransferIsReadInPieces)
{
    LinkTestApp t;
    ASSERT_EQ(t.app.link().open_usb(), 1);
    const Frame opening = make_frame(tag_clock);
    std::size_t written = 0;
    ASSERT_EQ(t.app.link().write_usb(opening.data(), 8, written, 200), 1);
    std::array<std::uint8_t, 48> reply{};
    EXPECT_EQ(t.app.link().read_usb(reply.data(), 8, 2000), 8);
    EXPECT_EQ(t.app.link().read_usb(reply.data() + 8, 40, 2000), 40);
    EXPECT_EQ(reply[0], 0xAA);
    EXPECT_EQ(reply[47], checksum(reply.data(), 47));
}

TEST(Frames, OpeningAndEndFramesCarryTheirChecksums)
{
    EXPECT_EQ(make_frame(tag_download)[7], 0x7E);
    EXPECT_EQ(make_frame(tag_upload)[7], 0x8A);
    EXPECT_EQ(make_frame(tag_clock)[7], 0x77);
    EXPECT_EQ(make_frame(tag_learn)[7], 0x78);
    EXPECT_EQ(make_frame(tag_test)[7], 0x88);
    EXPECT_EQ(make_frame(tag_test_stop)[7], 0x76);
    EXPECT_EQ(make_frame(tag_download_end)[7], 0x8C);
    EXPECT_EQ(make_frame(tag_clock_end)[7], 0x87);
    EXPECT_EQ(make_frame(tag_test_end)[7], 0x98);
    EXPECT_EQ(frame_of(make_frame(tag_download, 0x0710, 3)), bytes({0xAF, 0xCF, 0x07, 0x10, 0x00, 0x03, 0x00, 0x98}));
}

std::array<std::uint8_t, 48> reply_with(Tag tag, bool good_checksum)
{
    std::array<std::uint8_t, 48> r{};
    r[0] = tag.first;
    r[1] = tag.second;
    r[47] = static_cast<std::uint8_t>(checksum(r.data(), 47) + (good_checksum ? 0 : 1));
    return r;
}

TEST(Rules, RuleAFailsOnNothingAndOnAWrongTagAndGoesOnOtherwise)
{
    const auto good = reply_with(tag_download, true);
    const auto other = reply_with(tag_upload, true);
    EXPECT_EQ(judge_reply(good.data(), 0, tag_download, ReplyRule::A), Opening::reply_empty);
    EXPECT_EQ(judge_reply(other.data(), 48, tag_download, ReplyRule::A), Opening::reply_wrong_tag);
    EXPECT_EQ(judge_reply(good.data(), 48, tag_download, ReplyRule::A), Opening::ok);
    EXPECT_EQ(judge_reply(other.data(), 20, tag_download, ReplyRule::A), Opening::ok);
    EXPECT_EQ(judge_reply(other.data(), -1, tag_download, ReplyRule::A), Opening::ok);
    // Rule A looks at no checksum.
    const auto bad = reply_with(tag_download, false);
    EXPECT_EQ(judge_reply(bad.data(), 48, tag_download, ReplyRule::A), Opening::ok);
}

TEST(Rules, RuleBJudgesChecksumsAndErrorAnswers)
{
    EXPECT_EQ(judge_reply(reply_with(tag_clock, true).data(), 0, tag_clock, ReplyRule::B), Opening::reply_empty);
    EXPECT_EQ(judge_reply(reply_with(tag_upload, true).data(), 47, tag_clock, ReplyRule::B), Opening::ok);
    EXPECT_EQ(judge_reply(reply_with(tag_clock, false).data(), 48, tag_clock, ReplyRule::B), Opening::handshake_error);
    // A bad checksum with byte 0 of 0 is accepted.
    EXPECT_EQ(judge_reply(reply_with({0, 0}, false).data(), 48, tag_clock, ReplyRule::B), Opening::ok);
    EXPECT_EQ(judge_reply(reply_with({0xEE, 6}, true).data(), 48, tag_clock, ReplyRule::B), Opening::header_error);
    EXPECT_EQ(judge_reply(reply_with({0xEE, 3}, true).data(), 48, tag_clock, ReplyRule::B), Opening::id_error);
    // An error answer with an unknown number is accepted.
    EXPECT_EQ(judge_reply(reply_with({0xEE, 9}, true).data(), 48, tag_clock, ReplyRule::B), Opening::ok);
    // Another tag that is no error answer goes on.
    EXPECT_EQ(judge_reply(reply_with(tag_upload, true).data(), 48, tag_clock, ReplyRule::B), Opening::ok);
}

TEST(Rules, RuleCJudgesNothing)
{
    EXPECT_EQ(judge_reply(reply_with({0xEE, 6}, true).data(), 0, tag_test_stop, ReplyRule::C), Opening::ok);
}

TEST(Opening, ASilentWakeUpGoesOnToTheOpeningFrame)
{
    LinkTestApp t;
    t.fault(Fault::mute_wakeup);
    const auto r = open_exchange(t.app.link(), tag_clock, clock_times);
    EXPECT_EQ(r.outcome, Opening::ok);
    const auto writes = t.host_writes();
    ASSERT_EQ(writes.size(), 2u);
    EXPECT_EQ(writes[0], bytes({0xF8}));
    EXPECT_EQ(writes[1], frame_of(make_frame(tag_clock)));
    // The drain's 1000 ms, the 1000 ms of the wake-up answer.
    EXPECT_GE(t.clock.tick_count(), 2000u);
}

TEST(Opening, AnyOtherWakeUpAnswerFailsAtOnce)
{
    LinkTestApp t;
    t.fault(Fault::wrong_wakeup);
    EXPECT_EQ(open_exchange(t.app.link(), tag_upload, upload_times).outcome, Opening::wake_up_failed);
    EXPECT_EQ(t.host_writes().size(), 1u);
}

TEST(Opening, TheDrainReadsClosesAndOpensAgain)
{
    LinkTestApp t;
    EXPECT_EQ(open_exchange(t.app.link(), tag_upload, upload_times).outcome, Opening::ok);
    EXPECT_EQ(t.wire->opens, 2);
    LinkTestApp stop;
    EXPECT_EQ(open_exchange(stop.app.link(), tag_test_stop, test_stop_times).outcome, Opening::ok);
    EXPECT_EQ(stop.wire->opens, 1);
}

TEST(Opening, AllOtherOperationsAcceptABadChecksumWithByteZeroAndAnUnknownErrorAnswer)
{
    for (Fault f : {Fault::zero_reply_bad_checksum, Fault::error_unknown}) {
        LinkTestApp t;
        t.fault(f);
        clock_sync(t.app);
        EXPECT_EQ(t.take_lines(), std::vector<std::string>{"message \"Kelvaro Tesselo 3\" \"Send Complete!\""})
            << emulator::fault_name(f);
    }
}

}  // namespace
}  // namespace tesselo::testing
