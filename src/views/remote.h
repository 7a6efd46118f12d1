#pragma once

#include <optional>

#include "core/keys/page_canvas.h"
#include "views/remote_picture.h"

class QMimeData;

namespace tesselo {

class Application;

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

// A page window: the remote's picture showing one page of a document. It
// holds no key data: every paint reads the document's tables.
class Remote : public RemotePicture {
    Q_OBJECT
public:
    Remote(Application& app, int slot, const PageRef& page, QWidget* parent = nullptr);
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
    void select_key(int index);
    // One key drawn again from the tables: a side button's LCD row box, or a
    // hard key's picture.
    void refresh_key(int index);

    // Plain-text label of a key, the device's name, and the key's step count.
    QString key_text(int index) const;
    QString device_text() const;
    int key_steps(int index) const;

    // The drag that a press prepared: its picture (-1 for none) and mode.
    int drag_source() const { return drag_index_; }
    int drag_mode() const { return drag_mode_; }
    // What a drop of `source` on picture `index` does (the drop event's end).
    void drop_key_at(int index, const KeyDragData& source);

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
    int selected_picture() const override { return selected_index(); }
    void closeEvent(QCloseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void update_rows();
    void start_drag(const QPointF& at);

    Application& app_;
    int slot_;
    PageRef page_;
    QString tag_;
    bool released_ = false;
    int drag_index_ = -1;
    int drag_mode_ = 0;
    QPoint drag_start_;
};

}  // namespace tesselo
