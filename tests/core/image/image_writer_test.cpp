#include <gtest/gtest.h>

#include <memory>

#include "core/image/byte_reader.h"
#include "core/image/checksum.h"
#include "core/image/image_layout.h"
#include "core/image/image_writer.h"
#include "core/model/configuration.h"
#include "core/model/hardkey_defaults.h"

namespace tesselo {
namespace {

std::unique_ptr<Configuration> new_config()
{
    auto c = std::make_unique<Configuration>();
    init_new_configuration(*c, 0);
    return c;
}

std::int32_t entry(const std::vector<std::uint8_t>& image, int e)
{
    return ByteReader(image).u24(4 * e);
}

std::size_t at(const std::vector<std::uint8_t>& image, int section)
{
    return static_cast<std::size_t>(entry(image, section) - 4096);
}

// Gives the document one Device with `pages` pages, its HOME key on HOME page 1.
void add_device(Configuration& c, int pages)
{
    c.page_table[0].key_count = 2;
    c.home_pages[0].slots[1] = {0, 1, 0, 65535, 0};
    c.device_table[1] = {0, static_cast<std::uint8_t>(pages), static_cast<std::uint8_t>(pages), 0};
    reset_entity_hardkeys(c, 1);
    for (int p = 0; p < pages; ++p) {
        auto& entry = c.page_table[static_cast<std::size_t>(1 + p)];
        entry.key_count = 0;
        entry.node_key = "DEVICE11\\PAGE" + std::to_string(p + 1);
        c.device_pages[static_cast<std::size_t>(p)].node_key = entry.node_key;
    }
}

TEST(ImageHeader, FixedEntries)
{
    const auto h = image_header(ImageCounts{1, 1, 1, 1, 1, 0, 0, 0});
    const std::array<std::int32_t, 10> fixed = {4096, 4196, 4200, 4204, 4216, 4222, 4234, 4359, 68359, 92361};
    for (std::size_t i = 0; i < fixed.size(); ++i) EXPECT_EQ(h[i], fixed[i]) << i;
    EXPECT_EQ(h[10] - 4096, 160267);
}

TEST(ImageWriter, NewConfigurationHasTheDocumentedEndMarkAndSize)
{
    auto c = new_config();
    const auto counts = count_image(*c);
    ASSERT_TRUE(counts);
    EXPECT_EQ(counts->H, 1);
    EXPECT_EQ(counts->D, 1);
    EXPECT_EQ(counts->N, 1);
    EXPECT_EQ(counts->T, 1);
    EXPECT_EQ(counts->K, 1);
    EXPECT_EQ(counts->F, 0);
    EXPECT_EQ(counts->R, 0);

    const auto image = build_image(*c);
    const std::int32_t e9 = entry(image, 9);
    EXPECT_EQ(entry(image, 24), e9 + 72002 + 164 + 410 + 164 + 738 + 7 + 7680 + 4 + 4 + 10 + 2 + 2 + 2);
    const std::int32_t P = entry(image, 24) - 4096;
    EXPECT_EQ(image.size(), static_cast<std::size_t>(P + 6));
    EXPECT_EQ(image[static_cast<std::size_t>(P)], 255);
    EXPECT_EQ(image[static_cast<std::size_t>(P + 1)], 255);
    for (int i = 2; i < 6; ++i) EXPECT_EQ(image[static_cast<std::size_t>(P + i)], 0);
    // byte 3 of every header entry is 0
    for (int e = 0; e < 25; ++e) EXPECT_EQ(image[static_cast<std::size_t>(4 * e + 3)], 0);
    for (int e = 0; e < 25; ++e) EXPECT_EQ(c->section_pointers[static_cast<std::size_t>(e)], entry(image, e));
}

TEST(ImageWriter, SectionsOfANewConfiguration)
{
    auto c = new_config();
    const auto image = build_image(*c);
    EXPECT_EQ(image[100], 4);
    EXPECT_EQ(image[101], 5);
    EXPECT_EQ(image[102], 0);
    EXPECT_EQ(image[103], 4);
    // clock block: bytes 1, 2, 6, 7, 8, 9 are 0, 1, 0, 0, 0, 0
    EXPECT_EQ(image[108 + 2], 1);
    EXPECT_EQ(c->clock_block[2], 1);
    // action_steps: a free record is 255, 255, 255, value 0, extra 0, next 65535
    const std::size_t steps = at(image, sec_action_steps);
    EXPECT_EQ(image[steps], 0);
    EXPECT_EQ(image[steps + 1], 0);
    const std::vector<std::uint8_t> free_step = {255, 255, 255, 0, 0, 0, 255, 255};
    EXPECT_EQ(std::vector<std::uint8_t>(image.begin() + static_cast<long>(steps + 2), image.begin() + static_cast<long>(steps + 10)), free_step);
    // hard key labels of HOME are the defaults; hardkey_index[0] counts 41
    const std::size_t labels = at(image, sec_hardkey_labels);
    EXPECT_EQ(image[labels], 2);
    EXPECT_EQ(image[labels + 1], 15);
    EXPECT_EQ(image[labels + 2], 14);
    const std::size_t index = at(image, sec_hardkey_index);
    EXPECT_EQ(image[index + 2], 41);
    // the one soft key: HOME page 1's title row, no list
    const std::size_t soft = at(image, sec_flat_softkeys);
    EXPECT_EQ(image[soft + 4], 255);
    EXPECT_EQ(image[soft + 5], 255);
    // 768 free labels reach the image
    EXPECT_EQ(at(image, sec_page_table) - at(image, sec_softkey_labels), 7680u);
    EXPECT_EQ(image[at(image, sec_softkey_labels)], 255);
    // page_table and device_table of HOME
    const std::size_t pages = at(image, sec_page_table);
    EXPECT_EQ(image[pages + 2], 1);
    const std::size_t devices = at(image, sec_device_table);
    EXPECT_EQ(image[devices + 1], 1);
    EXPECT_EQ(image[devices + 2], 1);
    const std::size_t names = at(image, sec_device_names);
    EXPECT_EQ(std::vector<std::uint8_t>(image.begin() + static_cast<long>(names), image.begin() + static_cast<long>(names + 5)),
              (std::vector<std::uint8_t>{4, 8, 15, 13, 5}));
}

TEST(ImageWriter, RunningSumsOfPagesKeysAndHardKeys)
{
    auto c = new_config();
    add_device(*c, 3);
    c->page_table[1].key_count = 2;
    c->page_table[3].key_count = 4;
    c->device_table[1].page_base = 77;        // stale; recomputed
    c->hardkey_index[1].base = 5;              // stale; recomputed
    const auto image = build_image(*c);
    EXPECT_EQ(c->device_table[1].page_base, 1);
    EXPECT_EQ(c->hardkey_index[1].base, 41);
    EXPECT_EQ(c->hardkey_index[1].count, 41);
    EXPECT_EQ(c->page_table[0].key_base, 0);
    EXPECT_EQ(c->page_table[1].key_base, 2);
    EXPECT_EQ(c->page_table[2].key_base, 4);
    EXPECT_EQ(c->page_table[3].key_base, 4);
    EXPECT_EQ(entry(image, 15) - entry(image, 14), 7 * 8);
}

TEST(ImageWriter, APageWithNoKeysTakesNoRoomAndSharesTheNextPagesKeyBase)
{
    auto c = new_config();
    add_device(*c, 3);
    c->page_table[1].key_count = 1;
    c->page_table[2].key_count = 0;
    c->page_table[3].key_count = 2;
    c->device_pages[1].slots[0].position = 9;  // never gathered: the page has no keys
    c->device_pages[2].slots[0].position = 3;
    const auto image = build_image(*c);
    EXPECT_EQ(c->page_table[2].key_base, c->page_table[3].key_base);
    const std::size_t soft = at(image, sec_flat_softkeys);
    // HOME's two keys, page 1's key, then page 3's first key
    EXPECT_EQ(image[soft + 7 * 3 + 1], 3);
}

TEST(ImageWriter, DevicePagesAreGatheredByNodeKeyNotByRow)
{
    auto c = new_config();
    add_device(*c, 2);
    c->page_table[1].key_count = 1;
    c->page_table[2].key_count = 1;
    // page 1's keys sit in row 5, page 2's in row 0
    c->device_pages[5] = c->device_pages[0];
    c->device_pages[5].slots[0].position = 1;
    c->device_pages[0].node_key = "DEVICE11\\PAGE2";
    c->device_pages[0].slots[0].position = 2;
    c->device_pages[1].node_key.clear();
    c->page_table[1].node_key = "DEVICE11\\PAGE1";
    c->device_pages[5].node_key = "DEVICE11\\PAGE1";
    const auto image = build_image(*c);
    const std::size_t soft = at(image, sec_flat_softkeys);
    EXPECT_EQ(image[soft + 7 * 2 + 1], 1);
    EXPECT_EQ(image[soft + 7 * 3 + 1], 2);
}

TEST(ImageWriter, ValuesSplitLowByteFirst)
{
    auto c = new_config();
    c->action_lists.list_count = 256;
    c->action_lists.entries[0] = {256, 3};
    c->action_steps.steps[0] = {7, 1, 0, 65535, 9, 256};
    c->home_pages[0].slots[0].action_list = 256;
    c->home_pages[0].slots[0].label_index = 65535;
    const auto image = build_image(*c);
    const std::size_t lists = at(image, sec_action_lists);
    EXPECT_EQ(image[lists], 0);
    EXPECT_EQ(image[lists + 1], 1);
    EXPECT_EQ(image[lists + 2], 0);
    EXPECT_EQ(image[lists + 3], 1);
    EXPECT_EQ(image[lists + 4], 3);
    const std::size_t steps = at(image, sec_action_steps) + 2;
    EXPECT_EQ(image[steps + 3], 255);
    EXPECT_EQ(image[steps + 4], 255);
    EXPECT_EQ(image[steps + 5], 9);
    EXPECT_EQ(image[steps + 6], 0);
    EXPECT_EQ(image[steps + 7], 1);
    const std::size_t soft = at(image, sec_flat_softkeys);
    EXPECT_EQ(image[soft + 2], 255);
    EXPECT_EQ(image[soft + 3], 255);
    EXPECT_EQ(image[soft + 4], 0);
    EXPECT_EQ(image[soft + 5], 1);
}

TEST(ImageWriter, EmptyCellIsZeroInKeyLabelsButStaysInDeviceNames)
{
    auto c = new_config();
    c->softkey_labels[0].bytes = {2, 101, 5, 0, 0, 0, 0, 0, 0, 0};
    c->hardkey_labels[3].bytes = {2, 7, 101, 0, 0, 0, 0, 0, 0, 0};
    c->device_name_table[0].name.bytes = {3, 8, 101, 5, 0, 0, 0, 0, 0, 0};
    const auto image = build_image(*c);
    const std::size_t soft = at(image, sec_softkey_labels);
    EXPECT_EQ(image[soft + 1], 0);
    EXPECT_EQ(image[soft + 2], 5);
    const std::size_t hard = at(image, sec_hardkey_labels) + 30;
    EXPECT_EQ(image[hard + 1], 7);
    EXPECT_EQ(image[hard + 2], 0);
    const std::size_t names = at(image, sec_device_names);
    EXPECT_EQ(image[names + 2], 101);
    // the document itself keeps its 101s
    EXPECT_EQ(c->softkey_labels[0].bytes[1], 101);
}

TEST(ImageWriter, OnlyTheFirst768LabelsAreWritten)
{
    auto c = new_config();
    c->softkey_labels[767].bytes = {1, 9, 0, 0, 0, 0, 0, 0, 0, 0};
    c->softkey_labels[768].bytes = {1, 10, 0, 0, 0, 0, 0, 0, 0, 0};
    const auto image = build_image(*c);
    const std::size_t soft = at(image, sec_softkey_labels);
    EXPECT_EQ(image[soft + 7670], 1);
    EXPECT_EQ(image[soft + 7671], 9);
    // the page table follows at once: label 768 is nowhere
    EXPECT_EQ(at(image, sec_page_table), soft + 7680);
}

TEST(ImageWriter, IrFormatsAndDataAsSixteenBitPatterns)
{
    auto c = new_config();
    c->ir_formats.format_count = 2;
    c->ir_formats.records[0][0] = -1;
    c->ir_formats.records[0][31] = 256;
    c->ir_formats.records[1][0] = -32768;
    c->ir_format_ids[0] = 5;
    c->ir_format_ids[1] = 206;
    c->ir_data.record_count = 2;
    c->ir_data_index[0] = {0, 4};
    c->ir_data.record(0) = {};
    c->ir_data.record(0)[0] = 0x1234;
    c->ir_data.record(0)[1] = -2;
    c->ir_data.record(0)[2] = 3000;
    c->ir_data.record(0)[3] = 0;
    c->ir_data_index[1] = {8, 0};
    c->ir_data.record(1)[0] = 3000;
    c->ir_data.record(1)[1] = 0;
    const auto image = build_image(*c);
    const std::size_t formats = at(image, sec_ir_formats);
    EXPECT_EQ(image[formats], 2);
    EXPECT_EQ(image[formats + 2], 0xFF);
    EXPECT_EQ(image[formats + 3], 0xFF);
    EXPECT_EQ(image[formats + 2 + 62], 0);
    EXPECT_EQ(image[formats + 2 + 63], 1);
    EXPECT_EQ(image[formats + 2 + 64], 0x00);
    EXPECT_EQ(image[formats + 2 + 65], 0x80);
    const std::size_t ids = at(image, sec_ir_format_ids);
    EXPECT_EQ(ids, formats + 2 + 128);
    EXPECT_EQ(image[ids], 5);
    EXPECT_EQ(image[ids + 2], 206);
    const std::size_t data = at(image, sec_ir_data);
    EXPECT_EQ(image[data], 2);
    const std::vector<std::uint8_t> record0 = {0x34, 0x12, 0xFE, 0xFF, 0xB8, 0x0B, 0, 0};
    EXPECT_EQ(std::vector<std::uint8_t>(image.begin() + static_cast<long>(data + 2), image.begin() + static_cast<long>(data + 10)), record0);
    // a record of length 0 still takes its two closing words
    EXPECT_EQ(image[data + 10], 0xB8);
    EXPECT_EQ(image[data + 11], 0x0B);
    EXPECT_EQ(at(image, sec_ir_data_index), data + 2 + 4 + 4 * 2);
    const std::size_t index = at(image, sec_ir_data_index);
    EXPECT_EQ(image[index + 3], 4);
    EXPECT_EQ(image[index + 4], 8);
    EXPECT_EQ(image[index + 7], 0);
    EXPECT_EQ(at(image, sec_end_mark), index + 8);
}

TEST(ImageWriter, TablesBeyondTheImagesReachAreRefused)
{
    auto c = new_config();
    c->device_table[0].page_count = 27;
    EXPECT_FALSE(count_image(*c));
    EXPECT_TRUE(build_image(*c).empty());
    c = new_config();
    c->ir_data.record_count = 8101;
    EXPECT_TRUE(build_image(*c).empty());
    c = new_config();
    c->ir_data.record_count = 1;
    c->ir_data_index[0].length = 70;  // more words than a record holds
    EXPECT_TRUE(build_image(*c).empty());
}

TEST(FileTail, LearningKeysLowByteFirst)
{
    auto c = new_config();
    c->learning_keys[0] = 0x0102;
    c->learning_keys[999] = -1;
    const auto tail = file_tail(*c);
    ASSERT_EQ(tail.size(), 2000u);
    EXPECT_EQ(tail[0], 2);
    EXPECT_EQ(tail[1], 1);
    EXPECT_EQ(tail[1998], 255);
    EXPECT_EQ(tail[1999], 255);
}

TEST(Checksum, SumModulo256)
{
    const std::uint8_t bytes[] = {0xBA, 0xCD, 0x00, 0x00, 0x00, 0x00, 0x00};
    EXPECT_EQ(checksum(bytes, 7), 0x87);
    EXPECT_EQ(checksum(bytes, 0), 0);
    const std::uint8_t full[] = {255, 255, 2};
    EXPECT_EQ(checksum(full, 3), 0);
}

}  // namespace
}  // namespace tesselo
