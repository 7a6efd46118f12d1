#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/document/lifecycle.h"
#include "core/model/configuration.h"
#include "core/tree/adding.h"
#include "core/tree/device_clipboard.h"
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

    // Deletes device row `row` as the popup's Delete does.
    void remove_device(int row)
    {
        select(config().device_name_table[static_cast<std::size_t>(row)].node_key);
        ASSERT_TRUE(cut_devicepage(t.app, cut_mode_delete));
    }

    // Deletes page `place` (0-based) of device row `row` as the popup's Delete does.
    void remove_page(int row, int place)
    {
        select(config().page_table[static_cast<std::size_t>(pages_before(config(), row) + place)].node_key);
        ASSERT_TRUE(cut_devicepage(t.app, cut_mode_delete));
    }
};

}  // namespace tesselo::testing
