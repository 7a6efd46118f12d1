#pragma once

class QWidget;

namespace tesselo {

// Where a window of the frame's own opens the first time.
enum class Placement {
    centred_on_frame,  // over the middle of the frame: the Download and Upload window
    beside_frame,      // right of the frame where the screen has room, else over its right edge: properties
};

// Shows `window` where the user last put it in this session, else placed
// against `frame` as `where` says; either way wholly inside the working
// area of the frame's screen, the window manager's decorations included.
// Without a frame the window stands in the middle of its screen.
void show_placed(QWidget* window, const QWidget* frame, Placement where);

}  // namespace tesselo
