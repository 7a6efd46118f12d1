#pragma once

#include "core/keys/jump_dialog.h"
#include "core/keys/link_dialog.h"
#include "views/step_dialogs.h"

class QComboBox;
class QTreeWidget;
class QTreeWidgetItem;

namespace tesselo {

// Createjump: a jump step, "Create Jump": Combo1 chooses a device and opens
// it at its first page; TreeView1 shows the devices and their pages.
class CreatejumpWindow : public StepDialog {
    Q_OBJECT
public:
    CreatejumpWindow(Application& app, const KeyTarget& target, QWidget* parent = nullptr);
    QTreeWidget* tree() const { return TreeView1; }
    QComboBox* devices() const { return Combo1; }
    // Selects the node with that key; false when there is none.
    bool choose(const QString& key);

protected:
    void ok() override;

private:
    Createjump model_;
    QComboBox* Combo1;
    QTreeWidget* TreeView1;
};

// CreateLink: a link step, "Create Link": each device with its "HARD
// BUTTON" node and hard keys and its pages with their soft keys.
class CreateLinkWindow : public StepDialog {
    Q_OBJECT
public:
    CreateLinkWindow(Application& app, const KeyTarget& target, QWidget* parent = nullptr);
    QTreeWidget* tree() const { return TreeView1; }
    bool choose(const QString& key);

protected:
    void ok() override;

private:
    CreateLink model_;
    QTreeWidget* TreeView1;
};

// Fills a dialog's tree from core's nodes: each with its picture, nodes that
// cannot be chosen greyed, the node key in the item's data. The nodes above
// the one marked " (Currently selected) " are expanded.
void fill_dialog_tree(QTreeWidget* tree, const DialogTree& nodes);
// The node key of the tree's selected item, or empty.
std::string selected_node_key(const QTreeWidget* tree);
// Selects the item of `key` and makes it visible; false when there is none.
bool select_node_key(QTreeWidget* tree, const QString& key);

}  // namespace tesselo
