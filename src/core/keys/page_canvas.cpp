#include "core/keys/page_canvas.h"

#include <algorithm>

#include "core/model/configuration.h"
#include "core/model/glyphs.h"
#include "core/keys/hardkey_pictures.h"

namespace tesselo {

namespace {

struct Picture {
    int left, top, width, height;
};

// The remote's key pictures, as its body was drawn.
constexpr std::array<Picture, key_picture_count> pictures = {{
    {255, 285, 345, 195},   {840, 285, 540, 195},   {1620, 285, 345, 195},                            // 0-2
    {1890, 1050, 240, 195}, {90, 1050, 240, 195},   {1890, 1365, 240, 195}, {90, 1365, 240, 195},   // 3-6
    {1890, 1680, 240, 195}, {90, 1680, 240, 195},   {1890, 1995, 240, 195}, {90, 1995, 240, 195},   // 7-10
    {1890, 2310, 240, 195}, {90, 2310, 240, 195},   {1890, 2625, 240, 195}, {90, 2625, 240, 195},   // 11-14
    {225, 3405, 450, 195},  {885, 3405, 450, 195},  {1545, 3405, 450, 195},                           // 15-17
    {225, 3795, 450, 195},  {1545, 3795, 450, 195},                                                   // 18-19
    {855, 3810, 510, 345},  {495, 4170, 345, 510},  {900, 4215, 420, 420},  {1362, 4170, 360, 510}, // 20-23
    {855, 4695, 510, 345},                                                                            // 24
    {225, 4860, 450, 195},  {885, 5250, 450, 195},  {1545, 4860, 450, 195},                           // 25-27
    {330, 5310, 240, 360},  {330, 5670, 240, 375},                                                    // 28-29
    {885, 5580, 450, 195},  {885, 5910, 450, 195},                                                    // 30-31
    {1635, 5310, 240, 360}, {1635, 5670, 240, 375},                                                   // 32-33
    {285, 6330, 330, 315},  {915, 6300, 390, 390},  {1605, 6330, 330, 315},                           // 34-36
    {285, 6810, 330, 315},  {915, 6765, 390, 390},  {1605, 6810, 330, 315},                           // 37-39
    {225, 7305, 450, 240},  {885, 7305, 450, 240},  {1545, 7305, 450, 240},                           // 40-42
    {225, 7635, 450, 240},  {885, 7635, 450, 240},  {1545, 7635, 450, 240},                           // 43-45
    {225, 7965, 450, 240},  {885, 7965, 450, 240},  {1545, 7965, 450, 240},                           // 46-48
    {225, 8295, 450, 240},  {885, 8295, 450, 240},  {1545, 8295, 450, 240},                           // 49-51
    {240, 8655, 225, 225},  {750, 8655, 225, 225},  {1245, 8640, 225, 225}, {1755, 8655, 225, 225}, // 52-55
}};


constexpr std::array<int, lcd_rows> row_tops = {30, 345, 660, 975, 1290, 1605};

bool valid_list(std::int32_t list) { return list >= 0 && list < action_list_rows; }

const SoftKey* page_slots(const Configuration& config, const PageRef& page)
{
    if (page.home) {
        if (page.home_page < 0 || page.home_page >= home_page_rows) return nullptr;
        return config.home_pages[static_cast<std::size_t>(page.home_page)].slots.data();
    }
    if (page.device_page < 0 || page.device_page >= device_page_rows) return nullptr;
    return config.device_pages[static_cast<std::size_t>(page.device_page)].slots.data();
}

int slots_in_use(const Configuration& config, const PageRef& page)
{
    if (page.page_entry < 0 || page.page_entry >= page_rows) return 0;
    return std::min<int>(config.page_table[static_cast<std::size_t>(page.page_entry)].key_count, softkeys_per_page);
}

}  // namespace

TwipRect key_picture_rect(int index)
{
    if (index < 0 || index >= key_picture_count) return {};
    const auto& p = pictures[static_cast<std::size_t>(index)];
    return {p.left, p.top, p.width, p.height};
}

TwipRect lcd_panel_rect() { return {555, 1020, 1125, 1785}; }

TwipRect lcd_row_rect(int row)
{
    if (row < 0 || row >= lcd_rows) return {};
    return {0, row_tops[static_cast<std::size_t>(row)], 1095, row == 0 ? 225 : 300};
}

TwipRect pagelabel_rect() { return {555, 2850, 1125, 195}; }

TwipRect remote_body_rect() { return {0, 0, 2220, 9090}; }


int side_button_row(int index) { return is_side_button(index) ? (index - 3) / 2 : -1; }

int side_button_position(int index)
{
    if (!is_side_button(index)) return -1;
    return side_button_row(index) + (index % 2 == 0 ? 128 : 0);
}

int picture_of_position(int position)
{
    if (position < 0 || position > 255) return -1;
    const int row = position & 127;
    if (row >= lcd_rows) return -1;
    return 3 + row * 2 + (position >= 128 ? 1 : 0);
}



std::string GenTagString(int n)
{
    std::string digits = std::to_string(n);
    if (digits.size() < 3) digits.insert(0, 3 - digits.size(), '0');
    return digits;
}

std::string BuildTagText(int first, int second) { return GenTagString(first) + "+" + GenTagString(second); }


int softkey_slot_at(const Configuration& config, const PageRef& page, int position)
{
    const SoftKey* slots = page_slots(config, page);
    if (!slots) return -1;
    const int used = slots_in_use(config, page);
    // Slots are filled in the order the keys were made, so the position
    // decides and not the slot: the title row's key may stand in any of them.
    for (int s = 0; s < used; ++s)
        if (slots[s].position == position) return s;
    return -1;
}

std::array<LcdRow, lcd_rows> lcd_page_rows(const Configuration& config, const PageRef& page)
{
    std::array<LcdRow, lcd_rows> rows{};
    const SoftKey* slots = page_slots(config, page);
    if (slots) {
        const int used = slots_in_use(config, page);
        for (int s = 0; s < used; ++s) {
            const SoftKey& key = slots[s];
            const int row = key.position & 127;
            // The title row's own key carries the device's name, below.
            if (row >= lcd_rows || key.position == 0) continue;
            const std::int32_t label = key.label_index;
            if (label < 0 || label >= softkey_label_rows) continue;
            const KeyLabel& text = config.softkey_labels[static_cast<std::size_t>(label)];
            if (text.is_free()) continue;
            auto& r = rows[static_cast<std::size_t>(row)];
            if (key.position >= 128) {
                r.has_left = true;
                r.left = text;
            } else {
                r.has_right = true;
                r.right = text;
            }
        }
    }
    // The title row carries the name of the device, or of HOME.
    if (!rows[0].has_right && !rows[0].has_left && page.device >= 0 && page.device < device_rows) {
        rows[0].has_right = true;
        rows[0].right = config.device_name_table[static_cast<std::size_t>(page.device)].name;
    }
    return rows;
}

std::optional<PageRef> find_page(const Configuration& config, const std::string& node_key)
{
    if (node_key.empty()) return std::nullopt;
    for (const PageRef& page : all_page_refs(config))
        if (page_node_key(config, page) == node_key) return page;
    return std::nullopt;
}

std::vector<PageRef> all_page_refs(const Configuration& config)
{
    std::vector<PageRef> pages;
    int entry = 0;
    for (int device = 0; device < device_rows && entry < page_rows; ++device) {
        const int count = config.device_table[static_cast<std::size_t>(device)].page_count;
        if (device > 0 && config.device_name_table[static_cast<std::size_t>(device)].node_key.empty()) break;
        for (int i = 0; i < count && entry < page_rows; ++i, ++entry) {
            PageRef page;
            page.home = device == 0;
            page.device = device;
            page.page_entry = entry;
            page.page_number = i + 1;
            page.page_total = count;
            if (page.home) {
                page.home_page = std::min(i, home_page_rows - 1);
            } else {
                // A device page's row is found by its node key; rows are not in tree order.
                const std::string& key = config.page_table[static_cast<std::size_t>(entry)].node_key;
                page.device_page = -1;
                for (int row = 0; row < device_page_rows; ++row)
                    if (!key.empty() && config.device_pages[static_cast<std::size_t>(row)].node_key == key) {
                        page.device_page = row;
                        break;
                    }
                if (page.device_page < 0) continue;
            }
            pages.push_back(page);
        }
    }
    return pages;
}

std::string page_node_key(const Configuration& config, const PageRef& page)
{
    if (page.page_entry < 0 || page.page_entry >= page_rows) return {};
    return config.page_table[static_cast<std::size_t>(page.page_entry)].node_key;
}

std::string key_label_text(const KeyLabel& label, int count)
{
    if (count > label_glyphs) return {};  // a free label
    return label_to_text(label, count);
}

std::string key_label_text(const Configuration& config, const PageRef& page, int index)
{
    if (is_side_button(index)) {
        const auto rows = lcd_page_rows(config, page);
        const auto& row = rows[static_cast<std::size_t>(side_button_row(index))];
        const bool left = side_button_position(index) >= 128;
        if (left ? !row.has_left : !row.has_right) return {};
        const KeyLabel& label = left ? row.left : row.right;
        return key_label_text(label, label.glyph_count());
    }
    const int key = check_hardkeyindex(index);
    if (key < 0 || page.device < 0 || page.device >= device_rows) return {};
    const KeyLabel& label = config.hardkey_labels[static_cast<std::size_t>(page.device * hardkeys_per_device + key)];
    // A hard key's header is its plain length.
    return key_label_text(label, label.header());
}

std::string device_name_text(const Configuration& config, int device)
{
    if (device < 0 || device >= device_rows) return {};
    const KeyLabel& name = config.device_name_table[static_cast<std::size_t>(device)].name;
    return key_label_text(name, name.glyph_count());
}

int key_step_count(const Configuration& config, const PageRef& page, int index)
{
    std::int32_t list = no_index;
    if (is_side_button(index)) {
        const int slot = softkey_slot_at(config, page, side_button_position(index));
        const SoftKey* slots = page_slots(config, page);
        if (slot < 0 || !slots) return 0;
        list = slots[slot].action_list;
    } else {
        const int key = check_hardkeyindex(index);
        if (key < 0 || page.device < 0 || page.device >= device_rows) return 0;
        list = config.hardkeys[static_cast<std::size_t>(page.device * hardkeys_per_device + key)].action_list;
    }
    if (!valid_list(list)) return 0;
    return config.action_lists.entries[static_cast<std::size_t>(list)].step_count;
}

}  // namespace tesselo
