#include "views/mainform.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QTreeView>
#include <QVBoxLayout>

namespace tesselo {

mainform::mainform(Application& app, int slot, QWidget* parent) : QWidget(parent), app_(app), slot_(slot)
{
    setObjectName("mainform");
    setProperty("Tag", tag());
    TreeView1 = new QTreeView(this);
    TreeView1->setObjectName("TreeView1");
    TreeView1->header()->hide();
    TreeView1->setUniformRowHeights(true);
    TreeView1->setIconSize(QSize(16, 16));

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
