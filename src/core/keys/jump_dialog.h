#pragma once

#include <string>

#include "core/keys/delay_beep_dialogs.h"
#include "core/keys/dialog_tree.h"

namespace tesselo {

class Application;
struct KeyTarget;

inline const std::string jump_invalid_page = "Select a valid page     ";
inline const std::string create_jump_title = "Create Jump";

// The Jump dialog (step type 6): a tree of the document's devices and pages.
// The current page is marked " (Currently selected) " and, like a hidden
// page, carries the image "hide tv": neither can be chosen.
class Createjump {
public:
    // The devices and pages of the tree of document `slot`.
    Createjump(Application& app, int slot, const std::string& current_page_key);
    DialogTree tree;

    // Combo1: a device chosen opens at its first page, "PAGE1" among its
    // children. The key of that page's node, or empty.
    std::string choose_device(const std::string& device_key) const;

    // OK on the node with key `node_key`.
    DialogOk ok(Application& app, const KeyTarget& target, const std::string& node_key) const;
    static void cancel(Application& app);
};

}  // namespace tesselo
