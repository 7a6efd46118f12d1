#pragma once

#include <array>
#include <cstdint>

#include <QColor>
#include <QRectF>

#include "core/model/key_label.h"

class QPainter;

namespace tesselo {

// The remote's bitmap font as the editor draws it: 5 dots wide, 7 high, one
// byte a row with the leftmost dot in bit 4. A glyph is drawn 6 dots apart.
inline constexpr int glyph_width = 5;
inline constexpr int glyph_height = 7;
inline constexpr int glyph_advance = 6;
using GlyphBitmap = std::array<std::uint8_t, glyph_height>;

// The picture of a glyph code: letters, digits and punctuation as the
// character of its tag in the typing list (char_pic_list.h), the remote's
// symbols as their signs.
// Code 0 (a blank), the empty cell and unknown codes are empty.
GlyphBitmap glyph_bitmap(int code);

// Draws the first `count` glyphs of a label in `box`, `dot` units a dot,
// placed by `alignment` (align_left, align_centre, align_right).
void draw_glyphs(QPainter& painter, const QRectF& box, const KeyLabel& label, int count, int alignment,
                 const QColor& ink, qreal dot);

}  // namespace tesselo
