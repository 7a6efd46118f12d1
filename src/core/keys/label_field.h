#pragma once

#include <array>
#include <cstdint>

#include "core/keys/key_labels.h"

namespace tesselo {

// The properties form's Text1: the label under edit, shown as glyph
// pictures, with its caret. Every selection reloads it from the tables.
class LabelField {
public:
    KeyLabel label;   // what the field shows
    int length = 0;   // its glyphs
    int caret = 0;    // 0 to length
    // The glyphs that Backspace took out, newest at (removed_count - 1) % 64.
    std::array<std::uint8_t, 64> removed{};
    int removed_count = 0;

    // Reads the label of `target`; the caret goes to the end.
    void load(const Configuration& config, const LabelTarget& target);
    void clear();
    void move_caret(int to);
};

inline constexpr int backspace_code = 8;

// One key press in Text1, by character code (8 Backspace). The press itself
// never reaches the field: a blank becomes glyph 0, any other character its
// glyph by char_to_glyph, and one without a glyph is ignored with the caret
// sent to the end. The field already holding nine glyphs refuses with "Max.
// Character is exceed". change_hardkeyname runs for a hard key,
// change_keyname otherwise. True when the label changed.
bool Text1_KeyPress(Application& app, const LabelTarget& target, LabelField& field, int code);

// A button of the Command9 glyph keyboard: the same as typing the glyph, and
// the only way to the symbols.
bool Command9_Click(Application& app, const LabelTarget& target, LabelField& field, int glyph);

}  // namespace tesselo
