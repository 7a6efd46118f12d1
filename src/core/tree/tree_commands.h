#pragma once

#include <functional>

namespace tesselo {

class Application;

// The tree's operations that come with moving, hiding, the device and page
// clipboard and the label editor. Each is installed by the code that carries
// it out; while one is missing its popup item stays greyed and its shortcut
// does nothing.
struct TreeCommands {
    using Command = std::function<void(Application&)>;
    Command move_up;         // Move_treeviewup
    Command move_down;       // Move_treeviewdown
    Command hide_device;     // hide_device
    Command hide_page;       // hide_page
    Command cut;             // cut_devicepage(1)
    Command remove;          // cut_devicepage(0)
    Command copy;            // copy_devicepage
    Command paste;           // paste_devicepage
    Command label;           // the main frame's labelproperties
    // The key paths of Cut, Copy, Paste and Delete, taken while the last
    // click was on a key of a page.
    Command key_cut;
    Command key_copy;
    Command key_paste;
    Command key_delete;
};

}  // namespace tesselo
