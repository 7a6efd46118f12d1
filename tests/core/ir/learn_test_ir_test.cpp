// Learn IR and Test IR against the emulated remote on the virtual clock:
// every frame, time-out and status text, failures included.
#include <gtest/gtest.h>

#include "core/ir/current_code.h"
#include "core/ir/learn_test_ir.h"
#include "core/ir/rc56_edit.h"
#include "core/ir/rc_formats.h"
#include "core/link/link_test_app.h"

namespace tesselo::testing {
namespace {

using emulator::Fault;

const std::string status_ready = "status \"Ready\"";
const std::string status_learn_ok = "status \"LEARN OK\"";

struct LearnTest : ::testing::Test {
    LinkTestApp t;
    Configuration& config() { return t.app.config(0); }
    void SetUp() override { clear_configuration(config()); }
    // An RC5 code as the current code, as the protocol dialog leaves it.
    void rc5(int system, int command)
    {
        RC56Edit edit(t.app.ui(), t.app.current_ir);
        edit.Text3 = std::to_string(system);
        edit.Text1 = std::to_string(command);
        ASSERT_TRUE(edit.ok());
    }
};

TEST_F(LearnTest, ALearnSendsItsThreeFramesAndTakesTheCapturedBytes)
{
    for (std::size_t i = 0; i < 64; ++i) t.remote->learned_code[i] = static_cast<std::uint8_t>(3 * i + 1);
    ASSERT_TRUE(EditIR_LearnIR(t.app, config()));
    const auto w = t.host_writes();
    ASSERT_EQ(w.size(), 4u);
    EXPECT_EQ(w[0], bytes({0xF8}));
    EXPECT_EQ(w[1], bytes({0xAC, 0xCC, 0x00, 0x00, 0x00, 0x00, 0x00, 0x78}));
    EXPECT_EQ(w[2], bytes({0xAC, 0xCC, 0x00, 0x00, 0x00, 0x01, 0x00, 0x79}));
    EXPECT_EQ(w[3], bytes({0xAC, 0xCC, 0x00, 0x00, 0x00, 0x02, 0x00, 0x7A}));
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{status_ready, status_learn_ok}));
    const CurrentIrCode& code = t.app.current_ir;
    EXPECT_EQ(code.name, "LEARNING CODE");
    EXPECT_EQ(code.current_ir_type, 5);
    EXPECT_EQ(code.current_ir_data, t.remote->learned_code);
    EXPECT_FALSE(t.app.flags().learn_in_progress);
    EXPECT_TRUE(t.link_closed());
    EXPECT_EQ(t.ui.wait_depth, 0);
}

TEST_F(LearnTest, WithAll1000SlotsUsedALearnStopsBeforeTheDeviceIsOpened)
{
    config().learning_bitmap.fill(255);
    EXPECT_FALSE(EditIR_LearnIR(t.app, config()));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{"message \"Kelvaro Tesselo 3\" \"Learning memory full\""});
    EXPECT_EQ(t.wire->opens, 0);
    EXPECT_TRUE(t.wire->wire.empty());
    EXPECT_FALSE(t.app.flags().learn_in_progress);
}

TEST_F(LearnTest, ARemoteThatAnswersTheEndWithNothingIsError003)
{
    rc5(0, 12);
    const CurrentIrCode before = t.app.current_ir;
    t.fault(Fault::learn_empty);
    EXPECT_FALSE(EditIR_LearnIR(t.app, config()));
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{status_ready, "status \"Learned Failed(Error #003)! \""}));
    // A learn that failed leaves the current code as it was; only the name line is empty.
    EXPECT_EQ(t.app.current_ir.current_ir_data, before.current_ir_data);
    EXPECT_EQ(t.app.current_ir.current_ir_type, before.current_ir_type);
    EXPECT_EQ(t.app.current_ir.name, "");
    EXPECT_FALSE(t.app.flags().learn_in_progress);
    EXPECT_TRUE(t.link_closed());
}

TEST_F(LearnTest, AnEndAnsweredWithAnythingButBCCCIsError004)
{
    t.fault(Fault::learn_refused);
    EXPECT_FALSE(EditIR_LearnIR(t.app, config()));
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{status_ready, "status \"Learned Failed(Error #004)! \""}));
    EXPECT_EQ(t.app.current_ir.current_ir_type, 0);
}

TEST_F(LearnTest, NoSignalFor15SecondsThenAnAnswerOfBCCCIsALearnOkOfZeros)
{
    // The other remote is never pointed at the eye: the capture would come
    // after the 15 seconds are over.
    t.remote->learn_capture_ms = 60000;
    const std::uint32_t start = t.clock.tick_count();
    EXPECT_TRUE(EditIR_LearnIR(t.app, config()));
    EXPECT_GE(t.clock.tick_count() - start, 15000u);
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{status_ready, status_learn_ok}));
    EXPECT_EQ(t.app.current_ir.current_ir_data, (std::array<std::uint8_t, 64>{}));
}

TEST_F(LearnTest, NoRemoteOnTheBusIsNoUsbDevice)
{
    t.fault(Fault::absent);
    EXPECT_FALSE(EditIR_LearnIR(t.app, config()));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{"status \"no usb device\""});
    EXPECT_FALSE(t.app.flags().learn_in_progress);
}

TEST_F(LearnTest, AWrongWakeUpAnswerOrAnEmptyReplyIsABadConnection)
{
    for (Fault f : {Fault::wrong_wakeup, Fault::empty_wakeup, Fault::empty_reply}) {
        LinkTestApp fresh;
        clear_configuration(fresh.app.config(0));
        fresh.fault(f);
        EXPECT_FALSE(EditIR_LearnIR(fresh.app, fresh.app.config(0)));
        EXPECT_EQ(fresh.take_lines(),
                  std::vector<std::string>{"status \"Device is not connected properly. Please check the connection.\""})
            << emulator::fault_name(f);
    }
}

TEST_F(LearnTest, AHandshakeErrorIsShownInABox)
{
    t.fault(Fault::error_id);
    EXPECT_FALSE(EditIR_LearnIR(t.app, config()));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{"message \"Kelvaro Tesselo 3\" \"Handshaking ID Error . Try again!\""});
}

TEST_F(LearnTest, NoSecondLearnStartsWhileOneRuns)
{
    t.app.current_ir.name = "RC5 0 1";
    t.app.flags().learn_in_progress = true;
    EXPECT_FALSE(EditIR_LearnIR(t.app, config()));
    EXPECT_EQ(t.app.current_ir.name, "");
    EXPECT_TRUE(t.wire->wire.empty());
}

// The test frame's bytes, as the frame's layout gives them.
std::vector<std::uint8_t> expected_frame(bool learned, const CurrentIrCode& code)
{
    std::vector<std::uint8_t> f{0xAB, 0xDD, 0x00, static_cast<std::uint8_t>(learned ? 0x40 : 0x80), 0x00, 0x01,
                                static_cast<std::uint8_t>(learned ? 0x00 : 0x01)};
    int sum = 0;
    for (auto b : f) sum += b;
    f.push_back(static_cast<std::uint8_t>(sum & 0xFF));
    if (!learned) f.insert(f.end(), code.current_ir_format.begin(), code.current_ir_format.end());
    f.insert(f.end(), code.current_ir_data.begin(), code.current_ir_data.end());
    sum = 0;
    for (auto b : f) sum += b;
    f.push_back(static_cast<std::uint8_t>(sum & 0xFF));
    return f;
}

TEST_F(LearnTest, ALearnedCodeGoesOutAs73BytesAndALibraryCodeAs137)
{
    auto& code = t.app.current_ir;
    for (std::size_t i = 0; i < 64; ++i) code.current_ir_data[i] = static_cast<std::uint8_t>(i * 5);
    code.current_ir_type = ir_type_learned;
    code.name = "LEARNING CODE";
    ASSERT_TRUE(TestIR_Start(t.app, 5, -1));
    EXPECT_EQ(t.remote->test_frame.size(), 73u);
    EXPECT_EQ(t.remote->test_frame, expected_frame(true, code));
    EXPECT_EQ(test_ir_frame(code).size(), 73u);

    IrFormatRecord format{};
    default_IR5Type(format);
    for (std::size_t i = 0; i < 32; ++i) format[i] = static_cast<std::int16_t>(format[i] + static_cast<std::int16_t>(i));
    code.set_code(format, IrCodeWords{7, 8, 9}, 3, 3);
    code.current_ir_type = ir_type_library;
    ASSERT_TRUE(TestIR_Start(t.app, 0, -1));
    EXPECT_EQ(t.remote->test_frame.size(), 137u);
    EXPECT_EQ(t.remote->test_frame, expected_frame(false, code));
    // A code from My Database goes out as its kind says.
    EXPECT_EQ(test_ir_frame(code).size(), 137u);
    code.current_ir_type = ir_type_mydatabase_learned;
    EXPECT_EQ(test_ir_frame(code).size(), 73u);
}

TEST_F(LearnTest, ATestWithAnEmptyNameLineDoesNothing)
{
    EXPECT_FALSE(TestIR_Start(t.app, 1, -1));
    EXPECT_TRUE(t.wire->wire.empty());
    EXPECT_TRUE(t.take_lines().empty());
    EXPECT_EQ(t.clock.tick_count(), 0u);
}

TEST_F(LearnTest, PressedTheRemoteSendsAndReleasedItStops)
{
    rc5(0, 12);
    ASSERT_TRUE(TestIR_Start(t.app, 1, -1));
    auto w = t.host_writes();
    ASSERT_EQ(w.size(), 4u);
    EXPECT_EQ(w[0], bytes({0xF8}));
    EXPECT_EQ(w[1], bytes({0xAB, 0xDD, 0x00, 0x00, 0x00, 0x00, 0x00, 0x88}));
    EXPECT_EQ(w[2].size(), 137u);
    EXPECT_EQ(w[3], bytes({0xBB, 0xDD, 0x00, 0x00, 0x00, 0x00, 0x00, 0x98}));
    EXPECT_TRUE(t.remote->sending_code);
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{"status \"    \"", "status \"sending data...\""}));
    EXPECT_TRUE(t.link_closed());
    EXPECT_FALSE(t.app.flags().learn_in_progress);
    EXPECT_EQ(t.ui.wait_depth, 0);

    ASSERT_TRUE(TestIR_End(t.app, -1));
    w = t.host_writes();
    ASSERT_EQ(w.size(), 6u);
    EXPECT_EQ(w[4], bytes({0xF8}));
    EXPECT_EQ(w[5], bytes({0xAB, 0xCB, 0x00, 0x00, 0x00, 0x00, 0x00, 0x76}));
    EXPECT_FALSE(t.remote->sending_code);
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{"status \"send completed\""});
    EXPECT_TRUE(t.link_closed());
}

// The tick of the first transfer from the host, counted from the press.
std::uint32_t first_write_after(LinkTestApp& t, bool start, int minimum)
{
    const std::uint32_t begin = t.clock.tick_count();
    const std::size_t before = t.wire->wire.size();
    if (start) TestIR_Start(t.app, 1, minimum);
    else TestIR_End(t.app, minimum);
    for (std::size_t i = before; i < t.wire->wire.size(); ++i)
        if (t.wire->wire[i].from_host) return t.wire->wire[i].tick - begin;
    return 0;
}

TEST_F(LearnTest, MinimumOf001DelaysBy1MsAndOf10By1000Ms)
{
    rc5(0, 12);
    const std::uint32_t plain_start = first_write_after(t, true, -1);
    const std::uint32_t plain_end = first_write_after(t, false, -1);
    for (const auto& [minimum, ms] : {std::pair{1, 1u}, std::pair{1000, 1000u}}) {
        const std::uint32_t start = first_write_after(t, true, minimum);
        const std::uint32_t end = first_write_after(t, false, minimum);
        EXPECT_NEAR(static_cast<double>(start - plain_start), ms, 1.0) << minimum;
        EXPECT_NEAR(static_cast<double>(end - plain_end), ms, 1.0) << minimum;
    }
}

TEST_F(LearnTest, AnAcknowledgementThatNeverComesIsError111)
{
    rc5(0, 12);
    t.fault(Fault::mute_ack);
    EXPECT_FALSE(TestIR_Start(t.app, 1, -1));
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{"status \"    \"", "message \"Kelvaro Tesselo 3\" \"Download Failed(Error #111)! " + common_tail + "\""}));
    EXPECT_EQ(t.host_writes().size(), 3u);  // one attempt
    EXPECT_FALSE(t.remote->sending_code);
}

TEST_F(LearnTest, ThreeAcknowledgementsWithTheWrongNumberAreError112)
{
    rc5(0, 12);
    t.fault(Fault::wrong_ack);
    EXPECT_FALSE(TestIR_Start(t.app, 1, -1));
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{"status \"    \"", "message \"Kelvaro Tesselo 3\" \"Download Failed(Error #112)! " + common_tail + "\""}));
    EXPECT_EQ(t.host_writes().size(), 2u + 3u);
}

TEST_F(LearnTest, TheRightNumberAtTheThirdAttemptIsTaken)
{
    rc5(0, 12);
    t.fault(Fault::third_ack);
    EXPECT_TRUE(TestIR_Start(t.app, 1, -1));
    EXPECT_EQ(t.host_writes().size(), 2u + 3u + 1u);
}

TEST_F(LearnTest, TheStartOfATestReportsItsOpeningFailuresInTheStatusLine)
{
    const std::vector<std::pair<Fault, std::string>> cases{
        {Fault::absent, "status \"no usb device\""},
        {Fault::wrong_wakeup, "status \"Download Failed(Error #001)! \""},
        {Fault::empty_reply, "status \"Download Failed(Error #002)! \""},
    };
    for (const auto& [fault, line] : cases) {
        LinkTestApp fresh;
        fresh.app.current_ir.name = "RC5 0 12";
        fresh.fault(fault);
        EXPECT_FALSE(TestIR_Start(fresh.app, 1, -1));
        EXPECT_EQ(fresh.take_lines(), (std::vector<std::string>{"status \"    \"", line})) << emulator::fault_name(fault);
    }
}

TEST_F(LearnTest, TheReleaseFailsWithError113OnAWrongWakeUpAnswer)
{
    t.fault(Fault::wrong_wakeup);
    EXPECT_FALSE(TestIR_End(t.app, -1));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{"message \"Kelvaro Tesselo 3\" \"Download Failed(Error #113)! " + common_tail + "\""});
    EXPECT_TRUE(t.link_closed());
}

TEST_F(LearnTest, AReleaseWhoseReplyIsEmptyEndsWithoutAStatus)
{
    t.fault(Fault::empty_reply);
    EXPECT_FALSE(TestIR_End(t.app, -1));
    EXPECT_TRUE(t.take_lines().empty());
    LinkTestApp absent;
    absent.fault(Fault::absent);
    EXPECT_FALSE(TestIR_End(absent.app, -1));
    EXPECT_EQ(absent.take_lines(), std::vector<std::string>{"status \"no usb device\""});
}

}  // namespace
}  // namespace tesselo::testing
