#pragma once

// What the seeded gesture tests check after each step: every step names
// something that is there, and a save and open gives back the same tables.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "core/image/image_reader.h"
#include "core/image/image_writer.h"
#include "core/ir/ir_storage.h"
#include "core/keys/key_locator.h"
#include "core/keys/step_chain.h"
#include "core/model/action_chain.h"
#include "core/tree/tree_view.h"

namespace tesselo::testing {

// Every step of a document names something that is there: a link a key, a
// jump a page, a code a stored record, a learned code a slot in use; and the
// learning bitmap holds exactly the slots the steps use.
inline std::string reference_faults(const Configuration& c)
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
inline void expect_round_trip(const Configuration& c, int slot)
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

}  // namespace tesselo::testing
