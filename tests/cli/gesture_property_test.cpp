// Seeded, replayable runs of every gesture of the editor, as script lines over
// three documents: keys, steps, labels, split keys, punch-through, the key and
// tree clipboards across documents, moves, hiding, drags, deletions that take
// HOME pages away, undo and redo. After each line every open document passes
// the deep check and the tree's ties, and its saved image passes the integrity
// check; every fifty lines the image reads back to the same tables.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>

#include "core/image/image_check.h"
#include "core/image/image_writer.h"
#include "core/image/open_state.h"
#include "core/keys/document_faults.h"
#include "core/model/action_chain.h"
#include "core/tree/deep_check.h"
#include "core/tree/tree_invariants.h"
#include "script_in_process.h"

namespace tesselo {
namespace {

using namespace tesselo::testing;

std::string joined(const std::vector<std::string>& lines)
{
    std::string text;
    for (const auto& l : lines) text += l + "\n";
    return text;
}

struct GestureRun : ::testing::TestWithParam<unsigned>, InProcessScript {
    std::mt19937 rng;
    std::vector<std::string> history;

    int pick(int n) { return n <= 0 ? 0 : static_cast<int>(rng() % static_cast<unsigned>(n)); }
    template <typename T>
    const T& one_of(const std::vector<T>& items) { return items[static_cast<std::size_t>(pick(static_cast<int>(items.size())))]; }

    std::vector<int> open_slots()
    {
        std::vector<int> slots;
        for (const auto& d : ctx.app.documents()) slots.push_back(d.slot);
        return slots;
    }
    // Node keys of the active document whose image passes `keep`.
    template <typename Keep>
    std::vector<std::string> nodes(int slot, Keep keep)
    {
        std::vector<std::string> keys;
        const TreeModel& tree = ctx.app.tree(slot);
        for (int i = 1; i <= tree.count(); ++i)
            if (keep(tree.node(i))) keys.push_back(tree.node(i).key);
        return keys;
    }

    // A click on a page of the active document and on one of its keys, the
    // way a user reaches a key before working on it.
    std::vector<std::string> to_key(int slot, bool hard)
    {
        const auto pages = nodes(slot, [](const TreeNode& n) { return is_page_image(n.image); });
        std::vector<std::string> lines{"select " + one_of(pages)};
        if (hard) lines.push_back("key hard " + std::to_string(one_of(std::vector<int>{0, 1, 33, 40, 3, 5, 7, 9, 20})));
        else lines.push_back("key soft " + std::to_string(pick(6)) + (pick(3) == 0 ? " left" : ""));
        return lines;
    }

    // One gesture of a user: a few script lines.
    std::vector<std::string> random_gesture()
    {
        const int slot = active_slot();
        const auto all = nodes(slot, [](const TreeNode&) { return true; });
        const auto pages = nodes(slot, [](const TreeNode& n) { return is_page_image(n.image); });
        const auto device_pages =
            nodes(slot, [](const TreeNode& n) { return is_page_image(n.image) && n.key.rfind("DEVICE", 0) == 0; });
        const auto devices = nodes(slot, [](const TreeNode& n) { return is_device_image(n.image); });
        const std::string side = pick(3) == 0 ? " left" : "";
        auto on_key = [&](std::string line, bool hard = false) {
            auto lines = to_key(slot, hard);
            lines.push_back(std::move(line));
            return lines;
        };
        switch (pick(32)) {
        case 0: return {open_slots().size() < 3 ? "new" : "activate " + std::to_string(one_of(open_slots()))};
        case 1: return {"activate " + std::to_string(one_of(open_slots()))};
        case 2: case 3: return {"add-device"};
        case 4: return {"select " + one_of(all), "add-page"};
        case 5: return on_key("label " + one_of(std::vector<std::string>{"TV", "A@B", "VOL+", "\\b", "POWERKEYS"}));
        case 6: return on_key("glyph " + std::to_string(1 + pick(100)));
        case 7: case 8: {
            auto lines = to_key(slot, false);
            lines.back() = "key soft " + std::to_string(pick(6)) + " left";
            lines.push_back(std::string("link-right ") + (pick(3) ? "off" : "on"));
            return lines;
        }
        case 9: return on_key(std::string("punch ") + (pick(2) ? "on" : "off"), true);
        case 10: case 11: return on_key("add-ir rc5 " + std::to_string(pick(32)) + " " + std::to_string(pick(64)), pick(3) == 0);
        case 12: return on_key("add-delay 0.5", pick(3) == 0);
        case 13: return on_key("add-jump " + one_of(pages), pick(3) == 0);
        case 14: {
            const auto linkable = pick(4) ? device_pages : pages;
            if (linkable.empty()) return {"add-device"};
            return on_key("add-link soft " + one_of(linkable) + " " + std::to_string(pick(6)) + side, pick(3) == 0);
        }
        case 15: return devices.empty() ? std::vector<std::string>{"add-device"}
                                        : on_key("add-link hard " + one_of(devices) + " " + std::to_string(pick(56)));
        case 16: return on_key("delete-step " + std::to_string(1 + pick(3)), pick(3) == 0);
        case 17: return on_key("step-up 2", pick(3) == 0);
        case 18: case 19: {
            auto lines = to_key(slot, pick(4) == 0);
            lines.push_back("focus key");
            lines.push_back(one_of(std::vector<std::string>{"cut", "copy", "paste", "delete", "copy", "paste"}));
            return lines;
        }
        case 20: case 21:
            return {"select " + one_of(all), "focus tree", one_of(std::vector<std::string>{"cut", "copy", "paste", "delete", "copy", "paste"})};
        case 22: return {"select " + one_of(all), one_of(std::vector<std::string>{"move-up", "move-down", "hide"})};
        case 23: {
            const int target = one_of(open_slots());
            const auto there = nodes(target, [](const TreeNode&) { return true; });
            return {"select " + one_of(all), "drag " + one_of(there) + " " + std::to_string(target)};
        }
        case 24: case 25:
            return on_key("drag-key " + one_of(std::vector<std::string>{"move", "copy", "action", "link"}) + " soft " +
                          std::to_string(pick(6)) + side);
        case 26: case 27: case 28: return {"undo"};
        case 29: return {"redo"};
        case 30: return on_key(std::string("sleep ") + (pick(2) ? "on" : "off"), pick(2) == 0);
        default: return {"add-device"};
        }
    }

    // One line with answers queued for whatever question it asks.
    void play(const std::string& line)
    {
        history.push_back(line);
        ctx.ui.clear_answers();
        ctx.ui.reset_unanswered();
        for (int i = 0; i < 4; ++i) ctx.ui.queue_answer(pick(4) ? "ok" : "cancel");
        ctx.ui.queue_answer_first(pick(5) ? "yes" : "no");
        run(line);
    }

    // What a jump or link aims at, by the tree's keys: a jump its page's node
    // key, a link its device's node key and its key (a soft key by its label
    // row, a hard key by its number).
    struct Aim {
        std::string kind, key;
        int value = 0;
        bool operator==(const Aim&) const = default;
        std::string words() const { return kind + " " + key + " " + std::to_string(value); }
    };
    using Aims = std::map<int, Aim>;
    static Aims aims_of(const Configuration& c)
    {
        std::set<std::int32_t> home_lists;
        for (const auto& page : c.home_pages)
            for (const auto& key : page.slots) home_lists.insert(key.action_list);
        Aims aims;
        for (int l = 0; l < action_list_rows; ++l) {
            // A HOME key's jump is re-aimed by the rules when its pages change.
            if (c.action_lists.entries[static_cast<std::size_t>(l)].step_count == 0 || home_lists.count(l)) continue;
            for (int row : steps_of_list(c, l)) {
                const ActionStep& s = c.action_steps.steps[static_cast<std::size_t>(row)];
                if (s.param_low >= device_rows) continue;
                if (s.step_type == step_jump)
                    aims[row] = {"jump", c.page_table[static_cast<std::size_t>(pages_before(c, s.param_low) + s.param_high)].node_key, 0};
                else if (s.step_type == step_link)
                    aims[row] = {s.param_high == 255 ? "hard" : "key",
                                 c.device_name_table[static_cast<std::size_t>(s.param_low)].node_key, s.value};
            }
        }
        return aims;
    }
    // Whether what `aim` names is still in the document.
    static bool still_there(const Configuration& c, const Aim& aim)
    {
        if (aim.kind == "jump") return page_row_of_key(c, aim.key) >= 0;
        const int device = device_row_of_key(c, aim.key);
        if (device < 0) return false;
        if (aim.kind == "hard") return true;
        const int first = pages_before(c, device);
        for (int p = first; p < first + c.device_table[static_cast<std::size_t>(device)].page_count; ++p) {
            const std::string& page = c.page_table[static_cast<std::size_t>(p)].node_key;
            const auto* slots = device == 0 ? &c.home_pages[static_cast<std::size_t>(p)].slots
                                            : &c.device_pages[static_cast<std::size_t>(page_slots_row_of_key(c, page))].slots;
            for (int k = 0; k < c.page_table[static_cast<std::size_t>(p)].key_count; ++k)
                if ((*slots)[static_cast<std::size_t>(k)].label_index == aim.value) return true;
        }
        return false;
    }
    std::map<int, Aims> all_aims()
    {
        std::map<int, Aims> all;
        for (int slot : open_slots()) all[slot] = aims_of(ctx.app.config(slot));
        return all;
    }
    // A step that is still there after a gesture aims at what it aimed at,
    // unless that is gone (the step then goes too, or the rules re-aim it).
    void expect_same_aims(const std::map<int, Aims>& before, int step)
    {
        for (const auto& [slot, aims] : all_aims()) {
            const auto was = before.find(slot);
            if (was == before.end()) continue;
            for (const auto& [row, aim] : aims) {
                const auto old = was->second.find(row);
                if (old == was->second.end() || old->second == aim) continue;
                if (!still_there(ctx.app.config(slot), old->second)) continue;
                ADD_FAILURE() << "seed " << GetParam() << " line " << step << " slot " << slot << ": step " << row
                              << " aimed at '" << old->second.words() << "', now at '" << aim.words() << "'\n"
                              << joined(history);
                return;
            }
        }
    }

    // Whether a step row that is there before and after the gesture is the
    // same step. Undo and Redo bring back other tables whole; Move Up swaps
    // payloads between rows; a key paste or a drag between keys replaces a
    // list, whose freed rows its new steps take.
    static bool keeps_step_rows(const std::vector<std::string>& gesture)
    {
        const std::string& last = gesture.back();
        const bool key_paste = last == "paste" && std::find(gesture.begin(), gesture.end(), "focus key") != gesture.end();
        return last != "undo" && last != "redo" && last.rfind("step-up", 0) != 0 && last.rfind("drag-key", 0) != 0 &&
               !key_paste;
    }

    void expect_sound(int step)
    {
        for (int slot : open_slots()) {
            Configuration& c = ctx.app.config(slot);
            const auto faults = deep_check(c);
            ASSERT_TRUE(faults.empty()) << "seed " << GetParam() << " line " << step << " slot " << slot << "\n"
                                        << joined(faults) << "--- lines:\n" << joined(history);
            expect_invariants(ctx.app, slot);
            ASSERT_FALSE(::testing::Test::HasFailure()) << "seed " << GetParam() << " line " << step << "\n" << joined(history);
            Configuration copy = c;
            const auto image = build_image(copy);
            auto errors = std::make_unique<ErrorList>();
            std::vector<std::string> rows;
            ASSERT_FALSE(check_image(image, *errors, rows))
                << "seed " << GetParam() << " line " << step << ": " << joined(rows) << joined(history);
            if (step % 50 == 49) expect_round_trip(c, slot);
        }
    }
};

TEST_P(GestureRun, NoGestureLeavesAKeyThatPlaysWrongly)
{
    rng.seed(GetParam());
    for (const char* line : {"new", "add-device", "add-device", "new", "add-device"}) play(line);
    for (int step = 0; step < 1000; ++step) {
        const auto before = all_aims();
        const auto gesture = random_gesture();
        for (const auto& line : gesture) play(line);
        if (keeps_step_rows(gesture)) expect_same_aims(before, step);
        expect_sound(step);
        if (::testing::Test::HasFatalFailure() || ::testing::Test::HasFailure()) return;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, GestureRun, ::testing::Range(1u, 13u));

}  // namespace
}  // namespace tesselo
