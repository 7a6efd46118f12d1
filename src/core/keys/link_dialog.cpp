#include "core/keys/link_dialog.h"

#include <array>

#include "core/app/application.h"
#include "core/document/ui.h"
#include "core/keys/hardkey_pictures.h"
#include "core/keys/key_locator.h"
#include "core/keys/key_selection.h"
#include "core/keys/step_commands.h"
#include "core/keys/step_text.h"
#include "core/tree/node_keys.h"
#include "core/tree/tree_view.h"

namespace tesselo {

namespace {

const std::vector<int>& hardkey_pictures_in_order()
{
    static const std::vector<int> pictures = [] {
        std::vector<int> p;
        for (int i = 0; i < key_pictures; ++i)
            if (check_hardkeyindex(i) >= 0) p.push_back(i);
        return p;
    }();
    return pictures;
}

// The transport keys, whose labels are symbol glyphs that text cannot show.
constexpr std::array<std::pair<int, const char*>, 6> transport_names = {{
    {22, "PAUSE"}, {15, "STOP"}, {27, "SKIP"}, {20, "PLAY"}, {8, "RECORD"}, {13, "BACK SKIP"},
}};

const std::array<SoftKey, softkeys_per_page>* slots_of_page(const Configuration& config, int device, int row)
{
    if (device == 0) return row < home_page_rows ? &config.home_pages[static_cast<std::size_t>(row)].slots : nullptr;
    const std::string& key = config.page_table[static_cast<std::size_t>(row)].node_key;
    for (const auto& page : config.device_pages)
        if (page.node_key == key) return &page.slots;
    return nullptr;
}

struct PageOfNode {
    int device = -1, row = -1, place = -1;
};

PageOfNode find_page(const Configuration& config, const std::string& page_key)
{
    for (int d : devices_in_use(config)) {
        const int base = pages_before(config, d);
        const int count = config.device_table[static_cast<std::size_t>(d)].page_count;
        for (int p = base; p < base + count && p < page_rows; ++p)
            if (config.page_table[static_cast<std::size_t>(p)].node_key == page_key) return {d, p, p - base};
    }
    return {};
}

DialogOk refuse(Application& app, const std::string& text)
{
    app.ui().message(title_alt, text, Icon::exclamation);
    return DialogOk::refused;
}

}  // namespace

int check_keyindex(int list_position)
{
    const auto& pictures = hardkey_pictures_in_order();
    if (list_position < 0 || list_position >= static_cast<int>(pictures.size())) return -1;
    return check_hardkeyindex(pictures[static_cast<std::size_t>(list_position)]);
}

int check_actualindex(int key)
{
    const auto& pictures = hardkey_pictures_in_order();
    for (std::size_t i = 0; i < pictures.size(); ++i)
        if (check_hardkeyindex(pictures[i]) == key) return static_cast<int>(i);
    return -1;
}

std::vector<std::string> fill_hardkey_list(const Configuration& config, int device)
{
    std::vector<std::string> names;
    for (int i = 0; i < hardkeys_per_device; ++i) {
        const int key = check_keyindex(i);
        std::string name;
        for (const auto& [k, fixed] : transport_names)
            if (k == key) name = fixed;
        if (name.empty())
            name = decode_device_name(config.hardkey_labels[static_cast<std::size_t>(device * hardkeys_per_device + key)]);
        names.push_back(name);
    }
    return names;
}

std::string CreateLink::hardkey_node_key(const std::string& device_key, int key)
{
    return device_key + "HARD" + std::to_string(key);
}

std::string CreateLink::softkey_node_key(const std::string& page_key, int position)
{
    return page_key + "KEY" + std::to_string(position);
}

CreateLink::CreateLink(Application& app, int slot, const std::string& current_page_key, const KeySelection& selection)
{
    const Configuration& config = app.config(slot);
    const std::string current_device = parent_node_key(current_page_key);
    for (const DialogNode& from_tree : devices_and_pages(app.tree(slot))) {
        if (!from_tree.parent.empty()) {
            add_page(config, from_tree, current_page_key, selection);
            continue;
        }
        tree.push_back(from_tree);
        const std::string& device_key = from_tree.key;
        const int d = device_row_of_key(config, device_key);
        if (d < 0) continue;
        const std::string hard_node = device_key + hard_button_text;
        tree.push_back({hard_node, hard_button_text, "hardbutton", device_key});
        const auto names = fill_hardkey_list(config, d);
        for (int i = 0; i < hardkeys_per_device; ++i) {
            const int key = check_keyindex(i);
            DialogNode node{hardkey_node_key(device_key, key), names[static_cast<std::size_t>(i)], "hardbutton", hard_node};
            if (selection.is_hard() && device_key == current_device && check_hardkeyindex(selection.selected_index) == key) {
                node.text += currently_selected;
                node.image = "disablehardbutton";
            }
            tree.push_back(node);
        }
    }
}

void CreateLink::add_page(const Configuration& config, const DialogNode& page_node, const std::string& current_page_key,
                          const KeySelection& selection)
{
    tree.push_back(page_node);
    const PageOfNode page = find_page(config, page_node.key);
    const auto* slots = page.device >= 0 ? slots_of_page(config, page.device, page.row) : nullptr;
    if (!slots) return;
    const int used = config.page_table[static_cast<std::size_t>(page.row)].key_count;
    for (int s = 0; s < used && s < softkeys_per_page; ++s) {
        const SoftKey& key = (*slots)[static_cast<std::size_t>(s)];
        if (key.position == 0) continue;  // the title row is the page's own node
        const std::string text = key.label_index >= 0 && key.label_index < softkey_label_rows
                                     ? decode_device_name(config.softkey_labels[static_cast<std::size_t>(key.label_index)])
                                     : "";
        DialogNode node{softkey_node_key(page_node.key, key.position), text, "button", page_node.key};
        if (selection.is_soft() && page_node.key == current_page_key && key.position == selection.position()) {
            node.text += currently_selected;
            node.image = "disablebutton";
        }
        tree.push_back(node);
    }
}

DialogOk CreateLink::ok(Application& app, const KeyTarget& target, const std::string& node_key, int list_choice) const
{
    const DialogNode* node = find_dialog_node(tree, node_key);
    if (!node || node->image == "disablebutton" || node->image == "disablehardbutton")
        return refuse(app, link_invalid_button);
    if (node->parent.empty()) return refuse(app, link_select_key);
    const Configuration& config = app.config(target.slot);
    const DialogNode* parent = find_dialog_node(tree, node->parent);

    StepFields fields;
    fields.step_type = step_link;
    if (node->text == hard_button_text || (parent && parent->text == hard_button_text)) {
        const std::string& device_key = node->text == hard_button_text ? node->parent : parent->parent;
        int key = -1;
        if (node->text == hard_button_text) {
            key = check_keyindex(list_choice);
            if (key >= 0 && !find_dialog_node(tree, hardkey_node_key(device_key, key))) key = -1;
            if (key >= 0 && find_dialog_node(tree, hardkey_node_key(device_key, key))->image == "disablehardbutton") key = -1;
        } else {
            key = std::stoi(node->key.substr(device_key.size() + 4));
        }
        if (key < 0) return refuse(app, link_invalid_button);
        fields.param_low = static_cast<std::uint8_t>(device_row_of_key(config, device_key));
        fields.param_high = free_byte;
        fields.value = static_cast<std::uint16_t>(key + 1);
        fields.extra = static_cast<std::uint8_t>(key + 1);
    } else {
        // A page node links to the page's title row, the device's own key.
        const bool page_node = parent && parent->parent.empty();
        const std::string& page_key = page_node ? node->key : node->parent;
        const PageOfNode page = find_page(config, page_key);
        const auto* slots = page.device >= 0 ? slots_of_page(config, page.device, page.row) : nullptr;
        if (!slots) return refuse(app, link_invalid_button);
        const int position = page_node ? 0 : std::stoi(node->key.substr(page_key.size() + 3));
        const SoftKey* key = nullptr;
        const int used = config.page_table[static_cast<std::size_t>(page.row)].key_count;
        for (int s = 0; s < used && s < softkeys_per_page && !key; ++s)
            if ((*slots)[static_cast<std::size_t>(s)].position == position) key = &(*slots)[static_cast<std::size_t>(s)];
        if (!key) return refuse(app, link_invalid_button);
        fields.param_low = static_cast<std::uint8_t>(page.device);
        fields.param_high = static_cast<std::uint8_t>(page.place);
        fields.value = static_cast<std::uint16_t>(key->label_index);
        fields.extra = static_cast<std::uint8_t>(position);
    }
    ActionStep shown;
    shown.step_type = step_link;
    shown.param_low = fields.param_low;
    shown.param_high = fields.param_high;
    shown.value = fields.value;
    shown.extra = fields.extra;
    const auto parts = plain_step_parts(config, shown, &app.tree(target.slot));
    const std::string log = "Add LINK TO " + parts[1] + parts[2];
    return finish_step_dialog(app, target, fields, create_link_title, log) ? DialogOk::done : DialogOk::limit;
}

void CreateLink::cancel(Application& app) { app.step_edit.clear(); }

}  // namespace tesselo
