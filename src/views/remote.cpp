#include "views/remote.h"

#include <QCloseEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>

#include "core/app/application.h"
#include "views/artwork.h"
#include "views/glyph_font.h"

namespace tesselo {

namespace {

const QColor lcd_back(0xB4, 0xCF, 0x9A);
const QColor lcd_ink(0x1F, 0x2A, 0x1A);

// The body stands in the middle of a window wide enough for its title.
constexpr qreal margin = 22;

QRectF pixels(const TwipRect& r)
{
    return QRectF(r.left / double(twips_per_pixel), r.top / double(twips_per_pixel), r.width / double(twips_per_pixel),
                  r.height / double(twips_per_pixel));
}

}  // namespace

LcdRowBox::LcdRowBox(int row, QWidget* parent) : QWidget(parent), row_number_(row)
{
    setObjectName("labelRichText1");
    setProperty("Index", row * 3);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void LcdRowBox::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    const QRectF box = rect();
    // A row with two keys shares its width between them.
    if (row_.has_left && row_.has_right) {
        const QRectF left(box.left(), box.top(), box.width() / 2, box.height());
        const QRectF right(box.center().x(), box.top(), box.width() / 2, box.height());
        draw_glyphs(p, left, row_.left, row_.left.glyph_count(), align_left, lcd_ink, 1.0);
        draw_glyphs(p, right, row_.right, row_.right.glyph_count(), align_right, lcd_ink, 1.0);
        return;
    }
    if (row_.has_right) draw_glyphs(p, box, row_.right, row_.right.glyph_count(), row_.right.alignment(), lcd_ink, 1.0);
    if (row_.has_left) draw_glyphs(p, box, row_.left, row_.left.glyph_count(), row_.left.alignment(), lcd_ink, 1.0);
}

Remote::Remote(Application& app, int slot, const PageRef& page, QWidget* parent)
    : QWidget(parent), app_(app), slot_(slot), page_(page)
{
    setObjectName("Remote");
    tag_ = QString::fromStdString(BuildTagText(slot, page.page_entry));
    setProperty("Tag", tag_);
    setWindowTitle(QString::fromStdString(page_node_key(app.config(slot), page)));
    setMouseTracking(true);
    const QRectF body = pixels(remote_body_rect());
    setFixedSize(int(body.width() + 2 * margin), int(body.height() + 8));
    setAutoFillBackground(true);
    QPalette back = palette();
    back.setColor(QPalette::Window, QColor(0xE9, 0xEB, 0xEE));
    setPalette(back);

    const QRectF panel = to_pixels(lcd_panel_rect());
    for (int row = 0; row < lcd_rows; ++row) {
        auto* box = new LcdRowBox(row, this);
        // Each box is drawn in the top of its place: the glyphs are one row of dots high.
        const QRectF r = pixels(lcd_row_rect(row)).translated(panel.topLeft());
        box->setGeometry(QRectF(r.left() + 1, r.top(), r.width() - 1, 15).toRect());
        labelRichText1[static_cast<std::size_t>(row)] = box;
    }
    pagelabel = new QLabel(this);
    pagelabel->setObjectName("pagelabel");
    pagelabel->setAlignment(Qt::AlignCenter);
    pagelabel->setGeometry(to_pixels(pagelabel_rect()).toRect());
    pagelabel->setStyleSheet("color: #d8dde6; font-size: 9px; letter-spacing: 1px;");
    update_rows();
}

QRectF Remote::to_pixels(const TwipRect& r) const { return pixels(r).translated(margin, 4); }

QRectF Remote::picture_rect(int index) const { return to_pixels(key_picture_rect(index)); }

int Remote::picture_at(const QPointF& point) const
{
    for (int i = 0; i < key_picture_count; ++i)
        if (picture_rect(i).contains(point)) return i;
    return -1;
}

void Remote::update_rows()
{
    const auto rows = lcd_page_rows(app_.config(slot_), page_);
    for (int row = 0; row < lcd_rows; ++row) labelRichText1[static_cast<std::size_t>(row)]->set_row(rows[static_cast<std::size_t>(row)]);
}

bool Remote::refresh(const QString& counter)
{
    pagelabel->setText(counter);
    const auto found = find_page(app_.config(slot_), windowTitle().toStdString());
    if (!found) return false;
    page_ = *found;
    update_rows();
    update();
    return true;
}

void Remote::refresh_key(int index)
{
    if (is_side_button(index)) {
        const auto row = static_cast<std::size_t>(side_button_row(index));
        labelRichText1[row]->set_row(lcd_page_rows(app_.config(slot_), page_)[row]);
    } else if (index >= 0 && index < key_picture_count) {
        update(picture_rect(index).toAlignedRect().adjusted(-2, -2, 2, 2));
    }
}

QString Remote::pagelabel_text() const { return pagelabel->text(); }

QString Remote::key_text(int index) const
{
    return QString::fromStdString(key_label_text(app_.config(slot_), page_, index));
}

QString Remote::device_text() const { return QString::fromStdString(device_name_text(app_.config(slot_), page_.device)); }

int Remote::key_steps(int index) const { return key_step_count(app_.config(slot_), page_, index); }

void Remote::select_key(int index)
{
    selected_ = index;
    update();
    Q_EMIT key_selected(this, index);
}

void Remote::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    draw_remote_body(p, to_pixels(remote_body_rect()));
    const QRectF panel = to_pixels(lcd_panel_rect());
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
    const qreal rule = panel.top() + to_pixels(lcd_row_rect(1)).top() - 2;
    p.drawLine(QPointF(panel.left() + 3, rule), QPointF(panel.right() - 3, rule));

    for (int i = 0; i < key_picture_count; ++i) {
        KeyState state = KeyState::normal;
        if (i == pressed_) state = KeyState::pressed;
        else if (i == selected_) state = KeyState::selected;
        else if (i == hover_) state = KeyState::hover;
        draw_key_picture(p, picture_rect(i), i, state);
        const int key = check_hardkeyindex(i);
        if (key < 0) continue;
        const KeyLabel& label =
            app_.config(slot_).hardkey_labels[static_cast<std::size_t>(page_.device * hardkeys_per_device + key)];
        const int count = label.header() <= label_glyphs ? label.header() : 0;
        const QRectF r = picture_rect(i);
        // Long names shrink to the key; a key's name is never cut.
        const qreal dot = std::min(1.0, (r.width() - 3) / std::max(1, count * glyph_advance));
        draw_glyphs(p, r, label, count, align_centre, QColor(0x1A, 0x1D, 0x22), std::max(0.45, dot * 0.72));
    }
}

void Remote::mouseMoveEvent(QMouseEvent* event)
{
    const int index = picture_at(event->position());
    if (index != hover_) {
        hover_ = index;
        update();
        Q_EMIT key_hovered(this, index);
    }
}

void Remote::mousePressEvent(QMouseEvent* event)
{
    const int index = picture_at(event->position());
    if (index < 0) return;
    pressed_ = index;
    select_key(index);
}

void Remote::mouseReleaseEvent(QMouseEvent*)
{
    pressed_ = -1;
    update();
}

void Remote::mouseDoubleClickEvent(QMouseEvent* event)
{
    const int index = picture_at(event->position());
    if (index < 0) return;
    Q_EMIT key_double_clicked(this, index);
}

void Remote::leaveEvent(QEvent*)
{
    if (hover_ < 0) return;
    hover_ = -1;
    update();
    Q_EMIT key_hovered(this, -1);
}

void Remote::closeEvent(QCloseEvent* event)
{
    Q_EMIT closed(this);
    event->accept();
}

}  // namespace tesselo
