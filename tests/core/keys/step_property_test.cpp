#include <gtest/gtest.h>

#include <random>

#include "core/tree/link_repair.h"
#include "support/step_document.h"

namespace tesselo {
namespace {

using testing::chain_faults;

int lowest_free_step(const Configuration& c)
{
    for (int s = 0; s < action_steps_accepted; ++s)
        if (c.action_steps.steps[static_cast<std::size_t>(s)].step_type == step_free) return s;
    return -1;
}

// Seeded random sequences of appends, deletes, moves and removals on many
// keys: after every operation each invariant of the chains holds.
class StepProperty : public ::testing::TestWithParam<unsigned> {};

TEST_P(StepProperty, RandomEditsKeepEveryInvariant)
{
    auto doc = std::make_unique<Configuration>();
    Configuration& c = *doc;
    init_new_configuration(c, 0);
    for (int d = 1; d <= 3; ++d) testing::add_test_device(c, 0, d, 3, "D");
    std::mt19937 rng(GetParam());
    auto pick = [&](int n) { return static_cast<int>(rng() % static_cast<unsigned>(n)); };
    auto key = [&] { return testing::hard_place(c, 1 + pick(3), pick(6)); };

    for (int op = 0; op < 600; ++op) {
        const int what = pick(10);
        std::string done;
        if (what < 5) {
            const int expected = lowest_free_step(c);
            StepFields f;
            f.step_type = std::array<std::uint8_t, 4>{step_delay, step_beep, step_jump, step_link}[static_cast<std::size_t>(pick(4))];
            f.param_low = static_cast<std::uint8_t>(1 + pick(3));
            f.param_high = static_cast<std::uint8_t>(pick(3));
            f.value = static_cast<std::uint16_t>(pick(4));
            auto place = key();
            const auto result = append_to_chain(c, place, f);
            if (result.outcome == AppendOutcome::appended) ASSERT_EQ(result.step, expected) << "op " << op;
            done = "append";
        } else if (what < 7) {
            const auto place = key();
            delete_marcostep_item(c, place, 1 + pick(4));
            done = "delete";
        } else if (what == 7) {
            const auto place = key();
            const int list = key_action_list(c, place);
            if (pick(2)) move_marcostep_up(c, list, 1 + pick(4));
            else move_marcostep_down(c, list, 1 + pick(4));
            done = "move";
        } else if (what == 8) {
            const auto place = key();
            const int list = key_action_list(c, place);
            if (list != no_index) {
                delete_marcostep(c, list);
                set_key_action_list(c, place, no_index);
            }
            done = "delete key";
        } else {
            const auto device = static_cast<std::uint8_t>(1 + pick(3));
            const auto page = static_cast<std::uint8_t>(pick(3));
            switch (pick(6)) {
            case 0: Cut_hardlinkthiskey(c, device, page); break;
            case 1: Cut_Softlinkthiskey(c, device, page, static_cast<std::uint16_t>(pick(4))); break;
            case 2: Cut_devicehardlink(c, device); break;
            case 3: Cut_marcolinkpage(c, device, page); break;
            case 4: Cut_marcolink(c, device, page, static_cast<std::uint16_t>(pick(4))); break;
            default: Cut_marcojumplink(c, device, page); break;
            }
            done = "cut";
        }
        ASSERT_EQ(chain_faults(c), "") << "after op " << op << " (" << done << ")";
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, StepProperty, ::testing::Range(1u, 21u));

}  // namespace
}  // namespace tesselo
