#include "core/keys/char_pic_list.h"

#include <array>

namespace tesselo {

namespace {

// The key names of glyphs 37 to 69, in the order of the list; empty where
// the plain character serves.
constexpr std::array<const char*, 33> punctuation_keys = {
    "MINUS", "EQUAL", "OPEN QUOTA", "CLOSE QUOTA", "", "SEMI COLLON", "", "COMMA", "FULL STOP", "SLASH", "BACK SLASH",
    "",      "",      "",           "",            "", "",            "", "",      "",          "",      "",
    "",      "",      "",           "",            "", "",            "", "",      "",          "",      "",
};

constexpr std::array<const char*, 10> digit_keys = {"ZERO", "ONE", "TWO",   "THREE", "FOUR",
                                                    "FIVE", "SIX", "SEVEN", "EIGHT", "NINE"};

// Glyphs 74 to 100, tags 204 to 230; glyphs 70 to 73 have no key.
constexpr std::array<const char*, 27> symbol_keys = {
    "PAUSE", "STOP", "PLAY",  "BACK PLAY", "FORWARD", "REWIND",      "EJECT",      "RECORD",   "UP",
    "DOWN",  "RIGHT", "LEFT", "LOCK",      "FREEZE",  "NEXT",        "LAST",       "FIRST",    "END",
    "POWER", "TIMER", "ENTER", "ROUND RIGHT", "ROUND LEFT", "INFINITE", "MUSIC", "WHITE RIGHT", "WHITE LEFT",
};

}  // namespace

std::string glyph_key_name(int glyph)
{
    if (glyph >= 27 && glyph <= 36) return digit_keys[static_cast<std::size_t>(glyph - 27)];
    if (glyph >= 37 && glyph <= 69) return punctuation_keys[static_cast<std::size_t>(glyph - 37)];
    if (glyph >= 74 && glyph <= char_pic_count) return symbol_keys[static_cast<std::size_t>(glyph - 74)];
    return {};
}

int char_to_glyph(int code)
{
    if (code >= 97 && code <= 122) code -= 32;
    for (int glyph = 1; glyph <= char_pic_count; ++glyph)
        if (glyph_tag(glyph) == code) return glyph;
    return char_pic_count + 1;
}

}  // namespace tesselo
