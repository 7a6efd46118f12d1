#include "views/mainform.h"

#include <functional>
#include <optional>

#include <QApplication>
#include <QCloseEvent>
#include <QDrag>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMimeData>
#include <QMouseEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QStandardItemModel>
#include <QTreeView>
#include <QVBoxLayout>

#include "core/app/application.h"
#include "core/tree/node_keys.h"
#include "core/tree/popup_menu.h"
#include "views/popup_menus.h"
#include "core/tree/tree_model.h"
#include "core/tree/selection.h"
#include "core/tree/tree_drag.h"
#include "core/tree/tree_view.h"
#include "views/artwork.h"

namespace tesselo {

namespace {

constexpr int node_role = Qt::UserRole + 1;
const QString node_drag_format = "application/x-tesselo-tree-node";

}  // namespace

mainform::mainform(Application& app, int slot, QWidget* parent) : QWidget(parent), app_(app), slot_(slot)
{
    setObjectName("mainform");
    setProperty("Tag", tag());
    TreeView1 = new QTreeView(this);
    TreeView1->setObjectName("TreeView1");
    TreeView1->header()->hide();
    TreeView1->setUniformRowHeights(true);
    TreeView1->setIconSize(QSize(16, 16));
    // A node's text is the system's own: a typed character never edits it.
    TreeView1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    TreeView1->setContextMenuPolicy(Qt::CustomContextMenu);
    TreeView1->installEventFilter(this);
    // Devices and pages are dragged onto a tree, this one or another document's.
    TreeView1->viewport()->installEventFilter(this);
    TreeView1->viewport()->setAcceptDrops(true);
    model_ = new QStandardItemModel(this);
    TreeView1->setModel(model_);
    connect(TreeView1, &QTreeView::clicked, this, &mainform::node_clicked);
    connect(TreeView1, &QTreeView::doubleClicked, this, &mainform::node_double_clicked);
    connect(TreeView1, &QTreeView::customContextMenuRequested, this, &mainform::popup_requested);
    connect(TreeView1->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) {
                if (!rebuilding_ && current.isValid() && node_of(current) != app_.tree(slot_).selected())
                    node_clicked(current);
            });
    const auto follow = [this](bool expanded) {
        return [this, expanded](const QModelIndex& index) {
            const int node = node_of(index);
            if (!rebuilding_ && app_.tree(slot_).valid(node)) app_.tree(slot_).node(node).expanded = expanded;
        };
    };
    connect(TreeView1, &QTreeView::expanded, this, follow(true));
    connect(TreeView1, &QTreeView::collapsed, this, follow(false));

    auto* panel = new QWidget(this);
    panel->setObjectName("StatusPanel");
    auto* row = new QHBoxLayout(panel);
    row->setContentsMargins(4, 2, 4, 2);
    Devicelabel = new QLabel(panel);
    Devicelabel->setObjectName("Devicelabel");
    keylabel = new QLabel(panel);
    keylabel->setObjectName("keylabel");
    marcolabel = new QLabel(panel);
    marcolabel->setObjectName("marcolabel");
    for (QLabel* label : {Devicelabel, keylabel, marcolabel}) {
        label->setFrameShape(QFrame::StyledPanel);
        label->setFrameShadow(QFrame::Sunken);
        label->setMinimumWidth(60);
        row->addWidget(label, 1);
    }

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(TreeView1, 1);
    layout->addWidget(panel);
    resize(280, 420);
}

void mainform::show_key_status(const QString& device, const QString& key, int steps)
{
    Devicelabel->setText(device);
    keylabel->setText(key);
    marcolabel->setText(QString::number(steps) + " action steps");
}

void mainform::clear_key_status()
{
    Devicelabel->clear();
    keylabel->clear();
    marcolabel->clear();
}

int mainform::node_of(const QModelIndex& index) const
{
    return index.isValid() ? index.data(node_role).toInt() : 0;
}

QModelIndex mainform::index_of(int node) const
{
    const QModelIndexList found = model_->match(model_->index(0, 0), node_role, node, 1, Qt::MatchExactly | Qt::MatchRecursive);
    return found.isEmpty() ? QModelIndex() : found.front();
}

void mainform::rebuild_tree()
{
    rebuilding_ = true;
    const TreeModel& tree = app_.tree(slot_);
    model_->clear();
    std::function<void(QStandardItem*, int)> add = [&](QStandardItem* parent, int node) {
        const TreeNode& n = tree.node(node);
        auto* item = new QStandardItem(tree_picture(QString::fromStdString(n.image)), QString::fromStdString(n.text));
        item->setData(node, node_role);
        item->setData(QString::fromStdString(n.key), Qt::ToolTipRole);
        item->setEditable(false);
        parent->appendRow(item);
        for (int child : n.children) add(item, child);
    };
    for (int root : tree.roots()) add(model_->invisibleRootItem(), root);
    for (int node = 1; node <= tree.count(); ++node)
        TreeView1->setExpanded(index_of(node), tree.node(node).expanded);
    rebuilding_ = false;
    show_selection();
}

void mainform::show_selection()
{
    rebuilding_ = true;
    const int selected = app_.tree(slot_).selected();
    const QModelIndex index = index_of(selected);
    if (index.isValid())
        TreeView1->setCurrentIndex(index);
    else
        TreeView1->clearSelection();
    rebuilding_ = false;
}

void mainform::node_clicked(const QModelIndex& index)
{
    const int node = node_of(index);
    if (node) click_node(app_, slot_, node);
    Q_EMIT commands_changed();
}

void mainform::node_double_clicked(const QModelIndex& index)
{
    const int node = node_of(index);
    if (node && is_page_image(app_.tree(slot_).node(node).image)) open_page(app_, slot_, node);
}

QMenu* mainform::build_popup_menu()
{
    return popup_menu_of(build_popup(app_, slot_), "cPopup1", this, [this](const std::string& key) {
        cPopup1_ItemClick(app_, key);
        Q_EMIT commands_changed();
    });
}

void mainform::popup_requested(const QPoint& pos)
{
    const QModelIndex index = TreeView1->indexAt(pos);
    if (!index.isValid()) return;
    // The right button selects the node under it, and the menu is that node's.
    node_clicked(index);
    QMenu* menu = build_popup_menu();
    if (!menu) return;
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(TreeView1->viewport()->mapToGlobal(pos));
}

QMimeData* mainform::node_drag_mime(int slot, const QString& key)
{
    auto* mime = new QMimeData;
    mime->setData(node_drag_format, (QString::number(slot) + "\n" + key).toUtf8());
    return mime;
}

bool mainform::drop_node(const QMimeData* mime, const QPoint& pos)
{
    if (!mime || !mime->hasFormat(node_drag_format)) return false;
    const QStringList parts = QString::fromUtf8(mime->data(node_drag_format)).split('\n');
    if (parts.size() != 2) return false;
    const int source_slot = parts[0].toInt();
    if (source_slot < 0 || source_slot >= document_slots) return false;
    const int source = app_.tree(source_slot).find(parts[1].toStdString());
    const int target = node_of(TreeView1->indexAt(pos));
    const bool pasted = drag_treeview(app_, source_slot, source, slot_, target);
    Q_EMIT commands_changed();
    return pasted;
}

void mainform::start_drag()
{
    if (!tree_drag_starts(app_, slot_, drag_source_)) return;
    const TreeNode& n = app_.tree(slot_).node(drag_source_);
    app_.selection().drag_source = n.key;
    auto* drag = new QDrag(this);
    drag->setMimeData(node_drag_mime(slot_, QString::fromStdString(n.key)));
    drag->setPixmap(tree_picture(QString::fromStdString(n.image)).pixmap(24, 24));
    drag_source_ = 0;
    drag->exec(Qt::CopyAction);
}

bool mainform::viewport_event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress: {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        // Button 2 never drags.
        drag_source_ = mouse->button() == Qt::LeftButton ? node_of(TreeView1->indexAt(mouse->position().toPoint())) : 0;
        press_pos_ = mouse->position().toPoint();
        return false;
    }
    case QEvent::MouseMove: {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (drag_source_ && (mouse->buttons() & Qt::LeftButton) &&
            (mouse->position().toPoint() - press_pos_).manhattanLength() >= QApplication::startDragDistance()) {
            start_drag();
            return true;
        }
        return false;
    }
    case QEvent::DragEnter: {
        auto* drag = static_cast<QDragEnterEvent*>(event);
        if (!drag->mimeData()->hasFormat(node_drag_format)) return false;
        // The target window comes to the front as the pointer enters its tree.
        if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget())) {
            if (sub->mdiArea()) sub->mdiArea()->setActiveSubWindow(sub);
            sub->raise();
        }
        drag->acceptProposedAction();
        return true;
    }
    case QEvent::DragMove: {
        auto* drag = static_cast<QDragMoveEvent*>(event);
        if (!drag->mimeData()->hasFormat(node_drag_format)) return false;
        // HOME and its pages refuse a drop.
        const int target = node_of(TreeView1->indexAt(drag->position().toPoint()));
        if (tree_drop_allowed(app_, slot_, target)) drag->acceptProposedAction();
        else drag->ignore();
        return true;
    }
    case QEvent::Drop: {
        auto* drop = static_cast<QDropEvent*>(event);
        if (!drop->mimeData()->hasFormat(node_drag_format)) return false;
        if (drop_node(drop->mimeData(), drop->position().toPoint())) drop->acceptProposedAction();
        else drop->ignore();
        return true;
    }
    default: return false;
    }
}

bool mainform::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == TreeView1->viewport() && viewport_event(event)) return true;
    if (watched == TreeView1 && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const auto mods = key->modifiers() & (Qt::AltModifier | Qt::ControlModifier | Qt::ShiftModifier);
        std::optional<TreeShortcut> shortcut;
        if (mods == Qt::AltModifier && key->key() == Qt::Key_D) shortcut = TreeShortcut::alt_d;
        if (mods == Qt::AltModifier && key->key() == Qt::Key_P) shortcut = TreeShortcut::alt_p;
        if (mods == Qt::ControlModifier && key->key() == Qt::Key_Up) shortcut = TreeShortcut::ctrl_up;
        if (mods == Qt::ControlModifier && key->key() == Qt::Key_Down) shortcut = TreeShortcut::ctrl_down;
        if (shortcut) {
            tree_key_down(app_, *shortcut);
            Q_EMIT commands_changed();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void mainform::closeEvent(QCloseEvent* event)
{
    if (released_) {
        event->accept();
        return;
    }
    // Core asks its question; the frame closes the window when core lets it go.
    event->ignore();
    Q_EMIT close_requested(this);
}

}  // namespace tesselo
