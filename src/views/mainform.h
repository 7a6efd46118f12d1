#pragma once

#include <QWidget>

class QLabel;
class QMimeData;
class QMenu;
class QModelIndex;
class QStandardItemModel;
class QTreeView;

namespace tesselo {

class Application;

// A document window: the tree of its Configuration and the status panel
// that tells what the pointer is over. Its tag is the document slot.
class mainform : public QWidget {
    Q_OBJECT
public:
    mainform(Application& app, int slot, QWidget* parent = nullptr);

    int slot() const { return slot_; }
    QString tag() const { return QString::number(slot_); }
    QTreeView* tree() const { return TreeView1; }

    // The status panel: device, key label, and the count of the key's steps.
    void show_key_status(const QString& device, const QString& key, int steps);
    void clear_key_status();

    // Set by the frame once core has let the document go: the window may close.
    void release() { released_ = true; }

    // Draws the tree again from core's tree of the document.
    void rebuild_tree();
    // Marks the node that core holds selected.
    void show_selection();
    // The popup of the selected node, as core builds it; null for none.
    QMenu* build_popup_menu();
    // The tree node (1-based index) of a row of the view, and back.
    int node_of(const QModelIndex& index) const;
    QModelIndex index_of(int node) const;

    // A tree node carried by a drag: its document slot and node key.
    static QMimeData* node_drag_mime(int slot, const QString& key);
    // The drop of a carried node on the node under `pos` of the tree's viewport.
    bool drop_node(const QMimeData* mime, const QPoint& pos);

Q_SIGNALS:
    void close_requested(mainform* window);
    void commands_changed();

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void node_clicked(const QModelIndex& index);
    void node_double_clicked(const QModelIndex& index);
    void popup_requested(const QPoint& pos);
    bool viewport_event(QEvent* event);
    void start_drag();

    Application& app_;
    int slot_;
    bool released_ = false;
    bool rebuilding_ = false;
    // The node under the left button's press: the drag source.
    int drag_source_ = 0;
    QPoint press_pos_;
    QStandardItemModel* model_;
    QTreeView* TreeView1;
    QLabel* Devicelabel;
    QLabel* keylabel;
    QLabel* marcolabel;
};

}  // namespace tesselo
