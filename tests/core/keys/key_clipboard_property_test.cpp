#include <random>
#include <set>

#include "core/tree/tree_view.h"
#include "document_faults.h"
#include "key_clipboard_document.h"

namespace tesselo::testing {
namespace {

struct KeyClipboardProperty : ClipDocument, ::testing::WithParamInterface<unsigned> {};

TEST_P(KeyClipboardProperty, RandomGesturesAcrossThreeDocumentsKeepEveryInvariant)
{
    for (int doc = 1; doc < 3; ++doc) {
        ASSERT_EQ(muNew(t.app), doc);
        AddDevice(t.app, add_ordinary);
        AddDevice(t.app, add_ordinary);
    }
    std::vector<std::string> pages;
    for (int doc = 0; doc < 3; ++doc)
        for (int d = 1; d <= 2; ++d) pages.push_back("DEVICE" + std::to_string(d) + std::to_string(doc + 1) + "\\PAGE1");
    std::mt19937 rng(GetParam());
    auto pick = [&](int n) { return static_cast<int>(rng() % static_cast<unsigned>(n)); };
    const std::array<int, 12> pictures{0, 1, 2, 33, 40, 3, 5, 6, 7, 9, 12, 13};
    auto end = [&] { return KeyEnd{at(pages[static_cast<std::size_t>(pick(6))]), pictures[static_cast<std::size_t>(pick(12))]}; };

    int pastes = 0, removals = 0, drops = 0;
    for (int op = 0; op < 700; ++op) {
        const KeyEnd a = end();
        click(a.page.page_key, a.picture);
        const int what = pick(9);
        if (what < 3) {
            const int kind = pick(4);
            if (kind == 0) add_code(a.page.page_key, rc5(pick(32), pick(64)));
            else if (kind == 1 && learning_slots_free(t.app.config(a.page.slot)) > 0) add_code(a.page.page_key, learned(static_cast<std::uint8_t>(op)));
            else if (kind == 2) add_plain(a.page.page_key, step_jump, 1 + pick(2));
            else add_plain(a.page.page_key, step_delay, pick(100));
        } else if (what == 3) {
            edit("muCopy");
        } else if (what == 4) {
            removals += edit("muCut");
        } else if (what == 5) {
            pastes += edit("muPaste");
        } else if (what == 6) {
            removals += edit("muDelete");
        } else {
            KeyEnd b = end();
            if (pick(2)) b.page = a.page;
            drops += drop_key(t.app, a, b, pick(4));
        }
        for (int slot = 0; slot < 3; ++slot) {
            const Configuration& cfg = t.app.config(slot);
            ASSERT_EQ(chain_faults(cfg), "") << "seed " << GetParam() << " op " << op << " slot " << slot;
            ASSERT_EQ(reference_faults(cfg), "") << "seed " << GetParam() << " op " << op << " slot " << slot;
        }
        if (op % 100 == 99)
            for (int slot = 0; slot < 3; ++slot) expect_round_trip(t.app.config(slot), slot);
    }
    // The gestures did their work, not only their refusals.
    EXPECT_GT(pastes, 20);
    EXPECT_GT(removals, 20);
    EXPECT_GT(drops, 20);
}

INSTANTIATE_TEST_SUITE_P(Seeds, KeyClipboardProperty, ::testing::Values(1u, 7u, 42u, 1234u, 98765u));

}  // namespace
}  // namespace tesselo::testing
