#include "core/keys/jump_dialog.h"

#include "core/app/application.h"
#include "core/document/ui.h"
#include "core/keys/step_commands.h"
#include "core/keys/step_text.h"
#include "core/tree/node_keys.h"
#include "core/tree/tree_view.h"

namespace tesselo {

Createjump::Createjump(Application& app, int slot, const std::string& current_page_key)
{
    for (DialogNode node : devices_and_pages(app.tree(slot))) {
        if (node.key == current_page_key) {
            node.key += currently_selected;
            node.text += currently_selected;
            node.image = image_hidden_page;
        }
        tree.push_back(node);
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
    if (!node || node->image != image_page) {
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
        const int base = pages_before(config, d);
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
    const std::string log = "Add JUMP TO " + device_tree_text(config, device, &app.tree(target.slot)) + " PAGE" + page_number_text(config, device, place);
    return finish_step_dialog(app, target, fields, create_jump_title, log) ? DialogOk::done : DialogOk::limit;
}

void Createjump::cancel(Application& app) { app.step_edit.clear(); }

}  // namespace tesselo
