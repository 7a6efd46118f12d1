// Ordinary edits that once left a configuration whose keys played wrongly:
// split rows, the HOME keys' places after a device goes, cut and paste in
// one document, HOME keys sent home or lowered, jumps to a HOME page that
// goes, punch-through owners; and the deep check that finds such keys in
// any file.
#include <gtest/gtest.h>

#include <fstream>

#include "cli/cli_runner.h"
#include "core/image/image_check.h"
#include "core/image/image_writer.h"
#include "core/image/open_state.h"
#include "core/keys/hardkey_pictures.h"
#include "core/keys/key_behaviours.h"
#include "core/model/action_chain.h"
#include "core/model/glyphs.h"
#include "core/tree/deep_check.h"
#include "core/tree/tree_view.h"
#include "script_in_process.h"

namespace tesselo {
namespace {

using namespace tesselo::testing;

std::size_t at(int i) { return static_cast<std::size_t>(i); }

struct WrongKey : ::testing::Test, InProcessScript {
    // The device page slots of the page with node key `page`.
    std::array<SoftKey, softkeys_per_page>& slots(const std::string& page)
    {
        return config().device_pages[at(page_slots_row_of_key(config(), page))].slots;
    }
    int key_count(const std::string& page) { return config().page_table[at(page_row_of_key(config(), page))].key_count; }
    // The slot of `position` on `page`, -1 when none.
    int slot_of(const std::string& page, int position)
    {
        for (int s = 0; s < key_count(page); ++s)
            if (slots(page)[at(s)].position == position) return s;
        return -1;
    }
    std::string label_text(std::int32_t label)
    {
        const KeyLabel& l = config().softkey_labels[at(label)];
        return label_to_text(l, l.glyph_count());
    }
    // The steps of a list, in the order the remote runs them.
    std::vector<ActionStep> steps(std::int32_t list)
    {
        std::vector<ActionStep> out;
        for (int row : steps_of_list(config(), list)) out.push_back(config().action_steps.steps[at(row)]);
        return out;
    }
    std::vector<ActionStep> key_steps(const std::string& page, int position)
    {
        return steps(slots(page)[at(slot_of(page, position))].action_list);
    }
    // The steps of the HOME key of device row `row`.
    std::vector<ActionStep> home_key_steps(int row)
    {
        const std::string key = config().device_name_table[at(row)].node_key;
        for (auto& page : config().home_pages)
            for (int s = 1; s < softkeys_per_page; ++s)
                if (page.node_key[at(s)] == key) return steps(page.slots[at(s)].action_list);
        return {};
    }
    bool image_passes_check()
    {
        Configuration copy = config();
        const auto image = build_image(copy);
        auto errors = std::make_unique<ErrorList>();
        std::vector<std::string> rows;
        return !check_image(image, *errors, rows);
    }
    void expect_sound()
    {
        EXPECT_EQ(deep_check(config()), std::vector<std::string>{});
        EXPECT_TRUE(image_passes_check());
    }
    void split_row_two(const std::string& page)
    {
        run_all({"select " + page, "key soft 2", "label R", "key soft 2 left", "link-right off", "label L"});
    }
};

TEST_F(WrongKey, LinkToRightOffPutsTheLeftButtonInFrontOfItsRightOne)
{
    run_all({"new", "add-device"});
    split_row_two("DEVICE11\\PAGE1");
    const int left = slot_of("DEVICE11\\PAGE1", 130);
    const int right = slot_of("DEVICE11\\PAGE1", 2);
    ASSERT_GE(left, 1);
    EXPECT_EQ(right, left + 1);
    EXPECT_EQ(label_text(slots("DEVICE11\\PAGE1")[at(left)].label_index), "L");
    EXPECT_EQ(label_text(slots("DEVICE11\\PAGE1")[at(right)].label_index), "R");
    expect_sound();
}

TEST_F(WrongKey, ASplitRowWrittenRightThenLeftOpensWithoutAFault)
{
    run_all({"new", "add-device"});
    split_row_two("DEVICE11\\PAGE1");
    auto& s = slots("DEVICE11\\PAGE1");
    const int left = slot_of("DEVICE11\\PAGE1", 130);
    std::swap(s[at(left)], s[at(left + 1)]);
    EXPECT_TRUE(image_passes_check());
    // A left button alone is still a half key.
    s[at(left)].position = 3;
    EXPECT_FALSE(image_passes_check());
}

TEST_F(WrongKey, TheTitleRowHasNoLeftButton)
{
    run_all({"new", "add-device", "select DEVICE11\\PAGE1", "key soft 0 left"});
    run("link-right off");
    EXPECT_EQ(slot_of("DEVICE11\\PAGE1", 128), -1);
    EXPECT_EQ(key_count("DEVICE11\\PAGE1"), 1);
}

TEST_F(WrongKey, APastedPageKeepsEachSplitRowTogetherWithBothLabels)
{
    run_all({"new", "add-device", "select DEVICE11\\PAGE1", "key soft 4", "label X"});
    split_row_two("DEVICE11\\PAGE1");
    run_all({"select DEVICE11\\PAGE1", "focus tree", "copy", "select DEVICE11", "paste"});
    const std::string copy = "DEVICE11\\PAGE2";
    const int left = slot_of(copy, 130);
    ASSERT_GE(left, 1);
    EXPECT_EQ(slot_of(copy, 2), left + 1);
    EXPECT_EQ(label_text(slots(copy)[at(left)].label_index), "L");
    EXPECT_EQ(label_text(slots(copy)[at(left + 1)].label_index), "R");
    EXPECT_EQ(label_text(slots(copy)[at(slot_of(copy, 4))].label_index), "X");
    expect_sound();
}

TEST_F(WrongKey, DeletingTheRightButtonOfASplitRowEmptiesItAndKeepsThePair)
{
    run_all({"new", "add-device"});
    split_row_two("DEVICE11\\PAGE1");
    run_all({"key soft 2", "add-delay 0.5", "focus key", "delete"});
    const int right = slot_of("DEVICE11\\PAGE1", 2);
    ASSERT_GE(right, 1);
    EXPECT_EQ(slot_of("DEVICE11\\PAGE1", 130), right - 1);
    EXPECT_EQ(slots("DEVICE11\\PAGE1")[at(right)].action_list, no_index);
    EXPECT_EQ(label_text(slots("DEVICE11\\PAGE1")[at(right)].label_index), "");
    expect_sound();
}

TEST_F(WrongKey, AfterDeviceThreeOfSixGoesEveryHomeKeyHasARowOfItsOwn)
{
    run_all({"new"});
    for (int i = 0; i < 6; ++i) run_all({"add-device"});
    run_all({"select DEVICE31", "focus tree", "delete"});
    const HomePage& home = config().home_pages[0];
    ASSERT_EQ(config().page_table[0].key_count, 6);
    for (int s = 1; s <= 5; ++s) EXPECT_EQ(home.slots[at(s)].position, s) << s;
    EXPECT_EQ(home.node_key[5], "DEVICE61");
    EXPECT_EQ(config().device_table[0].page_count, 1);
    expect_sound();
}

TEST_F(WrongKey, ACutDeviceAimsAtItselfAndAtTheOthersWhereTheyStandAfterThePaste)
{
    run_all({"new", "add-device", "add-device", "add-device", "select DEVICE11", "add-page",
             "select DEVICE11\\PAGE1", "key soft 2", "label X", "key soft 1", "add-jump DEVICE11\\PAGE2",
             "add-link soft DEVICE11\\PAGE1 2", "add-jump DEVICE31\\PAGE1", "select DEVICE11", "focus tree", "cut",
             "select DEVICE21", "paste"});
    // DEVICE2 and DEVICE3 moved up a row; the pasted device is the last, row 3.
    ASSERT_EQ(config().device_name_table[3].node_key.empty(), false);
    const std::string pasted = config().page_table[at(pages_before(config(), 3))].node_key;
    const auto s = key_steps(pasted, 1);
    ASSERT_EQ(s.size(), 3u);
    EXPECT_EQ(s[0].step_type, step_jump);
    EXPECT_EQ(s[0].param_low, 3);
    EXPECT_EQ(s[0].param_high, 1);
    EXPECT_EQ(s[1].step_type, step_link);
    EXPECT_EQ(s[1].param_low, 3);
    EXPECT_EQ(s[1].param_high, 0);
    EXPECT_EQ(s[1].value, slots(pasted)[at(slot_of(pasted, 2))].label_index);
    EXPECT_EQ(s[1].extra, 2);
    EXPECT_EQ(s[2].step_type, step_jump);
    EXPECT_EQ(s[2].param_low, 2);  // DEVICE3, a row higher now
    EXPECT_EQ(s[2].param_high, 0);
    expect_sound();
}

TEST_F(WrongKey, ACutPageAimsAtItselfOnTheDeviceItIsPastedOn)
{
    run_all({"new", "add-device", "add-device", "select DEVICE11", "add-page", "select DEVICE11\\PAGE2", "key soft 3",
             "label Y", "key soft 1", "add-link soft DEVICE11\\PAGE2 3", "add-jump DEVICE21\\PAGE1",
             "select DEVICE11\\PAGE2", "focus tree", "cut", "select DEVICE21", "paste"});
    const std::string pasted = "DEVICE21\\PAGE2";
    const auto s = key_steps(pasted, 1);
    ASSERT_EQ(s.size(), 2u);
    EXPECT_EQ(s[0].step_type, step_link);
    EXPECT_EQ(s[0].param_low, 2);
    EXPECT_EQ(s[0].param_high, 1);
    EXPECT_EQ(s[0].value, slots(pasted)[at(slot_of(pasted, 3))].label_index);
    EXPECT_EQ(s[0].extra, 3);
    EXPECT_EQ(s[1].step_type, step_jump);
    EXPECT_EQ(s[1].param_low, 2);
    EXPECT_EQ(s[1].param_high, 0);
    expect_sound();
}

TEST_F(WrongKey, ACopiedDeviceStillAimsAtItsSourceInItsOwnDocument)
{
    run_all({"new", "add-device", "add-device", "select DEVICE11", "add-page", "select DEVICE11\\PAGE1", "key soft 1",
             "add-jump DEVICE11\\PAGE2", "select DEVICE11", "focus tree", "copy", "paste"});
    const std::string pasted = config().page_table[at(pages_before(config(), 3))].node_key;
    const auto s = key_steps(pasted, 1);
    ASSERT_EQ(s.size(), 1u);
    EXPECT_EQ(s[0].param_low, 1);
    EXPECT_EQ(s[0].param_high, 1);
    expect_sound();
}

TEST_F(WrongKey, AHomeKeySentHomeGoesToTheHomePageItStandsOn)
{
    run_all({"new"});
    for (int i = 0; i < 10; ++i) run_all({"add-device"});
    run_all({"select DEVICE101", "add-page", "select DEVICE101\\PAGE2", "hide", "select DEVICE101\\PAGE1", "focus tree",
             "delete"});
    const auto s = home_key_steps(10);
    ASSERT_EQ(s.size(), 1u);
    EXPECT_EQ(s[0].step_type, step_jump);
    EXPECT_EQ(s[0].param_low, 0);
    EXPECT_EQ(s[0].param_high, 1);  // devices 6 to 10 stand on the second HOME page
    expect_sound();
}

TEST_F(WrongKey, AJumpToAHomePageThatGoesAimsAtThePageBefore)
{
    run_all({"new"});
    for (int i = 0; i < 6; ++i) run_all({"add-device"});
    run_all({"select DEVICE11\\PAGE1", "key soft 1", "add-jump HOME1\\PAGE2", "select DEVICE61", "focus tree", "delete"});
    ASSERT_EQ(config().device_table[0].page_count, 1);
    const auto s = key_steps("DEVICE11\\PAGE1", 1);
    ASSERT_EQ(s.size(), 1u);
    EXPECT_EQ(s[0].param_low, 0);
    EXPECT_EQ(s[0].param_high, 0);
    expect_sound();
}

TEST_F(WrongKey, AHomeKeyLoweredByAPageDeletionLandsOnAShownPage)
{
    run_all({"new", "add-device", "select DEVICE11", "add-page", "add-page", "add-page", "select DEVICE11\\PAGE1",
             "hide"});
    ASSERT_EQ(home_key_steps(1)[0].param_high, 1);
    run_all({"select DEVICE11\\PAGE3", "focus tree", "delete"});
    const auto s = home_key_steps(1);
    ASSERT_EQ(s.size(), 1u);
    EXPECT_EQ(s[0].param_low, 1);
    EXPECT_EQ(s[0].param_high, 1);
    EXPECT_NE(config().page_table[at(pages_before(config(), 1) + 1)].hidden, hidden_flag);
    expect_sound();
}

TEST_F(WrongKey, PunchThroughOwnersFollowTheirDevice)
{
    const int picture = 0;
    const int key = check_hardkeyindex(picture);
    ASSERT_GE(key, 0);
    run_all({"new", "add-device", "add-device", "add-device", "select DEVICE21\\PAGE1",
             "key hard " + std::to_string(picture), "answer ok", "punch on"});
    EXPECT_EQ(punch_owner(config(), key), 2);
    run_all({"select DEVICE21", "move-up"});
    EXPECT_EQ(punch_owner(config(), key), 1);
    EXPECT_TRUE(check_punchthough(config(), key, 2));
    run_all({"select DEVICE11", "focus tree", "delete"});  // DEVICE1 stands on row 2 now
    EXPECT_EQ(punch_owner(config(), key), 1);
    run_all({"select DEVICE21", "focus tree", "cut"});
    EXPECT_EQ(punch_owner(config(), key), -1);
    expect_sound();
    run_all({"paste"});
    EXPECT_EQ(punch_owner(config(), key), 2);
    EXPECT_TRUE(check_punchthough(config(), key, 1));
    expect_sound();
}

TEST_F(WrongKey, APastedDeviceWithStepsOnAPunchedKeyPlaysThem)
{
    const int picture = 0;
    const int key = check_hardkeyindex(picture);
    run_all({"new", "add-device", "add-device", "select DEVICE11\\PAGE1", "key hard " + std::to_string(picture),
             "add-delay 0.5", "select DEVICE21\\PAGE1", "key hard " + std::to_string(picture), "answer ok", "punch on"});
    // DEVICE1's steps went with the punch; a copy of a device with its own steps comes in.
    run_all({"new", "add-device", "select DEVICE12\\PAGE1", "key hard " + std::to_string(picture), "add-delay 1",
             "select DEVICE12", "focus tree", "copy", "activate 0", "select DEVICE21", "paste"});
    EXPECT_FALSE(check_punchthough(config(), key, 3));
    expect_sound();
}

TEST_F(WrongKey, TheSleepTimerOfAHiddenDevicesHomeKeyLeavesItsHiddenMark)
{
    run_all({"new", "add-device", "select DEVICE11", "hide", "select HOME1\\PAGE1", "key soft 1"});
    const SoftKey& key = config().home_pages[0].slots[1];
    ASSERT_EQ(key.key_state, 128);
    run("sleep off");  // the box is clear: nothing to reset
    EXPECT_EQ(key.key_state, 128);
    run_all({"sleep on"});
    EXPECT_EQ(key.key_state, 129);
    run_all({"sleep off"});
    EXPECT_EQ(key.key_state, 128);
    EXPECT_EQ(config().device_table[1].hidden, hidden_flag);
    expect_sound();
}

// A file made elsewhere, with two HOME keys on one row and a link whose key
// moved away: the deep check names both in the tree's words.
TEST_F(WrongKey, CheckDeepNamesEveryKeyThatWouldPlayWrongly)
{
    run_all({"new"});
    for (int i = 0; i < 3; ++i) run_all({"add-device"});
    run_all({"select DEVICE21\\PAGE1", "key soft 3", "label Z", "select DEVICE11\\PAGE1", "key soft 1",
             "add-link soft DEVICE21\\PAGE1 3"});
    config().home_pages[0].slots[2].position = 1;
    slots("DEVICE21\\PAGE1")[at(slot_of("DEVICE21\\PAGE1", 3))].position = 4;
    const auto file = (home.path() / "elsewhere.kcf").string();
    run_all({"save-as " + file});
    const auto r = run_cli("check --deep " + shell_quote(file) + " --home " + shell_quote(home.path().string()));
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out,
              "HOME/PAGE1/row 1: stands on the row of another HOME key, so one of them cannot be reached\n"
              "DEVICE1/PAGE1/row 1 step 1: links to DEVICE2/PAGE1/row 3, where no key stands\n");
}

TEST_F(WrongKey, CheckDeepOfAFileTheEditorSavedFindsNothing)
{
    run_all({"new", "add-device", "select DEVICE11\\PAGE1", "key soft 1", "add-jump HOME1\\PAGE1"});
    const auto file = (home.path() / "sound.kcf").string();
    run_all({"save-as " + file});
    const auto r = run_cli("check --deep " + shell_quote(file) + " --home " + shell_quote(home.path().string()));
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, "");
}

}  // namespace
}  // namespace tesselo
