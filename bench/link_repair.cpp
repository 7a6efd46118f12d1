// The cost of each link repair on a full document: 8000 steps in 200 lists
// of 40, a quarter of them jumps and links into the device being changed.
#include <benchmark/benchmark.h>

#include <memory>

#include "core/model/configuration.h"
#include "core/model/hardkey_defaults.h"
#include "core/tree/link_repair.h"

namespace {

using namespace tesselo;

std::unique_ptr<Configuration> full_document()
{
    auto c = std::make_unique<Configuration>();
    init_new_configuration(*c, 0);
    for (int d = 1; d <= 5; ++d) {
        c->device_table[static_cast<std::size_t>(d)] = {0, 4, 4, 0};
        c->device_name_table[static_cast<std::size_t>(d)].node_key = "DEVICE" + std::to_string(d) + "1";
        reset_entity_hardkeys(*c, d);
    }
    // Lists are interleaved so that no list's rows are adjacent: step s of
    // list l is row s * 200 + l.
    for (int l = 0; l < 200; ++l) {
        c->action_lists.entries[static_cast<std::size_t>(l)] = {static_cast<std::int16_t>(l), 40};
        for (int s = 0; s < 40; ++s) {
            const int row = s * 200 + l;
            auto& step = c->action_steps.steps[static_cast<std::size_t>(row)];
            const bool into = (row % 4) == 0;
            step.step_type = into ? (row % 8 == 0 ? step_jump : step_link) : step_delay;
            step.param_low = into ? 3 : 10;
            step.param_high = into ? static_cast<std::uint8_t>((row / 8) % 4) : 0;
            step.value = static_cast<std::uint16_t>(row % 12);
            step.next_step = s == 39 ? end_of_list : static_cast<std::uint16_t>(row + 200);
        }
        c->hardkeys[static_cast<std::size_t>(41 + l)].action_list = l;
    }
    c->action_lists.list_count = 200;
    c->action_steps.step_total = 8000;
    return c;
}

template <typename Cut>
void run(benchmark::State& state, Cut cut)
{
    const auto full = full_document();
    auto work = std::make_unique<Configuration>();
    for (auto _ : state) {
        state.PauseTiming();
        work->action_steps = full->action_steps;
        work->action_lists = full->action_lists;
        work->hardkeys = full->hardkeys;
        work->device_pages = full->device_pages;
        work->home_pages = full->home_pages;
        work->device_table = full->device_table;
        work->page_table = full->page_table;
        state.ResumeTiming();
        cut(*work);
        benchmark::ClobberMemory();
    }
    state.counters["steps_left"] = work->action_steps.step_total;
}

void BM_Cut_hardlinkthiskey(benchmark::State& s) { run(s, [](Configuration& c) { Cut_hardlinkthiskey(c, 3, 1); }); }
void BM_Cut_Softlinkthiskey(benchmark::State& s) { run(s, [](Configuration& c) { Cut_Softlinkthiskey(c, 3, 1, 4); }); }
void BM_Cut_devicehardlink(benchmark::State& s) { run(s, [](Configuration& c) { Cut_devicehardlink(c, 3); }); }
void BM_Cut_marcolinkpage(benchmark::State& s) { run(s, [](Configuration& c) { Cut_marcolinkpage(c, 3, 1); }); }
void BM_Cut_marcolink(benchmark::State& s) { run(s, [](Configuration& c) { Cut_marcolink(c, 3, 1, 4); }); }
void BM_Cut_marcojumplink(benchmark::State& s) { run(s, [](Configuration& c) { Cut_marcojumplink(c, 3, 1); }); }

BENCHMARK(BM_Cut_hardlinkthiskey)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Cut_Softlinkthiskey)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Cut_devicehardlink)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Cut_marcolinkpage)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Cut_marcolink)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Cut_marcojumplink)->Unit(benchmark::kMicrosecond);

}  // namespace
