#include "core/keys/label_field.h"

#include "core/app/application.h"
#include "core/document/ui.h"
#include "core/keys/char_pic_list.h"

namespace tesselo {

void LabelField::load(const Configuration& config, const LabelTarget& target)
{
    label = read_label(config, target);
    length = label_length(label, target);
    caret = length;
}

void LabelField::clear()
{
    label = KeyLabel{};
    length = 0;
    caret = 0;
}

void LabelField::move_caret(int to) { caret = to < 0 ? 0 : to > length ? length : to; }

namespace {

bool put(Application& app, const LabelTarget& target, LabelField& field, int glyph)
{
    const bool done = target.kind == LabelTarget::Kind::hardkey ? change_hardkeyname(app, target, glyph, field.caret)
                                                                : change_keyname(app, target, glyph, field.caret);
    const int caret = field.caret;
    field.load(app.config(target.slot), target);
    if (done) field.move_caret(caret + 1);
    else field.move_caret(caret);
    return done;
}

}  // namespace

bool Text1_KeyPress(Application& app, const LabelTarget& target, LabelField& field, int code)
{
    if (code == backspace_code) {
        if (field.caret < 1 || field.length == 0) return false;
        field.removed[static_cast<std::size_t>(field.removed_count % 64)] =
            field.label.bytes[static_cast<std::size_t>(field.caret)];
        ++field.removed_count;
        const int caret = field.caret;
        const bool done = delete_char(app, target, caret);
        field.load(app.config(target.slot), target);
        field.move_caret(done ? caret - 1 : caret);
        return done;
    }
    if (field.length >= label_glyphs) {
        app.ui().message(title_alt, max_character_message, Icon::exclamation);
        return false;
    }
    int glyph = 0;
    if (code != ' ') {
        glyph = char_to_glyph(code);
        if (glyph > char_pic_count) {
            field.move_caret(field.length);
            return false;
        }
    }
    return put(app, target, field, glyph);
}

bool Command9_Click(Application& app, const LabelTarget& target, LabelField& field, int glyph)
{
    if (glyph < 0 || glyph > char_pic_count) return false;
    return put(app, target, field, glyph);
}

}  // namespace tesselo
