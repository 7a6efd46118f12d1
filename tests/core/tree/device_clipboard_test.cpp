// Cut, Copy, Paste and Delete of whole devices and pages, through the
// operations themselves.
#include "core/keys/key_clipboard_document.h"
#include "core/tree/device_clipboard.h"
#include "core/tree/popup_menu.h"
#include "tree_invariants.h"

namespace tesselo::testing {
namespace {

struct DeviceClipboard : ClipDocument {
    // The picture of the right side button of an LCD row.
    static int right(int row) { return 3 + 2 * row; }
    Configuration& cfg(int slot = 0) { return t.app.config(slot); }
    void select_in(int slot, const std::string& key)
    {
        t.app.activate(t.app.document_of_slot(slot));
        const int node = t.app.tree(slot).find(key);
        ASSERT_NE(node, 0) << key;
        click_node(t.app, slot, node);
    }
    const ActionStep& first_step(const Configuration& c, std::int32_t list)
    {
        return c.action_steps.steps[static_cast<std::size_t>(c.action_lists.entries[static_cast<std::size_t>(list)].first_step)];
    }
    // The list of the key in LCD row 0 of a page.
    std::int32_t row0_list(const Configuration& c, const std::string& page) { return key_action_list(c, soft_place(c, page, 0)); }
    void add_pages(const std::string& device, int n)
    {
        for (int i = 0; i < n; ++i) {
            select_in(slot_of(device + "\\"), device);
            addpage(t.app, add_ordinary);
        }
    }
};

TEST_F(DeviceClipboard, DeleteOnTheOnlyPageOfADeviceRemovesTheDevice)
{
    select("DEVICE21\\PAGE1");
    ASSERT_TRUE(cut_devicepage(t.app, cut_mode_delete));
    EXPECT_EQ(t.app.tree(0).find("DEVICE21"), 0);
    EXPECT_EQ(device_count(cfg()), 1);
    EXPECT_EQ(cfg().device_numbers_used[1], 0);
    const auto log = t.log_lines();
    EXPECT_EQ(log[log.size() - 2], "\"delete device(start) 0\"");
    EXPECT_EQ(log.back(), "\"Delete device DEVICE2 - Untitled1\"");
    expect_invariants(t.app, 0);
}

TEST_F(DeviceClipboard, DeleteOfOnePageOfSeveralRemovesThePageAlone)
{
    add_pages("DEVICE11", 2);
    select("DEVICE11\\PAGE2");
    ASSERT_TRUE(cut_devicepage(t.app, cut_mode_delete));
    EXPECT_EQ(t.app.tree(0).find("DEVICE11\\PAGE2"), 0);
    EXPECT_EQ(cfg().device_table[1].page_count, 2);
    EXPECT_EQ(cfg().device_table[1].visible_pages, 2);
    const auto log = t.log_lines();
    EXPECT_EQ(log[log.size() - 2], "\"delete page(start) Untitled1\"");
    EXPECT_EQ(log.back(), "\"delete page DEVICE1/PAGE2 - Untitled1\"");
    // The selection moves to the page in front of it.
    EXPECT_EQ(t.app.tree(0).node(t.app.tree(0).selected()).key, "DEVICE11\\PAGE1");
    expect_invariants(t.app, 0);
}

TEST_F(DeviceClipboard, CutOfAPageCopiesItThenRemovesItAndPasteBringsItBack)
{
    add_pages("DEVICE11", 1);
    click_key("DEVICE11\\PAGE2", right(1));
    add_code("DEVICE11\\PAGE2", rc5(3, 12));
    type("TV");
    select("DEVICE11\\PAGE2");
    ASSERT_TRUE(cut_devicepage(t.app, cut_mode_cut));
    EXPECT_EQ(t.app.edit_state().clipboard_kind, clipboard_page);
    EXPECT_EQ(t.app.edit_state().paste_state, 2);
    EXPECT_TRUE(t.app.edit_state().paste_button);
    EXPECT_EQ(t.log_lines().back(), "\"cut page DEVICE1/PAGE2 - Untitled1\"");
    select("DEVICE21");
    ASSERT_TRUE(paste_devicepage(t.app));
    const std::string page = "DEVICE21\\PAGE2";
    ASSERT_NE(t.app.tree(0).find(page), 0);
    const std::int32_t list = key_action_list(cfg(), soft_place(cfg(), page, 1));
    ASSERT_NE(list, no_index);
    EXPECT_EQ(first_step(cfg(), list).step_type, step_rc5);
    const SoftKey* key = softkey_at(cfg(), soft_place(cfg(), page, 1));
    EXPECT_EQ(glyphs_of(cfg().softkey_labels[static_cast<std::size_t>(key->label_index)], 2), (std::vector<int>{20, 22}));
    expect_invariants(t.app, 0);
}

TEST_F(DeviceClipboard, CopyOfADeviceWithALearnedCodePastedIntoAnotherDocumentWorksAlone)
{
    click_key(page1, right(0));
    add_code(page1, learned(0x5A));
    select("DEVICE11");
    ASSERT_TRUE(copy_devicepage(t.app));
    EXPECT_EQ(t.log_lines().back(), "\"Copy device DEVICE1 - Untitled1\"");
    ASSERT_EQ(muNew(t.app), 1);
    // The target has a learned code of its own in the first slot.
    click("HOME2\\PAGE1", 33);
    add_code("HOME2\\PAGE1", learned(0x11));
    ASSERT_TRUE(paste_devicepage(t.app));
    Configuration& target = cfg(1);
    const std::string page = "DEVICE12\\PAGE1";
    ASSERT_NE(t.app.tree(1).find(page), 0);
    const ActionStep& step = first_step(target, row0_list(target, page));
    ASSERT_EQ(step.step_type, step_learning);
    const int slot = step_number_value(step);
    EXPECT_NE(slot, 0);
    EXPECT_EQ(target.learning_memory[static_cast<std::size_t>(slot)][0], 0x5A);
    EXPECT_EQ(check_learntotalno(target), 2);
    // The source goes; the target keeps its code.
    select_in(0, "DEVICE11");
    ASSERT_TRUE(cut_devicepage(t.app, cut_mode_delete));
    EXPECT_EQ(check_learntotalno(cfg(0)), 0);
    EXPECT_EQ(target.learning_memory[static_cast<std::size_t>(slot)][0], 0x5A);
    EXPECT_EQ(check_learntotalno(target), 2);
    expect_invariants(t.app, 0);
    expect_invariants(t.app, 1);
}

TEST_F(DeviceClipboard, AJumpToItsOwnSecondPageStaysInTheSameDocumentAndIsDroppedInAnother)
{
    add_pages("DEVICE11", 1);
    click_key(page1, right(0));
    add_plain(page1, step_delay, 5);
    add_plain(page1, step_jump, 1 + 256);  // device 1, place 1
    click_key(page1, right(1));
    add_plain(page1, step_jump, 1 + 256);  // the only step of row 1's key
    select("DEVICE11");
    ASSERT_TRUE(copy_devicepage(t.app));

    // In the same document the jump still goes to the source device.
    ASSERT_TRUE(paste_devicepage(t.app));
    const std::string same = "DEVICE31\\PAGE1";
    auto rows = steps_of_list(cfg(), row0_list(cfg(), same));
    ASSERT_EQ(rows.size(), 2u);
    const ActionStep& jump = cfg().action_steps.steps[static_cast<std::size_t>(rows[1])];
    EXPECT_EQ(jump.step_type, step_jump);
    EXPECT_EQ(jump.param_low, 1);
    EXPECT_EQ(jump.param_high, 1);

    // In another it is dropped and the list is shorter; a key whose only step it was has no list.
    ASSERT_EQ(muNew(t.app), 1);
    ASSERT_TRUE(paste_devicepage(t.app));
    const std::string other = "DEVICE12\\PAGE1";
    rows = steps_of_list(cfg(1), row0_list(cfg(1), other));
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(cfg(1).action_steps.steps[static_cast<std::size_t>(rows[0])].step_type, step_delay);
    EXPECT_EQ(key_action_list(cfg(1), soft_place(cfg(1), other, 1)), no_index);
    // The buffer itself still holds the jump for a paste at home.
    select_in(0, "DEVICE11");
    ASSERT_TRUE(paste_devicepage(t.app));
    EXPECT_EQ(steps_of_list(cfg(), row0_list(cfg(), "DEVICE41\\PAGE1")).size(), 2u);
    expect_invariants(t.app, 0);
    expect_invariants(t.app, 1);
}

TEST_F(DeviceClipboard, APasteOf40PagesWhen100PagesExistIsRefusedWithNoChangeAndNoJournalEntry)
{
    add_pages("DEVICE11", 39);
    select("DEVICE11");
    ASSERT_TRUE(copy_devicepage(t.app));
    add_pages("DEVICE21", 59);  // 40 + 60 pages
    ASSERT_EQ(count_allpages(t.app.tree(0)), 101);
    const Configuration before = cfg();
    const int undo = t.app.journal().undo.count;
    t.take_lines();
    EXPECT_FALSE(paste_devicepage(t.app));
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{"message \"Kelvarzo Tesselo 3\" \"Exceed Devices or Exceed Pages\""}));
    EXPECT_EQ(device_count(cfg()), 2);
    EXPECT_EQ(cfg().page_table[101].node_key, before.page_table[101].node_key);
    EXPECT_EQ(cfg().action_steps.step_total, before.action_steps.step_total);
    EXPECT_EQ(t.app.journal().undo.count, undo);
}

TEST_F(DeviceClipboard, AfterCutAndUndoPasteIsDisabledThoughTheBufferIsFilled)
{
    select("DEVICE21");
    ASSERT_TRUE(cut_devicepage(t.app, cut_mode_cut));
    EXPECT_TRUE(t.app.edit_state().paste_button);
    muUndo_Click(t.app);
    EXPECT_FALSE(t.app.edit_state().paste_button);
    EXPECT_EQ(t.app.edit_state().clipboard_kind, 0);
    EXPECT_EQ(t.app.edit_state().paste_state, 0);
    EXPECT_FALSE(t.app.clipboards().device_buffer.pages.empty());
    select("DEVICE21");
    for (const PopupItem& item : build_popup(t.app, 0))
        if (item.key == "Paste") EXPECT_EQ(item.state, popup_greyed);
    EXPECT_FALSE(run_edit_entry(t.app, "muPaste") && device_count(cfg()) != 2);
    EXPECT_EQ(device_count(cfg()), 2);
}

TEST_F(DeviceClipboard, APasteOverTheStepLimitSaysExceedMarcoStepsAndChangesNothing)
{
    click_key(page1, right(0));
    for (int i = 0; i < 10; ++i) add_plain(page1, step_delay, i);
    select("DEVICE11");
    ASSERT_TRUE(copy_devicepage(t.app));
    // Fill the document up to 7995 steps in use.
    cfg().action_steps.step_total = 7995;
    t.take_lines();
    EXPECT_FALSE(paste_devicepage(t.app));
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{"message \"Kelvaro Tesselo 3\" \"Exceed Marco steps\""}));
    EXPECT_EQ(device_count(cfg()), 2);
    // A page of it too.
    select(page1);
    ASSERT_TRUE(copy_devicepage(t.app));
    EXPECT_FALSE(paste_devicepage(t.app));
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{"message \"Kelvaro Tesselo 3\" \"Exceed Marco steps\""}));
    EXPECT_EQ(cfg().device_table[1].page_count, 1);
}

TEST_F(DeviceClipboard, APasteWithMoreLearnedCodesThanFreeSlotsSaysLearningMemoryFull)
{
    click_key(page1, right(0));
    add_code(page1, learned(1));
    add_code(page1, learned(2));
    select(page1);
    ASSERT_TRUE(copy_devicepage(t.app));
    EXPECT_EQ(t.log_lines().back(), "\"Copy page DEVICE1/PAGE1 - Untitled1\"");
    // Every slot but one is taken.
    cfg().learning_bitmap.fill(255);
    cfg().learning_bitmap[124] = 0xFE;
    t.take_lines();
    EXPECT_FALSE(paste_devicepage(t.app));
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{"message \"Kelvaro Tesselo 3\" \"Learning memory full\""}));
    EXPECT_EQ(cfg().device_table[1].page_count, 1);
}

TEST_F(DeviceClipboard, DeletingADeviceClosesTheHomeGapAcrossPagesAndRemovesAnEmptiedLastHomePage)
{
    for (int i = 0; i < 4; ++i) AddDevice(t.app, add_ordinary);  // six devices: HOME has two pages
    ASSERT_EQ(cfg().device_table[0].page_count, 2);
    select("DEVICE21");
    ASSERT_TRUE(cut_devicepage(t.app, cut_mode_delete));
    // DEVICE6 came from HOME's second page into the last place of the first.
    EXPECT_EQ(cfg().home_pages[0].node_key[5], "DEVICE61");
    EXPECT_EQ(cfg().page_table[0].key_count, 6);
    EXPECT_EQ(cfg().device_table[0].page_count, 1);
    EXPECT_EQ(t.app.tree(0).find("HOME1\\PAGE2"), 0);
    // Jumps follow their rows: DEVICE6's HOME key goes to row 5.
    EXPECT_EQ(first_step(cfg(), cfg().home_pages[0].slots[5].action_list).param_low, 5);
    expect_invariants(t.app, 0);
}

TEST_F(DeviceClipboard, CutOfADeviceLogsItsLinesAndItsNumberIsFreeForTheNextDevice)
{
    select("DEVICE11PROPERTIES");
    ASSERT_TRUE(cut_devicepage(t.app, cut_mode_cut));
    const auto log = t.log_lines();
    EXPECT_EQ(log[log.size() - 2], "\"cut device(start) 0\"");
    EXPECT_EQ(log.back(), "\"cut device DEVICE1 - Untitled1\"");
    EXPECT_EQ(t.app.edit_state().clipboard_kind, clipboard_device);
    // Cut then Paste gives the device at the end, under the freed number.
    ASSERT_TRUE(paste_devicepage(t.app));
    EXPECT_EQ(t.app.tree(0).roots().back(), t.app.tree(0).find("DEVICE11"));
    EXPECT_EQ(cfg().device_name_table[2].node_key, "DEVICE11");
    expect_invariants(t.app, 0);
}

TEST_F(DeviceClipboard, CopyAndDeleteOfHomeAndItsPagesDoNothing)
{
    select("HOME1");
    EXPECT_FALSE(copy_devicepage(t.app));
    EXPECT_FALSE(cut_devicepage(t.app, cut_mode_delete));
    select("HOME1\\PAGE1");
    EXPECT_FALSE(cut_devicepage(t.app, cut_mode_cut));
    EXPECT_EQ(device_count(cfg()), 2);
    EXPECT_EQ(t.app.journal().undo.count, 2);
}

}  // namespace
}  // namespace tesselo::testing
