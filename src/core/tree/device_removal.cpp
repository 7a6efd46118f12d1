#include "core/tree/device_removal.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

#include "core/app/application.h"
#include "core/keys/key_behaviours.h"
#include "core/keys/step_chain.h"
#include "core/model/configuration.h"
#include "core/tree/link_repair.h"
#include "core/tree/node_keys.h"
#include "core/tree/page_windows.h"
#include "core/tree/tree_model.h"
#include "core/tree/tree_view.h"

namespace tesselo {

namespace {

std::size_t at(int i) { return static_cast<std::size_t>(i); }

// A slot of no key, as a new document has them: no list.
constexpr SoftKey free_slot{0, 0, 0, no_index, 0};

// Closes the Remote windows of `slot` that `closes` names, from the last to
// the first; how many it closed.
template <typename Pred>
int close_windows(Application& app, int slot, Pred closes)
{
    int closed = 0;
    auto& windows = app.page_windows().all();
    for (int w = static_cast<int>(windows.size()) - 1; w >= 0; --w) {
        if (windows[at(w)].slot != slot || !closes(windows[at(w)].caption)) continue;
        const std::string caption = windows[at(w)].caption;
        app.page_windows().remove(w);
        app.notify([slot, &caption](ApplicationListener& l) { l.page_window_closed(slot, caption); });
        ++closed;
    }
    return closed;
}

void free_list(Configuration& config, std::int32_t& list)
{
    if (list >= 0 && list < action_list_rows && config.action_lists.entries[at(list)].step_count > 0)
        delete_marcostep(config, list);
    list = no_index;
}

// The keys of a device page row with their lists and labels, and the row
// itself. Only the slots in use hold labels and lists of their own.
void empty_page_row(Configuration& config, const std::string& page_key)
{
    int used = 0;
    for (const auto& entry : config.page_table)
        if (entry.node_key == page_key) used = std::min<int>(entry.key_count, softkeys_per_page);
    for (auto& page : config.device_pages) {
        if (page.node_key != page_key) continue;
        for (int s = 0; s < softkeys_per_page; ++s) {
            SoftKey& key = page.slots[at(s)];
            if (s >= used) {
                key = free_slot;
                continue;
            }
            if (key.label_index >= 0 && key.label_index < softkey_label_rows && key.position != 11)
                config.softkey_labels[at(key.label_index)].bytes[0] = free_byte;
            free_list(config, key.action_list);
            key = free_slot;
        }
        page.node_key.clear();
        page.node_index = 0;
        return;
    }
}

// The HOME slots in their order across the HOME pages: slot 1 of a page
// follows the last slot of the page before.
struct HomePlace {
    int page = 0;
    int slot = 0;
};

std::vector<HomePlace> home_places(const Configuration& config)
{
    std::vector<HomePlace> places;
    const int h = std::clamp<int>(config.device_table[0].page_count, 1, home_page_rows);
    for (int r = 0; r < h; ++r)
        for (int s = 1; s < std::min<int>(config.page_table[at(r)].key_count, softkeys_per_page); ++s)
            places.push_back({r, s});
    return places;
}

// The device's HOME key goes, and every HOME key behind it moves one place
// forward in all its columns but the position: the places keep their rows,
// so that no two keys of a HOME page stand on one row and the key moved
// into a place shows where the place is.
void close_home_gap(Configuration& config, const std::string& device_key)
{
    const std::vector<HomePlace> places = home_places(config);
    const auto gone = std::find_if(places.begin(), places.end(), [&](const HomePlace& p) {
        return config.home_pages[at(p.page)].node_key[at(p.slot)] == device_key;
    });
    if (gone == places.end()) return;
    HomePage& first = config.home_pages[at(gone->page)];
    SoftKey& key = first.slots[at(gone->slot)];
    if (key.label_index >= 0 && key.label_index < softkey_label_rows)
        config.softkey_labels[at(key.label_index)].bytes[0] = free_byte;
    free_list(config, key.action_list);
    for (auto p = gone; p + 1 != places.end(); ++p) {
        HomePage& to = config.home_pages[at(p->page)];
        const HomePage& from = config.home_pages[at((p + 1)->page)];
        const std::uint8_t position = to.slots[at(p->slot)].position;
        to.slots[at(p->slot)] = from.slots[at((p + 1)->slot)];
        to.slots[at(p->slot)].position = position;
        to.node_index[at(p->slot)] = from.node_index[at((p + 1)->slot)];
        to.node_key[at(p->slot)] = from.node_key[at((p + 1)->slot)];
    }
    const HomePlace last = places.back();
    HomePage& end = config.home_pages[at(last.page)];
    end.slots[at(last.slot)] = free_slot;
    end.node_index[at(last.slot)] = 0;
    end.node_key[at(last.slot)].clear();
    --config.page_table[at(last.page)].key_count;
}

// A last HOME page that has lost its last device key goes with its node,
// its entry and its window.
void remove_empty_home_page(Application& app, int slot)
{
    Configuration& config = app.config(slot);
    const int h = config.device_table[0].page_count;
    if (h <= 1 || config.page_table[at(h - 1)].key_count > 1) return;
    const std::string key = config.page_table[at(h - 1)].node_key;
    close_windows(app, slot, [&key](const std::string& caption) { return caption == key; });
    app.tree(slot).remove(app.tree(slot).find(key));
    for (int i = h - 1; i + 1 < page_rows; ++i) config.page_table[at(i)] = config.page_table[at(i + 1)];
    config.page_table[at(page_rows - 1)] = PageEntry{};
    // The page's own title key goes with it, its steps and label too.
    SoftKey& title = config.home_pages[at(h - 1)].slots[0];
    free_list(config, title.action_list);
    if (title.label_index >= 0 && title.label_index < softkey_label_rows)
        config.softkey_labels[at(title.label_index)].bytes[0] = free_byte;
    config.home_pages[at(h - 1)] = HomePage{};
    config.home_pages[at(h - 1)].slots.fill(free_slot);
    config.device_table[0].page_count = static_cast<std::uint8_t>(h - 1);
    config.device_table[0].visible_pages = static_cast<std::uint8_t>(h - 1);
    set_page_totals(app, slot, "HOME", h - 1);
}

// Moves the entries of an array behind `row` forward by `by`, emptying the tail.
template <typename Array>
void close_rows(Array& rows, int row, int by, int end)
{
    for (int i = row; i + by < end; ++i) rows[at(i)] = rows[at(i + by)];
    for (int i = std::max(row, end - by); i < end; ++i) rows[at(i)] = typename Array::value_type{};
}

}  // namespace

void update_softtable(Application& app, int slot)
{
    Configuration& config = app.config(slot);
    const TreeModel& tree = app.tree(slot);
    std::unordered_map<std::string, int> index;
    for (int i = 1; i <= tree.count(); ++i) index.emplace(tree.node(i).key, i);
    const auto node_of = [&index](const std::string& key) {
        const auto it = index.find(key);
        return static_cast<std::int16_t>(it == index.end() ? 0 : it->second);
    };
    for (auto& name : config.device_name_table)
        if (!name.node_key.empty()) name.node_index = node_of(name.node_key);
    for (auto& home : config.home_pages)
        for (int s = 0; s < softkeys_per_page; ++s)
            if (!home.node_key[at(s)].empty()) home.node_index[at(s)] = node_of(home.node_key[at(s)]);
    for (auto& entry : config.page_table)
        if (!entry.node_key.empty()) entry.node_index = node_of(entry.node_key);
    for (auto& page : config.device_pages)
        if (!page.node_key.empty()) page.node_index = node_of(page.node_key);
}

void delete_pagesofttable(Application& app, int slot, const std::string& page_key, const std::string& device_key)
{
    Configuration& config = app.config(slot);
    const int row = page_row_of_key(config, page_key);
    const int device = device_row_of_key(config, device_key);
    if (row < 0 || device < 1) return;
    const bool hidden = config.page_table[at(row)].hidden == hidden_flag;
    close_windows(app, slot, [&page_key](const std::string& caption) { return caption == page_key; });
    close_rows(config.page_table, row, 1, page_rows);
    DeviceEntry& entry = config.device_table[at(device)];
    entry.page_count = static_cast<std::uint8_t>(entry.page_count - 1);
    if (!hidden && entry.visible_pages > 0) entry.visible_pages = static_cast<std::uint8_t>(entry.visible_pages - 1);
}

void delete_page(Application& app, int slot, int page_node)
{
    Configuration& config = app.config(slot);
    TreeModel& tree = app.tree(slot);
    if (!tree.valid(page_node) || !is_page_image(tree.node(page_node).image)) return;
    const std::string page_key = tree.node(page_node).key;
    const std::string device_key = tree.node(tree.node(page_node).parent).key;
    const int device = device_row_of_key(config, device_key);
    const int row = page_row_of_key(config, page_key);
    if (device < 1 || row < 0) return;
    const auto place = static_cast<std::uint8_t>(row - pages_before(config, device));

    empty_page_row(config, page_key);
    close_windows(app, slot, [&page_key](const std::string& caption) { return caption == page_key; });
    Cut_marcolinkpage(config, static_cast<std::uint8_t>(device), place);
    Cut_marcojumplink(config, static_cast<std::uint8_t>(device), place);
    delete_pagesofttable(app, slot, page_key, device_key);
    tree.remove(page_node);
    set_page_totals(app, slot, device_key + "\\", config.device_table[at(device)].page_count);
    update_softtable(app, slot);
    app.notify([slot](ApplicationListener& l) { l.tree_changed(slot); });
}

void delete_device(Application& app, int slot, const std::string& device_key)
{
    Configuration& config = app.config(slot);
    TreeModel& tree = app.tree(slot);
    const int R = device_row_of_key(config, device_key);
    const int devices = device_count(config);
    if (R < 1 || R > devices) return;
    const auto device = static_cast<std::uint8_t>(R);
    const int first = pages_before(config, R);
    const int pages = config.device_table[at(R)].page_count;

    for (int k = 0; k < hardkeys_per_device; ++k) free_list(config, config.hardkeys[at(R * hardkeys_per_device + k)].action_list);
    for (int p = 0; p < pages && first + p < page_rows; ++p) empty_page_row(config, config.page_table[at(first + p)].node_key);
    Cut_devicehardlink(config, device);
    for (int p = 0; p < pages; ++p) {
        Cut_marcojumplink(config, device, static_cast<std::uint8_t>(p));
        Cut_marcolinkpage(config, device, static_cast<std::uint8_t>(p));
    }

    // The hard key blocks of the devices behind it move forward one block.
    const int hard_from = R * hardkeys_per_device;
    const int hard_end = (devices + 1) * hardkeys_per_device;
    close_rows(config.hardkeys, hard_from, hardkeys_per_device, hard_end);
    close_rows(config.hardkey_labels, hard_from, hardkeys_per_device, hard_end);
    close_rows(config.hardkey_index, hard_from, hardkeys_per_device, hard_end);

    close_home_gap(config, device_key);
    renumber_punch_through(config, [R](int d) { return d < R ? d : d == R ? -1 : d - 1; });

    // Jumps and links into the devices behind it follow their rows; the
    // step of each HOME key is one of them.
    for (ActionStep& s : config.action_steps.steps)
        if ((s.step_type == step_jump || s.step_type == step_link) && s.param_low > device && s.param_low != free_byte)
            --s.param_low;

    close_rows(config.page_table, first, pages, page_rows);
    close_rows(config.device_table, R, 1, devices + 1);
    close_rows(config.device_name_table, R, 1, devices + 1);
    close_rows(config.device_extra, R, 1, devices + 1);

    remove_empty_home_page(app, slot);
    follow_home_keys(config);

    const std::string prefix = device_key + "\\";
    if (close_windows(app, slot, [&prefix](const std::string& caption) { return caption.rfind(prefix, 0) == 0; }) > 0)
        app.write_log("close all page (Delete device) ");
    const int number = device_number_of_key(device_key, slot);
    tree.remove(tree.find(device_key));
    if (number >= 1 && number <= max_devices) config.device_numbers_used[at(number - 1)] = 0;
    update_softtable(app, slot);

    // The open HOME views show the keys in their new places.
    for (const PageWindow& window : std::vector<PageWindow>(app.page_windows().all()))
        if (window.slot == slot && window.caption.rfind("HOME", 0) == 0) {
            const std::string caption = window.caption;
            app.notify([slot, &caption](ApplicationListener& l) { l.page_window_changed(slot, caption); });
        }
    app.notify([slot](ApplicationListener& l) { l.tree_changed(slot); });
}

}  // namespace tesselo
