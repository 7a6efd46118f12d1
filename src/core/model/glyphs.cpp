#include "core/model/glyphs.h"

#include <array>

namespace tesselo {

namespace {

// Codes 37 to 69, in the order of the glyph pictures the Label field and the
// glyph keyboard show: a label reads back with the characters it was typed
// with. 55 is the character 231 and 58 the underscore; only 69 is the asterisk.
constexpr std::array<int, 33> punctuation = {
    '-', '=', '[', ']', '`', ';', '\'', ',', '.', '/', '\\',  // 37..47
    '!', '@', '#', '$', '%', '^', '&', 231,                   // 48..55
    '(', ')',                                                 // 56..57
    '_', '+', '{', '}', ':', '"', '~',                        // 58..64
    '<', '>', '?', '|',                                       // 65..68
    '*',                                                      // 69
};

}  // namespace

int check_bmptag(int glyph_code)
{
    if (glyph_code >= 1 && glyph_code <= 26) return 'A' + glyph_code - 1;
    if (glyph_code >= 27 && glyph_code <= 36) return '0' + glyph_code - 27;
    if (glyph_code >= 37 && glyph_code <= 69) return punctuation[static_cast<std::size_t>(glyph_code - 37)];
    if (glyph_code >= 70 && glyph_code <= 100) return 200 + glyph_code - 70;
    return 0;  // 101 is the empty cell; anything else is no glyph
}

std::string label_to_text(const KeyLabel& label, int count)
{
    std::string text;
    if (count > label_glyphs) count = label_glyphs;
    for (int i = 0; i < count; ++i) {
        const int glyph = label.bytes[static_cast<std::size_t>(1 + i)];
        const int tag = check_bmptag(glyph);
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
