#include <gtest/gtest.h>

#include "core/ir/rc_codes.h"

namespace tesselo {
namespace {

// The RC-5 frame is 14 bits: two start bits, the field bit, the toggle bit,
// five system bits and six command bits, most significant first. The field
// bit is the inverse of command bit 6: 1 for commands 0 to 63.
struct Rc5Frame {
    int field, toggle, system, command;
};

Rc5Frame frame_of(int system, int command, int toggle)
{
    return {(command & 64) ? 0 : 1, toggle, system, command & 63};
}

int bit(unsigned word, int position) { return static_cast<int>((word >> position) & 1u); }

// The words carry those bits as the remote's transmitter sends them: the
// header word (3 for toggle clear, 4 for toggle set) holds the inverted field
// bit at bit 14, the toggle bit at 13 and the inverted system bits at 12 to 8,
// most significant first; word 7 holds the inverted command bits at 15 to
// 10, most significant first. Every other bit is clear.
TEST(Rc5Frame, TheWordsCarryTheFrameBits)
{
    for (int s = 0; s < 32; ++s)
        for (int c = 0; c < 128; ++c) {
            IrCodeWords words{};
            encode_rc5(words, s, c);
            for (int t = 0; t <= 1; ++t) {
                const Rc5Frame frame = frame_of(s, c, t);
                for (int w : {3 + t, 5 + t}) {
                    const unsigned header = static_cast<std::uint16_t>(words[static_cast<std::size_t>(w)]);
                    ASSERT_EQ(bit(header, 14), 1 - frame.field) << s << " " << c;
                    ASSERT_EQ(bit(header, 13), frame.toggle);
                    for (int i = 0; i < 5; ++i) ASSERT_EQ(bit(header, 12 - i), 1 - bit(static_cast<unsigned>(frame.system), 4 - i));
                    ASSERT_EQ(header & 0x80FFu, 0u);
                }
            }
            const unsigned commands = static_cast<std::uint16_t>(words[7]);
            const Rc5Frame frame = frame_of(s, c, 0);
            for (int i = 0; i < 6; ++i) ASSERT_EQ(bit(commands, 15 - i), 1 - bit(static_cast<unsigned>(frame.command), 5 - i));
            ASSERT_EQ(commands & 0x03FFu, 0u);
        }
}

TEST(Rc5Frame, TheTogglePairsDifferOnlyInTheToggleBit)
{
    IrCodeWords words{};
    encode_rc5(words, 21, 100);
    EXPECT_EQ(static_cast<std::uint16_t>(words[3]) ^ static_cast<std::uint16_t>(words[4]), 0x2000);
    EXPECT_EQ(words[3], words[5]);
    EXPECT_EQ(words[4], words[6]);
}

}  // namespace
}  // namespace tesselo
