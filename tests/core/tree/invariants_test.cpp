// The eight ties between a document's tree and its tables, checked after
// seeded sequences of adds, undos, redos and a save and reopen.
#include <random>
#include <set>

#include "core/document/open_command.h"
#include "tree_fixture.h"

namespace tesselo {
namespace {

using Invariants = testing::TreeTest;

void expect_invariants(Application& app, int slot)
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
        EXPECT_EQ(tree.node(node).text, decode_device_name(row.name));
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
}

TEST_F(Invariants, HoldAfterSeededSequencesOfAddsUndosRedosAndAReopen)
{
    std::mt19937 random(2026);
    for (int round = 0; round < 4; ++round) {
        for (int step = 0; step < 60; ++step) {
            const int doc_slot = t.app.active()->slot;
            const unsigned op = random() % 10;
            if (op < 4) {
                AddDevice(t.app, add_ordinary);
            } else if (op < 7) {
                const TreeModel& tr = t.app.tree(doc_slot);
                click_node(t.app, doc_slot, 1 + static_cast<int>(random() % static_cast<unsigned>(tr.count())));
                addpage(t.app, add_ordinary);
            } else if (op < 9) {
                muUndo_Click(t.app);
            } else {
                muRedo_Click(t.app);
            }
            for (const auto& doc : t.app.documents()) expect_invariants(t.app, doc.slot);
            if (::testing::Test::HasFailure()) return;
        }
        // Save, close and open again: the tree is numbered anew.
        const auto path = (t.home.path() / ("round" + std::to_string(round) + ".kcf")).string();
        t.ui.queue_answer("file:" + path);
        ASSERT_TRUE(muSaveas(t.app));
        t.ui.queue_answer("no");
        ASSERT_TRUE(close_document(t.app, t.app.active_document()));
        ASSERT_GE(open_configuration(t.app, path), 0);
        expect_invariants(t.app, t.app.active()->slot);
        if (::testing::Test::HasFailure()) return;
    }
}

}  // namespace
}  // namespace tesselo
