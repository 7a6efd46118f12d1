#include "views/remote.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>

#include "core/app/application.h"
#include "core/keys/key_drag.h"
#include "core/keys/key_edit.h"
#include "core/tree/selection.h"

namespace tesselo {

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

Remote::Remote(Application& app, int slot, const PageRef& page, QWidget* parent)
    : RemotePicture(parent), app_(app), slot_(slot), page_(page)
{
    setObjectName("Remote");
    tag_ = QString::fromStdString(BuildTagText(slot, page.page_entry));
    setProperty("Tag", tag_);
    setWindowTitle(QString::fromStdString(page_node_key(app.config(slot), page)));
    // The hard keys carry the names of the page's device, as the tables hold them now.
    set_hard_labels([this](int key) -> const KeyLabel* {
        return &app_.config(slot_).hardkey_labels[static_cast<std::size_t>(page_.device * hardkeys_per_device + key)];
    });
    connect(this, &RemotePicture::picture_hovered, this, [this](int index) { Q_EMIT key_hovered(this, index); });
    connect(this, &RemotePicture::picture_pressed, this, &Remote::select_key);
    connect(this, &RemotePicture::picture_double_clicked, this,
            [this](int index) { Q_EMIT key_double_clicked(this, index); });
    setAcceptDrops(true);
    update_rows();
}

void Remote::update_rows() { set_rows(lcd_page_rows(app_.config(slot_), page_)); }

bool Remote::refresh(const QString& counter)
{
    set_counter(counter);
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
        const int row = side_button_row(index);
        set_row(row, lcd_page_rows(app_.config(slot_), page_)[static_cast<std::size_t>(row)]);
    } else {
        update_picture(index);
    }
}

QString Remote::pagelabel_text() const { return counter(); }

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

void Remote::mousePressEvent(QMouseEvent* event)
{
    drag_index_ = -1;
    RemotePicture::mousePressEvent(event);
    const int index = picture_at(event->position());
    if (index < 0 || event->button() != Qt::LeftButton) return;
    // The mode comes from the keys held as the drag starts, by their exact state.
    const int mode = drag_mode_of_shift(shift_state(event->modifiers()));
    if (!drag_starts(page_.home, index, mode)) return;
    drag_index_ = index;
    drag_mode_ = mode;
    drag_start_ = event->position().toPoint();
}

void Remote::mouseMoveEvent(QMouseEvent* event)
{
    if (drag_index_ >= 0 && (event->buttons() & Qt::LeftButton) &&
        (event->position().toPoint() - drag_start_).manhattanLength() >= QApplication::startDragDistance()) {
        start_drag(event->position());
        return;
    }
    RemotePicture::mouseMoveEvent(event);
}

void Remote::mouseReleaseEvent(QMouseEvent* event)
{
    drag_index_ = -1;
    RemotePicture::mouseReleaseEvent(event);
    const int index = picture_at(event->position());
    if (event->button() == Qt::RightButton && index >= 0)
        Q_EMIT key_menu_requested(this, index, event->globalPosition().toPoint());
}

void Remote::start_drag(const QPointF& at)
{
    const KeyDragData carried{slot_, caption(), drag_index_, drag_mode_};
    drag_index_ = -1;
    auto* drag = new QDrag(this);
    drag->setMimeData(key_drag_mime(carried));
    drag->setPixmap(drag_icon(carried.mode));
    drag->setHotSpot(QPoint(16, 16));
    drag->exec(Qt::MoveAction | Qt::CopyAction | Qt::LinkAction, Qt::MoveAction);
    // The drag took the button's release: the pressed picture is let go here.
    QMouseEvent release(QEvent::MouseButtonRelease, at, mapToGlobal(at), Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    RemotePicture::mouseReleaseEvent(&release);
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

void Remote::closeEvent(QCloseEvent* event)
{
    Q_EMIT closed(this);
    event->accept();
}

}  // namespace tesselo
