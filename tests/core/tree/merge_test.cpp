// File > Merge Configuration: the devices of a file appended behind the
// document's, their jumps and links renumbered, the rest dropped and counted,
// every limit checked before any change, one journal entry.
#include <fstream>

#include "merge_fixture.h"
#include "core/image/open_state.h"
#include "core/keys/page_canvas.h"
#include "tree_invariants.h"

namespace tesselo::testing {
namespace {

using Merge = MergeDocument;

const std::string tv1 = "DEVICE21\\PAGE1", tv2 = "DEVICE21\\PAGE2", amp2 = "DEVICE31\\PAGE2", dvd1 = "DEVICE41\\PAGE1";

TEST_F(Merge, EveryDeviceOfTheFileComesBehindTheDocumentsOwn)
{
    ASSERT_TRUE(merge_file(file));
    EXPECT_EQ(t.ui.dialogs.back().title, "Merge");
    EXPECT_EQ(t.ui.dialogs.back().filter, "Data Config File (*.kcf)|*.kcf");
    EXPECT_EQ(device_count(target()), 4);
    const std::vector<std::pair<std::string, std::string>> devices = {
        {"DEVICE11", "DEVICE1"}, {"DEVICE21", "TV"}, {"DEVICE31", "AMP"}, {"DEVICE41", "DVD"}};
    for (std::size_t d = 0; d < devices.size(); ++d) {
        EXPECT_EQ(target().device_name_table[d + 1].node_key, devices[d].first);
        EXPECT_EQ(tree().node(tree().find(devices[d].first)).text, devices[d].second);
    }
    EXPECT_EQ(target().device_table[2].page_count, 2);
    EXPECT_EQ(target().device_table[3].page_count, 2);
    EXPECT_EQ(target().device_table[4].page_count, 1);
    for (const auto& page : {tv1, tv2, std::string("DEVICE31\\PAGE1"), amp2, dvd1}) EXPECT_NE(tree().find(page), 0) << page;
    // The document's own device and its jump are as they were.
    EXPECT_EQ(rows(hard_place(target(), 1, 0)), std::vector<std::string>{"JUMP TO DEVICE1 PAGE1"});
    // The labels came along.
    const auto dvd_page = find_page(target(), dvd1);
    ASSERT_TRUE(dvd_page);
    EXPECT_EQ(key_label_text(target(), *dvd_page, 3 + 2 * 2), "PLAY");
    expect_invariants(t.app, 0);
    EXPECT_EQ(chain_faults(target()), "");
}

TEST_F(Merge, JumpsAndLinksBetweenTheMergedDevicesAreRenumbered)
{
    ASSERT_TRUE(merge_file(file));
    const auto mute = steps(soft_place(target(), tv1, 1));
    ASSERT_EQ(mute.size(), 5u);
    // AMP, the file's row 2, is row 3 now; its PAGE2 is its place 1 still.
    EXPECT_EQ(mute[1].step_type, step_jump);
    EXPECT_EQ(mute[1].param_low, 3);
    EXPECT_EQ(mute[1].param_high, 1);
    // A soft key is named by its row and side, and by its new label row.
    const SoftKey* play = softkey_at(target(), soft_place(target(), dvd1, 2));
    ASSERT_TRUE(play);
    EXPECT_EQ(mute[2].step_type, step_link);
    EXPECT_EQ(mute[2].param_low, 4);
    EXPECT_EQ(mute[2].param_high, 0);
    EXPECT_EQ(mute[2].extra, 2);
    EXPECT_EQ(mute[2].value, play->label_index);
    // A hard key by its index + 1.
    EXPECT_EQ(mute[3].param_low, 3);
    EXPECT_EQ(mute[3].param_high, 255);
    EXPECT_EQ(mute[3].value, 6);
    EXPECT_EQ(mute[3].extra, 6);
    EXPECT_EQ(rows(soft_place(target(), tv1, 1)),
              (std::vector<std::string>{"RC5 3 17", "JUMP TO AMP PAGE2", "LINK TO DVDPAGE-1-PLAY", "LINK TO AMP+10-HARD-",
                                        "LEARNING CODE  "}));
    // Inside its own device, and to a title row and another device's key.
    const SoftKey* vol = softkey_at(target(), soft_place(target(), amp2, 3));
    ASSERT_TRUE(vol);
    const auto guide = steps(soft_place(target(), tv2, 4));
    ASSERT_EQ(guide.size(), 3u);
    EXPECT_EQ(guide[0].param_low, 2);
    EXPECT_EQ(guide[0].param_high, 0);
    EXPECT_EQ(guide[1].param_low, 2);
    EXPECT_EQ(guide[1].value, static_cast<std::uint16_t>(no_index));  // the title row has no label row of its own
    EXPECT_EQ(guide[2].value, vol->label_index);
    EXPECT_EQ(rows(soft_place(target(), tv2, 4)),
              (std::vector<std::string>{"JUMP TO TV PAGE1", "LINK TO TVPAGE-2-TV", "LINK TO AMPPAGE-2-VOL"}));
    // DVD's hard key 7 (RED) links to itself still.
    EXPECT_EQ(rows(hard_place(target(), 4, 7)), std::vector<std::string>{"LINK TO DVDRED-HARD-"});
}

TEST_F(Merge, StepsToTheFilesHomeOrToNothingAreDroppedAndCounted)
{
    ASSERT_TRUE(merge_file(file));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{"status \"3 devices merged, 5 steps dropped\""});
    EXPECT_EQ(rows(hard_place(target(), 3, 0)), (std::vector<std::string>{"RC6 0 12", "JUMP TO TV PAGE1"}));
    // A key whose only step went has no list.
    EXPECT_EQ(key_action_list(target(), hard_place(target(), 3, 2)), no_index);
    EXPECT_EQ(target().action_steps.step_total, 1 + 1 + file_steps - file_dropped + 3);
    EXPECT_EQ(chain_faults(target()), "");
}

TEST_F(Merge, CodesOfEveryKindAndLearnedCodesArriveWhole)
{
    const int records = target().ir_data.record_count;
    ASSERT_TRUE(merge_file(file));
    EXPECT_EQ(rows(soft_place(target(), dvd1, 2)),
              (std::vector<std::string>{"RC5X 5 10 20", "RC6A 1 2 3", "DELAY 1.5 S", "BEEP SOUND 0.2Sec ", "LEARNING CODE  "}));
    EXPECT_EQ(steps(soft_place(target(), dvd1, 2))[3].value, 880);
    EXPECT_EQ(target().ir_data.record_count, records + file_codes);
    // The learned codes, in new slots of the document, with their bytes.
    const auto mute = steps(soft_place(target(), tv1, 1));
    const auto play = steps(soft_place(target(), dvd1, 2));
    const int first = step_number_value(mute[4]);
    const int second = step_number_value(play[4]);
    EXPECT_NE(first, second);
    for (const auto byte : target().learning_memory[static_cast<std::size_t>(first)]) EXPECT_EQ(byte, learned_fill[0]);
    for (const auto byte : target().learning_memory[static_cast<std::size_t>(second)]) EXPECT_EQ(byte, learned_fill[1]);
    EXPECT_EQ(check_learntotalno(target()), file_learned);
}

TEST_F(Merge, OneUndoTakesTheWholeMergeBackAndRedoBringsItAgain)
{
    const auto before = build_image(target());
    std::vector<std::string> keys_before;
    for (int i : tree().tree_order()) keys_before.push_back(tree().node(i).key);
    ASSERT_TRUE(merge_file(file));
    EXPECT_EQ(t.app.journal().redo.count, 0);
    const auto merged = build_image(target());
    muUndo_Click(t.app);
    EXPECT_EQ(build_image(target()), before);
    std::vector<std::string> keys_after;
    for (int i : tree().tree_order()) keys_after.push_back(tree().node(i).key);
    EXPECT_EQ(keys_after, keys_before);
    muRedo_Click(t.app);
    EXPECT_EQ(build_image(target()), merged);
    expect_invariants(t.app, 0);
}

TEST_F(Merge, TheLogHasAStartAndAClosingLine)
{
    const auto before = t.log_lines().size();
    ASSERT_TRUE(merge_file(file));
    const auto log = t.log_lines();
    // The start line comes first; the devices' and pages' own lines between.
    ASSERT_GT(log.size(), before + 2);
    EXPECT_EQ(log[before], "\"merge file (start) " + file + "\"");
    EXPECT_EQ(log.back(), "\"Merge file " + file + " - Untitled1\"");
}

TEST_F(Merge, ACancelledDialogChangesNothing)
{
    const auto before = build_image(target());
    const auto log = t.log_lines();
    EXPECT_EQ(muMerge(t.app), -1);
    EXPECT_EQ(build_image(target()), before);
    EXPECT_EQ(t.log_lines(), log);
    EXPECT_TRUE(t.take_lines().empty());
}

TEST_F(Merge, AFileThatIsNoConfigurationIsCorruptedAndChangesNothing)
{
    const auto junk = (t.home.path() / "junk.kcf").string();
    std::ofstream(junk) << "no configuration at all";
    const auto before = build_image(target());
    const int journal = t.app.journal().undo.count;
    EXPECT_FALSE(merge_file(junk));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{"message \"Kelvaro Tessel 3\" \"file is corrupted\""});
    EXPECT_FALSE(merge_file((t.home.path() / "missing.kcf").string()));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{"message \"Kelvaro Tessel 3\" \"file is corrupted\""});
    EXPECT_EQ(build_image(target()), before);
    EXPECT_EQ(t.app.journal().undo.count, journal);
}

TEST_F(Merge, AFileWithFaultsShowsTheErrorWindowAndGivingUpChangesNothing)
{
    // Two keys of the DVD page share one label: the check reports it.
    Configuration& source = t.app.config(1);
    const std::string page = "DEVICE32\\PAGE1";
    KeyPlace other = soft_place(source, page, 4);
    ASSERT_TRUE(make_softkey(source, other));
    softkey_at(source, other)->label_index = softkey_at(source, soft_place(source, page, 2))->label_index;
    const auto faulty = (t.home.path() / "faulty.kcf").string();
    ASSERT_TRUE(save_tofile(t.app, faulty, 0, 1));
    t.take_lines();
    const auto before = build_image(target());

    EXPECT_FALSE(merge_file(faulty, "giveup"));
    EXPECT_EQ(build_image(target()), before);
    const auto shown = t.take_lines();
    ASSERT_FALSE(shown.empty());
    EXPECT_NE(shown[0].find("The file that you are trying to open is corrupted"), std::string::npos) << shown[0];

    // Going on merges it: each key gets a label of its own.
    EXPECT_TRUE(merge_file(faulty, "continue"));
    EXPECT_EQ(device_count(target()), 4);
    const int a = softkey_at(target(), soft_place(target(), dvd1, 2))->label_index;
    const int b = softkey_at(target(), soft_place(target(), dvd1, 4))->label_index;
    EXPECT_NE(a, b);
    EXPECT_EQ(target().softkey_labels[static_cast<std::size_t>(a)], target().softkey_labels[static_cast<std::size_t>(b)]);
    EXPECT_EQ(t.app.open_state().corruption_flag, 0);
}

TEST_F(Merge, AFileWithoutDevicesMergesNothing)
{
    const auto empty = (t.home.path() / "empty.kcf").string();
    ASSERT_EQ(muNew(t.app), 2);
    ASSERT_TRUE(save_tofile(t.app, empty, 0, 2));
    t.app.activate(0);
    t.take_lines();
    const int journal = t.app.journal().undo.count;
    const auto log = t.log_lines();
    EXPECT_TRUE(merge_file(empty));
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{"status \"0 devices merged, 0 steps dropped\""});
    EXPECT_EQ(t.app.journal().undo.count, journal);
    EXPECT_EQ(t.log_lines(), log);
}

TEST_F(Merge, AFileMergesIntoItsOwnDocumentToo)
{
    t.app.activate(1);
    ASSERT_TRUE(merge_file(file));
    Configuration& c = t.app.config(1);
    EXPECT_EQ(device_count(c), 6);
    // The second TV's jump goes to the second AMP.
    std::vector<int> jumps;
    for (int s : steps_of_list(c, key_action_list(c, soft_place(c, "DEVICE42\\PAGE1", 1))))
        if (c.action_steps.steps[static_cast<std::size_t>(s)].step_type == step_jump)
            jumps.push_back(c.action_steps.steps[static_cast<std::size_t>(s)].param_low);
    EXPECT_EQ(jumps, std::vector<int>{5});
    expect_invariants(t.app, 1);
}

}  // namespace
}  // namespace tesselo::testing
