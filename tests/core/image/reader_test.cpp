#include <gtest/gtest.h>

#include "core/document/lifecycle.h"
#include "core/document/open_command.h"
#include "core/tree/adding.h"
#include "core/tree/tree_model.h"
#include "core/tree/tree_view.h"
#include "reader_fixture.h"
#include "support/test_app.h"

namespace tesselo {
namespace {

using namespace testing;

// A document that uses every table: devices, pages, steps, IR formats and
// records, learned codes.
std::unique_ptr<Configuration> rich_configuration()
{
    RecordingApp t;
    muNew(t.app);
    for (int i = 0; i < 7; ++i) AddDevice(t.app, add_ordinary);
    click_node(t.app, 0, t.app.tree(0).find("DEVICE21"));
    addpage(t.app, add_ordinary);
    auto c = std::make_unique<Configuration>(t.app.config(0));
    c->ir_formats.format_count = 3;
    c->ir_formats.records[1][5] = -2;
    c->ir_format_ids[2] = 206;
    c->ir_data.record_count = 3;
    const std::uint8_t lengths[] = {8, 0, 62};
    for (int r = 0; r < 3; ++r) {
        const int words = lengths[r] / 2;
        c->ir_data_index[static_cast<std::size_t>(r)].length = lengths[r];
        for (int w = 0; w < words; ++w) c->ir_data.record(r)[static_cast<std::size_t>(w)] = static_cast<std::int16_t>(-100 * r - w);
        c->ir_data.record(r)[static_cast<std::size_t>(words)] = 3000;
    }
    c->ir_data_index[1].offset = 12;
    c->ir_data_index[2].offset = 16;
    c->learning_bitmap[3] = 0x81;
    c->learning_memory[999][63] = 9;
    c->learning_keys[0] = -5;
    c->learning_keys[999] = 1234;
    c->punch_through[4][0] = 2;
    c->device_extra[3] = {1, 9};
    c->hardkeys[41 * 2 + 3] = {1, 4, 2};
    c->action_steps.steps[100] = {step_delay, 50, 0, 0, 0, 65535};
    return c;
}

TEST(Reader, EveryImageTheWriterMakesReadsBackIntoTheSameTablesAndTheSameBytes)
{
    for (auto* make : {+[] { return new_configuration(); }, +[] { return rich_configuration(); }}) {
        auto original = make();
        auto file = file_of(*original);
        const auto image_bytes = build_image(*original);
        auto loaded = load_image(file, 0);
        const Configuration& a = *original;
        const Configuration& b = *loaded;
        EXPECT_EQ(b.section_pointers, a.section_pointers);
        EXPECT_EQ(b.format_stamp, a.format_stamp);
        EXPECT_EQ(b.learning_bitmap, a.learning_bitmap);
        EXPECT_EQ(b.learning_memory, a.learning_memory);
        EXPECT_EQ(b.learning_keys, a.learning_keys);
        EXPECT_EQ(b.action_steps.steps, a.action_steps.steps);
        EXPECT_EQ(b.action_steps.step_total, a.action_steps.step_total);
        EXPECT_EQ(b.action_lists.list_count, a.action_lists.list_count);
        for (int i = 0; i < action_list_rows; ++i) {
            EXPECT_EQ(b.action_lists.entries[static_cast<std::size_t>(i)].first_step, a.action_lists.entries[static_cast<std::size_t>(i)].first_step);
            EXPECT_EQ(b.action_lists.entries[static_cast<std::size_t>(i)].step_count, a.action_lists.entries[static_cast<std::size_t>(i)].step_count);
        }
        const int devices = device_count(a);
        for (int d = 0; d <= devices; ++d) {
            const auto& x = a.device_table[static_cast<std::size_t>(d)];
            const auto& y = b.device_table[static_cast<std::size_t>(d)];
            EXPECT_EQ(std::tie(x.page_base, x.page_count, x.visible_pages, x.hidden), std::tie(y.page_base, y.page_count, y.visible_pages, y.hidden));
            EXPECT_EQ(a.device_name_table[static_cast<std::size_t>(d)].name, b.device_name_table[static_cast<std::size_t>(d)].name);
            EXPECT_EQ(a.device_extra[static_cast<std::size_t>(d)].option_b, b.device_extra[static_cast<std::size_t>(d)].option_b);
            for (int k = 0; k < 41; ++k) {
                const auto i = static_cast<std::size_t>(41 * d + k);
                EXPECT_EQ(a.hardkey_labels[i], b.hardkey_labels[i]);
                EXPECT_EQ(a.hardkeys[i].action_list, b.hardkeys[i].action_list);
                EXPECT_EQ(a.hardkeys[i].sleep_flag, b.hardkeys[i].sleep_flag);
            }
        }
        for (int p = 0; p < a.device_table[0].page_count; ++p) EXPECT_EQ(a.home_pages[static_cast<std::size_t>(p)].slots, b.home_pages[static_cast<std::size_t>(p)].slots);
        for (int p = 0; p < 20; ++p) EXPECT_EQ(a.device_pages[static_cast<std::size_t>(p)].slots, b.device_pages[static_cast<std::size_t>(p)].slots);
        for (int i = 0; i < image_softkey_labels; ++i) EXPECT_EQ(a.softkey_labels[static_cast<std::size_t>(i)], b.softkey_labels[static_cast<std::size_t>(i)]);
        EXPECT_EQ(b.punch_through, a.punch_through);
        EXPECT_EQ(b.ir_formats.format_count, a.ir_formats.format_count);
        EXPECT_EQ(b.ir_formats.records, a.ir_formats.records);
        EXPECT_EQ(b.ir_format_ids, a.ir_format_ids);
        EXPECT_EQ(b.ir_data.record_count, a.ir_data.record_count);
        for (int r = 0; r < a.ir_data.record_count; ++r) {
            EXPECT_EQ(b.ir_data.record(r), a.ir_data.record(r));
            EXPECT_EQ(b.ir_data_index[static_cast<std::size_t>(r)].offset, a.ir_data_index[static_cast<std::size_t>(r)].offset);
            EXPECT_EQ(b.ir_data_index[static_cast<std::size_t>(r)].length, a.ir_data_index[static_cast<std::size_t>(r)].length);
        }
        EXPECT_EQ(build_image(*loaded), image_bytes);
        EXPECT_EQ(file_tail(*loaded), file_tail(*original));
    }
}

TEST(Reader, ABufferOfExactlyTheEndMarkPlus6HasNoTail)
{
    auto c = new_configuration();
    c->learning_keys[7] = 99;
    auto image = build_image(*c);
    auto loaded = load_image(image, 0);
    EXPECT_EQ(loaded->learning_keys[7], 0);  // kept from the reset of the slot
}

TEST(Reader, AShortTailIsABoundsFault)
{
    auto c = new_configuration();
    auto file = file_of(*c);
    file.resize(file.size() - 1);
    EXPECT_THROW(load_image(file, 0), ImageBoundsError);
}

TEST(Reader, AnImageWithNoIrDataLeavesItEmpty)
{
    auto c = new_configuration();
    auto image = build_image(*c);
    const auto h = header_of(image);
    ASSERT_EQ(h[sec_ir_data_index], h[sec_end_mark]);
    ASSERT_EQ(h[sec_ir_data], h[sec_ir_data_index] - 2);
    // With entry 22 equal to entry 23 no record count is read at all.
    put_entry(image, sec_ir_data, h[sec_ir_data_index]);
    put16(image, section_at(image, sec_ir_data_index) - 2, 5);
    auto loaded = load_image(image, 0);
    EXPECT_EQ(loaded->ir_data.record_count, 0);
}

std::vector<std::uint8_t> one_record_image(std::int16_t closing_a, std::int16_t closing_b)
{
    auto c = new_configuration();
    c->ir_data.record_count = 1;
    c->ir_data_index[0].length = 4;
    c->ir_data.record(0) = {11, 22, closing_a, closing_b};
    return build_image(*c);
}

TEST(Reader, WithOneIrRecordTheLayoutFollowsTheBytesBehindTheIndex)
{
    // Behind the index lies the end mark: 255, 255, 0 is no offset of 4, so
    // the current layout keeps the closing words as they stand.
    auto current = one_record_image(1234, 5678);
    auto loaded = load_image(current, 0);
    EXPECT_EQ(loaded->ir_data.record(0)[2], 1234);
    EXPECT_EQ(loaded->ir_data.record(0)[3], 5678);
    // Bytes there that read as an offset of 4 make it the old layout, whose
    // closing words the reader writes itself.
    auto old = one_record_image(1234, 5678);
    const std::size_t behind = section_at(old, sec_end_mark);
    old[behind] = 4;
    old[behind + 1] = 0;
    old[behind + 2] = 0;
    loaded = load_image(old, 0);
    EXPECT_EQ(loaded->ir_data.record(0)[0], 11);
    EXPECT_EQ(loaded->ir_data.record(0)[2], 3000);
    EXPECT_EQ(loaded->ir_data.record(0)[3], 0);
    EXPECT_EQ(old[behind], 255);  // the end mark is written back
}

TEST(Reader, TheOldLayoutHasNoClosingWordsBetweenRecords)
{
    auto c = new_configuration();
    c->ir_data.record_count = 2;
    c->ir_data_index[0] = {0, 4};
    c->ir_data_index[1] = {4, 2};
    // Old layout in the file: 2 code words, then 1 code word, then padding.
    c->ir_data_index[0].length = 4;
    c->ir_data.record(0) = {1, 2, 3, 4};  // words 3 and 4 are record 1 in the old layout
    c->ir_data.record(1) = {7, 7, 7};
    auto image = build_image(*c);
    auto loaded = load_image(image, 0);
    EXPECT_EQ(loaded->ir_data.record(0)[0], 1);
    EXPECT_EQ(loaded->ir_data.record(0)[1], 2);
    EXPECT_EQ(loaded->ir_data.record(0)[2], 3000);
    EXPECT_EQ(loaded->ir_data.record(0)[3], 0);
    EXPECT_EQ(loaded->ir_data.record(1)[0], 3);
    EXPECT_EQ(loaded->ir_data.record(1)[1], 3000);
    EXPECT_EQ(loaded->ir_data.record(1)[2], 0);
    // Offsets are recomputed from the lengths.
    EXPECT_EQ(loaded->ir_data_index[1].offset, 8);
    EXPECT_EQ(loaded->ir_data_index[2].offset, 14);
}

TEST(Reader, StepCount40IsKept41Becomes1AndAFirstStepAbove7999Becomes0)
{
    auto c = new_configuration();
    c->action_lists.entries[0] = {5, 40};
    c->action_lists.entries[1] = {6, 41};
    c->action_lists.entries[2] = {8000, 1};
    c->action_lists.entries[3] = {7999, 1};
    auto image = build_image(*c);
    auto loaded = load_image(image, 0);
    EXPECT_EQ(loaded->action_lists.entries[0].step_count, 40);
    EXPECT_EQ(loaded->action_lists.entries[1].step_count, 1);
    EXPECT_EQ(loaded->action_lists.entries[2].first_step, 0);
    EXPECT_EQ(loaded->action_lists.entries[3].first_step, 7999);
}

TEST(Reader, AValueOf0xFF00To0xFFFFIsReadAs0)
{
    auto c = new_configuration();
    c->action_steps.steps[0] = {step_beep, 1, 0, 0xFF00, 0, 65535};
    c->action_steps.steps[1] = {step_beep, 1, 0, 0xFFFF, 0, 65535};
    c->action_steps.steps[2] = {step_beep, 1, 0, 0xFEFF, 0, 65535};
    auto image = build_image(*c);
    auto loaded = load_image(image, 0);
    EXPECT_EQ(loaded->action_steps.steps[0].value, 0);
    EXPECT_EQ(loaded->action_steps.steps[1].value, 0);
    EXPECT_EQ(loaded->action_steps.steps[2].value, 0xFEFF);
}

TEST(Reader, SectionsBeyondTheBufferOrTheirTablesAreBoundsFaults)
{
    auto c = new_configuration();
    auto image = build_image(*c);
    auto far = image;
    put_entry(far, sec_action_steps, 0xFFFFFF);
    EXPECT_THROW(load_image(far, 0), ImageBoundsError);
    auto many = image;
    // More page records than page_table holds.
    put_entry(many, sec_device_table, header_of(image)[sec_page_table] + 4 * 156);
    EXPECT_THROW(load_image(many, 0), ImageBoundsError);
    auto pages = image;
    pages[section_at(image, sec_device_table) + 1] = 27;  // 27 HOME pages
    EXPECT_THROW(load_image(pages, 0), ImageBoundsError);
    std::vector<std::uint8_t> empty;
    EXPECT_THROW(load_image(empty, 0), ImageBoundsError);
}

struct ReaderApp : ::testing::Test {
    RecordingApp t;
};

TEST_F(ReaderApp, DevicePagesArriveInRowsFromZeroWithoutGaps)
{
    muNew(t.app);
    for (int i = 0; i < 3; ++i) AddDevice(t.app, add_ordinary);
    Configuration& c = t.app.config(0);
    // A document with a gap: the first device's page row is free.
    c.device_pages[3] = c.device_pages[0];
    c.device_pages[0] = DevicePage{};
    c.device_pages[3].slots[0].key_state = 42;
    auto file = file_of(c);
    auto loaded = load_image(file, 0);
    const int T = loaded->device_table[0].page_count + 3;
    EXPECT_EQ(T - loaded->device_table[0].page_count, 3);
    EXPECT_EQ(loaded->device_pages[0].slots[0].key_state, 42);
    commit_image(t.app, *loaded, 0);
    EXPECT_EQ(c.device_pages[0].node_key, "DEVICE11\\PAGE1");
    EXPECT_EQ(c.device_pages[1].node_key, "DEVICE21\\PAGE1");
    EXPECT_EQ(c.device_pages[2].node_key, "DEVICE31\\PAGE1");
    EXPECT_EQ(c.device_pages[3].node_key, "");
}

TEST_F(ReaderApp, DatatoarrayDrivesTheProgressAndBuildsTheTree)
{
    muNew(t.app);
    AddDevice(t.app, add_ordinary);
    t.app.config(0).action_steps.steps[50] = {step_learning, 0, 0, 0, 0, 65535};
    auto file = file_of(t.app.config(0));
    muNew(t.app);
    t.ui.progress_values.clear();
    datatoarray(t.app, file, 1);
    std::vector<int> values;
    for (const auto& [value, maximum] : t.ui.progress_values) {
        EXPECT_EQ(maximum, 100);
        values.push_back(value);
    }
    EXPECT_EQ(values, (std::vector<int>{0, 10, 20, 25, 30, 40, 50, 60, 70, 80, 90, 100}));
    EXPECT_NE(t.app.tree(1).find("DEVICE12\\PAGE1"), 0);
    // A learned code without a duration gets 3000.
    EXPECT_EQ(t.app.config(1).action_steps.steps[50].value, 3000);
}

TEST_F(ReaderApp, AFailedReadLeavesTheSlotAsItWas)
{
    muNew(t.app);
    AddDevice(t.app, add_ordinary);
    auto file = file_of(t.app.config(0));
    file.resize(file.size() / 2);
    const auto before = build_image(t.app.config(0));
    EXPECT_THROW(datatoarray(t.app, file, 0), ImageBoundsError);
    EXPECT_EQ(build_image(t.app.config(0)), before);
    EXPECT_NE(t.app.tree(0).find("DEVICE11"), 0);
}

}  // namespace
}  // namespace tesselo
