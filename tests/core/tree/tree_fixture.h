#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/document/lifecycle.h"
#include "core/model/configuration.h"
#include "core/tree/adding.h"
#include "core/tree/journal.h"
#include "core/tree/node_keys.h"
#include "core/tree/tree_model.h"
#include "core/tree/tree_view.h"
#include "support/test_app.h"

namespace tesselo::testing {

// A test application with one new document open.
struct TreeTest : ::testing::Test {
    RecordingApp t;
    int slot = 0;

    void SetUp() override
    {
        ASSERT_EQ(muNew(t.app), 0);
        slot = t.app.active()->slot;
        t.take_lines();
    }
    Configuration& config() { return t.app.config(slot); }
    TreeModel& tree() { return t.app.tree(slot); }
    void select(const std::string& key)
    {
        const int node = tree().find(key);
        ASSERT_NE(node, 0) << key;
        click_node(t.app, slot, node);
    }
    void add_devices(int n)
    {
        for (int i = 0; i < n; ++i) AddDevice(t.app, add_ordinary);
    }
    std::vector<std::string> keys() const
    {
        std::vector<std::string> out;
        const TreeModel& tr = const_cast<TreeTest*>(this)->t.app.tree(slot);
        for (int i : tr.tree_order()) out.push_back(tr.node(i).key);
        return out;
    }

    // Takes device row `row` out of the tables and the tree, as deleting a
    // device leaves them: rows behind it move up, its HOME key goes, the HOME
    // keys behind it move one place back, its number is free again.
    void remove_device(int row)
    {
        Configuration& c = config();
        const int devices = device_count(c);
        const int first = pages_before(c, row);
        const int pages = c.device_table[static_cast<std::size_t>(row)].page_count;
        const std::string key = c.device_name_table[static_cast<std::size_t>(row)].node_key;
        c.device_numbers_used[static_cast<std::size_t>(device_number_of_key(key, slot) - 1)] = 0;
        for (auto& page : c.device_pages)
            if (page.node_key.rfind(key + "\\", 0) == 0) page = DevicePage{};
        for (int i = first; i + pages < page_rows; ++i) c.page_table[static_cast<std::size_t>(i)] = c.page_table[static_cast<std::size_t>(i + pages)];
        for (int d = row; d < devices; ++d) {
            c.device_table[static_cast<std::size_t>(d)] = c.device_table[static_cast<std::size_t>(d + 1)];
            c.device_name_table[static_cast<std::size_t>(d)] = c.device_name_table[static_cast<std::size_t>(d + 1)];
            c.device_extra[static_cast<std::size_t>(d)] = c.device_extra[static_cast<std::size_t>(d + 1)];
        }
        c.device_table[static_cast<std::size_t>(devices)] = {};
        c.device_name_table[static_cast<std::size_t>(devices)] = {};
        // The HOME keys of one page (this fixture keeps to five devices).
        HomePage& home = c.home_pages[0];
        const auto gone = static_cast<std::size_t>(row);
        const int list = home.slots[gone].action_list;
        auto& entry = c.action_lists.entries[static_cast<std::size_t>(list)];
        c.action_steps.steps[static_cast<std::size_t>(entry.first_step)] = {255, 255, 255, 0, 0, 65535};
        entry = {};
        --c.action_lists.list_count;
        --c.action_steps.step_total;
        c.softkey_labels[static_cast<std::size_t>(home.slots[gone].label_index)].bytes[0] = 255;
        for (std::size_t s = gone; s + 1 < softkeys_per_page; ++s) {
            home.slots[s] = home.slots[s + 1];
            home.node_key[s] = home.node_key[s + 1];
            home.node_index[s] = home.node_index[s + 1];
        }
        --c.page_table[0].key_count;
        for (int d = row; d < devices; ++d) {
            auto& jump = c.action_steps.steps[static_cast<std::size_t>(
                c.action_lists.entries[static_cast<std::size_t>(home.slots[static_cast<std::size_t>(d)].action_list)].first_step)];
            jump.param_low = static_cast<std::uint8_t>(d);
        }
        tree().remove(tree().find(key));
        rebuild_tree_from_tables(t.app, slot);
    }

    // Takes page `place` (0-based) of device row `row` out, as deleting it does.
    void remove_page(int row, int place)
    {
        Configuration& c = config();
        const int at = pages_before(c, row) + place;
        const std::string key = c.page_table[static_cast<std::size_t>(at)].node_key;
        for (auto& page : c.device_pages)
            if (page.node_key == key) page = DevicePage{};
        for (int i = at; i + 1 < page_rows; ++i) c.page_table[static_cast<std::size_t>(i)] = c.page_table[static_cast<std::size_t>(i + 1)];
        --c.device_table[static_cast<std::size_t>(row)].page_count;
        --c.device_table[static_cast<std::size_t>(row)].visible_pages;
        tree().remove(tree().find(key));
        rebuild_tree_from_tables(t.app, slot);
    }
};

}  // namespace tesselo::testing
