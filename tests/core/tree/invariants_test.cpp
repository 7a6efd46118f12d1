// The eight ties between a document's tree and its tables, checked after
// seeded sequences of adds, undos, redos and a save and reopen.
#include <random>
#include <set>

#include "core/document/open_command.h"
#include "tree_fixture.h"
#include "tree_invariants.h"

namespace tesselo {
namespace {

using Invariants = testing::TreeTest;

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
