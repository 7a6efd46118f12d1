#include <array>

#include "core/app/application.h"
#include "core/document/ui.h"
#include "core/model/configuration.h"
#include "core/tree/adding.h"
#include "core/tree/journal.h"
#include "core/tree/node_keys.h"
#include "core/tree/page_windows.h"
#include "core/tree/link_repair.h"
#include "core/tree/tree_model.h"
#include "core/tree/tree_view.h"

namespace tesselo {

bool repoint_homejump(Application& app, int slot, int index, const std::string& device, int page_place)
{
    Configuration& config = app.config(slot);
    for (auto& page : config.home_pages)
        for (int s = 1; s < softkeys_per_page; ++s) {
            if (page.node_key[static_cast<std::size_t>(s)] != device) continue;
            const int list = page.slots[static_cast<std::size_t>(s)].action_list;
            if (list < 0 || list >= action_list_rows || config.action_steps.step_total > action_steps_accepted) {
                app.ui().message(title_main, "Exceed Marco steps", Icon::exclamation);
                return false;
            }
            // The key's jump into its device; the user's other steps stay as they are.
            if (ActionStep* jump = home_jump(config, list, index))
                jump->param_high = static_cast<std::uint8_t>(page_place < 0 ? 0 : page_place);
            return true;
        }
    return true;
}

int addpage(Application& app, int mode, int device_node)
{
    Document* doc = app.active();
    if (!doc) return 0;
    const int slot = doc->slot;
    const std::string caption = doc->title;
    Configuration& config = app.config(slot);
    TreeModel& tree = app.tree(slot);

    std::array<std::uint8_t, device_rows> page_numbers{};
    const int home = 1;
    if (tree.child_count(home) > 127 || count_allpages(tree) > 127) {
        app.ui().message(title_alt, exceed_devices_pages, Icon::exclamation);
        return 0;
    }
    app.write_log("add page(start) " + caption);
    if (mode != add_page_paste) begin_edit(app);

    int node = 0;
    if (mode == add_page_paste && device_node != 0) {
        node = device_node;
    } else if (mode == add_page_paste) {
        const int row = device_count(config);
        if (row >= 1 && row < device_rows) node = tree.find(config.device_name_table[static_cast<std::size_t>(row)].node_key);
    } else {
        node = tree.selected();
    }
    if (node == 0) return 0;
    // HOME has no pages of its own to add here.
    if (tree.node(node).image == image_home || tree.node(node).key.rfind("HOME", 0) == 0) return 0;
    if (!is_device_image(tree.node(node).image)) node = tree.node(node).parent;
    if (node == 0 || !is_device_image(tree.node(node).image)) return 0;
    const std::string device = tree.node(node).key;
    const std::string device_text = tree.node(node).text;

    const int row = device_row_of_key(config, device);
    if (row < 1) return 0;
    const int first = pages_before(config, row);
    const int pages = config.device_table[static_cast<std::size_t>(row)].page_count;
    for (int i = 0; i < pages && first + i < page_rows; ++i) {
        const int n = page_number_of_key(config.page_table[static_cast<std::size_t>(first + i)].node_key);
        if (n >= 1 && n < device_rows) page_numbers[static_cast<std::size_t>(n)] = 1;
    }
    // A page number freed by a deletion is used again.
    int N = 1;
    while (N < 127 && page_numbers[static_cast<std::size_t>(N)]) ++N;

    set_page_totals(app, slot, device + "\\", pages + 1);

    const int page_node = tree.add(node, device_page_key(device, N), "PAGE" + std::to_string(N), image_page);
    tree.node(node).expanded = true;

    // The HOME key must never jump to a hidden page: the new page is the
    // device's last, at place `pages`.
    if (config.device_table[static_cast<std::size_t>(row)].visible_pages == 0)
        repoint_homejump(app, slot, row, device, pages);

    const int place = first + pages;
    for (int i = all_pages - 1; i >= place; --i)
        config.page_table[static_cast<std::size_t>(i + 1)] = config.page_table[static_cast<std::size_t>(i)];
    auto& entry = config.page_table[static_cast<std::size_t>(place)];
    entry.node_index = static_cast<std::int16_t>(page_node);
    entry.node_key = tree.node(page_node).key;
    entry.key_count = 1;
    entry.hidden = 0;
    ++config.device_table[static_cast<std::size_t>(row)].page_count;
    ++config.device_table[static_cast<std::size_t>(row)].visible_pages;

    const int free_row = find_freepageslot(config);
    if (free_row < device_page_rows) {
        auto& page = config.device_pages[static_cast<std::size_t>(free_row)];
        page.slots[0].key_state = 0;
        page.slots[0].position = 0;
        page.slots[0].label_index = no_index;
        page.slots[0].action_list = no_index;
        page.slots[0].key_flags = 0;
        page.node_index = entry.node_index;
        page.node_key = entry.node_key;
    }
    app.notify([slot](ApplicationListener& l) { l.tree_changed(slot); });
    app.write_log("Add page - " + device_text + "/PAGE" + std::to_string(N) + " - " + caption);
    return page_node;
}

void muInsertdevice(Application& app) { AddDevice(app, add_ordinary); }

void muInsertPage(Application& app) { addpage(app, add_ordinary); }

}  // namespace tesselo
