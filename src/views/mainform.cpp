#include "views/mainform.h"

#include <functional>
#include <optional>

#include <QCloseEvent>
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
#include "core/tree/tree_view.h"
#include "views/artwork.h"

namespace tesselo {

namespace {

constexpr int node_role = Qt::UserRole + 1;

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

bool mainform::eventFilter(QObject* watched, QEvent* event)
{
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
