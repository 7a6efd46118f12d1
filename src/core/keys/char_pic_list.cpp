#include "core/keys/char_pic_list.h"

#include <array>

namespace tesselo {

namespace {

struct CharPic {
    int tag;
    const char* key;
};

// Glyphs 37 to 69, in the order of the list.
constexpr std::array<CharPic, 33> punctuation = {{
    {45, "MINUS"}, {61, "EQUAL"}, {91, "OPEN QUOTA"}, {93, "CLOSE QUOTA"}, {96, ""}, {59, "SEMI COLLON"},
    {39, ""},      {44, "COMMA"}, {46, "FULL STOP"},  {47, "SLASH"},       {92, "BACK SLASH"},
    {33, ""},      {64, ""},      {35, ""},           {36, ""},            {37, ""},  {94, ""},
    {38, ""},      {231, ""},     {40, ""},           {41, ""},            {95, ""},  {43, ""},
    {123, ""},     {125, ""},     {58, ""},           {34, ""},            {126, ""}, {60, ""},
    {62, ""},      {63, ""},      {124, ""},          {42, ""},
}};

constexpr std::array<const char*, 10> digit_keys = {"ZERO", "ONE", "TWO",   "THREE", "FOUR",
                                                    "FIVE", "SIX", "SEVEN", "EIGHT", "NINE"};

// Glyphs 74 to 100, tags 204 to 230; glyphs 70 to 73 have no key.
constexpr std::array<const char*, 27> symbol_keys = {
    "PAUSE", "STOP", "PLAY",  "BACK PLAY", "FORWARD", "REWIND",      "EJECT",      "RECORD",   "UP",
    "DOWN",  "RIGHT", "LEFT", "LOCK",      "FREEZE",  "NEXT",        "LAST",       "FIRST",    "END",
    "POWER", "TIMER", "ENTER", "ROUND RIGHT", "ROUND LEFT", "INFINITE", "MUSIC", "WHITE RIGHT", "WHITE LEFT",
};

}  // namespace

int glyph_tag(int glyph)
{
    if (glyph >= 1 && glyph <= 26) return 'A' + glyph - 1;
    if (glyph >= 27 && glyph <= 36) return '0' + glyph - 27;
    if (glyph >= 37 && glyph <= 69) return punctuation[static_cast<std::size_t>(glyph - 37)].tag;
    if (glyph >= 70 && glyph <= char_pic_count) return 200 + glyph - 70;
    return 0;
}

std::string glyph_key_name(int glyph)
{
    if (glyph >= 27 && glyph <= 36) return digit_keys[static_cast<std::size_t>(glyph - 27)];
    if (glyph >= 37 && glyph <= 69) return punctuation[static_cast<std::size_t>(glyph - 37)].key;
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

std::string label_to_text(const KeyLabel& label, int count)
{
    std::string text;
    if (count > label_glyphs) count = label_glyphs;
    for (int i = 0; i < count; ++i) {
        const int glyph = label.bytes[static_cast<std::size_t>(1 + i)];
        const int tag = glyph_tag(glyph);
        if (glyph == 0) text += ' ';
        else if (glyph > 69) text += '=';
        else if (tag >= 128) {
            text += static_cast<char>(0xC0 | (tag >> 6));
            text += static_cast<char>(0x80 | (tag & 0x3F));
        } else if (tag > 0) text += static_cast<char>(tag);
    }
    return text;
}

}  // namespace tesselo
