// What the printable overview shows of a document: HOME and each device with
// its pages, and every key with steps, its rows as the step list shows them.
#include "keys_document.h"

#include "core/ir/ir_storage.h"
#include "core/ir/rc_codes.h"
#include "core/ir/rc_formats.h"
#include "core/keys/ir_step_names.h"
#include "core/keys/overview_content.h"

namespace tesselo {
namespace {

struct OverviewTest : testing::KeysDocument {
    // RC codes are named by their decoders; no library is needed for them.
    LibraryStepNames rc_names{std::vector<std::uint8_t>{}, std::vector<std::uint8_t>{}};

    std::vector<OverviewSection> sections() { return overview_sections(*c, rc_names, &t.app.tree(0)); }

    int rc5_record(int system, int command)
    {
        IrCodeValue code;
        code.format_id = format_id_rc5;
        default_IR5Type(code.format);
        code.word_count = encode_rc5(code.words, system, command);
        return *append_ir_record(*c, code);
    }
};

std::vector<std::string> places(const OverviewSection& s)
{
    std::vector<std::string> out;
    for (const auto& k : s.keys) out.push_back(k.place);
    return out;
}

TEST_F(OverviewTest, HomeAndEachDeviceInTreeOrderWithTheirPages)
{
    select("DEVICE21");
    addpage(t.app, 0);
    const auto all = sections();
    ASSERT_EQ(all.size(), 3u);
    EXPECT_EQ(all[0].name, "HOME");
    EXPECT_EQ(all[0].device, 0);
    EXPECT_EQ(all[1].name, "DEVICE1");
    EXPECT_EQ(all[2].name, "DEVICE2");
    ASSERT_EQ(all[2].pages.size(), 2u);
    EXPECT_EQ(all[2].pages[0].name, "PAGE1");
    EXPECT_EQ(all[2].pages[0].counter, "001/002");
    EXPECT_EQ(all[2].pages[1].name, "PAGE2");
    EXPECT_EQ(all[2].pages[1].counter, "002/002");
    EXPECT_EQ(all[0].pages[0].counter, "001/001");
    // The title row of a device page shows the device's name.
    const auto& title = all[1].pages[0].rows[0];
    ASSERT_TRUE(title.has_right);
    EXPECT_EQ(key_label_text(title.right, title.right.glyph_count()), "DEVICE1");
}

TEST_F(OverviewTest, HomeKeysJumpToTheirDevices)
{
    // Every device's key on HOME jumps to the device's first page.
    const auto home = sections()[0];
    ASSERT_EQ(home.keys.size(), 2u);
    EXPECT_EQ(home.keys[0].place, "PAGE1 ROW 1 RIGHT");
    EXPECT_EQ(home.keys[0].label_text, "DEVICE1");
    EXPECT_EQ(home.keys[0].steps, std::vector<std::string>{"JUMP TO DEVICE1 PAGE1"});
    EXPECT_EQ(home.keys[1].place, "PAGE1 ROW 2 RIGHT");
    EXPECT_EQ(home.keys[1].steps, std::vector<std::string>{"JUMP TO DEVICE2 PAGE1"});
}

TEST_F(OverviewTest, SoftKeysByRowAndSideThenHardKeysByIndex)
{
    // Made out of order: row 4, the right key of row 2, hard key 1, hard key 0.
    testing::add_step(*c, testing::soft_place(*c, page1, 4), step_delay, 250);
    testing::add_step(*c, testing::soft_place(*c, page1, 2), step_beep, 50, 1000);
    testing::add_step(*c, testing::hard_place(*c, 1, 1), step_rc5, rc5_record(0, 12));
    testing::add_step(*c, testing::hard_place(*c, 1, 0), step_jump, 2 + 256 * 0);
    // A left button beside the right key of row 2, with a label of its own.
    auto& page = c->device_pages[0];
    auto& entry = c->page_table[static_cast<std::size_t>(pages_before(*c, 1))];
    const int left = entry.key_count;
    entry.key_count = static_cast<std::uint8_t>(left + 1);
    page.slots[static_cast<std::size_t>(left)] = SoftKey{0, 130, 700, no_index, 0};
    c->softkey_labels[700] = testing::label_of("MENU");
    testing::add_step(*c, testing::soft_place(*c, page1, 130), step_delay, 10);
    // A key without steps is not listed.
    testing::add_step(*c, testing::soft_place(*c, page1, 5), step_delay, 10);
    delete_marcostep_item(*c, testing::soft_place(*c, page1, 5), 1);

    const auto device = sections()[1];
    EXPECT_EQ(places(device),
              (std::vector<std::string>{"PAGE1 ROW 2 RIGHT", "PAGE1 ROW 2 LEFT", "PAGE1 ROW 4 RIGHT", "HARD", "HARD"}));
    EXPECT_EQ(device.keys[0].steps, std::vector<std::string>{"BEEP SOUND 0.5Sec "});
    EXPECT_EQ(device.keys[1].label_text, "MENU");
    EXPECT_EQ(device.keys[1].steps, std::vector<std::string>{"DELAY 0.1 S"});
    EXPECT_EQ(device.keys[2].steps, std::vector<std::string>{"DELAY 2.5 S"});
    // Hard keys by their labels: key 0 is ON, key 1 OFF.
    EXPECT_EQ(device.keys[3].label_text, "ON");
    EXPECT_EQ(device.keys[3].steps, std::vector<std::string>{"JUMP TO DEVICE2 PAGE1"});
    EXPECT_EQ(device.keys[4].label_text, "OFF");
    EXPECT_EQ(device.keys[4].steps, std::vector<std::string>{"RC5 0 12"});
}

TEST_F(OverviewTest, AKeyListsEveryStepInTheOrderTheRemoteRunsThem)
{
    const auto place = testing::hard_place(*c, 2, 7);
    testing::add_step(*c, place, step_delay, 100);
    testing::add_step(*c, place, step_rc5, rc5_record(5, 17));
    IrCodeValue learned;
    learned.learned = true;
    learned.learned_bytes.fill(3);
    testing::add_step(*c, place, step_learning, store_learned_code(*c, learned, 7));
    // A link to hard key 1 (OFF) of device 1.
    testing::add_step(*c, place, step_link, 1 + 256 * 255, 2, 0);
    move_marcostep_up(*c, key_action_list(*c, place), 2);
    const auto device = sections()[2];
    ASSERT_EQ(device.keys.size(), 1u);
    EXPECT_EQ(device.keys[0].label_text, "RED");
    EXPECT_EQ(device.keys[0].steps,
              (std::vector<std::string>{"RC5 5 17", "DELAY 1 S", "LEARNING CODE  ", "LINK TO DEVICE1OFF-HARD-"}));
}

TEST_F(OverviewTest, AHardKeyWithoutLabelIsNamedByItsNumber)
{
    c->hardkey_labels[static_cast<std::size_t>(hardkeys_per_device + 9)].bytes[0] = 0;
    testing::add_step(*c, testing::hard_place(*c, 1, 9), step_delay, 100);
    const auto device = sections()[1];
    ASSERT_EQ(device.keys.size(), 1u);
    EXPECT_EQ(device.keys[0].place, "HARD KEY 10");
    EXPECT_EQ(device.keys[0].label_text, "");
}

TEST_F(OverviewTest, HiddenDevicesAndPagesAreShownAndMarked)
{
    select("DEVICE11");
    addpage(t.app, 0);
    c->device_table[2].hidden = hidden_flag;
    c->page_table[static_cast<std::size_t>(pages_before(*c, 1) + 1)].hidden = hidden_flag;
    const auto all = sections();
    ASSERT_EQ(all.size(), 3u);
    EXPECT_FALSE(all[1].hidden);
    EXPECT_FALSE(all[1].pages[0].hidden);
    EXPECT_TRUE(all[1].pages[1].hidden);
    EXPECT_TRUE(all[2].hidden);
    EXPECT_EQ(all[2].name, "DEVICE2");
}

}  // namespace
}  // namespace tesselo
