// The emulated remote's side of learn and test IR, its flash file, its
// faults, and a slow remote that the link survives.
#include <gtest/gtest.h>

#include <set>

#include "core/image/checksum.h"
#include "core/link/download.h"
#include "core/link/exchange_opening.h"
#include "core/link/link_test_app.h"

namespace tesselo::testing {
namespace {

using emulator::Fault;

void write_frame(LinkTestApp& t, const Frame& f)
{
    std::size_t written = 0;
    ASSERT_EQ(t.app.link().write_usb(f.data(), f.size(), written, 200), 1);
}

Frame learn_step(std::uint16_t step) { return make_frame(tag_learn, 0, step); }

TEST(EmulatorLearn, TheRemoteHandsOverTheLearnedCodeAndEndsWithBcCc)
{
    LinkTestApp t;
    ASSERT_EQ(open_exchange(t.app.link(), tag_learn, learn_times).outcome, Opening::ok);
    EXPECT_EQ(learn_step(1)[7], 0x79);
    EXPECT_EQ(learn_step(2)[7], 0x7A);
    write_frame(t, learn_step(1));
    const auto start = t.clock.tick_count();
    std::array<std::uint8_t, 73> reply{};
    ASSERT_EQ(t.app.link().read_usb(reply.data(), reply.size(), 15000), 73);
    EXPECT_EQ(t.clock.tick_count() - start, t.remote->learn_capture_ms);
    EXPECT_EQ(reply[0], 0xAC);
    EXPECT_EQ(reply[1], 0xCC);
    EXPECT_EQ(reply[7], checksum(reply.data(), 7));
    EXPECT_TRUE(std::equal(t.remote->learned_code.begin(), t.remote->learned_code.end(), reply.begin() + 8));
    EXPECT_EQ(reply[72], checksum(reply.data(), 72));
    write_frame(t, learn_step(2));
    std::array<std::uint8_t, 8> end{};
    ASSERT_EQ(t.app.link().read_usb(end.data(), end.size(), 2000), 8);
    EXPECT_EQ(end[0], 0xBC);
    EXPECT_EQ(end[1], 0xCC);
}

TEST(EmulatorLearn, ASilentRemoteCostsFifteenVirtualSecondsAndNoRealTime)
{
    LinkTestApp t;
    ASSERT_EQ(open_exchange(t.app.link(), tag_learn, learn_times).outcome, Opening::ok);
    t.fault(Fault::silent);
    write_frame(t, learn_step(1));
    std::array<std::uint8_t, 73> reply{};
    const auto start = t.clock.tick_count();
    EXPECT_EQ(t.app.link().read_usb(reply.data(), reply.size(), 15000), -1);
    EXPECT_EQ(t.clock.tick_count() - start, 15000u);
}

TEST(EmulatorLearn, TheEndOfALearnCanBeEmptyOrRefused)
{
    LinkTestApp e;
    e.fault(Fault::learn_empty);
    ASSERT_EQ(open_exchange(e.app.link(), tag_learn, learn_times).outcome, Opening::ok);
    write_frame(e, learn_step(2));
    std::array<std::uint8_t, 8> end{};
    EXPECT_EQ(e.app.link().read_usb(end.data(), end.size(), 2000), 0);

    LinkTestApp r;
    r.fault(Fault::learn_refused);
    ASSERT_EQ(open_exchange(r.app.link(), tag_learn, learn_times).outcome, Opening::ok);
    write_frame(r, learn_step(2));
    ASSERT_EQ(r.app.link().read_usb(end.data(), end.size(), 2000), 8);
    EXPECT_NE(end[0], 0xBC);
}

std::vector<std::uint8_t> test_frame(bool learned)
{
    const std::uint16_t length = learned ? 0x40 : 0x80;
    const Frame head = make_frame(tag_test, length, 1, learned ? 0 : 1);
    std::vector<std::uint8_t> f(head.begin(), head.end());
    for (int i = 0; i < length; ++i) f.push_back(static_cast<std::uint8_t>(i));
    f.push_back(checksum(f.data(), f.size()));
    return f;
}

TEST(EmulatorTestIr, TheRemoteAcknowledgesTheCodeSendsItAndStopsWhenAsked)
{
    for (bool learned : {true, false}) {
        LinkTestApp t;
        ASSERT_EQ(open_exchange(t.app.link(), tag_test, test_start_times).outcome, Opening::ok);
        const auto frame = test_frame(learned);
        EXPECT_EQ(frame.size(), learned ? 73u : 137u);
        std::size_t written = 0;
        ASSERT_EQ(t.app.link().write_usb(frame.data(), frame.size(), written, 200), 1);
        std::array<std::uint8_t, 8> ack{};
        ASSERT_EQ(t.app.link().read_usb(ack.data(), ack.size(), 2000), 8);
        EXPECT_EQ(big_endian(ack.data(), 4), 2u);
        EXPECT_TRUE(frame_checksum_good(ack.data()));
        write_frame(t, make_frame(tag_test_end));
        t.app.link().close_usb();
        EXPECT_TRUE(t.remote->sending_code);
        EXPECT_EQ(t.remote->test_frame, frame);

        // The stop: no drain, for the remote is busy sending.
        const auto stop = open_exchange(t.app.link(), tag_test_stop, test_stop_times);
        EXPECT_EQ(stop.outcome, Opening::ok);
        EXPECT_EQ(stop.reply_result, 48);
        EXPECT_EQ(stop.reply[0], 0xAB);
        EXPECT_EQ(stop.reply[1], 0xCB);
        EXPECT_FALSE(t.remote->sending_code);
    }
}

TEST(EmulatorFlash, TheFlashIsKeptInItsFile)
{
    TempFolder folder;
    const auto file = folder.path() / "flash.bin";
    {
        LinkTestApp t;
        t.remote = std::make_shared<emulator::RemoteEmulator>(file);
        t.app.link().set_transport(std::make_unique<emulator::EmulatorTransport>(t.remote, t.clock));
        std::vector<std::uint8_t> image(5000, 0x5A);
        download_image(t.app, image, image.size());
        EXPECT_EQ(read_bytes(file), image);
    }
    emulator::RemoteEmulator again(file);
    EXPECT_EQ(again.flash().size(), 5000u);
    EXPECT_EQ(again.flash()[4999], 0x5A);
}

TEST(EmulatorFaults, EveryFaultHasItsOwnNameAndIsFoundByIt)
{
    std::set<std::string> names;
    for (const auto& f : emulator::fault_table()) {
        EXPECT_TRUE(names.insert(f.name).second) << f.name;
        EXPECT_EQ(emulator::fault_by_name(f.name), f.fault);
        EXPECT_EQ(emulator::fault_name(f.fault), f.name);
        EXPECT_GT(std::string(f.what).size(), 10u);
    }
    EXPECT_FALSE(emulator::fault_by_name("no such fault"));
}

TEST(EmulatorFaults, ASlowRemoteIsSurvivedAndTheDownloadEnds)
{
    LinkTestApp t;
    t.fault(Fault::slow);
    std::vector<std::uint8_t> image(9000, 1);
    download_image(t.app, image, image.size());
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{"message \"Kelvaro Tesselo 3\" \"Send Complete!\""});
    EXPECT_TRUE(t.link_closed());
}

TEST(EmulatorFaults, GarbageFromTheHostIsNotTakenUp)
{
    LinkTestApp t;
    ASSERT_EQ(t.app.link().open_usb(), 1);
    const std::uint8_t junk[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    std::size_t written = 0;
    EXPECT_EQ(t.app.link().write_usb(junk, sizeof junk, written, 200), 1);
    std::uint8_t b = 0;
    EXPECT_EQ(t.app.link().read_usb(&b, 1, 500), -1);
}

}  // namespace
}  // namespace tesselo::testing
