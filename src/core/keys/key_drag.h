#pragma once

#include <string>

#include "core/keys/step_commands.h"

namespace tesselo {

class Application;

inline const std::string no_key_linkable = "No Key can be linked";

// The shift states of a drag's start that choose its mode, by exact value:
// Shift+Alt links, Alt copies the action, Ctrl copies; anything else moves.
inline constexpr int shift_ctrl = 2;
inline constexpr int shift_alt = 4;
inline constexpr int shift_shift_alt = 5;
int drag_mode_of_shift(int shift);

// Pictures that never take part in a drag: 15 to 17 on every page, and on a
// HOME page also the hard keys and the three pictures above the display.
bool drag_locked(bool home_page, int picture);
// Whether a drag in `mode` starts from `picture`: not locked, and a move
// never from the title row's buttons 3 and 4.
bool drag_starts(bool home_page, int picture, int mode);

// One end of a drag: a key picture on the page window of a page.
struct KeyEnd {
    KeyTarget page;
    int picture = -1;
};

// A drop of the key at `source` onto the key at `target`, in `mode`
// (drag_mode). A drop on the key itself, on a locked picture, or a move
// from or onto the title row does nothing. The target's page may be of
// another document. True when the tables changed.
bool drop_key(Application& app, const KeyEnd& source, const KeyEnd& target, int mode);

}  // namespace tesselo
