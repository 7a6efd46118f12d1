#include "core/model/configuration.h"

#include "core/model/hardkey_defaults.h"

namespace tesselo {

void clear_configuration(Configuration& config)
{
    // Assigning a fresh value keeps the tables where they were allocated;
    // only the strings release what they held.
    for (auto& row : config.device_name_table) row = DeviceName{};
    for (auto& row : config.page_table) row = PageEntry{};
    for (auto& page : config.home_pages) page = HomePage{};
    for (auto& page : config.device_pages) page = DevicePage{};
    config.device_table.fill({});
    config.device_extra.fill({});
    config.flat_softkeys.fill({});
    config.softkey_labels.fill({});
    config.hardkeys.fill({});
    config.hardkey_labels.fill({});
    config.hardkey_index.fill({});
    for (auto& record : config.punch_through) record.fill(0);
    config.action_lists.list_count = 0;
    config.action_lists.entries.fill({});
    config.action_steps.step_total = 0;
    config.action_steps.steps.fill({});
    config.ir_formats.format_count = 0;
    for (auto& record : config.ir_formats.records) record.fill(0);
    config.ir_format_ids.fill(0);
    config.ir_data.record_count = 0;
    for (auto& record : config.ir_data.records) record.fill(0);
    config.ir_data_index.fill({});
    config.learning_bitmap.fill(0);
    for (auto& slot : config.learning_memory) slot.fill(0);
    config.learning_keys.fill(0);
    config.format_stamp.fill(0);
    config.clock_block.fill(0);
    config.section_pointers.fill(0);
    config.device_numbers_used.fill(0);
    config.page_numbers_used = 0;
}

std::string home_node_key(int slot)
{
    return "HOME" + std::to_string(slot + 1);
}

void init_new_configuration(Configuration& config, int slot)
{
    clear_configuration(config);

    // HOME: the name "HOME" in glyphs, one page with one soft key (its title row).
    auto& home = config.device_name_table[0];
    home.name.bytes[0] = 4;
    home.name.bytes[1] = 8;
    home.name.bytes[2] = 15;
    home.name.bytes[3] = 13;
    home.name.bytes[4] = 5;
    home.node_index = 1;
    home.node_key = home_node_key(slot);

    config.device_table[0].page_count = 1;
    config.device_table[0].visible_pages = 1;
    config.page_table[0].key_count = 1;
    // The HOME properties node is node 2, so the first HOME page is node 3.
    config.page_table[0].node_index = 3;
    config.page_table[0].node_key = home_node_key(slot) + "\\PAGE1";

    for (auto& page : config.home_pages) {
        for (auto& key : page.slots) key.action_list = no_index;
    }
    config.home_pages[0].node_index[0] = 1;
    config.home_pages[0].node_key[0] = home_node_key(slot);
    for (auto& page : config.device_pages) {
        for (auto& key : page.slots) key.action_list = no_index;
    }

    for (auto& step : config.action_steps.steps) {
        step.step_type = free_byte;
        step.param_low = free_byte;
        step.param_high = free_byte;
        step.next_step = end_of_list;
    }

    for (auto& record : config.punch_through) record[0] = free_byte;

    reset_entity_hardkeys(config, 0);

    for (auto& label : config.softkey_labels) label.bytes[0] = free_byte;

    config.format_stamp = {4, 5, 0, 4};
}

}  // namespace tesselo
