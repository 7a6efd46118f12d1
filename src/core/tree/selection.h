#pragma once

#include <string>

namespace tesselo {

// What the last tree gesture chose, and what the property panel shows.
// Application-wide: the moving, hiding and clipboard operations read it.
struct TreeSelection {
    enum class Kind { none, node, key };
    enum class Panel { none, home, device, page };

    std::string node_key;   // the selected node's key
    std::string image;      // its image name
    int slot = -1;          // the document slot of the selection
    std::string drag_source;

    // The kept selection kind: whether the last click was on a tree node or a key.
    Kind selected_kind = Kind::none;
    // Which key of a page canvas is selected: app.key_selection.
    int drag_mode = 0;

    // The property panel: what it shows, and for a device its row and name.
    Panel panel = Panel::none;
    int panel_device_row = -1;
    std::string panel_text;

    void clear() { *this = TreeSelection{}; }
};

}  // namespace tesselo
