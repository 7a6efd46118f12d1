#include <gtest/gtest.h>

#include "core/document/lifecycle.h"
#include "core/keys/key_error.h"
#include "core/keys/step_commands.h"
#include "core/keys/step_text.h"
#include "support/step_document.h"
#include "support/test_app.h"

namespace tesselo {
namespace {

const std::string key_error_line =
    "ask \"Kelvaro Tesselo 3\" \"Some of data in this key is corrupted and can not be used. To prevent system "
    "corruption, you must delete the key data to continue editing. By clicking OK, all or some of your data in this "
    "key and related key will be deleted and lost.\\r\\nClick OK to confirm deletion.\" -> ";

// A hard key whose list of three steps reaches a free step at its second.
struct KeyError : ::testing::Test {
    testing::TestApp t;
    Configuration* c = nullptr;
    testing::NoIrStepNames names;
    const KeyTarget target{0, "DEVICE11\\PAGE1"};
    void SetUp() override
    {
        ASSERT_EQ(muNew(t.app), 0);
        c = &t.app.config(0);
        testing::add_test_device(*c, 0, 1, 1, "TV");
        const auto place = testing::hard_place(*c, 1, 20);
        for (int i = 0; i < 3; ++i) testing::add_step(*c, place, step_learning, i);
        c->learning_bitmap[0] = 0xE0;
        wipe_step(*c, 1);
        --c->action_steps.step_total;
        t.app.key_selection.select_picture(35);  // hard key 20
        t.take_lines();
    }
};

TEST_F(KeyError, AChainReachingAFreeStepOpensTheWindowAndOkDeletesTheKeysData)
{
    t.ui.queue_answer("ok");
    EXPECT_TRUE(load_step_rows(t.app, target, names).empty());
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{key_error_line + "ok"});
    EXPECT_TRUE(t.app.key_error.key_error_shown);
    EXPECT_EQ(c->hardkeys[41 + 20].action_list, no_index);
    EXPECT_EQ(c->action_lists.list_count, 0);
    EXPECT_EQ(c->action_lists.entries[0].step_count, 0);
    EXPECT_EQ(c->action_steps.steps[0].step_type, step_free);
    EXPECT_EQ(c->learning_bitmap[0], 0x60);  // the first step's learned code is released
    // Step 2 lay behind the break: no key reaches it any more.
    EXPECT_EQ(c->action_steps.step_total, 1);
}

TEST_F(KeyError, OkFreesEveryStepOfTheChainToItsCountPastTheFreeOne)
{
    // A file written elsewhere: the free step still names the step behind it.
    c->action_steps.steps[1].next_step = 2;
    const std::uint8_t bitmap = c->learning_bitmap[0];
    t.ui.queue_answer("ok");
    load_step_rows(t.app, target, names);
    for (int s = 0; s < 3; ++s) EXPECT_EQ(c->action_steps.steps[static_cast<std::size_t>(s)].step_type, step_free) << s;
    // The two steps in use are gone, and with them learned codes 0 and 2
    // (128 >> 0 and 128 >> 2); the free step had given nothing back.
    EXPECT_EQ(c->action_steps.step_total, 0);
    EXPECT_EQ(c->learning_bitmap[0], bitmap - (128 >> 0) - (128 >> 2));
    EXPECT_EQ(c->action_lists.list_count, 0);
    EXPECT_EQ(c->action_lists.entries[0].first_step, 0);
    EXPECT_EQ(c->action_lists.entries[0].step_count, 0);
    EXPECT_EQ(c->hardkeys[41 + 20].action_list, no_index);
}

TEST_F(KeyError, CancelChangesNothingAndTheWindowIsShownOncePerSelection)
{
    const auto before = c->action_steps;
    t.ui.queue_answer("cancel");
    const auto rows = load_step_rows(t.app, target, names);
    EXPECT_EQ(rows.size(), 1u);  // the free step's row is left out
    EXPECT_EQ(t.take_lines(), std::vector<std::string>{key_error_line + "cancel"});
    EXPECT_EQ(c->action_steps.steps, before.steps);
    EXPECT_EQ(c->hardkeys[41 + 20].action_list, 0);
    load_step_rows(t.app, target, names);
    EXPECT_TRUE(t.take_lines().empty());
    select_key(t.app, 35);
    t.ui.queue_answer("cancel");
    load_step_rows(t.app, target, names);
    EXPECT_EQ(t.take_lines().size(), 1u);
}

TEST_F(KeyError, ASoundChainShowsNoWindow)
{
    wipe_step(*c, 0);
    c->action_steps.step_total = 0;
    c->action_lists = {};
    c->hardkeys[41 + 20].action_list = no_index;
    const auto place = testing::hard_place(*c, 1, 20);
    testing::add_step(*c, place, step_delay, 20);
    EXPECT_EQ(load_step_rows(t.app, target, names).front().text, "DELAY 0.2 S");
    EXPECT_TRUE(t.take_lines().empty());
    EXPECT_FALSE(t.app.key_error.key_error_shown);
}

}  // namespace
}  // namespace tesselo
