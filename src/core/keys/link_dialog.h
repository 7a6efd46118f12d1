#pragma once

#include <string>
#include <vector>

#include "core/keys/delay_beep_dialogs.h"
#include "core/keys/dialog_tree.h"

namespace tesselo {

class Application;
class KeySelection;
struct KeyTarget;

inline const std::string link_invalid_button = "Please select a valid button or hard button or device";
inline const std::string link_select_key = "Please select key";
inline const std::string create_link_title = "Create Link";
inline const std::string hard_button_text = "HARD BUTTON";

// The hard key list's order and key index, the way check_hardkeyindex and
// check_actcualhardindex convert on the canvas: the list runs over the hard
// keys in the order of their pictures.
int check_keyindex(int list_position);
int check_actualindex(int key);

// fill_hardkey_list: the 41 names of a device's hard keys in list order.
// The six transport keys have fixed names; the others show their labels.
std::vector<std::string> fill_hardkey_list(const Configuration& config, int device);

// The Link dialog (step type 8): under each device a "HARD BUTTON" node with
// its hard keys, and a node for each page with its soft keys. The selected
// key's own node is marked " (Currently selected) " and disabled.
class CreateLink {
public:
    // The devices and pages of the tree of document `slot`, with their keys.
    CreateLink(Application& app, int slot, const std::string& current_page_key, const KeySelection& selection);
    DialogTree tree;

    // The node of a device's hard key, of a page's soft key by position byte.
    static std::string hardkey_node_key(const std::string& device_key, int key);
    static std::string softkey_node_key(const std::string& page_key, int position);

    // OK on node `node_key`; on the "HARD BUTTON" node itself the hard key is
    // the one chosen in the list (`list_choice`, -1 for none).
    DialogOk ok(Application& app, const KeyTarget& target, const std::string& node_key, int list_choice = -1) const;
    static void cancel(Application& app);

private:
    void add_page(const Configuration& config, const DialogNode& page_node, const std::string& current_page_key,
                  const KeySelection& selection);
};

}  // namespace tesselo
