#include "views/remote.h"

#include <QCloseEvent>

#include "core/app/application.h"
#include "core/tree/selection.h"

namespace tesselo {

Remote::Remote(Application& app, int slot, const PageRef& page, QWidget* parent)
    : RemotePicture(parent), app_(app), slot_(slot), page_(page)
{
    setObjectName("Remote");
    tag_ = QString::fromStdString(BuildTagText(slot, page.page_entry));
    setProperty("Tag", tag_);
    setWindowTitle(QString::fromStdString(page_node_key(app.config(slot), page)));
    // The hard keys carry the names of the page's device, as the tables hold them now.
    set_hard_labels([this](int key) -> const KeyLabel* {
        return &app_.config(slot_).hardkey_labels[static_cast<std::size_t>(page_.device * hardkeys_per_device + key)];
    });
    connect(this, &RemotePicture::picture_hovered, this, [this](int index) { Q_EMIT key_hovered(this, index); });
    connect(this, &RemotePicture::picture_pressed, this, &Remote::select_key);
    connect(this, &RemotePicture::picture_double_clicked, this,
            [this](int index) { Q_EMIT key_double_clicked(this, index); });
    update_rows();
}

void Remote::update_rows() { set_rows(lcd_page_rows(app_.config(slot_), page_)); }

bool Remote::refresh(const QString& counter)
{
    set_counter(counter);
    const auto found = find_page(app_.config(slot_), windowTitle().toStdString());
    if (!found) return false;
    page_ = *found;
    update_rows();
    update();
    return true;
}

void Remote::refresh_key(int index)
{
    if (is_side_button(index)) {
        const int row = side_button_row(index);
        set_row(row, lcd_page_rows(app_.config(slot_), page_)[static_cast<std::size_t>(row)]);
    } else {
        update_picture(index);
    }
}

QString Remote::pagelabel_text() const { return counter(); }

QString Remote::key_text(int index) const
{
    return QString::fromStdString(key_label_text(app_.config(slot_), page_, index));
}

QString Remote::device_text() const { return QString::fromStdString(device_name_text(app_.config(slot_), page_.device)); }

int Remote::key_steps(int index) const { return key_step_count(app_.config(slot_), page_, index); }

int Remote::selected_index() const
{
    const TreeSelection& s = app_.selection();
    if (s.selected_kind != TreeSelection::Kind::key || s.slot != slot_ || s.node_key != caption().toStdString())
        return -1;
    return app_.key_selection.selected_index;
}

void Remote::select_key(int index)
{
    // The frame makes it the application's selection and redraws every page window.
    Q_EMIT key_selected(this, index);
}

void Remote::closeEvent(QCloseEvent* event)
{
    Q_EMIT closed(this);
    event->accept();
}

}  // namespace tesselo
