#pragma once

#include <functional>
#include <string>
#include <vector>

#include <QString>

#include "core/tree/popup_menu.h"

class QMenu;
class QWidget;

namespace tesselo {

// A popup menu of items as clsPopup builds them: a divider, a greyed item
// disabled, a checked item checked. A chosen item runs `run` with its key.
QMenu* popup_menu_of(const std::vector<PopupItem>& items, const QString& name, QWidget* parent,
                     std::function<void(const std::string&)> run);

}  // namespace tesselo
