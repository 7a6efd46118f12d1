#pragma once

#include <string>

#include "core/model/key_label.h"

namespace tesselo {

// Glyph codes of the remote's own symbols (character codes 200 to 230).
inline constexpr int glyph_pause = 74;
inline constexpr int glyph_stop = 75;
inline constexpr int glyph_play = 76;
inline constexpr int glyph_empty = 101;  // an empty cell, written to the image as 0

// The character code a glyph stands for: letters, digits, punctuation, 200
// to 230 for the symbol glyphs, 0 otherwise. The one table of the glyphs: the
// Label field types by it, and the tree, the step rows, the overview and the
// simulator read by it, so a label reads back as it was typed.
int check_bmptag(int glyph_code);

// A label as plain text, for the tree's nodes, the step rows and the
// overview: glyph 0 a blank, a glyph above 69 "=", any other the character
// of its tag (the one tag above 127, 231, in UTF-8).
std::string label_to_text(const KeyLabel& label, int count);

}  // namespace tesselo
