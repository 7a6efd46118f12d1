#pragma once

#include <string>
#include <vector>

#include "core/model/configuration.h"

namespace tesselo {

// One node of a step dialog's tree: the jump and link dialogs show the
// document's devices and pages, with the nodes that cannot be chosen marked
// by their image.
struct DialogNode {
    std::string key;
    std::string text;
    std::string image;
    std::string parent;  // the parent's key, empty at the top
};

// The mark on the node of what is selected now.
inline const std::string currently_selected = " (Currently selected) ";

using DialogTree = std::vector<DialogNode>;

class TreeModel;

// The device nodes (HOME among them) and page nodes of a document's tree, in
// the tree's order, with their keys, texts and images; properties nodes are left out.
DialogTree devices_and_pages(const TreeModel& model);

const DialogNode* find_dialog_node(const DialogTree& tree, const std::string& key);

// The device rows in tree order: HOME (0), then every device row in use.
std::vector<int> devices_in_use(const Configuration& config);

}  // namespace tesselo
