#include <gtest/gtest.h>

#include "core/document/lifecycle.h"
#include "core/keys/delay_beep_dialogs.h"
#include "core/keys/jump_dialog.h"
#include "core/keys/link_dialog.h"
#include "core/keys/step_commands.h"
#include "core/keys/step_text.h"
#include "core/tree/journal.h"
#include "core/tree/tree_view.h"
#include "support/step_document.h"
#include "support/test_app.h"

namespace tesselo {
namespace {

using testing::TestApp;

struct StepDialogs : ::testing::Test {
    TestApp t;
    Configuration* c = nullptr;
    testing::NoIrStepNames names;
    const std::string page = "DEVICE11\\PAGE1";
    void SetUp() override
    {
        ASSERT_EQ(muNew(t.app), 0);
        c = &t.app.config(0);
        testing::add_test_device(*c, 0, 1, 2, "TV");
        testing::add_test_device(*c, 0, 2, 3, "DVD");
        addtotreeview(t.app, 0);
        t.app.key_selection.select_picture(5);  // row 1, right
        t.take_lines();
    }
    KeyTarget target() const { return {0, page}; }
    std::vector<std::string> rows()
    {
        std::vector<std::string> texts;
        for (const auto& r : load_step_rows(t.app, target(), names)) texts.push_back(r.text);
        return texts;
    }
    const ActionStep& last_step() const
    {
        const auto place = locate_key(*c, page, t.app.key_selection);
        const auto chain = steps_of_list(*c, key_action_list(*c, *place));
        return c->action_steps.steps[static_cast<std::size_t>(chain.back())];
    }
    DialogOk delay(const std::string& text)
    {
        Delaytime d(t.app.step_edit);
        d.Text1.clear();
        for (char ch : text) d.key_press(ch);
        d.leave_field(t.app.ui());
        return d.ok(t.app, target());
    }
};

TEST_F(StepDialogs, DelayOpensWithHalfASecondAndFiltersItsKeys)
{
    Delaytime d(t.app.step_edit);
    EXPECT_EQ(d.Text1, "0.5");
    d.key_press('x');
    d.key_press('7');
    d.key_press('\b');
    d.key_press('\b');
    d.key_press('-');
    EXPECT_EQ(d.Text1, "0.");
}

TEST_F(StepDialogs, DelayRoundsToOneDecimalAndCountsHundredths)
{
    ASSERT_EQ(delay("0.1"), DialogOk::done);
    EXPECT_EQ(last_step().param_low, 10);
    EXPECT_EQ(last_step().param_high, 0);
    ASSERT_EQ(delay("2.56"), DialogOk::done);
    EXPECT_EQ(last_step().param_low, 4);
    EXPECT_EQ(last_step().param_high, 1);
    ASSERT_EQ(delay("32"), DialogOk::done);
    EXPECT_EQ(last_step().param_low, 128);
    EXPECT_EQ(last_step().param_high, 12);
    EXPECT_EQ(rows(), (std::vector<std::string>{"DELAY 0.1 S", "DELAY 2.6 S", "DELAY 32 S"}));
    const auto log = t.log_lines();
    EXPECT_EQ(log.back(), "\"Add DELAY 32 S\"");
    EXPECT_EQ(log[log.size() - 2], "\"Add DELAY 2.6 S\"");
}

TEST_F(StepDialogs, DelayBelowATenthIsRefusedOnOkAndTheDialogStays)
{
    EXPECT_EQ(delay("0.05"), DialogOk::refused);
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{"message \"Kelvarzo Tesselo 3\" \"Please enter 0.1 - 32 sec\""});
    EXPECT_EQ(c->action_steps.step_total, 0);
}

TEST_F(StepDialogs, DelayAbove32IsRefusedOnLeavingTheFieldWhichIsEmptied)
{
    Delaytime d(t.app.step_edit);
    d.Text1 = "32.01";
    d.leave_field(t.app.ui());
    EXPECT_EQ(d.Text1, "");
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{"message \"Kelvarzo Tesselo 3\" \"Please enter 0.1 - 32 sec\""});
    EXPECT_EQ(d.ok(t.app, target()), DialogOk::no_step);
    EXPECT_EQ(c->action_steps.step_total, 0);
    EXPECT_TRUE(t.take_lines().empty());
}

TEST_F(StepDialogs, BeepOfATenthAtSliderZeroIs10At200HertzAndEachStepAdds200)
{
    Addbeep b(t.app.step_edit);
    EXPECT_EQ(b.Text1, "0.1");
    EXPECT_EQ(b.Label1, "200");
    ASSERT_EQ(b.ok(t.app, target()), DialogOk::done);
    EXPECT_EQ(last_step().param_low, 10);
    EXPECT_EQ(last_step().param_high, 0);
    EXPECT_EQ(last_step().value, 200);
    Addbeep b2(t.app.step_edit);
    b2.move_slider(1);
    EXPECT_EQ(b2.Label1, "400");
    b2.move_slider(4);
    EXPECT_EQ(b2.Label1, "1000");
    b2.Text1 = "2.56";  // not rounded to one decimal first
    ASSERT_EQ(b2.ok(t.app, target()), DialogOk::done);
    EXPECT_EQ(last_step().param_low, 0);
    EXPECT_EQ(last_step().param_high, 1);
    EXPECT_EQ(last_step().value, 1000);
    EXPECT_EQ(rows(), (std::vector<std::string>{"BEEP SOUND 0.1Sec ", "BEEP SOUND 2.56Sec "}));
    EXPECT_EQ(t.log_lines().back(), "\"Add BEEP SOUND 2.56Sec\"");
}

TEST_F(StepDialogs, BeepShowsTheRangeMessageLikeTheDelay)
{
    Addbeep b(t.app.step_edit);
    b.Text1 = "40";
    b.leave_field(t.app.ui());
    EXPECT_EQ(b.Text1, "");
    b.Text1 = "0";
    EXPECT_EQ(b.ok(t.app, target()), DialogOk::refused);
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{"message \"Kelvarzo Tesselo 3\" \"Please enter 0.1 - 32 sec\"",
                                                        "message \"Kelvarzo Tesselo 3\" \"Please enter 0.1 - 32 sec\""}));
}

TEST_F(StepDialogs, EditModeRewritesTheStepInPlaceWithoutTheLimits)
{
    for (int i = 0; i < 40; ++i) ASSERT_EQ(delay("1"), DialogOk::done);
    ASSERT_EQ(begin_step_edit(t.app, target(), 3), step_delay);
    Delaytime d(t.app.step_edit);
    EXPECT_EQ(d.Text1, "1");
    d.Text1 = "4.5";
    EXPECT_EQ(d.ok(t.app, target()), DialogOk::done);
    EXPECT_FALSE(t.app.step_edit.edit_flag);
    EXPECT_EQ(rows()[2], "DELAY 4.5 S");
    EXPECT_EQ(c->action_steps.step_total, 40);
    EXPECT_EQ(testing::chain_faults(*c), "");
    EXPECT_EQ(delay("1"), DialogOk::limit);
    EXPECT_EQ(t.take_lines().back(), "message \"Add Delay\" \"Exceed marco steps!\"");
}

TEST_F(StepDialogs, EveryOkJournalsFirstSoThatUndoTakesTheStepBack)
{
    ASSERT_EQ(delay("1"), DialogOk::done);
    ASSERT_EQ(delay("2"), DialogOk::done);
    EXPECT_EQ(t.app.journal().undo.count, 2);
    EXPECT_TRUE(DeleteBt(t.app, target(), 1));
    EXPECT_FALSE(MoveUPBt(t.app, target(), 1));  // nothing to move: no snapshot
    EXPECT_EQ(t.app.journal().undo.count, 3);
    muUndo_Click(t.app);
    EXPECT_EQ(rows(), (std::vector<std::string>{"DELAY 1 S", "DELAY 2 S"}));
    muUndo_Click(t.app);
    EXPECT_EQ(rows(), std::vector<std::string>{"DELAY 1 S"});
    EXPECT_EQ(c->action_steps.step_total, 1);
}

TEST_F(StepDialogs, BeepInEditModeShowsItsFrequencyAndSlider)
{
    StepFields f = duration_fields(step_beep, 150);
    f.value = 1400;
    ActionStep s{f.step_type, f.param_low, f.param_high, f.value, 0, 65535};
    t.app.step_edit.begin(0, s);
    Addbeep b(t.app.step_edit);
    EXPECT_EQ(b.Text1, "1.5");
    EXPECT_EQ(b.Label1, "1400");
    EXPECT_EQ(b.slider, 6);
}

TEST_F(StepDialogs, JumpToTheFirstPageHasOrdinal0AndShowsPage1)
{
    Createjump j(t.app, 0, page);
    EXPECT_EQ(j.choose_device("DEVICE21"), "DEVICE21\\PAGE1");
    ASSERT_EQ(j.ok(t.app, target(), "DEVICE21\\PAGE1"), DialogOk::done);
    EXPECT_EQ(last_step().step_type, step_jump);
    EXPECT_EQ(last_step().param_low, 2);
    EXPECT_EQ(last_step().param_high, 0);
    EXPECT_EQ(rows(), std::vector<std::string>{"JUMP TO DVD PAGE1"});
    EXPECT_EQ(t.log_lines().back(), "\"Add JUMP TO DVD PAGE1\"");
    ASSERT_EQ(j.ok(t.app, target(), "DEVICE21\\PAGE3"), DialogOk::done);
    EXPECT_EQ(last_step().param_high, 2);
}

TEST_F(StepDialogs, JumpMarksTheCurrentPageAndRefusesWhatCannotBeChosen)
{
    c->page_table[4].hidden = hidden_flag;  // DVD's PAGE2
    c->device_table[2].hidden = hidden_flag;
    addtotreeview(t.app, 0);
    Createjump j(t.app, 0, page);
    const auto* current = find_dialog_node(j.tree, page + " (Currently selected) ");
    ASSERT_TRUE(current);
    EXPECT_EQ(current->text, "PAGE1 (Currently selected) ");
    EXPECT_EQ(current->image, "hide tv");
    EXPECT_EQ(find_dialog_node(j.tree, "DEVICE21")->image, "hide device");
    EXPECT_EQ(find_dialog_node(j.tree, "DEVICE21")->text, "DVD");  // the tree's text
    EXPECT_EQ(find_dialog_node(j.tree, "DEVICE21\\PAGE2")->image, "hide tv");
    for (const std::string key : {page + " (Currently selected) ", std::string("DEVICE21\\PAGE2"), std::string("DEVICE21"),
                                  std::string("NOWHERE")})
        EXPECT_EQ(j.ok(t.app, target(), key), DialogOk::refused) << key;
    EXPECT_EQ(t.take_lines(), std::vector<std::string>(4, "message \"Kelvarzo Tesselo 3\" \"Select a valid page     \""));
    EXPECT_EQ(c->action_steps.step_total, 0);
}

TEST_F(StepDialogs, LinkToAHardKeyHasParamHigh255AndTheKeyIndexPlusOne)
{
    CreateLink l(t.app, 0, page, t.app.key_selection);
    ASSERT_EQ(l.ok(t.app, target(), CreateLink::hardkey_node_key("DEVICE21", 20)), DialogOk::done);
    EXPECT_EQ(last_step().param_low, 2);
    EXPECT_EQ(last_step().param_high, 255);
    EXPECT_EQ(last_step().value, 21);
    EXPECT_EQ(last_step().extra, 21);
    // The HARD BUTTON node with a choice in the hard key list: list place 3 is picture 18, key 11.
    ASSERT_EQ(l.ok(t.app, target(), "DEVICE21HARD BUTTON", 3), DialogOk::done);
    EXPECT_EQ(last_step().value, 12);
    EXPECT_EQ(rows(), (std::vector<std::string>{"LINK TO DVD=-HARD-", "LINK TO DVDGUIDE-HARD-"}));
    EXPECT_EQ(t.log_lines().back(), "\"Add LINK TO DVDGUIDE-HARD-\"");
}

TEST_F(StepDialogs, TheHardKeyListNamesTheSixTransportKeys)
{
    const auto names = fill_hardkey_list(*c, 1);
    ASSERT_EQ(names.size(), 41u);
    EXPECT_EQ(names[static_cast<std::size_t>(check_actualindex(22))], "PAUSE");
    EXPECT_EQ(names[static_cast<std::size_t>(check_actualindex(15))], "STOP");
    EXPECT_EQ(names[static_cast<std::size_t>(check_actualindex(27))], "SKIP");
    EXPECT_EQ(names[static_cast<std::size_t>(check_actualindex(20))], "PLAY");
    EXPECT_EQ(names[static_cast<std::size_t>(check_actualindex(8))], "RECORD");
    EXPECT_EQ(names[static_cast<std::size_t>(check_actualindex(13))], "BACK SKIP");
    EXPECT_EQ(names[0], "OFF");      // picture 0 is key 1
    EXPECT_EQ(names[2], "ON");       // picture 2 is key 0
    for (int i = 0; i < 41; ++i) EXPECT_EQ(check_actualindex(check_keyindex(i)), i);
}

TEST_F(StepDialogs, LinkToASoftKeyTakesNumberPositionAndPlace)
{
    // DVD's PAGE2 gets a left key on row 3 named "REC".
    auto place = *locate_softkey(*c, "DEVICE21\\PAGE2", 3);
    testing::add_step(*c, place, step_delay);
    place = *locate_softkey(*c, "DEVICE21\\PAGE2", 3);
    SoftKey* key = softkey_at(*c, place);
    key->position = 131;
    c->softkey_labels[static_cast<std::size_t>(key->label_index)] = testing::label_of("REC");
    c->softkey_labels[static_cast<std::size_t>(key->label_index)].bytes[3] = 80;  // a symbol glyph shows as "="
    CreateLink l(t.app, 0, page, t.app.key_selection);
    ASSERT_EQ(l.ok(t.app, target(), CreateLink::softkey_node_key("DEVICE21\\PAGE2", 131)), DialogOk::done);
    EXPECT_EQ(last_step().param_low, 2);
    EXPECT_EQ(last_step().param_high, 1);
    EXPECT_EQ(last_step().value, key->label_index);
    EXPECT_EQ(last_step().extra, 131);
    // The page node itself links to the device's key on its title row.
    ASSERT_EQ(l.ok(t.app, target(), "DEVICE21\\PAGE3"), DialogOk::done);
    EXPECT_EQ(last_step().param_high, 2);
    EXPECT_EQ(last_step().extra, 0);
    EXPECT_EQ(rows(), (std::vector<std::string>{"LINK TO DVDPAGE-2-L-RE=", "LINK TO DVDPAGE-3-DVD"}));
}

TEST_F(StepDialogs, LinkRefusesNoNodeADisabledNodeAndADeviceNode)
{
    t.app.key_selection.select_picture(39);  // hard key 22 of the TV
    CreateLink l(t.app, 0, page, t.app.key_selection);
    const auto* own = find_dialog_node(l.tree, CreateLink::hardkey_node_key("DEVICE11", 22));
    ASSERT_TRUE(own);
    EXPECT_EQ(own->text, "PAUSE (Currently selected) ");
    EXPECT_EQ(own->image, "disablehardbutton");
    EXPECT_EQ(l.ok(t.app, target(), ""), DialogOk::refused);
    EXPECT_EQ(l.ok(t.app, target(), own->key), DialogOk::refused);
    EXPECT_EQ(l.ok(t.app, target(), "DEVICE11HARD BUTTON"), DialogOk::refused);
    EXPECT_EQ(l.ok(t.app, target(), "DEVICE21"), DialogOk::refused);
    const std::string invalid = "message \"Kelvarzo Tesselo 3\" \"Please select a valid button or hard button or device\"";
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{invalid, invalid, invalid,
                                                        "message \"Kelvarzo Tesselo 3\" \"Please select key\""}));
    EXPECT_EQ(c->action_steps.step_total, 0);
}

TEST_F(StepDialogs, LinkOnAFullKeyShowsTheLimitUnderCreateLink)
{
    for (int i = 0; i < 40; ++i) ASSERT_EQ(delay("1"), DialogOk::done);
    t.take_lines();
    CreateLink l(t.app, 0, page, t.app.key_selection);
    EXPECT_EQ(l.ok(t.app, target(), "DEVICE21\\PAGE1"), DialogOk::limit);
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{"message \"Create Link\" \"Exceed marco steps!\""});
}

TEST_F(StepDialogs, AJumpAndAStepRowOfEveryPlainType)
{
    auto place = *locate_key(*c, page, t.app.key_selection);
    testing::add_step(*c, place, step_learning, 4);
    place = *locate_key(*c, page, t.app.key_selection);
    testing::add_step(*c, place, step_jump, 0);  // HOME, its first page
    EXPECT_EQ(rows(), (std::vector<std::string>{"LEARNING CODE  ", "JUMP TO HOME PAGE1"}));
}

}  // namespace
}  // namespace tesselo
