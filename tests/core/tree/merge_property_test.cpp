// Seeded random files merged into random documents: after each merge the
// tables hold together, every jump and link of a merged device reaches a
// merged page or key, the steps that could not arrive are the ones counted,
// and one Undo gives the document back.
#include <random>

#include "core/keys/page_canvas.h"
#include "merge_fixture.h"
#include "tree_invariants.h"

namespace tesselo::testing {
namespace {

struct Random {
    std::mt19937 engine;
    explicit Random(unsigned seed) : engine(seed) {}
    int operator()(int low, int high) { return std::uniform_int_distribution<int>(low, high)(engine); }
};

// The key of a document's device row `row`, and its page `p` (1-based).
std::string device_node(const Configuration& c, int row) { return c.device_name_table[static_cast<std::size_t>(row)].node_key; }

bool has_soft_key(const Configuration& c, int device, int place, int position)
{
    if (device < 1 || device > device_count(c) || place >= c.device_table[static_cast<std::size_t>(device)].page_count)
        return false;
    const auto page = find_page(c, c.page_table[static_cast<std::size_t>(pages_before(c, device) + place)].node_key);
    return page && (position == 0 || softkey_slot_at(c, *page, position) >= 0);
}

// Builds `devices` devices in the active document (`slot`) with random pages,
// labelled soft keys, and steps of every kind on random keys; jumps and links
// aim at random rows of 0 to devices + 1, so that some reach nothing.
// Returns the number of jumps and links that reach nothing of the document.
int random_document(Application& app, int slot, int devices, Random& random, bool with_dangling)
{
    Configuration& c = app.config(slot);
    const int first = device_count(c) + 1;
    for (int d = 0; d < devices; ++d) {
        AddDevice(app, add_ordinary);
        const int pages = random(1, 3);
        for (int p = 1; p < pages; ++p) {
            click_node(app, slot, app.tree(slot).find(device_node(c, first + d)));
            addpage(app, add_ordinary);
        }
    }
    const int last = device_count(c);
    if (last < first) return 0;
    // Soft keys on rows 1 to 5, right or left, with labels.
    for (int d = first; d <= last; ++d)
        for (int p = 0; p < c.device_table[static_cast<std::size_t>(d)].page_count; ++p) {
            const std::string page = c.page_table[static_cast<std::size_t>(pages_before(c, d) + p)].node_key;
            for (int row = 1; row <= 5; ++row) {
                if (random(0, 2) == 0) continue;
                KeyPlace place = soft_place(c, page, static_cast<std::uint8_t>(row));
                if (!make_softkey(c, place)) continue;
                c.softkey_labels[static_cast<std::size_t>(softkey_at(c, place)->label_index)] =
                    label_of("K" + std::to_string(d) + std::to_string(p) + std::to_string(row));
            }
        }
    int dangling = 0;
    const int steps = random(10, 40);
    for (int n = 0; n < steps; ++n) {
        const int d = random(first, last);
        KeyPlace place;
        if (random(0, 1) == 0) {
            place = hard_place(c, d, random(0, hardkeys_per_device - 1));
        } else {
            const int p = random(0, c.device_table[static_cast<std::size_t>(d)].page_count - 1);
            const std::string page = c.page_table[static_cast<std::size_t>(pages_before(c, d) + p)].node_key;
            const auto found = find_page(c, page);
            std::vector<int> positions;
            for (int row = 1; row <= 5; ++row)
                if (softkey_slot_at(c, *found, row) >= 0) positions.push_back(row);
            if (positions.empty()) continue;
            place = soft_place(c, page, static_cast<std::uint8_t>(positions[static_cast<std::size_t>(random(0, static_cast<int>(positions.size()) - 1))]));
        }
        if (key_step_count(c, place) >= steps_per_list) continue;
        // With dangling steps, rows from HOME (0) to one past the last device.
        const int low = with_dangling ? 0 : first, high = with_dangling ? last + 1 : last;
        const auto aim = [&](int row) { return row; };
        switch (random(0, 5)) {
        case 0: add_step(c, place, step_delay, random(1, 500)); break;
        case 1: add_step(c, place, step_rc5, *append_ir_record(c, rc_code(step_rc5, random(0, 31), random(0, 63)))); break;
        case 2: {
            IrCodeValue learned;
            learned.learned = true;
            learned.learned_bytes.fill(static_cast<std::uint8_t>(random(0, 255)));
            add_step(c, place, step_learning, store_learned_code(c, learned, 1));
            break;
        }
        case 3: {
            const int row = aim(random(low, high));
            const int target_place = random(0, 3);
            dangling += !(row >= first && row <= last &&
                          target_place < c.device_table[static_cast<std::size_t>(row)].page_count);
            add_step(c, place, step_jump, row + 256 * target_place);
            break;
        }
        case 4: {
            const int row = aim(random(low, high));
            const int key = random(1, hardkeys_per_device + 1);
            dangling += !(row >= first && row <= last && key <= hardkeys_per_device);
            add_step(c, place, step_link, row + 256 * 255, static_cast<std::uint16_t>(key), static_cast<std::uint8_t>(key));
            break;
        }
        default: {
            const int row = aim(random(low, high));
            const int target_place = random(0, 2);
            const int position = random(0, 5);
            const bool reaches = row >= first && row <= last && has_soft_key(c, row, target_place, position);
            dangling += !reaches;
            std::uint16_t value = static_cast<std::uint16_t>(no_index);
            if (reaches && position > 0) {
                const auto page = *find_page(c, c.page_table[static_cast<std::size_t>(pages_before(c, row) + target_place)].node_key);
                value = static_cast<std::uint16_t>(
                    c.device_pages[static_cast<std::size_t>(page.device_page)].slots[static_cast<std::size_t>(softkey_slot_at(c, page, position))].label_index);
            }
            add_step(c, place, step_link, row + 256 * target_place, value, static_cast<std::uint8_t>(position));
            break;
        }
        }
    }
    return dangling;
}

// The steps of the devices of rows `first` to `last`, key by key.
std::vector<std::vector<ActionStep>> device_steps(const Configuration& c, int first, int last)
{
    std::vector<std::vector<ActionStep>> out;
    const auto add = [&](std::int32_t list) {
        out.emplace_back();
        if (list < 0 || list >= action_list_rows) return;
        for (int s : steps_of_list(c, list)) out.back().push_back(c.action_steps.steps[static_cast<std::size_t>(s)]);
        for (auto& step : out.back()) step.next_step = 0;  // rows may differ; the chain's order is what counts
    };
    for (int d = first; d <= last; ++d) {
        for (int k = 0; k < hardkeys_per_device; ++k) add(c.hardkeys[static_cast<std::size_t>(d * hardkeys_per_device + k)].action_list);
        for (int p = 0; p < c.device_table[static_cast<std::size_t>(d)].page_count; ++p) {
            const auto page = find_page(c, c.page_table[static_cast<std::size_t>(pages_before(c, d) + p)].node_key);
            for (const SoftKey& key : c.device_pages[static_cast<std::size_t>(page->device_page)].slots) add(key.action_list);
        }
    }
    return out;
}

// Every jump and link of the devices of rows `first` to `last` reaches a
// page or key of those devices, and a link to a soft key names it by its
// label row.
void expect_links_within(const Configuration& c, int first, int last)
{
    const auto check_list = [&](std::int32_t list) {
        if (list < 0 || list >= action_list_rows) return;
        for (int s : steps_of_list(c, list)) {
            const ActionStep& step = c.action_steps.steps[static_cast<std::size_t>(s)];
            if (step.step_type != step_jump && step.step_type != step_link) continue;
            ASSERT_GE(step.param_low, first);
            ASSERT_LE(step.param_low, last);
            const int pages = c.device_table[step.param_low].page_count;
            if (step.step_type == step_jump || step.param_high != free_byte) ASSERT_LT(step.param_high, pages);
            if (step.step_type == step_link && step.param_high == free_byte) {
                EXPECT_GE(step.value, 1);
                EXPECT_LE(step.value, hardkeys_per_device);
            } else if (step.step_type == step_link) {
                ASSERT_TRUE(has_soft_key(c, step.param_low, step.param_high, step.extra));
                const auto page =
                    *find_page(c, c.page_table[static_cast<std::size_t>(pages_before(c, step.param_low) + step.param_high)].node_key);
                const auto& slots = c.device_pages[static_cast<std::size_t>(page.device_page)].slots;
                const int slot = step.extra == 0 ? 0 : softkey_slot_at(c, page, step.extra);
                EXPECT_EQ(step.value, static_cast<std::uint16_t>(slots[static_cast<std::size_t>(slot)].label_index));
            }
        }
    };
    for (int d = first; d <= last; ++d) {
        for (int k = 0; k < hardkeys_per_device; ++k) check_list(c.hardkeys[static_cast<std::size_t>(d * hardkeys_per_device + k)].action_list);
        for (int p = 0; p < c.device_table[static_cast<std::size_t>(d)].page_count; ++p) {
            const auto page = find_page(c, c.page_table[static_cast<std::size_t>(pages_before(c, d) + p)].node_key);
            ASSERT_TRUE(page);
            for (const SoftKey& key : c.device_pages[static_cast<std::size_t>(page->device_page)].slots) check_list(key.action_list);
        }
    }
}

TEST(MergeProperty, RandomFilesMergedIntoRandomDocuments)
{
    for (unsigned seed = 1; seed <= 40; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Random random(seed);
        RecordingApp t;
        ASSERT_EQ(muNew(t.app), 0);
        random_document(t.app, 0, random(0, 4), random, false);
        ASSERT_EQ(muNew(t.app), 1);
        t.app.activate(1);
        const int devices = random(1, 6);
        const int dangling = random_document(t.app, 1, devices, random, true);
        const std::string file = (t.home.path() / "random.kcf").string();
        ASSERT_TRUE(save_tofile(t.app, file, 0, 1));

        t.app.activate(0);
        Configuration& c = t.app.config(0);
        const int before = device_count(c);
        const auto image = build_image(c);
        const auto own = device_steps(c, 1, before);
        t.take_lines();
        t.ui.queue_answer("file:" + file);
        ASSERT_EQ(muMerge(t.app), devices);
        EXPECT_EQ(t.take_lines(),
                  std::vector<std::string>{"status \"" + merge_status_text(devices, dangling) + "\""});
        EXPECT_EQ(device_count(c), before + devices);
        EXPECT_EQ(chain_faults(c), "");
        expect_invariants(t.app, 0);
        expect_links_within(c, before + 1, before + devices);
        // The document's own devices keep their steps as they were.
        EXPECT_EQ(device_steps(c, 1, before), own);
        muUndo_Click(t.app);
        EXPECT_EQ(build_image(c), image);
    }
}

}  // namespace
}  // namespace tesselo::testing
