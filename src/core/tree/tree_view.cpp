#include "core/tree/tree_view.h"

#include <algorithm>
#include <cctype>
#include <set>

#include "core/app/application.h"
#include "core/document/ui.h"
#include "core/model/configuration.h"
#include "core/tree/node_keys.h"
#include "core/tree/page_windows.h"
#include "core/tree/selection.h"
#include "core/tree/tree_model.h"

namespace tesselo {

namespace {

void tree_changed(Application& app, int slot)
{
    app.notify([slot](ApplicationListener& l) { l.tree_changed(slot); });
}

bool begins_with_home(const std::string& caption)
{
    if (caption.size() < 4) return false;
    std::string head = caption.substr(0, 4);
    for (auto& c : head) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return head == "HOME";
}

// The HOME page and slot of device row d: position d mod 5 (0 meaning 5).
void home_place(int d, int& row, int& position)
{
    position = d % 5;
    row = d / 5;
    if (position == 0) {
        position = 5;
        --row;
    }
}

}  // namespace

int device_count(const Configuration& config)
{
    const int h = std::min<int>(config.device_table[0].page_count, home_page_rows);
    int sum = 0;
    for (int i = 0; i < h; ++i) sum += config.page_table[static_cast<std::size_t>(i)].key_count;
    return sum - h;
}

int pages_before(const Configuration& config, int row)
{
    int sum = 0;
    for (int i = 0; i < row && i < device_rows; ++i) sum += config.device_table[static_cast<std::size_t>(i)].page_count;
    return sum;
}

int device_row_of_key(const Configuration& config, const std::string& key)
{
    if (key.empty()) return -1;
    for (int d = 0; d < device_rows; ++d)
        if (config.device_name_table[static_cast<std::size_t>(d)].node_key == key) return d;
    return -1;
}

int page_row_of_key(const Configuration& config, const std::string& key)
{
    if (key.empty()) return -1;
    for (int row = 0; row < page_rows; ++row)
        if (config.page_table[static_cast<std::size_t>(row)].node_key == key) return row;
    return -1;
}

int page_slots_row_of_key(const Configuration& config, const std::string& key)
{
    if (key.empty()) return -1;
    for (int row = 0; row < device_page_rows; ++row)
        if (config.device_pages[static_cast<std::size_t>(row)].node_key == key) return row;
    return -1;
}

bool tree_fits_tables(const Configuration& config)
{
    const int h = config.device_table[0].page_count;
    if (h < 1 || h > home_page_rows) return false;
    const int devices = device_count(config);
    if (devices < 0 || devices > max_devices) return false;
    const int pages = pages_before(config, devices + 1);
    return pages <= all_pages && pages - h <= device_page_rows;
}

void init_document_tree(Application& app, int slot)
{
    TreeModel& tree = app.tree(slot);
    tree.clear();
    const int home = tree.add(0, home_key(slot), "HOME", image_home);
    tree.add(home, properties_key(home_key(slot)), "PROPERTIES", image_properties);
    tree.add(home, home_page_key(slot, 1), "PAGE1", image_page);
    tree.node(home).expanded = true;
    tree_changed(app, slot);
}

void addtotreeview(Application& app, int slot)
{
    TreeModel& tree = app.tree(slot);
    Configuration& config = app.config(slot);
    const int before = tree.selected();
    if (tree.count() < 3) init_document_tree(app, slot);
    while (tree.count() > 3) tree.remove(tree.count());

    const int devices = tree_fits_tables(config) ? device_count(config) : 0;
    if (devices <= 0) {
        tree_changed(app, slot);
        return;
    }
    const int home = 1;
    const int h = config.device_table[0].page_count;
    for (int n = 1; n < h; ++n) {
        const int index = tree.add(home, home_page_key(slot, n + 1), "PAGE" + std::to_string(n + 1), image_page);
        auto& entry = config.page_table[static_cast<std::size_t>(n)];
        entry.node_index = static_cast<std::int16_t>(index);
        entry.node_key = tree.node(index).key;
    }
    for (int r = 0; r < h; ++r) {
        config.home_pages[static_cast<std::size_t>(r)].node_index[0] = 1;
        config.home_pages[static_cast<std::size_t>(r)].node_key[0] = home_key(slot);
    }

    int page_row = 0;
    int first_page = h;
    for (int d = 1; d <= devices; ++d) {
        // A loaded device is numbered by its row.
        config.device_numbers_used[static_cast<std::size_t>(d - 1)] = 1;
        int row = 0, position = 0;
        home_place(d, row, position);
        auto& name = config.device_name_table[static_cast<std::size_t>(d)];
        const std::string text = decode_device_name(name.name);
        const bool hidden = config.device_table[static_cast<std::size_t>(d)].hidden == hidden_flag;
        const int index = tree.add(0, device_key(d, slot), text, hidden ? image_hidden_device : image_device);
        name.node_key = tree.node(index).key;
        name.node_index = static_cast<std::int16_t>(index);
        auto& home_page = config.home_pages[static_cast<std::size_t>(row)];
        home_page.node_key[static_cast<std::size_t>(position)] = name.node_key;
        home_page.node_index[static_cast<std::size_t>(position)] = name.node_index;
        tree.add(index, properties_key(name.node_key), text + " PROPERTIES", image_properties);
        tree.node(index).expanded = false;
        const int pages = config.device_table[static_cast<std::size_t>(d)].page_count;
        for (int i = 0; i < pages; ++i) {
            auto& entry = config.page_table[static_cast<std::size_t>(first_page + i)];
            const int p = tree.add(index, device_page_key(name.node_key, i + 1), "PAGE" + std::to_string(i + 1),
                                   entry.hidden == hidden_flag ? image_hidden_page : image_page);
            entry.node_index = static_cast<std::int16_t>(p);
            entry.node_key = tree.node(p).key;
            auto& page = config.device_pages[static_cast<std::size_t>(page_row++)];
            page.node_index = entry.node_index;
            page.node_key = entry.node_key;
        }
        first_page += pages;
    }
    if (before > 1 && before <= tree.count()) tree.select(before);
    tree_changed(app, slot);
}

void rebuild_tree_from_tables(Application& app, int slot)
{
    TreeModel& tree = app.tree(slot);
    Configuration& config = app.config(slot);
    const int before = tree.selected();
    const std::string before_key = tree.valid(before) ? tree.node(before).key : std::string{};
    std::set<std::string> expanded;
    for (int i = 1; i <= tree.count(); ++i)
        if (tree.node(i).expanded) expanded.insert(tree.node(i).key);

    init_document_tree(app, slot);
    config.page_table[0].node_index = 3;
    const int h = std::clamp<int>(config.device_table[0].page_count, 1, home_page_rows);
    for (int n = 1; n < h; ++n) {
        auto& entry = config.page_table[static_cast<std::size_t>(n)];
        if (entry.node_key.empty()) entry.node_key = home_page_key(slot, n + 1);
        const int index = tree.add(1, entry.node_key, "PAGE" + std::to_string(page_number_of_key(entry.node_key)), image_page);
        entry.node_index = static_cast<std::int16_t>(index);
    }
    const int devices = tree_fits_tables(config) ? device_count(config) : 0;
    int first_page = h;
    for (int d = 1; d <= devices; ++d) {
        auto& name = config.device_name_table[static_cast<std::size_t>(d)];
        if (name.node_key.empty()) name.node_key = device_key(d, slot);
        const bool hidden = config.device_table[static_cast<std::size_t>(d)].hidden == hidden_flag;
        const std::string text = decode_device_name(name.name);
        const int index = tree.add(0, name.node_key, hidden ? "[" + text + "]" : text,
                                   hidden ? image_hidden_device : image_device);
        name.node_index = static_cast<std::int16_t>(index);
        for (auto& home_page : config.home_pages)
            for (int s = 1; s < softkeys_per_page; ++s)
                if (home_page.node_key[static_cast<std::size_t>(s)] == name.node_key)
                    home_page.node_index[static_cast<std::size_t>(s)] = name.node_index;
        tree.add(index, properties_key(name.node_key), text + " PROPERTIES", image_properties);
        const int pages = config.device_table[static_cast<std::size_t>(d)].page_count;
        for (int i = 0; i < pages; ++i) {
            auto& entry = config.page_table[static_cast<std::size_t>(first_page + i)];
            if (entry.node_key.empty()) entry.node_key = device_page_key(name.node_key, i + 1);
            const bool page_hidden = entry.hidden == hidden_flag;
            const std::string page_text = "PAGE" + std::to_string(page_number_of_key(entry.node_key));
            const int p = tree.add(index, entry.node_key, page_hidden ? "[" + page_text + "]" : page_text,
                                   page_hidden ? image_hidden_page : image_page);
            entry.node_index = static_cast<std::int16_t>(p);
            for (auto& page : config.device_pages)
                if (page.node_key == entry.node_key) page.node_index = entry.node_index;
        }
        first_page += pages;
    }
    for (int i = 1; i <= tree.count(); ++i) tree.node(i).expanded = expanded.count(tree.node(i).key) > 0;
    tree.node(1).expanded = true;
    // The selection follows its node by key, so that it stays on the same
    // device or page; only a node that is gone leaves it at its index.
    if (const int same = before_key.empty() ? 0 : tree.find(before_key)) tree.select(same);
    else if (before >= 1 && before <= tree.count()) tree.select(before);
    tree_changed(app, slot);
}

std::string page_counter(Application& app, int slot, const std::string& page_key)
{
    const Configuration& config = app.config(slot);
    if (begins_with_home(page_key))
        return three_digits(page_number_of_key(page_key)) + "/" + three_digits(config.device_table[0].page_count);
    const TreeModel& tree = app.tree(slot);
    const int node = tree.find(page_key);
    if (node == 0 || tree.node(node).parent == 0) return three_digits(0) + "/" + three_digits(0);
    const auto& pages = tree.node(tree.node(node).parent).children;
    const auto place = std::find(pages.begin(), pages.end(), node) - pages.begin();
    return three_digits(static_cast<int>(place)) + "/" + three_digits(static_cast<int>(pages.size()) - 1);
}

void set_page_totals(Application& app, int slot, const std::string& caption_prefix, int total)
{
    for (auto& window : app.page_windows().all())
        if (window.slot == slot && window.caption.rfind(caption_prefix, 0) == 0) {
            window.pagelabel = window.pagelabel.substr(0, 3) + "/" + three_digits(total);
            const std::string caption = window.caption;
            app.notify([slot, &caption](ApplicationListener& l) { l.page_window_changed(slot, caption); });
        }
}

void sync_page_windows(Application& app, int slot)
{
    const Configuration& config = app.config(slot);
    auto& windows = app.page_windows().all();
    for (int w = static_cast<int>(windows.size()) - 1; w >= 0; --w) {
        PageWindow& window = windows[static_cast<std::size_t>(w)];
        if (window.slot != slot) continue;
        bool stays = false;
        if (begins_with_home(window.caption)) {
            stays = page_number_of_key(window.caption) <= config.device_table[0].page_count;
        } else {
            for (const auto& page : config.device_pages) stays = stays || page.node_key == window.caption;
        }
        const std::string caption = window.caption;
        if (!stays) {
            app.page_windows().remove(w);
            app.notify([slot, &caption](ApplicationListener& l) { l.page_window_closed(slot, caption); });
        } else {
            window.pagelabel = page_counter(app, slot, caption);
            app.notify([slot, &caption](ApplicationListener& l) { l.page_window_changed(slot, caption); });
        }
    }
}

void close_page_windows(Application& app, int slot)
{
    auto& windows = app.page_windows().all();
    for (int w = static_cast<int>(windows.size()) - 1; w >= 0; --w) {
        if (windows[static_cast<std::size_t>(w)].slot != slot) continue;
        const std::string caption = windows[static_cast<std::size_t>(w)].caption;
        app.page_windows().remove(w);
        app.notify([slot, &caption](ApplicationListener& l) { l.page_window_closed(slot, caption); });
    }
}

void displaytreeview_devicename(Application& app, int slot, const std::string& key)
{
    TreeSelection& s = app.selection();
    const Configuration& config = app.config(slot);
    s.panel = TreeSelection::Panel::device;
    s.panel_device_row = device_row_of_key(config, key);
    s.panel_text = s.panel_device_row >= 0
                       ? decode_device_name(config.device_name_table[static_cast<std::size_t>(s.panel_device_row)].name)
                       : std::string{};
}

namespace {

void show_node(Application& app, int slot, int index)
{
    TreeSelection& s = app.selection();
    const TreeModel& tree = app.tree(slot);
    s.panel = TreeSelection::Panel::none;
    s.panel_device_row = -1;
    s.panel_text.clear();
    if (!tree.valid(index)) return;
    const TreeNode& n = tree.node(index);
    if (n.image == image_home) {
        s.panel = TreeSelection::Panel::home;
        s.panel_device_row = 0;
        s.panel_text = "HOME";
    } else if (is_device_image(n.image)) {
        displaytreeview_devicename(app, slot, n.key);
    } else if (n.image == image_properties) {
        const int parent = n.parent;
        if (tree.valid(parent) && tree.node(parent).image == image_home) {
            s.panel = TreeSelection::Panel::home;
            s.panel_device_row = 0;
            s.panel_text = "HOME";
        } else if (tree.valid(parent)) {
            displaytreeview_devicename(app, slot, tree.node(parent).key);
        }
    } else if (is_page_image(n.image)) {
        s.panel = TreeSelection::Panel::page;
        s.panel_text = n.text;
    }
}

}  // namespace

void click_node(Application& app, int slot, int index)
{
    TreeModel& tree = app.tree(slot);
    if (!tree.valid(index)) return;
    tree.select(index);
    TreeSelection& s = app.selection();
    s.node_key = tree.node(index).key;
    s.image = tree.node(index).image;
    s.slot = slot;
    s.selected_kind = TreeSelection::Kind::node;
    show_node(app, slot, index);
    app.notify([slot](ApplicationListener& l) { l.selection_changed(slot); });
}

void show_selected_node(Application& app, int slot)
{
    const int index = app.tree(slot).selected();
    if (index != 0) {
        app.selection().node_key = app.tree(slot).node(index).key;
        app.selection().image = app.tree(slot).node(index).image;
    }
    show_node(app, slot, index);
    app.notify([slot](ApplicationListener& l) { l.selection_changed(slot); });
}

bool open_page(Application& app, int slot, int index)
{
    TreeModel& tree = app.tree(slot);
    if (!tree.valid(index) || !is_page_image(tree.node(index).image)) return false;
    const TreeNode& n = tree.node(index);
    PageWindows& windows = app.page_windows();
    if (windows.find(slot, n.key) >= 0) {
        // Already open: brought to the front.
        app.notify([slot, &n](ApplicationListener& l) { l.page_window_opened(slot, n.key); });
        return true;
    }
    if (static_cast<int>(windows.all().size()) >= max_page_windows) {
        app.ui().message(title_main, "Out of Memory", Icon::exclamation);
        return false;
    }
    windows.all().push_back({slot, n.key, page_counter(app, slot, n.key)});
    const std::string parent = tree.valid(n.parent) ? tree.node(n.parent).text : std::string{};
    app.write_log("Open page " + n.text + "/" + parent + "-" + n.key);
    app.notify([slot, &n](ApplicationListener& l) { l.page_window_opened(slot, n.key); });
    return true;
}

}  // namespace tesselo
