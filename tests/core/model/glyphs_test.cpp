#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

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
    // The characters of the glyph pictures, in the list's order; 55 is the
    // character 231, typed by no key of a keyboard.
    const std::vector<int> expected = {'-', '=', '[', ']', '`', ';', '\'', ',', '.', '/', '\\', '!', '@', '#', '$', '%', '^',
                                       '&', 231, '(', ')', '_', '+', '{', '}', ':', '"', '~', '<', '>', '?', '|', '*'};
    ASSERT_EQ(expected.size(), 33u);
    for (int c = 37; c <= 69; ++c) EXPECT_EQ(check_bmptag(c), expected[static_cast<std::size_t>(c - 37)]) << c;
}

TEST(CheckBmptag, EveryCharacterHasOneGlyph)
{
    // The full stop is glyph 45 alone and the asterisk glyph 69 alone, so a
    // label reads back with the characters it was typed with.
    std::vector<int> seen;
    for (int c = 1; c <= 69; ++c) {
        EXPECT_EQ(std::count(seen.begin(), seen.end(), check_bmptag(c)), 0) << c;
        seen.push_back(check_bmptag(c));
    }
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

TEST(LabelToText, ReadsTheFirstGlyphs)
{
    KeyLabel label;
    label.bytes = {4, 8, 15, 13, 5, 0, 0, 0, 0, 0};
    EXPECT_EQ(label_to_text(label, 4), "HOME");
    EXPECT_EQ(label_to_text(label, 2), "HO");
}

}  // namespace
}  // namespace tesselo
