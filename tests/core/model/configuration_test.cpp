#include <gtest/gtest.h>

#include <memory>

#include "core/model/action_chain.h"
#include "core/model/configuration.h"
#include "core/model/glyphs.h"
#include "core/model/hardkey_defaults.h"
#include "core/model/softkey_labels.h"

namespace tesselo {
namespace {

TEST(Limits, CapacitiesOfTheTables)
{
    auto c = std::make_unique<Configuration>();
    EXPECT_EQ(c->device_table.size(), 129u);
    EXPECT_EQ(c->device_name_table.size(), 129u);
    EXPECT_EQ(c->device_extra.size(), 129u);
    EXPECT_EQ(c->page_table.size(), 155u);
    EXPECT_EQ(c->home_pages.size(), 26u);
    EXPECT_EQ(c->device_pages.size(), 128u);
    EXPECT_EQ(c->home_pages[0].slots.size(), 12u);
    EXPECT_EQ(c->flat_softkeys.size(), 1848u);
    EXPECT_EQ(c->softkey_labels.size(), 924u);
    EXPECT_EQ(c->hardkeys.size(), 5289u);
    EXPECT_EQ(c->hardkey_labels.size(), 5289u);
    EXPECT_EQ(c->hardkey_index.size(), 5289u);
    EXPECT_EQ(c->punch_through.size(), 41u);
    EXPECT_EQ(c->punch_through[0].size(), 18u);
    EXPECT_EQ(c->action_lists.entries.size(), 8000u);
    EXPECT_EQ(c->action_steps.steps.size(), 9000u);
    EXPECT_EQ(c->ir_formats.records.size(), 400u);
    EXPECT_EQ(c->ir_formats.records[0].size(), 32u);
    EXPECT_EQ(c->ir_format_ids.size(), 400u);
    EXPECT_EQ(c->ir_data.records.size(), 8100u);
    EXPECT_EQ(c->ir_data.records[0].size(), 33u);
    EXPECT_EQ(c->learning_bitmap.size(), 125u);
    EXPECT_EQ(c->learning_memory.size(), 1000u);
    EXPECT_EQ(c->learning_memory[0].size(), 64u);
    EXPECT_EQ(c->learning_keys.size(), 1000u);
    EXPECT_EQ(c->section_pointers.size(), 25u);
    EXPECT_EQ(action_steps_accepted, 8000);
    EXPECT_EQ(ir_data_accepted, 8000);
    EXPECT_EQ(label_glyphs, 9);
}

TEST(Limits, FormatIdentifiersOfTheBuiltInFormats)
{
    EXPECT_EQ(format_id_rc5, 5);
    EXPECT_EQ(format_id_rc5x, 90);
    EXPECT_EQ(format_id_rc6, 25);
    EXPECT_EQ(format_id_rc6a, 206);
}

TEST(IrData, RecordRLiesInBankRDiv900AtRMod900)
{
    auto c = std::make_unique<Configuration>();
    c->ir_data.record(1805)[0] = 77;
    // bank 2, row 5
    EXPECT_EQ(c->ir_data.records[2 * 900 + 5][0], 77);
}

TEST(HardkeyDefaults, FortyOneLabelsByKeyIndex)
{
    const auto& d = init_hardkey_defaults();
    ASSERT_EQ(d.size(), 41u);
    auto text = [&](int k) { return label_to_text(d[static_cast<std::size_t>(k)], d[static_cast<std::size_t>(k)].header()); };
    EXPECT_EQ(text(0), "ON");
    EXPECT_EQ(text(1), "OFF");
    EXPECT_EQ(text(2), "ON/OFF");
    EXPECT_EQ(text(3), "1");
    EXPECT_EQ(text(4), "BLUE");
    EXPECT_EQ(text(5), "+10");
    EXPECT_EQ(text(10), "CH-");
    EXPECT_EQ(text(12), "CH+");
    EXPECT_EQ(text(26), "YELLOW");
    EXPECT_EQ(text(29), "VOL+");
    EXPECT_EQ(text(40), "MENU");
    // A hard key's header is the plain number of glyphs.
    const std::vector<std::vector<int>> glyphs = {
        {15, 14}, {15, 6, 6}, {15, 14, 46, 15, 6, 6}, {28}, {2, 12, 21, 5}, {59, 28, 27}, {31}, {18, 5, 4},
        {81}, {34}, {3, 8, 37}, {7, 21, 9, 4, 5}, {3, 8, 59}, {89, 77}, {12, 5, 6, 20}, {75}, {27}, {35},
        {29}, {7, 18, 5, 5, 14}, {76}, {32}, {74}, {3, 12, 5, 1, 18}, {36}, {30}, {25, 5, 12, 12, 15, 23},
        {76, 88}, {33}, {22, 15, 12, 59}, {9, 14, 6, 15}, {18, 9, 7, 8, 20}, {5, 24, 9, 20}, {22, 15, 12, 37},
        {9, 14, 16, 21, 20}, {21, 16}, {5, 14, 20, 5, 18}, {13, 21, 20, 5}, {16, 18, 5, 22}, {4, 15, 23, 14},
        {13, 5, 14, 21}};
    for (int k = 0; k < 41; ++k) {
        const auto& label = d[static_cast<std::size_t>(k)];
        const auto& g = glyphs[static_cast<std::size_t>(k)];
        EXPECT_EQ(label.header(), g.size()) << k;
        for (std::size_t i = 0; i < 9; ++i) EXPECT_EQ(label.bytes[1 + i], i < g.size() ? g[i] : 0) << k << ":" << i;
    }
}

TEST(NewConfiguration, ContentAsMainformLoadSetsIt)
{
    auto c = std::make_unique<Configuration>();
    c->action_lists.list_count = 9;  // left over from an earlier document
    c->device_name_table[5].node_key = "DEVICE511";
    init_new_configuration(*c, 0);

    EXPECT_EQ(c->action_lists.list_count, 0);
    EXPECT_TRUE(c->device_name_table[5].node_key.empty());
    EXPECT_EQ(c->device_name_table[0].name.bytes, (std::array<std::uint8_t, 10>{4, 8, 15, 13, 5, 0, 0, 0, 0, 0}));
    EXPECT_EQ(c->device_name_table[0].node_key, "HOME1");
    EXPECT_EQ(c->device_table[0].page_count, 1);
    EXPECT_EQ(c->device_table[0].visible_pages, 1);
    EXPECT_EQ(c->page_table[0].key_count, 1);
    EXPECT_EQ(c->page_table[0].node_key, "HOME1\\PAGE1");
    EXPECT_EQ(c->home_pages[0].node_key[0], "HOME1");
    EXPECT_EQ(c->home_pages[0].node_index[0], 1);
    for (const auto& page : c->home_pages)
        for (const auto& key : page.slots) EXPECT_EQ(key.action_list, 65535);
    for (const auto& page : c->device_pages) {
        EXPECT_TRUE(page.node_key.empty());
        for (const auto& key : page.slots) EXPECT_EQ(key.action_list, 65535);
    }
    for (const auto& s : c->action_steps.steps) {
        EXPECT_EQ(s.step_type, 255);
        EXPECT_EQ(s.param_low, 255);
        EXPECT_EQ(s.param_high, 255);
        EXPECT_EQ(s.next_step, 65535);
        EXPECT_EQ(s.value, 0);
        EXPECT_EQ(s.extra, 0);
    }
    for (const auto& p : c->punch_through) {
        EXPECT_EQ(p[0], 255);
        for (std::size_t i = 1; i < 18; ++i) EXPECT_EQ(p[i], 0);
    }
    const auto& defaults = init_hardkey_defaults();
    for (std::size_t k = 0; k < 41; ++k) {
        EXPECT_EQ(c->hardkey_labels[k], defaults[k]);
        EXPECT_EQ(c->hardkeys[k].action_list, 65535);
    }
    EXPECT_EQ(c->hardkeys[41].action_list, 0);  // no Device yet
    for (const auto& label : c->softkey_labels) EXPECT_EQ(label.header(), 255);
    EXPECT_EQ(c->format_stamp, (std::array<std::uint8_t, 4>{4, 5, 0, 4}));
    for (auto used : c->device_numbers_used) EXPECT_EQ(used, 0);
    EXPECT_EQ(c->page_numbers_used, 0);
}

TEST(NewConfiguration, NodeKeysCarryTheDocumentNumber)
{
    auto c = std::make_unique<Configuration>();
    init_new_configuration(*c, 9);
    EXPECT_EQ(c->device_name_table[0].node_key, "HOME10");
    EXPECT_EQ(c->page_table[0].node_key, "HOME10\\PAGE1");
}

TEST(SearchSoftkeyno, FirstFreeEntry)
{
    auto c = std::make_unique<Configuration>();
    init_new_configuration(*c, 0);
    EXPECT_EQ(search_softkeyno(*c), 0);
    c->softkey_labels[0].bytes[0] = 3;
    EXPECT_EQ(search_softkeyno(*c), 1);
}

TEST(SearchSoftkeyno, AfterAll924LabelsTheSecondSearchFindsNoneAndReturns924)
{
    auto c = std::make_unique<Configuration>();
    init_new_configuration(*c, 0);
    for (int i = 0; i < 924; ++i) {
        const int slot = search_softkeyno(*c);
        ASSERT_EQ(slot, i);
        c->softkey_labels[static_cast<std::size_t>(slot)].bytes[0] = 0;
    }
    EXPECT_EQ(search_softkeyno(*c), 924);
    EXPECT_EQ(search_softkeyno(*c), 924);
}

TEST(ActionChain, StepsAreReachedOnlyThroughNextStep)
{
    auto c = std::make_unique<Configuration>();
    init_new_configuration(*c, 0);
    // A list of three steps at rows 40, 7 and 19: neither ascending nor adjacent.
    c->action_lists.entries[3] = {40, 3};
    c->action_steps.steps[40] = {step_delay, 10, 0, 0, 0, 7};
    c->action_steps.steps[7] = {step_beep, 20, 0, 440, 0, 19};
    c->action_steps.steps[19] = {step_delay, 30, 0, 0, 0, 65535};
    EXPECT_EQ(steps_of_list(*c, 3), (std::vector<int>{40, 7, 19}));
}

TEST(ActionChain, StopsAtStepCountAndAtRowsOutsideTheTable)
{
    auto c = std::make_unique<Configuration>();
    init_new_configuration(*c, 0);
    c->action_lists.entries[0] = {5, 2};
    c->action_steps.steps[5].next_step = 6;
    c->action_steps.steps[6].next_step = 7;
    EXPECT_EQ(steps_of_list(*c, 0), (std::vector<int>{5, 6}));
    c->action_steps.steps[5].next_step = 9500;
    EXPECT_EQ(steps_of_list(*c, 0), (std::vector<int>{5}));
    EXPECT_TRUE(steps_of_list(*c, 8000).empty());
}

}  // namespace
}  // namespace tesselo
