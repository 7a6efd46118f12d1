#include "app/cli/document_json.h"

#include "core/app/application.h"
#include "core/model/configuration.h"
#include "core/tree/tree_model.h"

namespace tesselo::cli {

namespace {

using json = nlohmann::ordered_json;

template <typename Array>
json bytes(const Array& a)
{
    json out = json::array();
    for (auto b : a) out.push_back(static_cast<int>(b));
    return out;
}

template <typename Array>
json words(const Array& a)
{
    json out = json::array();
    for (auto w : a) out.push_back(static_cast<std::uint16_t>(w));
    return out;
}

json key_json(const SoftKey& k)
{
    return {{"key_state", k.key_state}, {"position", k.position}, {"label_index", k.label_index},
            {"action_list", k.action_list}, {"key_flags", k.key_flags}};
}

}  // namespace

json document_json(Application& app, int document)
{
    const Document& doc = app.documents()[static_cast<std::size_t>(document)];
    const Configuration& c = app.config(doc.slot);
    json j;
    j["slot"] = doc.slot;
    j["title"] = doc.title;
    j["section_pointers"] = c.section_pointers;
    j["format_stamp"] = bytes(c.format_stamp);
    j["clock_block"] = bytes(c.clock_block);
    for (const auto& d : c.device_table)
        j["device_table"].push_back(
            {{"page_base", d.page_base}, {"page_count", d.page_count}, {"visible_pages", d.visible_pages}, {"hidden", d.hidden}});
    for (const auto& d : c.device_name_table)
        j["device_name_table"].push_back({{"name", bytes(d.name.bytes)}, {"node_index", d.node_index}, {"node_key", d.node_key}});
    for (const auto& d : c.device_extra) j["device_extra"].push_back({{"option_a", d.option_a}, {"option_b", d.option_b}});
    for (const auto& p : c.page_table)
        j["page_table"].push_back({{"key_base", p.key_base}, {"key_count", p.key_count}, {"hidden", p.hidden},
                                   {"node_index", p.node_index}, {"node_key", p.node_key}});
    for (const auto& page : c.home_pages) {
        json slots = json::array();
        for (std::size_t s = 0; s < page.slots.size(); ++s) {
            json k = key_json(page.slots[s]);
            k["node_index"] = page.node_index[s];
            k["node_key"] = page.node_key[s];
            slots.push_back(std::move(k));
        }
        j["home_pages"].push_back({{"slots", std::move(slots)}});
    }
    for (const auto& page : c.device_pages) {
        json slots = json::array();
        for (const auto& k : page.slots) slots.push_back(key_json(k));
        j["device_pages"].push_back({{"node_index", page.node_index}, {"node_key", page.node_key}, {"slots", std::move(slots)}});
    }
    for (const auto& l : c.softkey_labels) j["softkey_labels"].push_back(bytes(l.bytes));
    for (const auto& k : c.hardkeys)
        j["hardkeys"].push_back({{"sleep_flag", k.sleep_flag}, {"action_list", k.action_list}, {"key_flags", k.key_flags}});
    for (const auto& l : c.hardkey_labels) j["hardkey_labels"].push_back(bytes(l.bytes));
    for (const auto& i : c.hardkey_index)
        j["hardkey_index"].push_back({{"base", i.base}, {"count", i.count}, {"reserved", i.reserved}});
    for (const auto& r : c.punch_through) j["punch_through"].push_back(bytes(r));
    json lists = json::array();
    for (const auto& l : c.action_lists.entries) lists.push_back({{"first_step", l.first_step}, {"step_count", l.step_count}});
    j["action_lists"] = {{"list_count", c.action_lists.list_count}, {"entries", std::move(lists)}};
    json steps = json::array();
    for (const auto& s : c.action_steps.steps)
        steps.push_back({{"step_type", s.step_type}, {"param_low", s.param_low}, {"param_high", s.param_high},
                         {"value", s.value}, {"extra", s.extra}, {"next_step", s.next_step}});
    j["action_steps"] = {{"step_total", c.action_steps.step_total}, {"steps", std::move(steps)}};
    json formats = json::array();
    for (const auto& r : c.ir_formats.records) formats.push_back(words(r));
    j["ir_formats"] = {{"format_count", c.ir_formats.format_count}, {"records", std::move(formats)}};
    j["ir_format_ids"] = words(c.ir_format_ids);
    json records = json::array();
    json index = json::array();
    for (int r = 0; r < c.ir_data.record_count && r < ir_data_rows; ++r) {
        records.push_back(words(c.ir_data.record(r)));
        const auto& i = c.ir_data_index[static_cast<std::size_t>(r)];
        index.push_back({{"offset", i.offset}, {"length", i.length}});
    }
    j["ir_data"] = {{"record_count", c.ir_data.record_count}, {"records", std::move(records)}};
    j["ir_data_index"] = std::move(index);
    j["learning_bitmap"] = bytes(c.learning_bitmap);
    for (const auto& slot : c.learning_memory) j["learning_memory"].push_back(bytes(slot));
    j["learning_keys"] = c.learning_keys;
    j["device_numbers_used"] = bytes(c.device_numbers_used);
    return j;
}

void print_tree(Application& app, int slot, std::ostream& out)
{
    // In the order the tree shows its nodes: each one before its children,
    // siblings in their order, whatever order they were added in.
    const TreeModel& tree = app.tree(slot);
    for (int i : tree.tree_order()) {
        const TreeNode& n = tree.node(i);
        out << i << '\t' << n.parent << '\t' << n.key << '\t' << n.text << '\t' << n.image << '\n';
    }
}

}  // namespace tesselo::cli
