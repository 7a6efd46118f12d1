#pragma once

#include <string>

#include "core/model/key_label.h"

namespace tesselo {

// CharPicList: the glyph pictures that the Label field and the glyph keyboard
// show, each with the character it is typed by (its tag) and, where a plain
// character can't serve, a key name.
//
// Two tables name the glyphs and they differ at glyphs 49, 50, 55 and 58.
// This one is how a label is typed and shown in the editor: 49 is "@", 50 is
// "#", 55 is the character 231 and 58 is "_". check_bmptag (model/glyphs.h)
// is how a stored label is decoded when the tree is built from a file: there
// 49 is "#", 50 "@", 55 "*" and 58 ".". Both are kept as they stand, each
// where it is used, so a name typed with "@" reads "#" after reopening.
inline constexpr int char_pic_count = 100;  // glyphs 1 to 100; 0 is a blank

// The tag of glyph 1 to 100: the character code it stands for; 0 otherwise.
int glyph_tag(int glyph);
// The key name of glyph 1 to 100 ("ZERO", "MINUS", "PAUSE", ...); empty for
// the letters, the plain characters and glyphs 70 to 73.
std::string glyph_key_name(int glyph);

// The glyph typed by character code `code`: 97 to 122 are first lowered by
// 32, then the list is searched from glyph 1 for that tag. 101, one beyond
// the last glyph, when nothing matches.
int char_to_glyph(int code);

// A label as plain text, for the tree's nodes and the step rows: glyph 0 a
// blank, a glyph above 69 "=", any other the character of its tag (the one
// tag above 127, 231, in UTF-8).
std::string label_to_text(const KeyLabel& label, int count);

}  // namespace tesselo
