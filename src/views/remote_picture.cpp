#include "views/remote_picture.h"

#include <algorithm>

#include <QLabel>
#include <QMouseEvent>
#include <QPainter>

#include "core/keys/hardkey_pictures.h"
#include "views/artwork.h"
#include "views/glyph_font.h"

namespace tesselo {

namespace {

const QColor lcd_back(0xB4, 0xCF, 0x9A);
const QColor lcd_ink(0x1F, 0x2A, 0x1A);

// The body stands in the middle of a widget wide enough for a window's title.
constexpr qreal margin = 22;

QRectF pixels(const TwipRect& r)
{
    return QRectF(r.left / double(twips_per_pixel), r.top / double(twips_per_pixel), r.width / double(twips_per_pixel),
                  r.height / double(twips_per_pixel));
}

}  // namespace

QSizeF lcd_panel_size() { return pixels(lcd_panel_rect()).size(); }

void draw_lcd_panel(QPainter& p, const QRectF& panel)
{
    p.save();
    p.setPen(QPen(QColor(0x20, 0x24, 0x2A), 2));
    p.setBrush(QColor(0x26, 0x2A, 0x31));
    p.drawRoundedRect(panel.adjusted(-3, -3, 3, 3), 4, 4);
    QLinearGradient glass(panel.topLeft(), panel.bottomLeft());
    glass.setColorAt(0, lcd_back.lighter(108));
    glass.setColorAt(1, lcd_back.darker(106));
    p.setPen(Qt::NoPen);
    p.setBrush(glass);
    p.drawRect(panel);
    // The title row stands apart from the keys' rows.
    p.setPen(QPen(QColor(0x1F, 0x2A, 0x1A, 90), 1));
    const qreal rule = panel.top() + pixels(lcd_row_rect(1)).top() + 2;
    p.drawLine(QPointF(panel.left() + 3, rule), QPointF(panel.right() - 3, rule));
    p.restore();
}

QRectF lcd_row_box(const QRectF& panel, int row)
{
    // Each row is drawn in the top of its place: the glyphs are one row of dots high.
    const QRectF r = pixels(lcd_row_rect(row)).translated(panel.topLeft());
    return {r.left() + 1, r.top(), r.width() - 1, 15};
}

void draw_lcd_row(QPainter& p, const QRectF& box, const LcdRow& row)
{
    // A row with two keys shares its width between them.
    if (row.has_left && row.has_right) {
        const QRectF left(box.left(), box.top(), box.width() / 2, box.height());
        const QRectF right(box.center().x(), box.top(), box.width() / 2, box.height());
        draw_glyphs(p, left, row.left, row.left.glyph_count(), align_left, lcd_ink, 1.0);
        draw_glyphs(p, right, row.right, row.right.glyph_count(), align_right, lcd_ink, 1.0);
        return;
    }
    if (row.has_right) draw_glyphs(p, box, row.right, row.right.glyph_count(), row.right.alignment(), lcd_ink, 1.0);
    if (row.has_left) draw_glyphs(p, box, row.left, row.left.glyph_count(), row.left.alignment(), lcd_ink, 1.0);
}

void draw_display(QPainter& p, const QRectF& panel, const std::array<LcdRow, lcd_rows>& rows)
{
    draw_lcd_panel(p, panel);
    for (int row = 0; row < lcd_rows; ++row) draw_lcd_row(p, lcd_row_box(panel, row), rows[static_cast<std::size_t>(row)]);
}

LcdRowBox::LcdRowBox(int row, QWidget* parent) : QWidget(parent), row_number_(row)
{
    setObjectName("labelRichText1");
    setProperty("Index", row * 3);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void LcdRowBox::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    draw_lcd_row(p, rect(), row_);
}

RemotePicture::RemotePicture(QWidget* parent) : QWidget(parent)
{
    setMouseTracking(true);
    setFixedSize(picture_size());
    setAutoFillBackground(true);
    QPalette back = palette();
    back.setColor(QPalette::Window, QColor(0xE9, 0xEB, 0xEE));
    setPalette(back);

    const QRectF panel = to_pixels(lcd_panel_rect());
    for (int row = 0; row < lcd_rows; ++row) {
        auto* box = new LcdRowBox(row, this);
        box->setGeometry(lcd_row_box(panel, row).toRect());
        labelRichText1[static_cast<std::size_t>(row)] = box;
    }
    pagelabel = new QLabel(this);
    pagelabel->setObjectName("pagelabel");
    pagelabel->setAlignment(Qt::AlignCenter);
    pagelabel->setGeometry(to_pixels(pagelabel_rect()).toRect());
    pagelabel->setStyleSheet("color: #d8dde6; font-size: 9px; letter-spacing: 1px;");
}

QSize RemotePicture::picture_size()
{
    const QRectF body = pixels(remote_body_rect());
    return {int(body.width() + 2 * margin), int(body.height() + 8)};
}

QRectF RemotePicture::to_pixels(const TwipRect& r) const { return pixels(r).translated(margin, 4); }

QRectF RemotePicture::picture_rect(int index) const { return to_pixels(key_picture_rect(index)); }

int RemotePicture::picture_at(const QPointF& point) const
{
    for (int i = 0; i < key_picture_count; ++i)
        if (picture_rect(i).contains(point)) return i;
    return -1;
}

void RemotePicture::set_rows(const std::array<LcdRow, lcd_rows>& rows)
{
    for (int row = 0; row < lcd_rows; ++row) set_row(row, rows[static_cast<std::size_t>(row)]);
}

void RemotePicture::set_row(int row, const LcdRow& content)
{
    if (row >= 0 && row < lcd_rows) labelRichText1[static_cast<std::size_t>(row)]->set_row(content);
}

LcdRow RemotePicture::row(int row) const
{
    return row >= 0 && row < lcd_rows ? labelRichText1[static_cast<std::size_t>(row)]->lcd_row() : LcdRow{};
}

void RemotePicture::set_counter(const QString& text) { pagelabel->setText(text); }

QString RemotePicture::counter() const { return pagelabel->text(); }

void RemotePicture::update_picture(int index)
{
    if (index >= 0 && index < key_picture_count) update(picture_rect(index).toAlignedRect().adjusted(-2, -2, 2, 2));
}

void RemotePicture::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    draw_remote_body(p, to_pixels(remote_body_rect()));
    draw_lcd_panel(p, to_pixels(lcd_panel_rect()));

    const int selected = selected_picture();
    for (int i = 0; i < key_picture_count; ++i) {
        KeyState state = KeyState::normal;
        if (i == pressed_) state = KeyState::pressed;
        else if (i == selected) state = KeyState::selected;
        else if (i == hover_) state = KeyState::hover;
        draw_key_picture(p, picture_rect(i), i, state);
        const int key = check_hardkeyindex(i);
        const KeyLabel* label = key >= 0 && hard_labels_ ? hard_labels_(key) : nullptr;
        if (!label) continue;
        const int count = label->header() <= label_glyphs ? label->header() : 0;
        const QRectF r = picture_rect(i);
        // Long names shrink to the key; a key's name is never cut.
        const qreal dot = std::min(1.0, (r.width() - 3) / std::max(1, count * glyph_advance));
        draw_glyphs(p, r, *label, count, align_centre, QColor(0x1A, 0x1D, 0x22), std::max(0.45, dot * 0.72));
    }
}

void RemotePicture::mouseMoveEvent(QMouseEvent* event)
{
    const int index = picture_at(event->position());
    if (index != hover_) {
        hover_ = index;
        update();
        Q_EMIT picture_hovered(index);
    }
}

void RemotePicture::mousePressEvent(QMouseEvent* event)
{
    const int index = picture_at(event->position());
    if (index < 0) return;
    pressed_ = index;
    update_picture(index);
    Q_EMIT picture_pressed(index);
}

void RemotePicture::mouseReleaseEvent(QMouseEvent*)
{
    const int was = pressed_;
    pressed_ = -1;
    update();
    if (was >= 0) Q_EMIT picture_released(was);
}

void RemotePicture::mouseDoubleClickEvent(QMouseEvent* event)
{
    const int index = picture_at(event->position());
    if (index >= 0) Q_EMIT picture_double_clicked(index);
}

void RemotePicture::leaveEvent(QEvent*)
{
    if (hover_ < 0) return;
    hover_ = -1;
    update();
    Q_EMIT picture_hovered(-1);
}

}  // namespace tesselo
