#pragma once

#include <QWidget>

#include "core/keys/label_field.h"

class QToolButton;

namespace tesselo {

class Application;
class GlyphField;
class GlyphKeyboard;

// The Label tab: Text1 with the label's glyphs, the alignment buttons
// Command10 (left), Command11 (center), Command12 (right), and the Command9
// glyph keyboard. Every gesture finds its label afresh from the selection.
class LabelFrame : public QWidget {
    Q_OBJECT
public:
    LabelFrame(Application& app, QWidget* parent = nullptr);
    // Reloads Text1 from the label that `target` names (none: an empty,
    // disabled tab); the caret goes to the end.
    void load(const std::optional<LabelTarget>& target, bool alignment);
    GlyphField* field() const { return Text1; }
    GlyphKeyboard* keyboard() const { return Command9; }
    const LabelField& model() const { return field_; }

Q_SIGNALS:
    // The label changed in the tables.
    void label_changed();

private:
    void typed(int code);
    void pressed(int glyph);
    void align(int alignment);
    void show_field();

    Application& app_;
    LabelField field_;
    GlyphField* Text1;
    GlyphKeyboard* Command9;
    QToolButton* Command10;
    QToolButton* Command11;
    QToolButton* Command12;
};

}  // namespace tesselo
