#include "core/model/glyphs.h"

#include <array>

namespace tesselo {

namespace {

// Codes 37 to 69, in order. Code 58 is the full stop a second time and code 69
// the asterisk a second time; the remote's font has both cells.
constexpr std::array<char, 33> punctuation = {
    '-', '=', '[', ']', '`', ';', '\'', ',', '.', '/', '\\',  // 37..47
    '!', '#', '@', '$', '%', '^', '&', '*',                   // 48..55
    '(', ')',                                                 // 56..57
    '.', '+', '{', '}', ':', '"', '~',                        // 58..64
    '<', '>', '?', '|',                                       // 65..68
    '*',                                                      // 69
};

}  // namespace

int check_bmptag(int glyph_code)
{
    if (glyph_code >= 1 && glyph_code <= 26) return 'A' + glyph_code - 1;
    if (glyph_code >= 27 && glyph_code <= 36) return '0' + glyph_code - 27;
    if (glyph_code >= 37 && glyph_code <= 69) return static_cast<unsigned char>(punctuation[glyph_code - 37]);
    if (glyph_code >= 70 && glyph_code <= 100) return 200 + glyph_code - 70;
    return 0;  // 101 is the empty cell; anything else is no glyph
}

std::string decode_glyphs(const KeyLabel& label, int count)
{
    std::string text;
    if (count > label_glyphs) count = label_glyphs;
    for (int i = 0; i < count; ++i)
        text.push_back(static_cast<char>(check_bmptag(label.bytes[1 + i])));
    return text;
}

}  // namespace tesselo
