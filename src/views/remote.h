#pragma once

#include <array>
#include <optional>

#include <QWidget>

#include "core/keys/page_canvas.h"

class QLabel;
class QMimeData;

namespace tesselo {

class Application;

// One LCD row of a page window: its soft keys' labels drawn as glyphs.
class LcdRowBox : public QWidget {
    Q_OBJECT
public:
    LcdRowBox(int row, QWidget* parent);
    void set_row(const LcdRow& row) { row_ = row; update(); }
    int row() const { return row_number_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int row_number_;
    LcdRow row_;
};

// What a key dragged from a page window carries: its document slot, its
// page's node key, its picture and the drag mode chosen when it started.
struct KeyDragData {
    int slot = 0;
    QString page_key;
    int picture = -1;
    int mode = 0;
};
inline const QString key_drag_format = "application/x-tesselo-key";
QMimeData* key_drag_mime(const KeyDragData& data);
std::optional<KeyDragData> key_drag_data(const QMimeData* mime);
// The shift state of a drag's start, as the modes are chosen by it: 1 Shift, 2 Ctrl, 4 Alt.
int shift_state(Qt::KeyboardModifiers modifiers);
// The drag icon of each mode: an arrow to move, a plus to copy, a list for
// the action, two rings for a link.
QPixmap drag_icon(int mode);

// A page window: the remote's body with its display and 56 key pictures.
// It holds no key data: every paint reads the document's tables.
class Remote : public QWidget {
    Q_OBJECT
public:
    Remote(Application& app, int slot, const PageRef& page, QWidget* parent = nullptr);
    // The window's size: the whole remote, always.
    static QSize window_size();

    int slot() const { return slot_; }
    const PageRef& page() const { return page_; }
    QString tag() const { return tag_; }
    QString caption() const { return windowTitle(); }
    // Reads the page again from the tables (after an edit, undo or redo) and
    // shows the page counter. False when the page is gone.
    bool refresh(const QString& pagelabel);
    QString pagelabel_text() const;
    // Set when core has let the window go: its close is no user's gesture.
    void release() { released_ = true; }
    bool released() const { return released_; }

    // The selected key when it is on this window's page, else -1: there is
    // one selected key in the program, held by the application.
    int selected_index() const;
    int hover_index() const { return hover_; }
    // The picture at a point of the window, or -1.
    int picture_at(const QPointF& point) const;
    QRectF picture_rect(int index) const;
    void select_key(int index);
    // One key drawn again from the tables: a side button's LCD row box, or a
    // hard key's picture.
    void refresh_key(int index);

    // Plain-text label of a key, the device's name, and the key's step count.
    QString key_text(int index) const;
    QString device_text() const;
    int key_steps(int index) const;

Q_SIGNALS:
    void key_hovered(Remote* window, int index);
    void key_selected(Remote* window, int index);
    // A double click on a key: its Add IR Code dialog.
    void key_double_clicked(Remote* window, int index);
    void closed(Remote* window);
    // The right button released on a key: its popup at `global`.
    void key_menu_requested(Remote* window, int index, const QPoint& global);
    // A key dragged from a page window was dropped on picture `index`.
    void key_dropped(Remote* window, int index, const KeyDragData& source);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

public:
    // The drag that a press prepared: its picture (-1 for none) and mode.
    int drag_source() const { return drag_index_; }
    int drag_mode() const { return drag_mode_; }
    // What a drop of `source` on picture `index` does (the drop event's end).
    void drop_key_at(int index, const KeyDragData& source);

private:
    void start_drag();

    QRectF to_pixels(const TwipRect& r) const;
    void update_rows();

    Application& app_;
    int slot_;
    PageRef page_;
    QString tag_;
    int hover_ = -1;
    int pressed_ = -1;
    bool released_ = false;
    int drag_index_ = -1;
    int drag_mode_ = 0;
    QPoint drag_start_;
    QLabel* pagelabel;
    std::array<LcdRowBox*, lcd_rows> labelRichText1{};
};

}  // namespace tesselo
