#pragma once

#include <string>

#include "core/model/glyphs.h"
#include "core/model/key_label.h"

namespace tesselo {

// CharPicList: the glyph pictures that the Label field and the glyph keyboard
// show, each with the character it is typed by (its tag) and, where a plain
// character can't serve, a key name.
//
// The tags are those of check_bmptag (model/glyphs.h): one table serves the
// typing and the reading of a label.
inline constexpr int char_pic_count = 100;  // glyphs 1 to 100; 0 is a blank

// The tag of glyph 1 to 100: the character code it stands for; 0 otherwise.
inline int glyph_tag(int glyph) { return check_bmptag(glyph); }
// The key name of glyph 1 to 100 ("ZERO", "MINUS", "PAUSE", ...); empty for
// the letters, the plain characters and glyphs 70 to 73.
std::string glyph_key_name(int glyph);

// The glyph typed by character code `code`: 97 to 122 are first lowered by
// 32, then the list is searched from glyph 1 for that tag. 101, one beyond
// the last glyph, when nothing matches.
int char_to_glyph(int code);

}  // namespace tesselo
