#include "core/keys/dialog_tree.h"

#include "core/tree/node_keys.h"
#include "core/tree/tree_model.h"

namespace tesselo {

DialogTree devices_and_pages(const TreeModel& model)
{
    DialogTree nodes;
    for (int index : model.tree_order()) {
        const TreeNode& n = model.node(index);
        if (n.image == image_home || is_device_image(n.image))
            nodes.push_back({n.key, n.text, n.image, ""});
        else if (is_page_image(n.image) && model.valid(n.parent))
            nodes.push_back({n.key, n.text, n.image, model.node(n.parent).key});
    }
    return nodes;
}

const DialogNode* find_dialog_node(const DialogTree& tree, const std::string& key)
{
    for (const auto& node : tree)
        if (node.key == key) return &node;
    return nullptr;
}

std::vector<int> devices_in_use(const Configuration& config)
{
    std::vector<int> rows{0};
    for (int d = 1; d < device_rows; ++d)
        if (!config.device_name_table[static_cast<std::size_t>(d)].node_key.empty()) rows.push_back(d);
    return rows;
}

}  // namespace tesselo
