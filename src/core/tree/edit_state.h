#pragma once

#include <string>

namespace tesselo {

// The enable states that the journal and the clipboards drive: the toolbar's
// Undo (button 6), Redo (button 7) and Paste (button 10), the Undo and Redo
// menu entries, and the device and page clipboard's kind and paste state.
struct EditState {
    bool undo_button = false;
    bool redo_button = false;
    bool paste_button = false;
    bool undo_menu = true;
    bool redo_menu = true;
    int clipboard_kind = 0;  // 0 empty, 1 a page, 2 a device
    int paste_state = 0;
    std::string clipboard_source;  // "treeview" when the tree filled it
};

}  // namespace tesselo
