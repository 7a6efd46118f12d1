#include <gtest/gtest.h>

#include "core/model/glyphs.h"

namespace tesselo {
namespace {

TEST(CheckBmptag, LettersAndDigits)
{
    for (int c = 1; c <= 26; ++c) EXPECT_EQ(check_bmptag(c), 'A' + c - 1);
    for (int c = 27; c <= 36; ++c) EXPECT_EQ(check_bmptag(c), '0' + c - 27);
}

TEST(CheckBmptag, PunctuationInTableOrder)
{
    const std::string expected = "-=[]`;',./\\!#@$%^&*().+{}:\"~<>?|*";
    ASSERT_EQ(expected.size(), 33u);
    for (int c = 37; c <= 69; ++c) EXPECT_EQ(check_bmptag(c), static_cast<unsigned char>(expected[static_cast<std::size_t>(c - 37)])) << c;
}

TEST(CheckBmptag, CodesFiftyEightAndSixtyNineRepeatFullStopAndAsterisk)
{
    EXPECT_EQ(check_bmptag(58), check_bmptag(45));
    EXPECT_EQ(check_bmptag(58), '.');
    EXPECT_EQ(check_bmptag(69), check_bmptag(55));
    EXPECT_EQ(check_bmptag(69), '*');
}

TEST(CheckBmptag, SymbolGlyphsAreCharacterCodes200To230)
{
    for (int c = 70; c <= 100; ++c) EXPECT_EQ(check_bmptag(c), 200 + c - 70);
    EXPECT_EQ(check_bmptag(glyph_pause), 204);
    EXPECT_EQ(check_bmptag(glyph_stop), 205);
    EXPECT_EQ(check_bmptag(glyph_play), 206);
}

TEST(CheckBmptag, EmptyCellAndUnknownCodesAreZero)
{
    EXPECT_EQ(check_bmptag(101), 0);
    EXPECT_EQ(check_bmptag(0), 0);
    EXPECT_EQ(check_bmptag(102), 0);
    EXPECT_EQ(check_bmptag(255), 0);
    EXPECT_EQ(check_bmptag(-1), 0);
}

TEST(DecodeGlyphs, ReadsTheFirstGlyphs)
{
    KeyLabel label;
    label.bytes = {4, 8, 15, 13, 5, 0, 0, 0, 0, 0};
    EXPECT_EQ(decode_glyphs(label, 4), "HOME");
    EXPECT_EQ(decode_glyphs(label, 2), "HO");
}

}  // namespace
}  // namespace tesselo
