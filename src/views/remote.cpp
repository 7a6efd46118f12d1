#include "views/remote.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDrag>
#include <QMimeData>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>

#include "core/app/application.h"
#include "core/keys/key_drag.h"
#include "core/keys/key_edit.h"
#include "core/tree/selection.h"
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

QMimeData* key_drag_mime(const KeyDragData& data)
{
    auto* mime = new QMimeData;
    mime->setData(key_drag_format, QStringList({QString::number(data.slot), data.page_key, QString::number(data.picture),
                                                QString::number(data.mode)})
                                       .join('\n')
                                       .toUtf8());
    return mime;
}

std::optional<KeyDragData> key_drag_data(const QMimeData* mime)
{
    if (!mime || !mime->hasFormat(key_drag_format)) return std::nullopt;
    const QStringList parts = QString::fromUtf8(mime->data(key_drag_format)).split('\n');
    if (parts.size() != 4) return std::nullopt;
    bool ok[3] = {};
    KeyDragData data{parts[0].toInt(&ok[0]), parts[1], parts[2].toInt(&ok[1]), parts[3].toInt(&ok[2])};
    if (!ok[0] || !ok[1] || !ok[2]) return std::nullopt;
    return data;
}

int shift_state(Qt::KeyboardModifiers modifiers)
{
    return (modifiers & Qt::ShiftModifier ? 1 : 0) | (modifiers & Qt::ControlModifier ? 2 : 0) |
           (modifiers & Qt::AltModifier ? 4 : 0);
}

QPixmap drag_icon(int mode)
{
    QPixmap icon(32, 32);
    icon.fill(Qt::transparent);
    QPainter p(&icon);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor(0x1F, 0x4E, 0x9A), 2.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(QColor(0xE8, 0xF0, 0xFB));
    p.drawRoundedRect(QRectF(2, 2, 28, 28), 6, 6);
    switch (mode) {
    case drag_move:
        p.drawLine(QPointF(8, 16), QPointF(24, 16));
        p.drawLine(QPointF(18, 10), QPointF(24, 16));
        p.drawLine(QPointF(18, 22), QPointF(24, 16));
        break;
    case drag_copy:
        p.drawLine(QPointF(16, 8), QPointF(16, 24));
        p.drawLine(QPointF(8, 16), QPointF(24, 16));
        break;
    case drag_action:
        for (int y : {10, 16, 22}) p.drawLine(QPointF(9, y), QPointF(23, y));
        break;
    default:
        p.setBrush(Qt::NoBrush);
        p.drawEllipse(QRectF(6, 11, 12, 10));
        p.drawEllipse(QRectF(14, 11, 12, 10));
        break;
    }
    return icon;
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
    setAcceptDrops(true);
    setFixedSize(window_size());
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

QSize Remote::window_size()
{
    const QRectF body = pixels(remote_body_rect());
    return {int(body.width() + 2 * margin), int(body.height() + 8)};
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

int Remote::selected_index() const
{
    const TreeSelection& s = app_.selection();
    if (s.selected_kind != TreeSelection::Kind::key || s.slot != slot_ || s.node_key != caption().toStdString())
        return -1;
    return app_.key_selection.selected_index;
}

void Remote::select_key(int index)
{
    // The frame makes it the application's selection and redraws every page window.
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

    const int selected = selected_index();
    for (int i = 0; i < key_picture_count; ++i) {
        KeyState state = KeyState::normal;
        if (i == pressed_) state = KeyState::pressed;
        else if (i == selected) state = KeyState::selected;
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
    if (drag_index_ >= 0 && (event->buttons() & Qt::LeftButton) &&
        (event->position().toPoint() - drag_start_).manhattanLength() >= QApplication::startDragDistance()) {
        start_drag();
        return;
    }
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
    drag_index_ = -1;
    if (event->button() != Qt::LeftButton) return;
    // The mode comes from the keys held as the drag starts, by their exact state.
    const int mode = drag_mode_of_shift(shift_state(event->modifiers()));
    if (!drag_starts(page_.home, index, mode)) return;
    drag_index_ = index;
    drag_mode_ = mode;
    drag_start_ = event->position().toPoint();
}

void Remote::mouseReleaseEvent(QMouseEvent* event)
{
    pressed_ = -1;
    drag_index_ = -1;
    update();
    const int index = picture_at(event->position());
    if (event->button() == Qt::RightButton && index >= 0)
        Q_EMIT key_menu_requested(this, index, event->globalPosition().toPoint());
}

void Remote::start_drag()
{
    const KeyDragData data{slot_, caption(), drag_index_, drag_mode_};
    drag_index_ = -1;
    pressed_ = -1;
    auto* drag = new QDrag(this);
    drag->setMimeData(key_drag_mime(data));
    drag->setPixmap(drag_icon(data.mode));
    drag->setHotSpot(QPoint(16, 16));
    drag->exec(Qt::MoveAction | Qt::CopyAction | Qt::LinkAction, Qt::MoveAction);
    update();
}

void Remote::dragEnterEvent(QDragEnterEvent* event)
{
    if (key_drag_data(event->mimeData())) event->acceptProposedAction();
}

void Remote::dragMoveEvent(QDragMoveEvent* event)
{
    // Only a key picture takes a drop.
    if (key_drag_data(event->mimeData()) && picture_at(event->position()) >= 0) event->acceptProposedAction();
    else event->ignore();
}

void Remote::dropEvent(QDropEvent* event)
{
    const auto source = key_drag_data(event->mimeData());
    const int index = picture_at(event->position());
    if (!source || index < 0) return;
    event->acceptProposedAction();
    drop_key_at(index, *source);
}

void Remote::drop_key_at(int index, const KeyDragData& source) { Q_EMIT key_dropped(this, index, source); }

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
