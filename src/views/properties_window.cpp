#include "views/properties_window.h"

#include <QHeaderView>
#include <QLabel>
#include <QPainter>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "core/app/application.h"
#include "core/keys/page_canvas.h"
#include "core/model/configuration.h"
#include "core/tree/selection.h"
#include "views/glyph_font.h"

namespace tesselo {

NamePanel::NamePanel(QWidget* parent) : QWidget(parent)
{
    setObjectName("Devicename");
    setMinimumHeight(30);
}

void NamePanel::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor(0x26, 0x2A, 0x31), 2));
    p.setBrush(QColor(0xB4, 0xCF, 0x9A));
    p.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 3, 3);
    draw_glyphs(p, QRectF(rect()).adjusted(4, 2, -4, -2), label_, label_.glyph_count(), label_.alignment(),
                QColor(0x1F, 0x2A, 0x1A), 2.0);
}

properties::properties(Application& app, QWidget* parent) : QWidget(parent, Qt::Tool), app_(app)
{
    setObjectName("properties");
    setWindowTitle("Properties");
    heading_ = new QLabel(this);
    heading_->setObjectName("heading");
    QFont bold = heading_->font();
    bold.setBold(true);
    heading_->setFont(bold);
    name_ = new NamePanel(this);
    softkeys_ = new QTreeWidget(this);
    softkeys_->setObjectName("softkeylist");
    softkeys_->setHeaderLabels({"Row", "Side", "Label", "Steps"});
    softkeys_->setRootIsDecorated(false);
    softkeys_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(heading_);
    layout->addWidget(name_);
    layout->addWidget(softkeys_, 1);
    resize(300, 340);
}

void properties::refresh()
{
    const TreeSelection& s = app_.selection();
    const bool known = s.slot >= 0 && s.slot < document_slots && app_.slot_in_use[static_cast<std::size_t>(s.slot)];
    name_->hide();
    softkeys_->hide();
    softkeys_->clear();
    heading_->setText(QString::fromStdString(s.panel_text));
    if (!known || s.panel == TreeSelection::Panel::none) {
        heading_->setText("No selection");
        return;
    }
    const Configuration& config = app_.config(s.slot);
    if (s.panel == TreeSelection::Panel::home || s.panel == TreeSelection::Panel::device) {
        if (s.panel_device_row < 0 || s.panel_device_row >= device_rows) return;
        name_->set_label(config.device_name_table[static_cast<std::size_t>(s.panel_device_row)].name);
        name_->show();
        return;
    }
    // A page: its soft keys, row by row.
    const auto page = find_page(config, s.node_key);
    if (!page) return;
    heading_->setText(QString::fromStdString(s.panel_text) + "  (" + QString::fromStdString(s.node_key) + ")");
    for (int index = 3; index <= 14; ++index) {
        const int slot = softkey_slot_at(config, *page, side_button_position(index));
        if (slot < 0) continue;
        auto* row = new QTreeWidgetItem(softkeys_);
        row->setText(0, QString::number(side_button_row(index)));
        row->setText(1, index % 2 == 0 ? "Left" : "Right");
        row->setText(2, QString::fromStdString(key_label_text(config, *page, index)));
        row->setText(3, QString::number(key_step_count(config, *page, index)));
    }
    softkeys_->show();
}

}  // namespace tesselo
