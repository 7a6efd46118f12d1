// Merge into documents near each limit: what fits is merged, one more and
// the merge is refused with its message before anything changes.
#include "core/ir/ir_storage.h"
#include "merge_fixture.h"
#include "tree_invariants.h"

namespace tesselo::testing {
namespace {

struct MergeLimits : MergeDocument {
    // What the file takes: its steps but the dropped ones, and the jump of
    // each device's HOME key.
    int needed_steps() const { return file_steps - file_dropped + 3; }

    // A refused merge: the message, and nothing changed. An Undo in the
    // file's document first leaves a Redo behind, which any journalled edit
    // would forget.
    void expect_refused(const std::string& message)
    {
        t.app.activate(1);
        AddDevice(t.app, add_ordinary);
        muUndo_Click(t.app);
        t.app.activate(0);
        ASSERT_EQ(t.app.journal().redo.count, 1);
        const auto image = build_image(target());
        const auto log = t.log_lines();
        const int devices = device_count(target());
        t.take_lines();
        EXPECT_FALSE(merge_file(file));
        EXPECT_EQ(t.take_lines(), std::vector<std::string>{message});
        EXPECT_EQ(t.ui.icons.back(), Icon::exclamation);
        EXPECT_EQ(build_image(target()), image);
        EXPECT_EQ(device_count(target()), devices);
        EXPECT_EQ(t.app.journal().redo.count, 1);
        EXPECT_EQ(t.log_lines(), log);
    }
    void expect_merged()
    {
        const int devices = device_count(target());
        ASSERT_TRUE(merge_file(file));
        EXPECT_EQ(device_count(target()), devices + 3);
        EXPECT_EQ(chain_faults(target()), "");
        expect_invariants(t.app, 0);
        muUndo_Click(t.app);
        EXPECT_EQ(device_count(target()), devices);
    }
    void add_devices(int n)
    {
        for (int i = 0; i < n; ++i) AddDevice(t.app, add_ordinary);
    }
    // Delay steps on the hard keys of HOME and the devices until the
    // document holds `total` steps.
    void fill_steps(int total)
    {
        for (int key = 0; target().action_steps.step_total < total; ++key) {
            ASSERT_LT(key, (device_count(target()) + 1) * hardkeys_per_device);
            const KeyPlace place = hard_place(target(), key / hardkeys_per_device, key % hardkeys_per_device);
            while (target().action_steps.step_total < total && key_step_count(target(), place) < steps_per_list)
                ASSERT_GE(add_step(target(), place, step_delay, 5), 0);
        }
    }
};

const std::string exceed_pages = "message \"Kelvarzo Tesselo 3\" \"Exceed Devices or Exceed Pages\"";

TEST_F(MergeLimits, TheFilesPagesFitUpTo127AndOneMoreIsRefused)
{
    // 1 + the device pages + the file's 5 pages: 127 at most.
    add_devices(120);
    EXPECT_EQ(count_allpages(tree()), 122);
    expect_merged();
    add_devices(1);
    expect_refused(exceed_pages);
}

TEST_F(MergeLimits, LabelRowsForEveryKeyAndHomeKeyMustBeFree)
{
    // Three HOME keys and the four labelled keys of the file.
    const int needed = 7;
    int free = 0;
    for (auto& label : target().softkey_labels)
        if (label.is_free() && ++free > needed) label.bytes[0] = 0;
    expect_merged();
    for (auto& label : target().softkey_labels)
        if (label.is_free()) {
            label.bytes[0] = 0;
            break;
        }
    expect_refused(exceed_pages);
}

TEST_F(MergeLimits, StepsFitUpTo8000AndOneMoreIsExceedMarcoSteps)
{
    add_devices(4);
    fill_steps(action_steps_accepted - needed_steps());
    expect_merged();
    fill_steps(action_steps_accepted - needed_steps() + 1);
    expect_refused("message \"Kelvaro Tesselo 3\" \"Exceed Marco steps\"");
}

TEST_F(MergeLimits, LearnedCodesFitUpTo1000AndOneMoreIsLearningMemoryFull)
{
    while (check_learntotalno(target()) < learned_codes - file_learned) check_learnkeyno(target());
    expect_merged();
    check_learnkeyno(target());
    expect_refused("message \"Kelvaro Tesselo 3\" \"Learning memory full\"");
}

TEST_F(MergeLimits, IrDataRecordsFitUpTo8000AndOneMoreIsExceedIrData)
{
    for (int r = 0; target().ir_data.record_count < ir_data_accepted - file_codes; ++r)
        ASSERT_TRUE(append_ir_record(target(), rc_code(step_rc5, r % 32, r % 64)));
    expect_merged();
    ASSERT_TRUE(append_ir_record(target(), rc_code(step_rc5, 1, 1)));
    expect_refused("message \"Kelvaro Tesselo 3\" \"Exceed ir data\"");
}

// Every limit passed at once: the checks come in their order.
struct MergeOrder : MergeLimits {
    void fill_learned_and_ir()
    {
        while (check_learntotalno(target()) < learned_codes) check_learnkeyno(target());
        for (int r = 0; target().ir_data.record_count < ir_data_accepted; ++r)
            ASSERT_TRUE(append_ir_record(target(), rc_code(step_rc5, r % 32, r % 64)));
    }
};

TEST_F(MergeOrder, PagesComeFirst)
{
    add_devices(121);
    fill_steps(action_steps_accepted);
    fill_learned_and_ir();
    expect_refused(exceed_pages);
}

TEST_F(MergeOrder, ThenSteps)
{
    add_devices(4);
    fill_steps(action_steps_accepted);
    fill_learned_and_ir();
    expect_refused("message \"Kelvaro Tesselo 3\" \"Exceed Marco steps\"");
}

TEST_F(MergeOrder, ThenLearnedCodesAndThenIrData)
{
    fill_learned_and_ir();
    expect_refused("message \"Kelvaro Tesselo 3\" \"Learning memory full\"");
}

}  // namespace
}  // namespace tesselo::testing
