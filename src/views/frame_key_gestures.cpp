// The frame's side of the gestures on a key of a page window: its popup
// (cPopup2), the hidden key menu mukeyedit, and a dragged key's drop.
#include <QMenu>

#include "core/keys/key_drag.h"
#include "core/keys/key_popup.h"
#include "views/mdi_form1.h"
#include "views/popup_menus.h"
#include "views/properties_window.h"
#include "views/remote.h"

namespace tesselo {

namespace {

// mukeyedit's entries and the frame's commands they run.
const QHash<QString, QString>& key_entry_commands()
{
    static const QHash<QString, QString> commands = {
        {"mukeyCut", "muCut"},       {"mukeyCopy", "muCopy"},          {"mukeyPaste", "muPaste"},
        {"mukeyDelete", "muDelete"}, {"mukeyproperties", "muproperties"}, {"mukeyhelp", "help"},
    };
    return commands;
}

}  // namespace

void MDIForm1::connect_key_entries()
{
    for (auto it = key_entry_commands().begin(); it != key_entry_commands().end(); ++it) {
        QAction* action = entries_.value(it.key());
        if (!action) continue;
        const QString command = it.value();
        connect(action, &QAction::triggered, this, [this, command] { run(command); });
    }
}

void MDIForm1::update_key_entries()
{
    for (auto it = key_entry_commands().begin(); it != key_entry_commands().end(); ++it)
        if (QAction* action = entries_.value(it.key())) action->setEnabled(command_enabled(it.value()));
}

void MDIForm1::key_gesture_done()
{
    if (properties_) properties_->refresh();
    update_commands();
}

QMenu* MDIForm1::build_key_menu()
{
    return popup_menu_of(build_key_popup(app_), "cPopup2", this, [this](const std::string& key) {
        cPopup2_ItemClick(app_, key);
        key_gesture_done();
    });
}

void MDIForm1::key_menu_requested(Remote* window, int index, const QPoint& global)
{
    key_selected(window, index);
    QMenu* menu = build_key_menu();
    if (!menu) return;
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(global);
}

void MDIForm1::key_dropped(Remote* window, int index, const KeyDragData& source)
{
    const KeyEnd from{{source.slot, source.page_key.toStdString()}, source.picture};
    const KeyEnd to{{window->slot(), window->caption().toStdString()}, index};
    if (!drop_key(app_, from, to, source.mode)) return;
    // The selection is the target's now, in whichever document it stands.
    for (Remote* page : page_windows()) page->update();
    show_key_status(window, index);
    key_gesture_done();
}

}  // namespace tesselo
