#include <gtest/gtest.h>

#include <random>

#include "core/ir/rc_codes.h"
#include "core/ir/rc_formats.h"

namespace tesselo {
namespace {

std::uint16_t w(const IrCodeWords& words, int i) { return static_cast<std::uint16_t>(words[static_cast<std::size_t>(i)]); }

TEST(RcFormats, TheFourRecordsAndNothingElse)
{
    IrFormatRecord r;
    r.fill(7);
    default_IR5Type(r);
    EXPECT_EQ(static_cast<std::uint16_t>(r[0]), 0x0A13);
    EXPECT_EQ(static_cast<std::uint16_t>(r[7]), 0xA641);
    for (std::size_t i = 8; i < r.size(); ++i) EXPECT_EQ(r[i], 0);
    r.fill(7);
    default_IR5XType(r);
    EXPECT_EQ(static_cast<std::uint16_t>(r[1]), 0x0010);
    EXPECT_EQ(static_cast<std::uint16_t>(r[8]), 0x8ECE);
    for (std::size_t i = 9; i < r.size(); ++i) EXPECT_EQ(r[i], 0);
    r.fill(7);
    default_IR60Type(r);
    const std::uint16_t rc6[] = {0x0213, 0x6020, 0x1002, 0x0275, 0x0275, 0x02A2, 0, 0x79B9, 0x149F, 0x0F41, 0x149F, 0x0F41};
    for (std::size_t i = 0; i < 12; ++i) EXPECT_EQ(static_cast<std::uint16_t>(r[i]), rc6[i]);
    for (std::size_t i = 12; i < r.size(); ++i) EXPECT_EQ(r[i], 0);
    r.fill(7);
    default_IR6AType(r);
    const std::uint16_t rc6a[] = {0x0213, 0x6000, 0x1002, 0x0275, 0x0275, 0x02A2, 0, 0x993F, 0x19A0, 0x1481, 0x19A0, 0x1481};
    for (std::size_t i = 0; i < 12; ++i) EXPECT_EQ(static_cast<std::uint16_t>(r[i]), rc6a[i]);
    for (std::size_t i = 12; i < r.size(); ++i) EXPECT_EQ(r[i], 0);
}

TEST(RcPairs, DigitsFromTheHighPairToTheLowPair)
{
    EXPECT_EQ(rc5_pair_digits(0), "aaa");
    EXPECT_EQ(rc5_pair_digits(0b011011), "965");
    EXPECT_EQ(rc6_pair_digits(0), "5555");
    EXPECT_EQ(rc6_pair_digits(0b00011011), "569a");
    EXPECT_EQ(hex_word("8010"), 0x8010);
    EXPECT_EQ(hex_word("fc00"), 0xFC00);
}

TEST(Rc5Encoder, SystemZeroCommandZero)
{
    IrCodeWords words{};
    ASSERT_EQ(encode_rc5(words, 0, 0), 8);
    EXPECT_EQ(w(words, 0), 2);
    EXPECT_EQ(w(words, 1), 0x8010);
    EXPECT_EQ(w(words, 2), 0x0806);
    EXPECT_EQ(w(words, 3), 0x1F00);
    EXPECT_EQ(w(words, 5), 0x1F00);
    EXPECT_EQ(w(words, 4), 0x3F00);
    EXPECT_EQ(w(words, 6), 0x3F00);
    EXPECT_EQ(w(words, 7), 0xFC00);
}

TEST(Rc5Encoder, System31Command127)
{
    IrCodeWords words{};
    ASSERT_EQ(encode_rc5(words, 31, 127), 8);
    EXPECT_EQ(w(words, 3), 0x4000);
    EXPECT_EQ(w(words, 7), 0x0000);
}

TEST(Rc6Encoder, SystemZeroCommandZero)
{
    EXPECT_EQ(rc6_pair_digits(0), "5555");
    EXPECT_EQ(rc6_system_text(0, false), "95355550");
    EXPECT_EQ(rc6_system_text(0, true), "95c55550");
    IrCodeWords words{};
    ASSERT_EQ(encode_rc6(words, 0, 0), 12);
    EXPECT_EQ(w(words, 0), 25);
    EXPECT_EQ(w(words, 1), 0xC010);
    EXPECT_EQ(w(words, 2), 0x1C10);
    EXPECT_EQ(w(words, 3), 0x9535);
    EXPECT_EQ(w(words, 4), 0x5550);
    EXPECT_EQ(w(words, 5), 0x95C5);
    EXPECT_EQ(w(words, 6), 0x5550);
    for (int i = 7; i <= 10; ++i) EXPECT_EQ(w(words, i), w(words, i - 4));
    EXPECT_EQ(w(words, 11), 0x5555);
}

TEST(Rc6aEncoder, Customer127IsTheShortForm)
{
    IrCodeWords words{};
    ASSERT_EQ(encode_rc6a(words, 127, 1, 2), 7);
    EXPECT_EQ(w(words, 0), 25);
    EXPECT_EQ(w(words, 1), 0);
    EXPECT_EQ(w(words, 2), 0x1C20);
    // "7f": both pairs of digits are the same.
    const std::string e = rc6a_customer_text(127);
    EXPECT_EQ(e, "A93" + rc6_pair_digits(0x7F) + rc6_pair_digits(0x7F) + "0");
    EXPECT_EQ(w(words, 3), hex_word(e.substr(0, 3) + e.substr(7, 1)));
    EXPECT_EQ(w(words, 4), hex_word(e.substr(8, 4)));
    EXPECT_EQ(w(words, 5), hex_word(rc6_pair_digits(1)));
    EXPECT_EQ(w(words, 6), hex_word(rc6_pair_digits(2)));
}

TEST(Rc6aEncoder, Customer32768IsTheLongFormWithHigh80AndLow0)
{
    EXPECT_EQ(rc6a_customer_text(32768), "A93" + rc6_pair_digits(0x80) + rc6_pair_digits(0) + "0");
    EXPECT_EQ(rc6a_customer_text(32768), "A93955555550");
    IrCodeWords words{};
    ASSERT_EQ(encode_rc6a(words, 32768, 3, 4), 8);
    EXPECT_EQ(w(words, 2), 0x2C20);
    EXPECT_EQ(w(words, 3), 0xA939);
    EXPECT_EQ(w(words, 4), 0x5555);
    EXPECT_EQ(w(words, 5), 0x5550);
    EXPECT_EQ(w(words, 6), hex_word(rc6_pair_digits(3)));
    EXPECT_EQ(w(words, 7), hex_word(rc6_pair_digits(4)));
}

TEST(Rc6aEncoder, Customer128IsRefused127And32768Taken)
{
    IrCodeWords words{};
    words[3] = 1234;
    EXPECT_EQ(encode_rc6a(words, 128, 0, 0), 0);
    EXPECT_EQ(words[3], 1234);  // nothing built
    EXPECT_EQ(encode_rc6a(words, 32767, 0, 0), 0);
    EXPECT_EQ(encode_rc6a(words, 65536, 0, 0), 0);
    EXPECT_EQ(encode_rc6a(words, 127, 0, 0), 7);
    EXPECT_EQ(encode_rc6a(words, 32768, 0, 0), 8);
    EXPECT_EQ(encode_rc6a(words, 65535, 0, 0), 8);
    EXPECT_EQ(encode_rc6a(words, 0, 0, 0), 7);
}

TEST(Rc5xEncoder, WordsOfTheProtocol)
{
    IrCodeWords words{};
    words[0] = 77;
    ASSERT_EQ(encode_rc5x(words, 0, 0, 0), 9);
    EXPECT_EQ(w(words, 0), 77);  // word 0 is left as it was
    EXPECT_EQ(w(words, 1), 0x8010);
    EXPECT_EQ(w(words, 2), 0x0F18);
    // s "aaa" is 0xAAA; divided by 4 and doubled 0x554; with 0x2000 for a command below 64.
    EXPECT_EQ(w(words, 3), 0x2554 | 0x8800);
    EXPECT_EQ(w(words, 4), 0x2554 | 0x9000);
    EXPECT_EQ(w(words, 5), w(words, 3));
    EXPECT_EQ(w(words, 6), w(words, 4));
    EXPECT_EQ(w(words, 7), 0xAAAA);
    EXPECT_EQ(w(words, 8), 0xAA00);
    encode_rc5x(words, 0, 64, 0);
    EXPECT_EQ(w(words, 3), 0x4554 | 0x8800);
}

TEST(RcRoundTrip, EveryRc5Input)
{
    for (int s = 0; s < 32; ++s)
        for (int c = 0; c < 128; ++c) {
            IrCodeWords words{};
            const int n = encode_rc5(words, s, c);
            RcFields f;
            ASSERT_EQ(Get_RC5_Code(words, n, f), 1) << s << " " << c;
            ASSERT_EQ(f.system, s);
            ASSERT_EQ(f.command, c);
        }
}

TEST(RcRoundTrip, EveryRc6Input)
{
    for (int s = 0; s < 256; ++s)
        for (int c = 0; c < 256; ++c) {
            IrCodeWords words{};
            const int n = encode_rc6(words, s, c);
            RcFields f;
            ASSERT_EQ(Get_RC6_m0_Code(words, n, f), 1) << s << " " << c;
            ASSERT_EQ(f.system, s);
            ASSERT_EQ(f.command, c);
        }
}

TEST(RcRoundTrip, SeededSampleOfRc5xInputs)
{
    std::mt19937 random(4711);
    for (int i = 0; i < 60000; ++i) {
        const int s = static_cast<int>(random() % 32), c = static_cast<int>(random() % 128), d = static_cast<int>(random() % 64);
        IrCodeWords words{};
        const int n = encode_rc5x(words, s, c, d);
        RcFields f;
        ASSERT_EQ(Get_RC5x_Code(words, n, f), 1) << s << " " << c << " " << d;
        ASSERT_EQ(f.system, s);
        ASSERT_EQ(f.command, c);
        ASSERT_EQ(f.data, d);
    }
    for (int s : {0, 31})
        for (int c : {0, 63, 64, 127})
            for (int d : {0, 63}) {
                IrCodeWords words{};
                RcFields f;
                ASSERT_EQ(Get_RC5x_Code(words, encode_rc5x(words, s, c, d), f), 1);
                EXPECT_EQ(f.system * 10000 + f.command * 100 + f.data, s * 10000 + c * 100 + d);
            }
}

TEST(RcRoundTrip, SeededSampleOfRc6aInputs)
{
    std::mt19937 random(1848);
    auto customer = [&random]() -> long {
        return random() % 2 ? static_cast<long>(random() % 128) : 32768L + static_cast<long>(random() % 32768);
    };
    for (int i = 0; i < 60000; ++i) {
        const long u = customer();
        const int s = static_cast<int>(random() % 256), c = static_cast<int>(random() % 256);
        IrCodeWords words{};
        const int n = encode_rc6a(words, u, s, c);
        RcFields f;
        ASSERT_EQ(Get_RC6_mA_Code(words, n, f), 1) << u << " " << s << " " << c;
        ASSERT_EQ(f.customer, u);
        ASSERT_EQ(f.system, s);
        ASSERT_EQ(f.command, c);
    }
    for (long u : {0L, 127L, 32768L, 65535L}) {
        IrCodeWords words{};
        RcFields f;
        ASSERT_EQ(Get_RC6_mA_Code(words, encode_rc6a(words, u, 255, 0), f), 1);
        EXPECT_EQ(f.customer, u);
    }
}

// Each decoder refuses the codes of the three other protocols.
TEST(RcDecoders, RefuseWhatIsNotOfTheirProtocol)
{
    std::mt19937 random(99);
    for (int i = 0; i < 2000; ++i) {
        IrCodeWords rc5{}, rc5x{}, rc6{}, rc6a{};
        const int n5 = encode_rc5(rc5, static_cast<int>(random() % 32), static_cast<int>(random() % 128));
        const int n5x = encode_rc5x(rc5x, static_cast<int>(random() % 32), static_cast<int>(random() % 128),
                                    static_cast<int>(random() % 64));
        const int n6 = encode_rc6(rc6, static_cast<int>(random() % 256), static_cast<int>(random() % 256));
        const int n6a = encode_rc6a(rc6a, random() % 2 ? 5 : 40000, static_cast<int>(random() % 256),
                                    static_cast<int>(random() % 256));
        RcFields f;
        EXPECT_EQ(Get_RC5_Code(rc5x, n5x, f) + Get_RC5_Code(rc6, n6, f) + Get_RC5_Code(rc6a, n6a, f), 0);
        EXPECT_EQ(Get_RC5x_Code(rc5, n5, f) + Get_RC5x_Code(rc6, n6, f) + Get_RC5x_Code(rc6a, n6a, f), 0);
        EXPECT_EQ(Get_RC6_m0_Code(rc5, n5, f) + Get_RC6_m0_Code(rc5x, n5x, f) + Get_RC6_m0_Code(rc6a, n6a, f), 0);
        EXPECT_EQ(Get_RC6_mA_Code(rc5, n5, f) + Get_RC6_mA_Code(rc5x, n5x, f) + Get_RC6_mA_Code(rc6, n6, f), 0);
    }
}

TEST(RcDecoders, RefuseAWrongCountAWrongTagWordAndDigitsThatAreNoPairs)
{
    IrCodeWords words{};
    RcFields f;
    EXPECT_EQ(Get_RC5_Code(words, encode_rc5(words, 3, 4) - 1, f), 0);
    encode_rc5(words, 3, 4);
    words[2] = 0x0807;
    EXPECT_EQ(Get_RC5_Code(words, 8, f), 0);

    EXPECT_EQ(Get_RC6_m0_Code(words, encode_rc6(words, 1, 2) + 1, f), 0);
    encode_rc6(words, 1, 2);
    words[11] = 0x1234;  // not pair digits
    EXPECT_EQ(Get_RC6_m0_Code(words, 12, f), 0);
    encode_rc6(words, 1, 2);
    words[1] = 0;
    EXPECT_EQ(Get_RC6_m0_Code(words, 12, f), 0);

    encode_rc5x(words, 1, 2, 3);
    words[3] = static_cast<std::int16_t>(0x8FFF);
    EXPECT_EQ(Get_RC5x_Code(words, 9, f), 0);
    encode_rc5x(words, 1, 2, 3);
    words[2] = 0x0806;
    EXPECT_EQ(Get_RC5x_Code(words, 9, f), 0);

    IrCodeWords zero{};
    EXPECT_EQ(Get_RC6_mA_Code(zero, 7, f) + Get_RC6_mA_Code(zero, 8, f) + Get_RC5_Code(zero, 8, f), 0);
}

// A decoder reads its fields from the words its rules name, and looks at no
// other word: a code whose other words differ from what the encoder builds is
// still of the protocol.
TEST(RcDecoders, ReadOnlyTheWordsTheirRulesName)
{
    RcFields f;
    // RC5: count 8, 0x8010, 0x0806; System from word 3, Command from word 7's
    // top six bits (and word 3's 0x4000).
    IrCodeWords rc5{2, static_cast<std::int16_t>(0x8010), 0x0806, 0x1F00, 0x3F00, 0x1F00, 0x3F00,
                    static_cast<std::int16_t>(0xFC01)};
    ASSERT_EQ(Get_RC5_Code(rc5, 8, f), 1);
    EXPECT_EQ(f.system, 0);
    EXPECT_EQ(f.command, 0);
    rc5[4] = rc5[3];  // the toggle pair as the encoder never makes it
    rc5[6] = 0;
    rc5[7] = static_cast<std::int16_t>(0x0BFF);  // top six bits 000010: command (not 2) and 63 = 61
    rc5[3] = 0x5E00;                             // system (not 0x1E) and 31 = 1, command + 64
    ASSERT_EQ(Get_RC5_Code(rc5, 8, f), 1);
    EXPECT_EQ(f.system, 1);
    EXPECT_EQ(f.command, 125);

    // RC6: System from words 3 and 4, Command from the last word; the toggle
    // words and their copies are not read.
    IrCodeWords rc6{};
    encode_rc6(rc6, 12, 34);
    for (int i = 5; i <= 10; ++i) rc6[static_cast<std::size_t>(i)] = 0;
    ASSERT_EQ(Get_RC6_m0_Code(rc6, 12, f), 1);
    EXPECT_EQ(f.system, 12);
    EXPECT_EQ(f.command, 34);

    // RC5X: the "00" that ends word 8, and words 4 to 6, are not read.
    IrCodeWords rc5x{};
    encode_rc5x(rc5x, 1, 2, 3);
    rc5x[8] = static_cast<std::int16_t>(static_cast<std::uint16_t>(rc5x[8]) | 0x01);
    rc5x[4] = rc5x[5] = rc5x[6] = 0;
    ASSERT_EQ(Get_RC5x_Code(rc5x, 9, f), 1);
    EXPECT_EQ(f.system, 1);
    EXPECT_EQ(f.command, 2);
    EXPECT_EQ(f.data, 3);

    // RC6A: the "0" that ends the customer text is not read.
    IrCodeWords rc6a{};
    encode_rc6a(rc6a, 32768, 1, 2);
    rc6a[5] = static_cast<std::int16_t>(static_cast<std::uint16_t>(rc6a[5]) | 0x0F);
    ASSERT_EQ(Get_RC6_mA_Code(rc6a, 8, f), 1);
    EXPECT_EQ(f.customer, 32768);
    EXPECT_EQ(f.system, 1);
    EXPECT_EQ(f.command, 2);
}

TEST(RcDecoders, LeaveWordZeroAlone)
{
    // A stored code carries its format's index in word 0.
    IrCodeWords words{};
    encode_rc6(words, 12, 34);
    words[0] = 3;
    RcFields f;
    ASSERT_EQ(Get_RC6_m0_Code(words, 12, f), 1);
    EXPECT_EQ(f.system, 12);
    EXPECT_EQ(f.command, 34);
}

}  // namespace
}  // namespace tesselo
