#include "views/label_frame.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

#include "core/app/application.h"
#include "views/artwork.h"
#include "views/glyph_keyboard.h"

namespace tesselo {

namespace {

// The alignment buttons stand pressed for the label's alignment.
QToolButton* align_button(const QString& name, const QString& picture, const QString& tip, QWidget* parent)
{
    QToolButton* b = picture_button(name, picture, tip, parent);
    b->setCheckable(true);
    b->setAutoRaise(false);
    return b;
}

}  // namespace

LabelFrame::LabelFrame(Application& app, QWidget* parent) : QWidget(parent), app_(app)
{
    setObjectName("FrameLabel");
    Text1 = new GlyphField(this);
    Command10 = align_button("Command10", "align left", "Left", this);
    Command11 = align_button("Command11", "align center", "Center", this);
    Command12 = align_button("Command12", "align right", "Right", this);
    Command9 = new GlyphKeyboard(this);

    auto* top = new QHBoxLayout;
    top->addWidget(Text1, 1);
    top->addWidget(Command10);
    top->addWidget(Command11);
    top->addWidget(Command12);
    auto* keys = new QGroupBox("Characters and symbols", this);
    auto* keys_layout = new QVBoxLayout(keys);
    keys_layout->addWidget(Command9);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel("Label (up to 9 characters):", this));
    layout->addLayout(top);
    layout->addWidget(keys);
    layout->addStretch(1);

    connect(Text1, &GlyphField::key_typed, this, &LabelFrame::typed);
    connect(Text1, &GlyphField::caret_moved, this, [this](int caret) {
        field_.move_caret(caret);
        show_field();
    });
    connect(Command9, &GlyphKeyboard::glyph_pressed, this, &LabelFrame::pressed);
    connect(Command10, &QToolButton::clicked, this, [this] { align(align_left); });
    connect(Command11, &QToolButton::clicked, this, [this] { align(align_centre); });
    connect(Command12, &QToolButton::clicked, this, [this] { align(align_right); });
}

void LabelFrame::load(const std::optional<LabelTarget>& target, bool alignment)
{
    if (target) field_.load(app_.config(target->slot), *target);
    else field_.clear();
    setEnabled(target.has_value());
    for (QToolButton* b : {Command10, Command11, Command12}) b->setEnabled(alignment);
    show_field();
}

void LabelFrame::show_field()
{
    Text1->show_label(field_.label, field_.length, field_.caret);
    // The button of the label's alignment stands pressed.
    const int alignment = field_.label.alignment();
    Command10->setChecked(Command10->isEnabled() && alignment == align_left);
    Command11->setChecked(Command11->isEnabled() && alignment == align_centre);
    Command12->setChecked(Command12->isEnabled() && alignment == align_right);
}

void LabelFrame::typed(int code)
{
    const auto target = label_target(app_);
    if (!target) return;
    if (Text1_KeyPress(app_, *target, field_, code)) Q_EMIT label_changed();
    show_field();
}

void LabelFrame::pressed(int glyph)
{
    const auto target = label_target(app_);
    if (!target) return;
    if (Command9_Click(app_, *target, field_, glyph)) Q_EMIT label_changed();
    show_field();
}

void LabelFrame::align(int alignment)
{
    const auto target = label_target(app_);
    if (target && align_label(app_, *target, alignment)) Q_EMIT label_changed();
    if (target) field_.label = read_label(app_.config(target->slot), *target);
    show_field();
}

}  // namespace tesselo
