#pragma once

#include <QIcon>
#include <QRectF>
#include <QString>

class QPainter;
class QToolButton;
class QWidget;

namespace tesselo {

// The editor's own pictures, drawn rather than loaded, so that they stay
// sharp at every screen density.

// A toolbar picture by its key ("new", "open", ..., "clocksync", "help").
QIcon toolbar_picture(const QString& key);
// A tree node's picture by its image name: "home", "properties", "tv",
// "hide tv", "device", "hide device", and the Link dialog's "button",
// "hardbutton", "disablebutton", "disablehardbutton".
QIcon tree_picture(const QString& image);
// A button's picture in the properties window: "align left", "align center",
// "align right", "move up", "move down".
QIcon command_picture(const QString& key);
// A tool button named `name` with that picture and tool tip.
QToolButton* picture_button(const QString& name, const QString& picture, const QString& tip, QWidget* parent);
// The program's icon: the remote with its display.
QIcon program_icon();

// The four states of a key picture.
enum class KeyState { normal, pressed, hover, selected };

// Draws key picture `index` (0 to 55) in `box`.
void draw_key_picture(QPainter& painter, const QRectF& box, int index, KeyState state);
// Draws the remote's body in `box`.
void draw_remote_body(QPainter& painter, const QRectF& box);

}  // namespace tesselo
