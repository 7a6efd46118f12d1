#pragma once

#include <string>

#include "core/keys/step_commands.h"

namespace tesselo {

class Application;
struct TreeCommands;

// drag_mode: how a paste treats the label, and what a drag on the canvas does.
inline constexpr int drag_link = 0;
inline constexpr int drag_action = 1;  // the steps alone: the target keeps its label
inline constexpr int drag_move = 2;
inline constexpr int drag_copy = 3;

inline const std::string learning_memory_full = "Learning memory full";

// Whether the clipboard holds a key that Paste can write.
bool key_in_clipboard(Application& app);

// The key paths of the Edit commands, on the key `target` names with the
// application's key selection. Each reports its refusals and returns false
// when nothing changed.
// muCopy_Click: the key by value into record 0 of the key clipboard.
bool copy_key(Application& app, const KeyTarget& target);
// muCut_Click: drag_mode 2, the key copied, then deleted; "cut key ".
bool cut_key(Application& app, const KeyTarget& target);
// muDelete_Click: the key's steps and codes freed, the links to it removed,
// a hard key back to its standard name, a soft key's slot closed up. A move
// by drag (`capture`, in drag_mode 2) fills the clipboard first.
bool delete_key(Application& app, const KeyTarget& target, bool capture = false);
// muPaste_Click: "Exceed Marco steps" and "Learning memory full" before any
// change; then the key's list is replaced by the clipboard's steps, with
// their data made anew, and the label taken in drag_mode 2 and 3.
bool paste_key(Application& app, const KeyTarget& target);

// Puts the key paths into the Edit commands' hooks.
void install_key_edit_commands(TreeCommands& commands);

// Whether the Edit menu's Cut, Copy, Paste or Delete ("muCut", ...) can be
// chosen, as the menu and the toolbar show it: the key's path while the last
// click was on a key, else the tree's, where HOME offers no Cut, Copy or
// Delete and Paste follows the paste state (greyed after Delete and Undo).
bool edit_entry_enabled(Application& app, const std::string& entry);

// The Edit menu's Cut, Copy, Paste and Delete ("muCut", ...): the key path
// while the last click was on a key, else the tree's. False when the entry
// is greyed.
bool run_edit_entry(Application& app, const std::string& entry);

}  // namespace tesselo
