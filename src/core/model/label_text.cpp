#include "core/model/label_text.h"

#include "core/model/glyphs.h"

namespace tesselo {

std::string label_to_text(const KeyLabel& label)
{
    std::string text;
    const int count = label.glyph_count() > label_glyphs ? label_glyphs : label.glyph_count();
    for (int i = 1; i <= count; ++i) {
        const int glyph = label.bytes[static_cast<std::size_t>(i)];
        if (glyph == 0) text += ' ';
        else if (glyph > 69) text += '=';
        else if (const int c = check_bmptag(glyph); c != 0) text += static_cast<char>(c);
    }
    return text;
}

}  // namespace tesselo
