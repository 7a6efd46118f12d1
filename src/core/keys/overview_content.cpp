#include "core/keys/overview_content.h"

#include <algorithm>

#include "core/keys/step_text.h"
#include "core/model/action_chain.h"
#include "core/model/configuration.h"
#include "core/tree/node_keys.h"

namespace tesselo {

namespace {

std::vector<std::string> step_rows(const Configuration& config, std::int32_t list, const IrStepNames& ir,
                                   const TreeModel* tree)
{
    std::vector<std::string> rows;
    if (list < 0 || list >= action_list_rows) return rows;
    // A broken list shows the rows it still has, as the step list does.
    for (int step : steps_of_list(config, list))
        if (auto text = display_marcostep(config, step, ir, tree)) rows.push_back(*text);
    return rows;
}

const SoftKey* slots_of(const Configuration& config, const PageRef& page)
{
    if (page.home) return config.home_pages[static_cast<std::size_t>(page.home_page)].slots.data();
    return config.device_pages[static_cast<std::size_t>(page.device_page)].slots.data();
}

std::string page_name(const Configuration& config, const PageRef& page)
{
    const int number = page_number_of_key(page_node_key(config, page));
    return "PAGE" + std::to_string(number > 0 ? number : page.page_number);
}

// The page's keys with steps, by row and then side: the right button of a
// row before its left one.
void add_page_keys(const Configuration& config, const PageRef& page, const std::string& name, const IrStepNames& ir,
                   const TreeModel* tree, std::vector<OverviewKey>& keys)
{
    const SoftKey* slots = slots_of(config, page);
    const int used = std::min<int>(config.page_table[static_cast<std::size_t>(page.page_entry)].key_count,
                                   softkeys_per_page);
    std::vector<int> order;
    for (int s = 0; s < used; ++s) order.push_back(s);
    const auto rank = [slots](int s) { return (slots[s].position & 127) * 2 + (slots[s].position >= 128 ? 1 : 0); };
    std::stable_sort(order.begin(), order.end(), [&rank](int a, int b) { return rank(a) < rank(b); });
    for (int s : order) {
        const SoftKey& key = slots[s];
        auto steps = step_rows(config, key.action_list, ir, tree);
        if (steps.empty()) continue;
        OverviewKey entry;
        entry.place = softkey_place_text(name, key.position);
        if (key.label_index >= 0 && key.label_index < softkey_label_rows &&
            !config.softkey_labels[static_cast<std::size_t>(key.label_index)].is_free()) {
            entry.label = config.softkey_labels[static_cast<std::size_t>(key.label_index)];
            entry.glyphs = entry.label.glyph_count();
        } else if (s == 0 && (key.position & 127) == 0) {
            // The title row shows the name of the device, or of HOME.
            entry.label = config.device_name_table[static_cast<std::size_t>(page.device)].name;
            entry.glyphs = entry.label.glyph_count();
        }
        entry.label_text = key_label_text(entry.label, entry.glyphs);
        entry.steps = std::move(steps);
        keys.push_back(std::move(entry));
    }
}

void add_hard_keys(const Configuration& config, int device, const IrStepNames& ir, const TreeModel* tree,
                   std::vector<OverviewKey>& keys)
{
    for (int k = 0; k < hardkeys_per_device; ++k) {
        const auto entry_row = static_cast<std::size_t>(device * hardkeys_per_device + k);
        auto steps = step_rows(config, config.hardkeys[entry_row].action_list, ir, tree);
        if (steps.empty()) continue;
        OverviewKey entry;
        entry.label = config.hardkey_labels[entry_row];
        // A hard key's header is its plain length.
        entry.glyphs = entry.label.header() <= label_glyphs ? entry.label.header() : 0;
        entry.label_text = key_label_text(entry.label, entry.glyphs);
        entry.place = entry.glyphs > 0 ? "HARD" : hardkey_place_text(k);
        entry.steps = std::move(steps);
        keys.push_back(std::move(entry));
    }
}

}  // namespace

std::string softkey_place_text(const std::string& page, int position)
{
    return page + " ROW " + std::to_string(position & 127) + (position >= 128 ? " LEFT" : " RIGHT");
}

std::string hardkey_place_text(int key) { return "HARD KEY " + std::to_string(key + 1); }

std::vector<OverviewSection> overview_sections(const Configuration& config, const IrStepNames& ir,
                                               const TreeModel* tree)
{
    std::vector<OverviewSection> sections;
    for (const PageRef& page : all_page_refs(config)) {
        if (sections.empty() || sections.back().device != page.device) {
            if (!sections.empty()) add_hard_keys(config, sections.back().device, ir, tree, sections.back().keys);
            OverviewSection section;
            section.device = page.device;
            const auto& row = config.device_name_table[static_cast<std::size_t>(page.device)];
            section.name_label = row.name;
            section.name = decode_device_name(row.name);
            section.hidden = page.device > 0 && config.device_table[static_cast<std::size_t>(page.device)].hidden == hidden_flag;
            sections.push_back(std::move(section));
        }
        OverviewSection& section = sections.back();
        OverviewPage shown;
        shown.name = page_name(config, page);
        shown.hidden = config.page_table[static_cast<std::size_t>(page.page_entry)].hidden == hidden_flag;
        shown.counter = GenTagString(page.page_number) + "/" + GenTagString(page.page_total);
        shown.rows = lcd_page_rows(config, page);
        add_page_keys(config, page, shown.name, ir, tree, section.keys);
        section.pages.push_back(std::move(shown));
    }
    if (!sections.empty()) add_hard_keys(config, sections.back().device, ir, tree, sections.back().keys);
    return sections;
}

}  // namespace tesselo
