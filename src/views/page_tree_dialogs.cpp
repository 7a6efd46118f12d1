#include "views/page_tree_dialogs.h"

#include <QComboBox>
#include <QHash>
#include <QHeaderView>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "core/app/application.h"
#include "core/tree/node_keys.h"
#include "views/artwork.h"

namespace tesselo {

namespace {

constexpr int key_role = Qt::UserRole + 1;

QTreeWidget* make_tree(QWidget* parent)
{
    auto* tree = new QTreeWidget(parent);
    tree->setObjectName("TreeView1");
    tree->header()->hide();
    tree->setIconSize(QSize(16, 16));
    tree->setMinimumSize(300, 320);
    return tree;
}

bool cannot_be_chosen(const std::string& image)
{
    return image == image_hidden_page || image == "disablebutton" || image == "disablehardbutton";
}

}  // namespace

void fill_dialog_tree(QTreeWidget* tree, const DialogTree& nodes)
{
    tree->clear();
    QHash<QString, QTreeWidgetItem*> items;
    for (const DialogNode& node : nodes) {
        QTreeWidgetItem* parent = items.value(QString::fromStdString(node.parent));
        auto* item = parent ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(tree);
        item->setText(0, QString::fromStdString(node.text));
        item->setIcon(0, tree_picture(QString::fromStdString(node.image)));
        item->setData(0, key_role, QString::fromStdString(node.key));
        if (cannot_be_chosen(node.image)) item->setForeground(0, tree->palette().color(QPalette::Disabled, QPalette::Text));
        if (node.text.find(currently_selected) != std::string::npos)
            for (QTreeWidgetItem* up = item->parent(); up; up = up->parent()) up->setExpanded(true);
        items.insert(QString::fromStdString(node.key), item);
    }
}

std::string selected_node_key(const QTreeWidget* tree)
{
    const QTreeWidgetItem* item = tree->currentItem();
    return item && item->isSelected() ? item->data(0, key_role).toString().toStdString() : std::string{};
}

bool select_node_key(QTreeWidget* tree, const QString& key)
{
    for (QTreeWidgetItemIterator it(tree); *it; ++it)
        if ((*it)->data(0, key_role).toString() == key) {
            for (QTreeWidgetItem* up = (*it)->parent(); up; up = up->parent()) up->setExpanded(true);
            tree->setCurrentItem(*it);
            (*it)->setSelected(true);
            tree->scrollToItem(*it);
            return true;
        }
    return false;
}

CreatejumpWindow::CreatejumpWindow(Application& app, const KeyTarget& target, QWidget* parent)
    : StepDialog(app, target, "Createjump", QString::fromStdString(create_jump_title), parent),
      model_(app, target.slot, target.page_key)
{
    Combo1 = new QComboBox(this);
    Combo1->setObjectName("Combo1");
    for (const DialogNode& node : model_.tree)
        if (node.parent.empty()) Combo1->addItem(tree_picture(QString::fromStdString(node.image)),
                                                 QString::fromStdString(node.text), QString::fromStdString(node.key));
    Combo1->setCurrentIndex(-1);
    TreeView1 = make_tree(this);
    fill_dialog_tree(TreeView1, model_.tree);
    auto* body = new QVBoxLayout;
    body->addWidget(new QLabel("Device:", this));
    body->addWidget(Combo1);
    body->addWidget(new QLabel("Jump to page:", this));
    body->addWidget(TreeView1, 1);
    set_body(body, false);
    connect(Combo1, &QComboBox::activated, this, [this](int index) {
        const QString device = Combo1->itemData(index).toString();
        const std::string page = model_.choose_device(device.toStdString());
        // The device opens at its PAGE1; where that is the page we are on, at the device.
        select_node_key(TreeView1, page.empty() ? device : QString::fromStdString(page));
        if (QTreeWidgetItem* item = TreeView1->currentItem()) item->setExpanded(true);
    });
    connect(TreeView1, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* item) {
        if (item->parent()) ok();
    });
    resize(360, 460);
}

bool CreatejumpWindow::choose(const QString& key) { return select_node_key(TreeView1, key); }

void CreatejumpWindow::ok() { finish(model_.ok(app_, target_, selected_node_key(TreeView1))); }

CreateLinkWindow::CreateLinkWindow(Application& app, const KeyTarget& target, QWidget* parent)
    : StepDialog(app, target, "CreateLink", QString::fromStdString(create_link_title), parent),
      model_(app, target.slot, target.page_key, app.key_selection)
{
    TreeView1 = make_tree(this);
    fill_dialog_tree(TreeView1, model_.tree);
    auto* body = new QVBoxLayout;
    body->addWidget(new QLabel("Link to the key:", this));
    body->addWidget(TreeView1, 1);
    set_body(body, false);
    connect(TreeView1, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* item) {
        if (item->childCount() == 0) ok();
    });
    resize(360, 500);
}

bool CreateLinkWindow::choose(const QString& key) { return select_node_key(TreeView1, key); }

void CreateLinkWindow::ok() { finish(model_.ok(app_, target_, selected_node_key(TreeView1))); }

}  // namespace tesselo
