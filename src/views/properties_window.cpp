#include "views/properties_window.h"

#include <QLabel>
#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>

#include "core/app/application.h"
#include "core/keys/key_selection.h"
#include "core/keys/page_canvas.h"
#include "core/keys/step_text.h"
#include "core/tree/selection.h"
#include "core/tree/tree_model.h"
#include "views/action_frame.h"
#include "views/device_frame.h"
#include "views/label_frame.h"

namespace tesselo {

namespace {

// The frames behind the tabs.
constexpr int frame_action = 0;
constexpr int frame_label = 1;
constexpr int frame_device = 2;

QTabBar* tab_bar(const QString& name, const QStringList& tabs, QWidget* parent)
{
    auto* bar = new QTabBar(parent);
    bar->setObjectName(name);
    bar->setExpanding(false);
    bar->setDrawBase(true);
    for (const QString& tab : tabs) bar->addTab(tab);
    return bar;
}

// What the heading says about the selection.
QString heading_text(Application& app, const PropertiesContent& content)
{
    const TreeSelection& s = app.selection();
    if (s.slot < 0 || s.slot >= document_slots) return {};
    const Configuration& config = app.config(s.slot);
    const TreeModel& tree = app.tree(s.slot);
    if (content.shows == PropertiesContent::Shows::device)
        return QString::fromStdString(device_properties_text + ": " +
                                      device_tree_text(config, content.device.device, &tree));
    const auto page = find_page(config, s.node_key);
    if (!page) return {};
    const int node = tree.find(s.node_key);
    const QString where = QString::fromStdString(device_tree_text(config, page->device, &tree)) + "  " +
                          (node ? QString::fromStdString(tree.node(node).text) : QString());
    const KeySelection& k = app.key_selection;
    if (content.shows == PropertiesContent::Shows::hardkey)
        return where + "  hard key " + QString::fromStdString(key_label_text(config, *page, k.selected_index));
    if (content.shows == PropertiesContent::Shows::softkey)
        return where + QString("  row %1 ").arg(k.row()) + (k.selected_left ? "left" : "right");
    return {};
}

}  // namespace

properties::properties(Application& app, QWidget* parent)
    : QWidget(parent, Qt::Tool), app_(app), names_(app.home())
{
    setObjectName("properties");
    setWindowTitle("Properties");
    heading_ = new QLabel(this);
    heading_->setObjectName("heading");
    QFont bold = heading_->font();
    bold.setBold(true);
    heading_->setFont(bold);

    noproperties = new QWidget(this);
    noproperties->setObjectName("noproperties");
    auto* none = new QVBoxLayout(noproperties);
    auto* none_text = new QLabel(QString::fromStdString(no_properties_text), noproperties);
    none_text->setObjectName("noproperties_text");
    none_text->setAlignment(Qt::AlignCenter);
    none->addWidget(none_text);

    auto* tabs = new QWidget(this);
    TabStrip1 = tab_bar("TabStrip1", {"Action", "Label"}, tabs);
    TabStrip2 = tab_bar("TabStrip2", {"Action", "Label"}, tabs);
    TabStrip3 = tab_bar("TabStrip3", {"Label"}, tabs);
    action_ = new ActionFrame(app, tabs);
    label_ = new LabelFrame(app, tabs);
    device_ = new DeviceFrame(app, tabs);
    frames_ = new QStackedWidget(tabs);
    frames_->insertWidget(frame_action, action_);
    frames_->insertWidget(frame_label, label_);
    frames_->insertWidget(frame_device, device_);
    auto* tabs_layout = new QVBoxLayout(tabs);
    tabs_layout->setContentsMargins(0, 0, 0, 0);
    tabs_layout->setSpacing(0);
    for (QTabBar* bar : {TabStrip1, TabStrip2, TabStrip3}) {
        tabs_layout->addWidget(bar);
        connect(bar, &QTabBar::currentChanged, this, &properties::tab_chosen);
    }
    tabs_layout->addWidget(frames_, 1);

    pages_ = new QStackedWidget(this);
    pages_->addWidget(noproperties);
    pages_->addWidget(tabs);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(heading_);
    layout->addWidget(pages_, 1);

    connect(action_, &ActionFrame::key_changed, this, [this](int row) {
        refresh();
        action_->select_row(row);
        Q_EMIT data_changed();
    });
    connect(label_, &LabelFrame::label_changed, this, [this] { Q_EMIT data_changed(); });
    connect(device_, &DeviceFrame::setting_changed, this, [this] {
        refresh();
        Q_EMIT data_changed();
    });
    resize(460, 500);
}

QTabBar* properties::tab_strip() const
{
    switch (content_.tab_strip) {
    case 1: return TabStrip1;
    case 2: return TabStrip2;
    case 3: return TabStrip3;
    default: return nullptr;
    }
}

void properties::selection_moved()
{
    label_alone_ = false;
    refresh();
}

void properties::show_label()
{
    label_alone_ = true;
    refresh();
    if (QTabBar* bar = tab_strip()) show_tab(bar->count() - 1);
}

void properties::refresh()
{
    const QTabBar* before = tab_strip();
    const bool label_was_forward = before && before->currentIndex() == before->count() - 1 && before->count() > 1;
    content_ = properties_content(app_, names_, label_alone_);
    heading_->setText(heading_text(app_, content_));
    if (content_.shows == PropertiesContent::Shows::noproperties) {
        pages_->setCurrentWidget(noproperties);
        return;
    }
    pages_->setCurrentIndex(1);
    const bool device = content_.shows == PropertiesContent::Shows::device;
    TabStrip1->setTabText(0, device ? QString::fromStdString(device_properties_text) : "Action");
    for (QTabBar* bar : {TabStrip1, TabStrip2, TabStrip3}) bar->setVisible(bar == tab_strip());
    if (device) device_->load(content_.device);
    else action_->load(content_.action);
    label_->load(content_.label, content_.alignment);
    tab_strip()->setTabEnabled(tab_strip()->count() - 1, content_.label.has_value());
    // The Label tab stays forward from one selection to the next.
    show_tab(content_.tab_strip == 3 || (label_was_forward && content_.label) ? tab_strip()->count() - 1 : 0);
}

void properties::show_tab(int tab)
{
    QTabBar* bar = tab_strip();
    if (!bar) return;
    bar->setCurrentIndex(tab);
    const bool label = tab == bar->count() - 1 && (bar->count() == 1 || tab > 0);
    const bool device = content_.shows == PropertiesContent::Shows::device;
    frames_->setCurrentIndex(label ? frame_label : device ? frame_device : frame_action);
}

void properties::tab_chosen(int tab)
{
    if (tab >= 0) show_tab(tab);
}

}  // namespace tesselo
