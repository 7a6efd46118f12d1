#include "core/keys/dialog_tree.h"

namespace tesselo {

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

int page_number_of_key(const std::string& key)
{
    const auto at = key.rfind("PAGE");
    if (at == std::string::npos) return -1;
    int number = 0;
    bool any = false;
    for (std::size_t i = at + 4; i < key.size() && key[i] >= '0' && key[i] <= '9' && number < 100000; ++i) {
        number = number * 10 + (key[i] - '0');
        any = true;
    }
    return any ? number : -1;
}

}  // namespace tesselo
