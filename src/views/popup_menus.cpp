#include "views/popup_menus.h"

#include <QMenu>

namespace tesselo {

QMenu* popup_menu_of(const std::vector<PopupItem>& items, const QString& name, QWidget* parent,
                     std::function<void(const std::string&)> run)
{
    if (items.empty()) return nullptr;
    auto* menu = new QMenu(parent);
    menu->setObjectName(name);
    for (const PopupItem& item : items) {
        if (item.type == popup_divider) {
            menu->addSeparator();
            continue;
        }
        QAction* action = menu->addAction(QString::fromStdString(item.caption));
        action->setObjectName(QString::fromStdString(item.key));
        action->setEnabled(item.state != popup_greyed);
        action->setCheckable(item.state == popup_checked);
        action->setChecked(item.state == popup_checked);
        const std::string key = item.key;
        QObject::connect(action, &QAction::triggered, menu, [run, key] { run(key); });
    }
    return menu;
}

}  // namespace tesselo
