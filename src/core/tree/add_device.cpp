#include <algorithm>

#include "core/app/application.h"
#include "core/document/ui.h"
#include "core/model/configuration.h"
#include "core/model/hardkey_defaults.h"
#include "core/model/softkey_labels.h"
#include "core/tree/adding.h"
#include "core/tree/journal.h"
#include "core/tree/node_keys.h"
#include "core/tree/page_windows.h"
#include "core/tree/tree_model.h"
#include "core/tree/tree_view.h"

namespace tesselo {

namespace {

constexpr int no_row = -1;

int free_list_row(const Configuration& config)
{
    for (int i = 0; i < action_steps_accepted; ++i)
        if (config.action_lists.entries[static_cast<std::size_t>(i)].step_count == 0) return i;
    return no_row;
}

int free_step_row(const Configuration& config)
{
    for (int i = 0; i < action_steps_accepted; ++i)
        if (config.action_steps.steps[static_cast<std::size_t>(i)].step_type >= step_free) return i;
    return no_row;
}

int home_slots(const Configuration& config)
{
    return device_count(config) + config.device_table[0].page_count;
}

void notify_window(Application& app, int slot, const std::string& caption)
{
    app.notify([slot, &caption](ApplicationListener& l) { l.page_window_changed(slot, caption); });
}

}  // namespace

int count_allpages(const TreeModel& tree)
{
    int pages = 1;
    for (int i = 1; i <= tree.count(); ++i)
        if (is_device_image(tree.node(i).image)) pages += tree.child_count(i) - 1;
    return pages;
}

int alloc_devicenumber(Configuration& config)
{
    for (int i = 0; i < max_devices; ++i)
        if (!config.device_numbers_used[static_cast<std::size_t>(i)]) {
            config.device_numbers_used[static_cast<std::size_t>(i)] = 1;
            return i + 1;
        }
    return device_rows;
}

int find_freepageslot(const Configuration& config)
{
    for (int i = 0; i < device_page_rows; ++i)
        if (config.device_pages[static_cast<std::size_t>(i)].node_key.empty()) return i;
    return device_page_rows;
}

void add_homekey(Application& app, int slot, int home_page, int index, bool new_home_page, int position, int mode)
{
    Configuration& config = app.config(slot);
    const TreeModel& tree = app.tree(slot);
    const auto P = static_cast<std::size_t>(home_page - 1);
    const auto d = static_cast<std::size_t>(index);
    config.device_table[0].page_count = static_cast<std::uint8_t>(home_page);
    config.device_table[0].visible_pages = static_cast<std::uint8_t>(home_page);
    if (mode < add_device_paste) {
        config.device_table[d].page_count = 1;
        config.device_table[d].visible_pages = 1;
    }
    HomePage& page = config.home_pages[P];
    int list = 0, step = 0, label = 0;
    std::size_t key_slot = 1;
    if (home_slots(config) == 1 && !new_home_page) {
        // The first device: in a new document list row 0, step row 0 and
        // label row 0 serve its key. After every device was deleted the HOME
        // hard keys may hold them, so the lowest free rows are taken.
        list = free_list_row(config);
        step = free_step_row(config);
        label = search_softkeyno(config);
        page.slots[0].label_index = no_index;
        page.slots[1].label_index = label;
        page.slots[1].position = 1;
        page.slots[1].action_list = list;
        config.device_pages[0].slots[0].label_index = no_index;
        config.page_table[0].key_count = 2;
        config.page_table[0].node_index = static_cast<std::int16_t>(tree.count());
        config.page_table[0].node_key = tree.node(tree.count()).key;
    } else {
        if (new_home_page) {
            for (int i = all_pages - 1; i >= static_cast<int>(P); --i)
                config.page_table[static_cast<std::size_t>(i + 1)] = config.page_table[static_cast<std::size_t>(i)];
            auto& entry = config.page_table[P];
            entry.key_count = 1;
            entry.hidden = 0;
            entry.node_index = static_cast<std::int16_t>(tree.count());
            entry.node_key = tree.node(tree.count()).key;
            page.slots[0].label_index = no_index;
            page.slots[0].action_list = no_index;
            page.node_index[0] = 1;
            page.node_key[0] = config.home_pages[0].node_key[0];
        }
        auto& entry = config.page_table[P];
        key_slot = entry.key_count;
        entry.key_count = static_cast<std::uint8_t>(entry.key_count + 1);
        list = free_list_row(config);
        step = free_step_row(config);
        label = search_softkeyno(config);
        SoftKey& key = page.slots[key_slot];
        key.action_list = list;
        key.position = static_cast<std::uint8_t>(position);
        key.label_index = label;
    }
    auto& list_row = config.action_lists.entries[static_cast<std::size_t>(list)];
    list_row.first_step = static_cast<std::int16_t>(step);
    list_row.step_count = 1;
    ++config.action_lists.list_count;
    ++config.action_steps.step_total;
    // Every HOME key has exactly one step: a jump to its device's first page.
    ActionStep& jump = config.action_steps.steps[static_cast<std::size_t>(step)];
    jump.step_type = step_jump;
    jump.param_low = static_cast<std::uint8_t>(index);
    jump.param_high = 0;
    jump.next_step = end_of_list;
    // A pasted device has no page yet: its pages come with their own counts.
    if (mode < add_device_paste) config.page_table[static_cast<std::size_t>(pages_before(config, index))].key_count = 1;
}

void AddDevice(Application& app, int mode, const KeyLabel* pasted_name)
{
    Document* doc = app.active();
    if (!doc) return;
    const int slot = doc->slot;
    const std::string caption = doc->title;
    Configuration& config = app.config(slot);
    TreeModel& tree = app.tree(slot);
    Ui& ui = app.ui();

    if (config.action_steps.step_total >= action_steps_accepted || free_list_row(config) == no_row ||
        free_step_row(config) == no_row) {
        ui.message(title_main, "Exceed Marco steps", Icon::exclamation);
        return;
    }
    // A full label pool has no room for the HOME key's name either.
    if (count_allpages(tree) > 127 || search_softkeyno(config) >= softkey_label_rows) {
        ui.message(title_alt, exceed_devices_pages, Icon::exclamation);
        return;
    }
    if (mode != add_device_paste) begin_edit(app);
    app.write_log("add device(start) " + std::to_string(slot));

    const int H = config.device_table[0].page_count;
    int S = 0;
    for (int i = 0; i < H; ++i) S += config.page_table[static_cast<std::size_t>(i)].key_count;
    int index = S - (H - 1);
    if (S == 1) index = 2;
    const int home = 1;
    if (tree.child_count(home) == tree.count() - 1) index = 1;

    const int P = std::min((index - 1) / 5 + 1, home_page_rows);
    const int number = alloc_devicenumber(config);
    int position = 1;
    if (P > tree.child_count(home) - 1) {
        tree.add(home, home_page_key(slot, P), "PAGE" + std::to_string(P), image_page);
        reset_entity_hardkeys(config, index);
        add_homekey(app, slot, P, index, true, 1, mode);
        set_page_totals(app, slot, "HOME", P);
    } else {
        const HomePage& page = config.home_pages[static_cast<std::size_t>(P - 1)];
        bool taken[6] = {};
        const int count = config.page_table[static_cast<std::size_t>(P - 1)].key_count;
        for (int s = 1; s < count && s < softkeys_per_page; ++s) {
            const int at = page.slots[static_cast<std::size_t>(s)].position;
            if (at >= 1 && at <= 5) taken[at] = true;
        }
        position = 0;
        for (int at = 1; at <= 5 && position == 0; ++at)
            if (!taken[at]) position = at;
        if (position == 0) position = count;
        add_homekey(app, slot, P, index, false, position, mode);
    }

    const auto d = static_cast<std::size_t>(index);
    const std::string key = device_key(number, slot);
    const KeyLabel name = (mode == add_device_paste && pasted_name) ? *pasted_name : default_device_name(number);
    const std::string text = mode == add_device_paste ? decode_device_name(name) : "DEVICE" + std::to_string(number);
    const int node = tree.add(0, key, text, image_device);
    config.device_name_table[d].node_index = static_cast<std::int16_t>(node);
    config.device_name_table[d].node_key = key;

    // The HOME key's label and the device's name are the same ten bytes.
    HomePage& home_page = config.home_pages[static_cast<std::size_t>(P - 1)];
    const auto last_slot = static_cast<std::size_t>(config.page_table[static_cast<std::size_t>(P - 1)].key_count - 1);
    const int label = home_page.slots[last_slot].label_index;
    if (label >= 0 && label < softkey_label_rows) config.softkey_labels[static_cast<std::size_t>(label)] = name;
    config.device_name_table[d].name = name;
    home_page.node_index[last_slot] = static_cast<std::int16_t>(node);
    home_page.node_key[last_slot] = key;
    // displaydevicename: the name on the HOME key in any open view.
    const std::string home_caption = home_page_key(slot, P);
    if (app.page_windows().find(slot, home_caption) >= 0) notify_window(app, slot, home_caption);

    reset_entity_hardkeys(config, index);
    tree.node(node).image = image_device;
    tree.node(home).expanded = true;
    tree.node(node).expanded = true;
    tree.add(node, properties_key(key), text + " PROPERTIES", image_properties);

    if (mode != add_device_paste) {
        const int page_node = tree.add(node, device_page_key(key, 1), "PAGE1", image_page);
        tree.node(page_node).tag = std::to_string(slot);
        const int Q = pages_before(config, index);
        auto& entry = config.page_table[static_cast<std::size_t>(Q)];
        entry.node_index = static_cast<std::int16_t>(page_node);
        entry.node_key = tree.node(page_node).key;
        entry.hidden = 0;
        const int row = find_freepageslot(config);
        if (row < device_page_rows) {
            auto& page = config.device_pages[static_cast<std::size_t>(row)];
            page.node_index = entry.node_index;
            page.node_key = entry.node_key;
            page.slots[0].label_index = no_index;
        }
    }
    config.device_extra[d].option_b = static_cast<std::uint8_t>(config.device_extra[d - 1].option_b & 15);

    app.notify([slot](ApplicationListener& l) { l.tree_changed(slot); });
    app.write_log("Add device DEVICE" + std::to_string(number) + " - " + caption);
}

}  // namespace tesselo
