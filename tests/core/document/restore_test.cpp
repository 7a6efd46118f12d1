// Tools > Restore Default Configuration: the question, the new content, the
// tree and windows that follow, and the Undo that brings everything back.
#include <gtest/gtest.h>

#include <memory>

#include "core/document/restore_default.h"
#include "core/image/image_writer.h"
#include "core/ir/ir_storage.h"
#include "core/ir/rc_codes.h"
#include "core/ir/rc_formats.h"
#include "core/tree/edit_state.h"
#include "core/tree/page_windows.h"
#include "core/tree/selection.h"
#include "core/tree/tree_fixture.h"
#include "support/step_document.h"

namespace tesselo {
namespace {

struct Windows : ApplicationListener {
    std::vector<std::string> closed;
    void page_window_closed(int slot, const std::string& caption) override
    {
        closed.push_back(std::to_string(slot) + " " + caption);
    }
};

struct RestoreTest : testing::TreeTest {
    std::vector<std::string> new_keys;

    void SetUp() override
    {
        testing::TreeTest::SetUp();
        new_keys = keys();
        // Two devices, a second page, a hidden page, steps of every plain
        // kind, an RC5 code and a learned code.
        add_devices(2);
        select("DEVICE21");
        addpage(t.app, 0);
        Configuration& c = config();
        c.page_table[static_cast<std::size_t>(pages_before(c, 2) + 1)].hidden = hidden_flag;
        auto key = testing::hard_place(c, 1, 3);
        testing::add_step(c, key, step_delay, 250);
        testing::add_step(c, key, step_jump, 2 + 256 * 1);
        IrCodeValue code;
        code.format_id = format_id_rc5;
        default_IR5Type(code.format);
        code.word_count = encode_rc5(code.words, 0, 12);
        testing::add_step(c, key, step_rc5, *append_ir_record(c, code));
        IrCodeValue learned;
        learned.learned = true;
        learned.learned_bytes.fill(7);
        testing::add_step(c, testing::hard_place(c, 2, 0), step_learning, store_learned_code(c, learned, 41));
        c.device_extra[1] = {1, 2};
        t.take_lines();
    }

    std::vector<std::uint8_t> image() { return build_image(config()); }
};

// The image and the learned-key tail of a new Configuration's content in this slot.
std::vector<std::uint8_t> new_configuration_image(int slot)
{
    auto fresh = std::make_unique<Configuration>();
    init_new_configuration(*fresh, slot);
    return build_image(*fresh);
}

TEST_F(RestoreTest, AsksUnderTheMainTitleAndNoChangesNothing)
{
    const auto before = image();
    const auto keys_before = keys();
    const auto log_before = t.log_lines();
    t.ui.queue_answer("no");
    EXPECT_FALSE(muRestore(t.app));
    EXPECT_EQ(t.take_lines(),
              std::vector<std::string>{"ask \"Kelvaro Tesselo 3\" \"Do you want to restore the default configuration?\" -> no"});
    EXPECT_EQ(t.ui.icons.back(), Icon::question);
    EXPECT_EQ(image(), before);
    EXPECT_EQ(keys(), keys_before);
    EXPECT_EQ(t.log_lines(), log_before);
    // Only the two device additions and the page are in the journal.
    EXPECT_EQ(t.app.journal().undo.count, 3);
}

TEST_F(RestoreTest, YesGivesTheDocumentTheContentOfANewConfiguration)
{
    t.app.journal().redo.count = 1;  // as after an Undo
    t.ui.queue_answer("yes");
    ASSERT_TRUE(muRestore(t.app));
    EXPECT_EQ(image(), new_configuration_image(slot));
    EXPECT_EQ(keys(), new_keys);
    const Configuration& c = config();
    EXPECT_EQ(device_count(c), 0);
    for (const auto used : c.device_numbers_used) EXPECT_EQ(used, 0);
    EXPECT_EQ(c.ir_data.record_count, 0);
    for (const auto byte : c.learning_bitmap) EXPECT_EQ(byte, 0);
    for (const auto& page : c.device_pages) EXPECT_TRUE(page.node_key.empty());
    EXPECT_EQ(c.page_table[0].node_key, home_page_key(slot, 1));
    // A journalled edit: one snapshot, the redo side emptied.
    EXPECT_EQ(t.app.journal().undo.count, 4);
    EXPECT_EQ(t.app.journal().redo.count, 0);
    EXPECT_FALSE(t.app.edit_state().redo_button);
    EXPECT_TRUE(t.app.edit_state().undo_button);
    const auto log = t.log_lines();
    ASSERT_GE(log.size(), 2u);
    EXPECT_EQ(log[log.size() - 2], "\"restore default configuration (start) Untitled1\"");
    EXPECT_EQ(log.back(), "\"Untitled1 - restore default configuration\"");
}

TEST_F(RestoreTest, ClosesEveryPageWindowOfTheDocumentAndNoneOfAnother)
{
    ASSERT_EQ(muNew(t.app), 1);
    const int other = t.app.documents()[1].slot;
    ASSERT_TRUE(open_page(t.app, other, t.app.tree(other).find(home_page_key(other, 1))));
    t.app.activate(0);
    for (const auto& key : {home_page_key(slot, 1), std::string("DEVICE11\\PAGE1"), std::string("DEVICE21\\PAGE2")})
        ASSERT_TRUE(open_page(t.app, slot, tree().find(key))) << key;
    Windows windows;
    t.app.add_listener(&windows);
    select("DEVICE21\\PAGE2");
    t.ui.queue_answer("yes");
    ASSERT_TRUE(muRestore(t.app));
    t.app.remove_listener(&windows);
    EXPECT_EQ(windows.closed, (std::vector<std::string>{"0 DEVICE21\\PAGE2", "0 DEVICE11\\PAGE1", "0 HOME1\\PAGE1"}));
    ASSERT_EQ(t.app.page_windows().all().size(), 1u);
    EXPECT_EQ(t.app.page_windows().all()[0].slot, other);
    // Nothing of the old content stays selected.
    EXPECT_EQ(t.app.selection().node_key, "");
    EXPECT_EQ(tree().selected(), 0);
}

TEST_F(RestoreTest, OneUndoBringsEverythingBackAndRedoRestoresAgain)
{
    const auto before = image();
    const auto tail_before = file_tail(config());
    const auto keys_before = keys();
    t.ui.queue_answer("yes");
    ASSERT_TRUE(muRestore(t.app));
    muUndo_Click(t.app);
    EXPECT_EQ(image(), before);
    EXPECT_EQ(file_tail(config()), tail_before);
    EXPECT_EQ(keys(), keys_before);
    EXPECT_EQ(config().page_table[static_cast<std::size_t>(pages_before(config(), 2) + 1)].hidden, hidden_flag);
    // Redo restores again, and a second Undo brings it all back once more.
    muRedo_Click(t.app);
    EXPECT_EQ(image(), new_configuration_image(slot));
    EXPECT_EQ(keys(), new_keys);
    muUndo_Click(t.app);
    EXPECT_EQ(image(), before);
    EXPECT_EQ(keys(), keys_before);
    // The device numbers are taken again: the next device is number 3.
    AddDevice(t.app, add_ordinary);
    EXPECT_NE(tree().find("DEVICE31"), 0);
}

TEST_F(RestoreTest, AfterARestoreTheDocumentGrowsAsANewOneDoes)
{
    t.ui.queue_answer("yes");
    ASSERT_TRUE(muRestore(t.app));
    AddDevice(t.app, add_ordinary);
    EXPECT_NE(tree().find("DEVICE11"), 0);
    EXPECT_NE(tree().find("DEVICE11\\PAGE1"), 0);
    EXPECT_EQ(device_count(config()), 1);
    EXPECT_EQ(testing::chain_faults(config()), "");
}

TEST_F(RestoreTest, WithoutADocumentNothingIsAsked)
{
    t.ui.queue_answer("no");
    ASSERT_TRUE(close_document(t.app, 0));
    t.take_lines();
    EXPECT_FALSE(muRestore(t.app));
    EXPECT_TRUE(t.take_lines().empty());
}

}  // namespace
}  // namespace tesselo
