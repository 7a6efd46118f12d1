// Seeded, replayable sequences of every structural gesture of the tree and
// of the key gestures, across three documents: after each step every step
// names something that is there, the chains are whole, and the tree and the
// tables are tied as they must be; every hundred steps a save and open gives
// back the same tables.
#include <random>

#include "core/keys/document_faults.h"
#include "core/keys/key_clipboard_document.h"
#include "core/tree/deep_check.h"
#include "core/tree/device_clipboard.h"
#include "core/tree/hiding.h"
#include "core/tree/tree_drag.h"
#include "core/tree/tree_moves.h"
#include "tree_invariants.h"

namespace tesselo::testing {
namespace {

struct TreeProperty : ClipDocument, ::testing::WithParamInterface<unsigned> {
    std::mt19937 rng;
    int pick(int n) { return n <= 0 ? 0 : static_cast<int>(rng() % static_cast<unsigned>(n)); }
    int random_slot() { return pick(3); }
    // A click on a random node of a document's tree.
    int click_random_node(int slot)
    {
        t.app.activate(t.app.document_of_slot(slot));
        const int node = 1 + pick(t.app.tree(slot).count());
        click_node(t.app, slot, node);
        return node;
    }
    // A click on a random key of a random device page; false when the document has none.
    bool click_random_key(int slot)
    {
        std::vector<std::string> pages;
        const TreeModel& tree = t.app.tree(slot);
        for (int i = 1; i <= tree.count(); ++i)
            if (is_page_image(tree.node(i).image) && tree.node(i).key.rfind("DEVICE", 0) == 0) pages.push_back(tree.node(i).key);
        if (pages.empty()) return false;
        const std::string page = pages[static_cast<std::size_t>(pick(static_cast<int>(pages.size())))];
        static const std::array<int, 8> pictures{0, 1, 33, 40, 3, 5, 7, 9};
        t.app.activate(t.app.document_of_slot(slot));
        click_node(t.app, slot, tree.find(page));
        select_key(t.app, pictures[static_cast<std::size_t>(pick(8))]);
        return true;
    }
    void key_gesture(int slot, int op)
    {
        if (!click_random_key(slot)) return;
        const TreeModel& tree = t.app.tree(slot);
        const std::string page = tree.node(tree.selected()).key;
        Configuration& c = t.app.config(slot);
        auto place = locate_key(c, page, t.app.key_selection);
        if (!place) return;
        const int kind = pick(6);
        if (kind == 0 && ir_code_storable(c, rc5(1, 1))) {
            const auto number = store_ir_code(c, rc5(pick(32), pick(64)));
            if (number) add_step(c, *place, step_rc5, *number);
        } else if (kind == 1 && learning_slots_free(c) > 0) {
            const int number = store_learned_code(c, learned(static_cast<std::uint8_t>(op)), 1);
            if (add_step(c, *place, step_learning, number) < 0)
                c.learning_bitmap[static_cast<std::size_t>(number / 8)] &= static_cast<std::uint8_t>(~(128 >> (number % 8)));
        } else if (kind == 2 && device_count(c) >= 1) {
            // A jump to a page that is there.
            const int device = 1 + pick(device_count(c));
            add_step(c, *place, step_jump, device + 256 * pick(c.device_table[static_cast<std::size_t>(device)].page_count));
        } else if (kind == 3) {
            add_step(c, *place, step_delay, pick(100));
        } else {
            static const std::array<const char*, 4> entries{"muCopy", "muCut", "muPaste", "muDelete"};
            run_edit_entry(t.app, entries[static_cast<std::size_t>(pick(4))]);
        }
    }
};

TEST_P(TreeProperty, EveryStructuralGestureKeepsEveryInvariant)
{
    for (int doc = 1; doc < 3; ++doc) {
        ASSERT_EQ(muNew(t.app), doc);
        AddDevice(t.app, add_ordinary);
    }
    rng.seed(GetParam());
    int structural = 0;
    for (int op = 0; op < 600; ++op) {
        const int slot = random_slot();
        const int what = pick(20);
        if (what < 6) {
            key_gesture(slot, op);
        } else if (what == 6) {
            t.app.activate(t.app.document_of_slot(slot));
            AddDevice(t.app, add_ordinary);
        } else if (what == 7) {
            click_random_node(slot);
            addpage(t.app, add_ordinary);
        } else if (what == 8) {
            click_random_node(slot);
            structural += copy_devicepage(t.app);
        } else if (what == 9) {
            click_random_node(slot);
            structural += cut_devicepage(t.app, cut_mode_cut);
        } else if (what == 10) {
            click_random_node(slot);
            structural += cut_devicepage(t.app, cut_mode_delete);
        } else if (what == 11 || what == 12) {
            click_random_node(slot);
            structural += paste_devicepage(t.app);
        } else if (what == 13) {
            click_random_node(slot);
            structural += pick(2) ? Move_treeviewup(t.app) : Move_treeviewdown(t.app);
        } else if (what == 14) {
            click_random_node(slot);
            structural += hide_device(t.app) || hide_page(t.app);
        } else if (what == 15) {
            const int source = click_random_node(slot);
            const int target_slot = random_slot();
            structural += drag_treeview(t.app, slot, source, target_slot, 1 + pick(t.app.tree(target_slot).count()));
        } else if (what < 18) {
            muUndo_Click(t.app);
        } else {
            muRedo_Click(t.app);
        }
        for (int s = 0; s < 3; ++s) {
            const Configuration& cfg = t.app.config(s);
            ASSERT_EQ(chain_faults(cfg), "") << "seed " << GetParam() << " op " << op << " slot " << s;
            ASSERT_EQ(reference_faults(cfg), "") << "seed " << GetParam() << " op " << op << " slot " << s;
            ASSERT_EQ(deep_check(cfg), std::vector<std::string>{}) << "seed " << GetParam() << " op " << op << " slot " << s;
            expect_invariants(t.app, s);
            ASSERT_FALSE(::testing::Test::HasFailure()) << "seed " << GetParam() << " op " << op << " slot " << s;
        }
        if (op % 100 == 99)
            for (int s = 0; s < 3; ++s) expect_round_trip(t.app.config(s), s);
    }
    // The gestures did their work, not only their refusals.
    EXPECT_GT(structural, 60);
}

INSTANTIATE_TEST_SUITE_P(Seeds, TreeProperty, ::testing::Values(3u, 11u, 2026u, 4242u, 777777u));

}  // namespace
}  // namespace tesselo::testing
