#pragma once

#include <string>

#include "core/model/key_label.h"

namespace tesselo {

// Glyph codes of the remote's own symbols (character codes 200 to 230).
inline constexpr int glyph_pause = 74;
inline constexpr int glyph_stop = 75;
inline constexpr int glyph_play = 76;
inline constexpr int glyph_empty = 101;  // an empty cell, written to the image as 0

// The character code that the tree and the dialogs show for a glyph code:
// letters, digits, punctuation, 200 to 230 for the symbol glyphs, 0 otherwise.
int check_bmptag(int glyph_code);

// The characters of the first `count` glyphs of a label, one check_bmptag
// character code per glyph (symbol glyphs stay as codes 200 to 230).
std::string decode_glyphs(const KeyLabel& label, int count);

}  // namespace tesselo
