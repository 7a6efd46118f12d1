#include "views/glyph_keyboard.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionToolButton>
#include <QStylePainter>

#include "core/keys/char_pic_list.h"
#include "views/glyph_font.h"

namespace tesselo {

namespace {

const QColor lcd_back(0xB4, 0xCF, 0x9A);
const QColor lcd_ink(0x1F, 0x2A, 0x1A);

// The text a glyph's button tells: its key name, else its character.
QString glyph_tip(int glyph)
{
    if (glyph == 0) return "Blank";
    const std::string key = glyph_key_name(glyph);
    if (!key.empty()) return QString::fromStdString(key);
    const int tag = glyph_tag(glyph);
    return tag >= 200 ? QString("Symbol %1").arg(glyph) : QString(QChar(tag));
}

}  // namespace

GlyphField::GlyphField(QWidget* parent) : QWidget(parent)
{
    setObjectName("Text1");
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_InputMethodEnabled, false);
    setCursor(Qt::IBeamCursor);
    setMinimumHeight(36);
}

QSize GlyphField::sizeHint() const
{
    return {int(label_glyphs * glyph_advance * dot() + 24), int(glyph_height * dot() + 16)};
}

void GlyphField::show_label(const KeyLabel& label, int length, int caret)
{
    label_ = label;
    length_ = length;
    caret_ = caret;
    update();
}

QRectF GlyphField::glyph_box() const { return QRectF(rect()).adjusted(8, 4, -8, -4); }

void GlyphField::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const QColor frame = hasFocus() ? palette().color(QPalette::Highlight) : QColor(0x26, 0x2A, 0x31);
    p.setPen(QPen(isEnabled() ? frame : QColor(0x9A, 0x9E, 0xA6), hasFocus() ? 2 : 1));
    p.setBrush(isEnabled() ? lcd_back : QColor(0xD4, 0xD8, 0xCE));
    p.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 3, 3);
    const QRectF box = glyph_box();
    // Glyphs stand from the left here, as typed; the LCD rows show the alignment.
    draw_glyphs(p, box, label_, length_, align_left, lcd_ink, dot());
    if (hasFocus()) {
        const qreal x = box.left() + dot() * 0.5 + caret_ * glyph_advance * dot();
        p.setPen(QPen(lcd_ink, 1.5));
        const qreal top = box.top() + (box.height() - glyph_height * dot()) / 2 - 2;
        p.drawLine(QPointF(x, top), QPointF(x, top + glyph_height * dot() + 4));
    }
}

void GlyphField::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Escape:
        QWidget::keyPressEvent(event);
        return;
    case Qt::Key_Left: Q_EMIT caret_moved(caret_ - 1); return;
    case Qt::Key_Right: Q_EMIT caret_moved(caret_ + 1); return;
    case Qt::Key_Home: Q_EMIT caret_moved(0); return;
    case Qt::Key_End: Q_EMIT caret_moved(length_); return;
    case Qt::Key_Backspace: Q_EMIT key_typed(8); return;
    default: break;
    }
    const QString text = event->text();
    // The press itself is swallowed: the field shows pictures, not letters.
    if (!text.isEmpty() && text.front().isPrint() && !(event->modifiers() & Qt::ControlModifier))
        Q_EMIT key_typed(text.front().unicode());
}

void GlyphField::mousePressEvent(QMouseEvent* event)
{
    setFocus(Qt::MouseFocusReason);
    const qreal x = event->position().x() - glyph_box().left();
    Q_EMIT caret_moved(int(x / (glyph_advance * dot()) + 0.5));
}

void GlyphField::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    update();
}

void GlyphField::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    update();
}

GlyphButton::GlyphButton(int glyph, QWidget* parent) : QToolButton(parent), glyph_(glyph)
{
    setObjectName("Command9");
    setProperty("Index", glyph);
    setToolTip(glyph_tip(glyph));
    setAccessibleName(glyph_tip(glyph));
    setFocusPolicy(Qt::StrongFocus);
    setFixedSize(glyph == 0 ? 2 * 26 + 3 : 26, 24);
}

void GlyphButton::paintEvent(QPaintEvent*)
{
    QStylePainter p(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    option.text.clear();
    option.icon = QIcon();
    p.drawComplexControl(QStyle::CC_ToolButton, option);
    KeyLabel one;
    one.bytes[1] = static_cast<std::uint8_t>(glyph_);
    const QColor ink = isEnabled() ? palette().color(QPalette::ButtonText) : palette().color(QPalette::Disabled, QPalette::ButtonText);
    draw_glyphs(p, QRectF(rect()), one, glyph_ == 0 ? 0 : 1, align_centre, ink, 2.0);
    if (glyph_ == 0) {
        p.setPen(QPen(ink, 1));
        const QRectF r = QRectF(rect()).adjusted(12, 14, -12, -6);
        p.drawLine(r.bottomLeft(), r.bottomRight());
        p.drawLine(r.bottomLeft(), r.bottomLeft() - QPointF(0, 3));
        p.drawLine(r.bottomRight(), r.bottomRight() - QPointF(0, 3));
    }
}

GlyphKeyboard::GlyphKeyboard(QWidget* parent) : QWidget(parent)
{
    setObjectName("GlyphKeyboard");
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(2);
    for (int glyph = 0; glyph <= char_pic_count; ++glyph) {
        auto* b = new GlyphButton(glyph, this);
        buttons_.push_back(b);
        b->installEventFilter(this);
        connect(b, &QToolButton::clicked, this, [this, glyph] { Q_EMIT glyph_pressed(glyph); });
        // The blank takes two places of the first row.
        const int place = glyph == 0 ? 0 : glyph + 1;
        grid->addWidget(b, place / columns, place % columns, 1, glyph == 0 ? 2 : 1);
    }
}

GlyphButton* GlyphKeyboard::button(int glyph) const
{
    return glyph >= 0 && glyph < static_cast<int>(buttons_.size()) ? buttons_[static_cast<std::size_t>(glyph)] : nullptr;
}

bool GlyphKeyboard::eventFilter(QObject* watched, QEvent* event)
{
    auto* b = qobject_cast<GlyphButton*>(watched);
    if (!b || event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    int step = 0;
    if (key == Qt::Key_Left) step = -1;
    if (key == Qt::Key_Right) step = 1;
    if (key == Qt::Key_Up) step = -columns;
    if (key == Qt::Key_Down) step = columns;
    if (step == 0) return QWidget::eventFilter(watched, event);
    // Places: the blank holds 0 and 1, glyph g holds g + 1.
    const int place = b->glyph() == 0 ? 0 : b->glyph() + 1;
    int to = place + step;
    if (to == 1) to = step > 0 ? 2 : 0;
    const int glyph = to <= 1 ? 0 : to - 1;
    if (to >= 0 && glyph <= char_pic_count) button(glyph)->setFocus(Qt::TabFocusReason);
    return true;
}

}  // namespace tesselo
