#include <random>
#include <set>

#include "core/image/image_reader.h"
#include "core/image/image_writer.h"
#include "core/tree/tree_view.h"
#include "key_clipboard_document.h"

namespace tesselo::testing {
namespace {

// Every step of a document names something that is there: a link a key, a
// jump a page, a code a stored record, a learned code a slot in use; and the
// learning bitmap holds exactly the slots the steps use.
std::string reference_faults(const Configuration& c)
{
    std::string faults;
    std::set<int> learned;
    for (int l = 0; l < action_list_rows; ++l) {
        if (c.action_lists.entries[static_cast<std::size_t>(l)].step_count == 0) continue;
        for (int row : steps_of_list(c, l)) {
            const ActionStep& s = c.action_steps.steps[static_cast<std::size_t>(row)];
            const int n = step_number_value(s);
            const auto where = " step " + std::to_string(row) + "\n";
            if (sends_ir_record(s.step_type)) {
                if (n >= c.ir_data.record_count || c.ir_data.record(n)[0] == 255) faults += "freed IR record" + where;
            } else if (sends_learned_code(s.step_type)) {
                if ((c.learning_bitmap[static_cast<std::size_t>(n / 8)] & (128 >> (n % 8))) == 0) faults += "free slot" + where;
                learned.insert(n);
            } else if (s.step_type == step_link || s.step_type == step_jump) {
                const int d = s.param_low;
                if (d != 0 && (d >= device_rows || c.device_name_table[static_cast<std::size_t>(d)].node_key.empty())) {
                    faults += "missing device" + where;
                    continue;
                }
                if (s.step_type == step_link && s.param_high == 255) continue;
                const int page = pages_before(c, d) + s.param_high;
                if (s.param_high >= c.device_table[static_cast<std::size_t>(d)].page_count) {
                    faults += "missing page" + where;
                    continue;
                }
                if (s.step_type == step_jump) continue;
                const auto key = locate_softkey(c, c.page_table[static_cast<std::size_t>(page)].node_key, s.extra);
                const SoftKey* k = key ? softkey_at(c, *key) : nullptr;
                if (!k || k->label_index != s.value) faults += "missing key" + where;
            }
        }
    }
    if (static_cast<int>(learned.size()) != check_learntotalno(c)) faults += "bitmap differs from the learned steps\n";
    return faults;
}

// Saved and opened again, the tables that keys and steps live in are the same.
void expect_round_trip(const Configuration& c, int slot)
{
    Configuration copy = c;
    auto image = build_image(copy);
    auto loaded = load_image(image, slot);
    EXPECT_EQ(loaded->action_steps.step_total, c.action_steps.step_total);
    EXPECT_EQ(loaded->action_lists.list_count, c.action_lists.list_count);
    EXPECT_EQ(loaded->learning_bitmap, c.learning_bitmap);
    for (int l = 0; l < action_list_rows; ++l) {
        const auto& a = c.action_lists.entries[static_cast<std::size_t>(l)];
        if (a.step_count == 0) continue;
        ASSERT_EQ(loaded->action_lists.entries[static_cast<std::size_t>(l)].step_count, a.step_count) << l;
        const auto rows = steps_of_list(c, l);
        const auto back = steps_of_list(*loaded, l);
        ASSERT_EQ(rows.size(), back.size());
        for (std::size_t i = 0; i < rows.size(); ++i)
            EXPECT_EQ(c.action_steps.steps[static_cast<std::size_t>(rows[i])].step_type,
                      loaded->action_steps.steps[static_cast<std::size_t>(back[i])].step_type);
    }
    for (int p = 0; p < device_page_rows; ++p)
        EXPECT_EQ(loaded->page_table[static_cast<std::size_t>(p)].key_count, c.page_table[static_cast<std::size_t>(p)].key_count);
}

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
