#include "core/keys/jump_dialog.h"

#include "core/document/application.h"
#include "core/document/ui.h"
#include "core/keys/step_commands.h"
#include "core/keys/step_text.h"
#include "core/tree/link_repair.h"

namespace tesselo {

Createjump::Createjump(const Configuration& config, const std::string& current_page_key)
{
    for (int d : devices_in_use(config)) {
        const auto& name = config.device_name_table[static_cast<std::size_t>(d)];
        const bool hidden = config.device_table[static_cast<std::size_t>(d)].hidden == hidden_flag;
        tree.push_back({name.node_key, device_tree_text(config, d), d == 0 ? "home" : hidden ? "hide device" : "device", ""});
        const int base = first_page_row(config, d);
        const int count = config.device_table[static_cast<std::size_t>(d)].page_count;
        for (int p = base; p < base + count && p < page_rows; ++p) {
            const auto& page = config.page_table[static_cast<std::size_t>(p)];
            DialogNode node{page.node_key, "PAGE" + std::to_string(page_number_of_key(page.node_key)),
                            page.hidden == hidden_flag ? "hide tv" : "tv", name.node_key};
            if (page.hidden == hidden_flag) node.text = "[" + node.text + "]";
            if (page.node_key == current_page_key) {
                node.key += currently_selected;
                node.text += currently_selected;
                node.image = "hide tv";
            }
            tree.push_back(node);
        }
    }
}

std::string Createjump::choose_device(const std::string& device_key) const
{
    for (const auto& node : tree)
        if (node.parent == device_key && node.key == device_key + "\\PAGE1") return node.key;
    return {};
}

DialogOk Createjump::ok(Application& app, const KeyTarget& target, const std::string& node_key) const
{
    const DialogNode* node = find_dialog_node(tree, node_key);
    if (!node || node->image != "tv") {
        app.ui().message(title_alt, jump_invalid_page, Icon::exclamation);
        return DialogOk::refused;
    }
    std::string key = node->key;
    if (const auto mark = key.find(currently_selected); mark != std::string::npos) key.erase(mark);
    const Configuration& config = app.config(target.slot);
    // The device is the one whose pages hold the node; the page's place in
    // the device is what the remote counts, from 0.
    int device = -1, place = -1;
    for (int d : devices_in_use(config)) {
        const int base = first_page_row(config, d);
        const int count = config.device_table[static_cast<std::size_t>(d)].page_count;
        for (int p = base; p < base + count && p < page_rows && device < 0; ++p)
            if (config.page_table[static_cast<std::size_t>(p)].node_key == key) {
                device = d;
                place = p - base;
            }
    }
    if (device < 0) {
        app.ui().message(title_alt, jump_invalid_page, Icon::exclamation);
        return DialogOk::refused;
    }
    StepFields fields;
    fields.step_type = step_jump;
    fields.param_low = static_cast<std::uint8_t>(device);
    fields.param_high = static_cast<std::uint8_t>(place);
    const std::string log = "Add JUMP TO " + device_tree_text(config, device) + " PAGE" + page_number_text(config, device, place);
    return finish_step_dialog(app, target, fields, create_jump_title, log) ? DialogOk::done : DialogOk::limit;
}

void Createjump::cancel(Application& app) { app.step_edit.clear(); }

}  // namespace tesselo
