#pragma once

// The eight ties between a document's tree and its tables, with the hidden
// state's counts and marks and the counts at the head of the step tables.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "core/app/application.h"
#include "core/model/configuration.h"
#include "core/tree/node_keys.h"
#include "core/tree/tree_model.h"
#include "core/tree/tree_view.h"

namespace tesselo {

inline void expect_invariants(Application& app, int slot)
{
    const Configuration& c = app.config(slot);
    const TreeModel& tree = app.tree(slot);
    const int home = 1;
    ASSERT_EQ(tree.node(home).key, home_key(slot));
    // 2: HOME's pages.
    const int H = c.device_table[0].page_count;
    ASSERT_EQ(H, tree.child_count(home) - 1);
    // 1: device rows are the top-level device nodes in order.
    std::vector<int> devices(tree.roots().begin() + 1, tree.roots().end());
    ASSERT_EQ(static_cast<int>(devices.size()), device_count(c));
    std::vector<int> pages;
    for (int p : tree.node(home).children)
        if (tree.node(p).image == image_page) pages.push_back(p);
    std::set<int> numbers;
    for (std::size_t i = 0; i < devices.size(); ++i) {
        const int d = static_cast<int>(i) + 1;
        const int node = devices[i];
        const auto& row = c.device_name_table[static_cast<std::size_t>(d)];
        EXPECT_EQ(row.node_key, tree.node(node).key);
        EXPECT_EQ(row.node_index, node);
        // 2: a device's pages are its children but the properties node.
        EXPECT_EQ(c.device_table[static_cast<std::size_t>(d)].page_count, tree.child_count(node) - 1);
        EXPECT_EQ(tree.node(tree.node(node).children[0]).image, image_properties);
        for (std::size_t k = 1; k < tree.node(node).children.size(); ++k) pages.push_back(tree.node(node).children[k]);
        // 6: hidden flag and image.
        EXPECT_EQ(c.device_table[static_cast<std::size_t>(d)].hidden == 255, tree.node(node).image == image_hidden_device);
        // 7: the number of the key is flagged.
        numbers.insert(device_number_of_key(row.node_key, slot));
        // 4: exactly one HOME key.
        int found = 0;
        for (int r = 0; r < H; ++r) {
            const auto& hp = c.home_pages[static_cast<std::size_t>(r)];
            for (int s = 1; s < c.page_table[static_cast<std::size_t>(r)].key_count; ++s)
                if (hp.node_key[static_cast<std::size_t>(s)] == row.node_key) {
                    ++found;
                    EXPECT_EQ(hp.node_index[static_cast<std::size_t>(s)], node);
                    // 8: its label is the device's name.
                    const int label = hp.slots[static_cast<std::size_t>(s)].label_index;
                    ASSERT_TRUE(label >= 0 && label < softkey_label_rows);
                    EXPECT_EQ(c.softkey_labels[static_cast<std::size_t>(label)], row.name);
                }
        }
        EXPECT_EQ(found, 1) << row.node_key;
        const std::string name = decode_device_name(row.name);
        EXPECT_EQ(tree.node(node).text, tree.node(node).image == image_hidden_device ? "[" + name + "]" : name);
        EXPECT_EQ(tree.node(tree.node(node).children[0]).text, decode_device_name(row.name) + " PROPERTIES");
    }
    for (int r = 0; r < H; ++r) {
        EXPECT_EQ(c.home_pages[static_cast<std::size_t>(r)].node_index[0], 1);
        EXPECT_EQ(c.home_pages[static_cast<std::size_t>(r)].node_key[0], home_key(slot));
    }
    // 7: exactly the numbers in use.
    for (int n = 1; n <= max_devices; ++n)
        EXPECT_EQ(c.device_numbers_used[static_cast<std::size_t>(n - 1)] != 0, numbers.count(n) > 0) << n;
    // 3 and 5: page_table in tree order, device pages with one row each.
    std::set<std::string> rows;
    for (const auto& page : c.device_pages)
        if (!page.node_key.empty()) EXPECT_TRUE(rows.insert(page.node_key).second);
    EXPECT_EQ(static_cast<int>(rows.size()), static_cast<int>(pages.size()) - H);
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const auto& entry = c.page_table[i];
        EXPECT_EQ(entry.node_key, tree.node(pages[i]).key);
        EXPECT_EQ(entry.node_index, pages[i]);
        EXPECT_EQ(entry.hidden == 255, tree.node(pages[i]).image == image_hidden_page);
        if (static_cast<int>(i) >= H) {
            EXPECT_EQ(rows.count(entry.node_key), 1u);
            for (const auto& page : c.device_pages)
                if (page.node_key == entry.node_key) EXPECT_EQ(page.node_index, pages[i]);
        }
    }
    // The hidden state of each device page is counted, and a hidden
    // device's HOME key carries 128 in its first byte.
    for (int d = 1; d <= device_count(c); ++d) {
        const int first = pages_before(c, d);
        int shown = 0;
        for (int p = 0; p < c.device_table[static_cast<std::size_t>(d)].page_count; ++p)
            shown += c.page_table[static_cast<std::size_t>(first + p)].hidden != 255;
        EXPECT_EQ(c.device_table[static_cast<std::size_t>(d)].visible_pages, shown) << d;
        const bool hidden = c.device_table[static_cast<std::size_t>(d)].hidden == 255;
        for (int r = 0; r < H; ++r)
            for (int s = 1; s < c.page_table[static_cast<std::size_t>(r)].key_count; ++s)
                if (c.home_pages[static_cast<std::size_t>(r)].node_key[static_cast<std::size_t>(s)] ==
                    c.device_name_table[static_cast<std::size_t>(d)].node_key)
                    EXPECT_EQ(c.home_pages[static_cast<std::size_t>(r)].slots[static_cast<std::size_t>(s)].key_state >= 128,
                              hidden)
                        << d;
    }
    // The counts at the head of both tables are the rows in use.
    int lists = 0, steps = 0;
    for (const auto& e : c.action_lists.entries) lists += e.step_count > 0;
    for (const auto& s : c.action_steps.steps) steps += s.step_type != 255;
    EXPECT_EQ(c.action_lists.list_count, lists);
    EXPECT_EQ(c.action_steps.step_total, steps);
}

}  // namespace tesselo
