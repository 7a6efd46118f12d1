#include <gtest/gtest.h>

#include "core/keys/delay_beep_dialogs.h"
#include "core/keys/device_settings.h"
#include "core/keys/key_behaviours.h"
#include "core/keys/link_dialog.h"
#include "core/keys/properties_content.h"
#include "core/model/action_chain.h"
#include "core/model/softkey_labels.h"
#include "core/tree/journal.h"
#include "keys_document.h"
#include "support/step_document.h"

namespace tesselo {
namespace {

using testing::chain_faults;
using testing::KeysDocument;

constexpr int enter_picture = 22;  // hard key 36
constexpr int enter_key = 36;

struct Behaviours : KeysDocument {
    void delays(const std::string& page, int picture, int count)
    {
        click_key(page, picture);
        for (int i = 0; i < count; ++i) {
            Delaytime d(t.app.step_edit);
            ASSERT_EQ(d.ok(t.app, target(page)), DialogOk::done);
        }
    }
    PropertiesContent content() { return properties_content(t.app, names); }
    std::vector<std::string> shown_rows()
    {
        std::vector<std::string> texts;
        for (const auto& r : content().action.rows) texts.push_back(r.text);
        return texts;
    }
    std::vector<std::string> log_tail(std::size_t n)
    {
        const auto log = t.log_lines();
        return {log.end() - static_cast<std::ptrdiff_t>(std::min(n, log.size())), log.end()};
    }
};

const std::string question_line =
    "ask \"Kelvarzo Tesselo 3\" \"If you set up the Punch Through for this key, this action link to same key in all "
    "mode automatically. And if you had set up the action for the same key in another device mode, setup action will "
    "be deleted by this operation.\\n\\nIf you want to assign the another action to this key in another device, check "
    "off the Punch Through and assign the new action in the property of  required mode and key.\"";

TEST_F(Behaviours, SettingPunchThroughOnAKeyWithStepsInOtherDevicesDeletesThoseSteps)
{
    delays(page2, enter_picture, 2);
    click_key(page2, enter_picture);
    type("!");  // device 2's label of the key: ENTER!
    delays(page1, enter_picture, 1);
    const int total = c->action_steps.step_total;
    t.take_lines();
    t.ui.queue_answer("ok");
    EXPECT_TRUE(Check1_Click(t.app, target(page1), true));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{question_line + " -> ok"});
    const auto& entry = c->punch_through[enter_key];
    EXPECT_EQ(entry[0], 1);
    for (std::size_t b = 1; b < 18; ++b) EXPECT_EQ(entry[b], 255) << b;
    EXPECT_EQ(c->hardkeys[2 * 41 + enter_key].action_list, no_index);
    EXPECT_EQ(c->action_steps.step_total, total - 2);
    EXPECT_EQ(c->hardkey_labels[2 * 41 + enter_key], c->hardkey_labels[41 + enter_key]);
    EXPECT_EQ(key_step_count(*c, *locate_key(*c, page1, t.app.key_selection)), 1);
    EXPECT_EQ(chain_faults(*c), "");
    EXPECT_EQ(log_tail(2), (std::vector<std::string>{"\"Set punchthough(Start) DEVICE11\\PAGE1\"",
                                                     "\"Set punchthough DEVICE11\\PAGE1 hard 22\""}));
}

TEST_F(Behaviours, CancelAtThePunchThroughQuestionChangesNothing)
{
    delays(page2, enter_picture, 2);
    click_key(page1, enter_picture);
    const Configuration before = *c;
    const int undo = t.app.journal().undo.count;
    t.ui.queue_answer("cancel");
    EXPECT_FALSE(Check1_Click(t.app, target(page1), true));
    EXPECT_EQ(c->punch_through[enter_key][0], 255);
    EXPECT_EQ(c->hardkeys[2 * 41 + enter_key].action_list, before.hardkeys[2 * 41 + enter_key].action_list);
    EXPECT_EQ(c->action_steps.step_total, before.action_steps.step_total);
    EXPECT_EQ(t.app.journal().undo.count, undo);
}

TEST_F(Behaviours, AfterPunchThroughTheOwnersListStaysEditableAndEachOtherDeviceShowsOnlyThePunchFromRow)
{
    delays(page1, enter_picture, 2);
    t.ui.queue_answer("ok");
    Check1_Click(t.app, target(page1), true);
    auto owner = content();
    EXPECT_EQ(owner.tab_strip, 2);
    EXPECT_TRUE(owner.action.check1_shown);
    EXPECT_TRUE(owner.action.check1);
    EXPECT_FALSE(owner.action.grey);
    EXPECT_EQ(shown_rows(), (std::vector<std::string>{"DELAY 0.5 S", "DELAY 0.5 S"}));
    EXPECT_TRUE(DeleteBt(t.app, target(page1), 1));
    EXPECT_EQ(shown_rows(), std::vector<std::string>{"DELAY 0.5 S"});

    click_key(page2, enter_picture);
    const auto other = content();
    EXPECT_TRUE(other.action.check1);
    EXPECT_TRUE(other.action.grey);
    EXPECT_FALSE(other.action.check2_enabled);
    EXPECT_EQ(shown_rows(), std::vector<std::string>{"Punch from DEVICE1"});
    EXPECT_TRUE(check_punchthough(*c, enter_key, 2));
    EXPECT_TRUE(check_punchthough(*c, enter_key, 1));
    EXPECT_FALSE(check_punchthough(*c, enter_key + 1, 2));
}

TEST_F(Behaviours, ClearingPunchThroughInANonOwnerDeviceGivesThatDeviceBackAnEmptyList)
{
    delays(page1, enter_picture, 1);
    delays(page2, enter_picture, 3);
    click_key(page1, enter_picture);
    t.ui.queue_answer("ok");
    Check1_Click(t.app, target(page1), true);
    click_key(page2, enter_picture);
    EXPECT_FALSE(Check1_Click(t.app, target(page2), false));
    EXPECT_EQ(log_tail(2), (std::vector<std::string>{"\"Reset punchthough(Start) DEVICE21\\PAGE1\"",
                                                     "\"Reset punchthough DEVICE21\\PAGE1 hard 22\""}));
    // Device 2 is 0010 0000 of the first byte of the bit set.
    EXPECT_EQ(c->punch_through[enter_key][1], 0xDF);
    EXPECT_FALSE(check_punchthough(*c, enter_key, 2));
    const auto now = content();
    EXPECT_FALSE(now.action.check1);
    EXPECT_FALSE(now.action.grey);
    EXPECT_TRUE(now.action.rows.empty());
    // The owner keeps it, and its list.
    click_key(page1, enter_picture);
    EXPECT_TRUE(content().action.check1);
    EXPECT_EQ(shown_rows(), std::vector<std::string>{"DELAY 0.5 S"});
}

TEST_F(Behaviours, PunchThroughIsNotOfferedOnHomeNorOnSoftKeys)
{
    click_key("HOME1\\PAGE1", enter_picture);
    EXPECT_FALSE(content().action.check1_shown);
    EXPECT_FALSE(Check1_Click(t.app, target("HOME1\\PAGE1"), true));
    click_key(page1, 5);
    EXPECT_FALSE(content().action.check1_shown);
    EXPECT_TRUE(t.ui.unanswered() == false);
}

TEST_F(Behaviours, SleepTimerSetTwiceWithoutResetCantHappenTheByteIsNeverForcedToOne)
{
    click_key(page1, enter_picture);
    c->hardkeys[41 + enter_key].sleep_flag = 2;  // as a file may hold it
    EXPECT_TRUE(content().action.check2);
    EXPECT_TRUE(Check2_Click(t.app, target(page1), false));
    EXPECT_EQ(check_hardsleepflag(*c, 1, enter_key), 1);
    EXPECT_TRUE(content().action.check2);
    EXPECT_TRUE(Check2_Click(t.app, target(page1), true));
    EXPECT_EQ(check_hardsleepflag(*c, 1, enter_key), 2);
    EXPECT_EQ(log_tail(2), (std::vector<std::string>{"\"Set sleep timer(start) DEVICE11\\PAGE1\"",
                                                     "\"Set sleep timer DEVICE11\\PAGE1 hard 22(hardkey)\""}));
    Check2_Click(t.app, target(page1), false);
    Check2_Click(t.app, target(page1), false);
    EXPECT_EQ(check_hardsleepflag(*c, 1, enter_key), 0);
    EXPECT_EQ(log_tail(2), (std::vector<std::string>{"\"Reset sleep timer(start) DEVICE11\\PAGE1\"",
                                                     "\"Reset sleep timer DEVICE11\\PAGE1 hard 22(hardkey)\""}));
    // A Reset of a clear byte does nothing.
    EXPECT_FALSE(Check2_Click(t.app, target(page1), false));
    EXPECT_EQ(check_hardsleepflag(*c, 1, enter_key), 0);
}

TEST_F(Behaviours, SleepTimerOfASoftKeyMakesTheKeyAndHomeWritesItsOwnLine)
{
    click_key(page1, 9);
    const int keys = c->page_table[1].key_count;
    EXPECT_TRUE(Check2_Click(t.app, target(page1), true));
    EXPECT_EQ(c->page_table[1].key_count, keys + 1);
    const auto place = locate_key(*c, page1, t.app.key_selection);
    EXPECT_EQ(softkey_at(*c, *place)->key_state, 1);
    EXPECT_EQ(log_back(), "\"Set sleep timer DEVICE11\\PAGE1 row 3\"");
    click_key("HOME1\\PAGE1", 5);
    EXPECT_TRUE(Check2_Click(t.app, target("HOME1\\PAGE1"), true));
    EXPECT_EQ(c->home_pages[0].slots[1].key_state, 1);
    EXPECT_EQ(log_back(), "\"set sleep timer HOME1\\PAGE1 row 1\"");
}

TEST_F(Behaviours, Check3IsNeverOfferedOnHome)
{
    click_key("HOME1\\PAGE1", 6);  // the left button of device 1's row: HOME is searched by row alone
    const auto home = content();
    EXPECT_EQ(home.shows, PropertiesContent::Shows::softkey);
    EXPECT_FALSE(home.action.check3_shown);
    EXPECT_FALSE(add_left_softkey(t.app, target("HOME1\\PAGE1")));
    EXPECT_EQ(c->page_table[0].key_count, 3);
    click_key(page1, 6);
    EXPECT_TRUE(content().action.check3_shown);
}

TEST_F(Behaviours, Check3IsGreyedOnTheTitleRowWhichGetsNoLeftKey)
{
    click_key(page1, 4);  // the title row's left button
    const auto title = content();
    EXPECT_TRUE(title.action.check3_shown);
    EXPECT_TRUE(title.action.check3);
    EXPECT_FALSE(title.action.check3_enabled);
    const int keys = c->page_table[1].key_count;
    const int snapshots = t.app.journal().undo.count;
    EXPECT_FALSE(Check3_Click(t.app, target(page1), false));
    EXPECT_EQ(c->page_table[1].key_count, keys);
    EXPECT_EQ(t.app.journal().undo.count, snapshots);
    click_key(page1, 6);
    EXPECT_TRUE(content().action.check3_enabled);
}

TEST_F(Behaviours, ClearingLinkToRightSideButtonAddsTheLeftKeyInFrontOfTheRightOne)
{
    delays(page1, 9, 1);  // row 3 right
    delays(page1, 5, 1);  // row 1 right
    click_key(page1, 10);  // row 3 left
    auto before = content();
    EXPECT_TRUE(before.action.check3);
    EXPECT_TRUE(before.action.grey);
    EXPECT_FALSE(before.action.test_ir);
    EXPECT_FALSE(before.action.check2_enabled);
    const int label = search_softkeyno(*c);
    EXPECT_TRUE(Check3_Click(t.app, target(page1), false));
    const auto& slots = c->device_pages[0].slots;
    EXPECT_EQ(c->page_table[1].key_count, 4);
    EXPECT_EQ(slots[1], (SoftKey{0, 131, label, no_index, 0}));
    EXPECT_EQ(slots[2].position, 3);
    EXPECT_EQ(slots[3].position, 1);
    EXPECT_EQ(c->softkey_labels[static_cast<std::size_t>(label)].header(), 0);
    EXPECT_EQ(log_back(), "\"add left softkey DEVICE11\\PAGE1 row 3 left\"");
    const auto after = content();
    EXPECT_FALSE(after.action.check3);
    EXPECT_FALSE(after.action.grey);
    EXPECT_TRUE(after.action.test_ir);
    // A row without its right key gets it first.
    click_key(page1, 12);
    EXPECT_TRUE(add_left_softkey(t.app, target(page1)));
    EXPECT_EQ(slots[4].position, 132);
    EXPECT_EQ(slots[5].position, 4);
    EXPECT_EQ(chain_faults(*c), "");
}

TEST_F(Behaviours, SettingLinkToRightSideButtonDeletesTheLeftKeyItsListAndTheLinksToIt)
{
    click_key(page1, 10);
    add_left_softkey(t.app, target(page1));
    delays(page1, 10, 2);
    const auto place = locate_key(*c, page1, t.app.key_selection);
    const int label = softkey_at(*c, *place)->label_index;
    // A key of the other device links to the left key.
    click_key(page2, 5);
    CreateLink link(t.app, 0, page2, t.app.key_selection);
    ASSERT_EQ(link.ok(t.app, target(page2), CreateLink::softkey_node_key(page1, 131)), DialogOk::done);
    click_key(page1, 10);
    const int total = c->action_steps.step_total;
    EXPECT_TRUE(Check3_Click(t.app, target(page1), true));
    EXPECT_EQ(log_back(), "\"delete left softkey DEVICE11\\PAGE1 row 3 left\"");
    EXPECT_EQ(c->action_steps.step_total, total - 3);
    EXPECT_TRUE(c->softkey_labels[static_cast<std::size_t>(label)].is_free());
    EXPECT_EQ(c->page_table[1].key_count, 2);
    EXPECT_EQ(c->device_pages[0].slots[1].position, 3);
    EXPECT_EQ(chain_faults(*c), "");
    EXPECT_TRUE(content().action.check3);
    click_key(page2, 5);
    EXPECT_TRUE(content().action.rows.empty());
}

TEST_F(Behaviours, EnablingTheBlasterWhenTheTopBitIsAlreadySetAddsNothing)
{
    select("DEVICE11");
    c->device_extra[1].option_b = 0x85;
    EXPECT_FALSE(Option1_Click(t.app, true));
    EXPECT_EQ(c->device_extra[1].option_b, 0x85);
    EXPECT_TRUE(Option1_Click(t.app, false));
    EXPECT_EQ(c->device_extra[1].option_b, 0x05);
    EXPECT_EQ(log_back(), "\"Set blaster bit DEVICE1 0\"");
    EXPECT_TRUE(Option1_Click(t.app, true));
    EXPECT_EQ(c->device_extra[1].option_b, 0x85);
}

TEST_F(Behaviours, ChannelAndGroupShareTheLowBitsOfOptionBAndEachControlWritesAtOnce)
{
    select("DEVICE21PROPERTIES");
    c->device_extra[2].option_b = 0x80 | 0x40;  // blaster on, and a bit no control owns
    const int undo = t.app.journal().undo.count;
    EXPECT_TRUE(Combo1_Click(t.app, 4));
    EXPECT_EQ(c->device_extra[2].option_b, 0xC3);
    EXPECT_EQ(log_back(), "\"Set RF channel DEVICE2 4\"");
    EXPECT_TRUE(Combo2_Click(t.app, 2));
    EXPECT_EQ(c->device_extra[2].option_b, 0xC7);
    EXPECT_EQ(log_back(), "\"Set RF ID DEVICE2 2\"");
    EXPECT_TRUE(Combo1_Click(t.app, 1));
    EXPECT_EQ(c->device_extra[2].option_b, 0xC4);
    EXPECT_EQ(rf_channel(c->device_extra[2].option_b), 1);
    EXPECT_EQ(rf_group(c->device_extra[2].option_b), 2);
    EXPECT_TRUE(IRRF_Click(t.app, option_rf));
    EXPECT_EQ(c->device_extra[2].option_a, 1);
    EXPECT_EQ(log_back(), "\"Set RF DEVICE2 1\"");
    EXPECT_EQ(t.app.journal().undo.count, std::min(5, undo + 4));
    EXPECT_FALSE(Combo1_Click(t.app, 5));
    EXPECT_FALSE(Combo2_Click(t.app, 0));
    const auto shown = content();
    EXPECT_EQ(shown.shows, PropertiesContent::Shows::device);
    EXPECT_EQ(shown.device.device, 2);
    EXPECT_TRUE(shown.device.rf_frame);
    EXPECT_EQ(shown.device.channel, 1);
    EXPECT_EQ(shown.device.group, 2);
    EXPECT_TRUE(shown.device.blaster);
    EXPECT_EQ(shown.device.option_a, 1);
    // A device added next starts on the same channel and group.
    AddDevice(t.app, add_ordinary);
    EXPECT_EQ(c->device_extra[3].option_b, 0x04);
}

TEST_F(Behaviours, HomeHasTheBlasterAloneWithoutTheRfFrame)
{
    select("HOME1");
    const auto home = content();
    EXPECT_EQ(home.shows, PropertiesContent::Shows::device);
    EXPECT_EQ(home.device.device, 0);
    EXPECT_FALSE(home.device.rf_frame);
    EXPECT_FALSE(IRRF_Click(t.app, option_rf));
    EXPECT_FALSE(Combo1_Click(t.app, 2));
    EXPECT_TRUE(Option1_Click(t.app, true));
    EXPECT_EQ(c->device_extra[0].option_b, 0x80);
    EXPECT_EQ(log_back(), "\"Set blaster bit HOME 1\"");
}

TEST_F(Behaviours, APageNodeShowsNoPropertiesAndAKeyItsTabStrip)
{
    select(page1);
    EXPECT_EQ(content().shows, PropertiesContent::Shows::noproperties);
    click_key(page1, 5);
    auto soft = content();
    EXPECT_EQ(soft.tab_strip, 1);
    EXPECT_TRUE(soft.label);
    EXPECT_TRUE(soft.alignment);
    click_key(page1, 30);
    auto hard = content();
    EXPECT_EQ(hard.tab_strip, 2);
    EXPECT_FALSE(hard.alignment);
    select("DEVICE11");
    EXPECT_EQ(properties_content(t.app, names, true).tab_strip, 3);
    EXPECT_EQ(properties_content(t.app, names, false).tab_strip, 1);
    click_key("HOME1\\PAGE1", 13);  // an empty place of HOME
    EXPECT_EQ(content().shows, PropertiesContent::Shows::noproperties);
}

TEST_F(Behaviours, TheKeySetsTheEditCommands)
{
    click_key(page1, 3);  // the title row can't be cut
    auto e = key_edit_enables(t.app, true);
    ASSERT_TRUE(e);
    EXPECT_FALSE(e->cut);
    EXPECT_FALSE(e->remove);
    EXPECT_TRUE(e->copy);
    click_key(page1, enter_picture);  // nor a hard key
    e = key_edit_enables(t.app, true);
    EXPECT_FALSE(e->cut);
    EXPECT_TRUE(e->copy && e->remove && e->paste);
    click_key(page1, 7);  // an empty place: only Paste, and only with a key to paste
    e = key_edit_enables(t.app, false);
    EXPECT_FALSE(e->cut || e->copy || e->remove || e->paste);
    type("A");
    e = key_edit_enables(t.app, false);
    EXPECT_TRUE(e->cut && e->copy && e->remove);
    click_key("HOME1\\PAGE1", 5);  // a device's key on HOME
    e = key_edit_enables(t.app, true);
    EXPECT_FALSE(e->cut || e->remove || e->paste);
    select(page1);
    EXPECT_FALSE(key_edit_enables(t.app, true));
}

}  // namespace
}  // namespace tesselo
