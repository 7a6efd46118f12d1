// The simulator's engine: loading a maximal image, and a press whose chain
// of links runs 40 keys of 40 steps.
#include <benchmark/benchmark.h>

#include <memory>

#include "core/image/image_writer.h"
#include "core/keys/ir_step_names.h"
#include "core/keys/key_locator.h"
#include "core/keys/step_chain.h"
#include "core/sim/remote_simulator.h"
#include "full_configuration.h"

namespace {

using namespace tesselo;

void BM_LoadMaximalImage(benchmark::State& state)
{
    auto c = bench::full_configuration();
    const std::vector<std::uint8_t> image = build_image(*c);
    const LibraryStepNames names(std::vector<std::uint8_t>{}, std::vector<std::uint8_t>{});
    for (auto _ : state) benchmark::DoNotOptimize(RemoteSimulator::from_image(image, names));
    state.counters["image_bytes"] = static_cast<double>(image.size());
}
BENCHMARK(BM_LoadMaximalImage)->Unit(benchmark::kMillisecond);

// HOME's hard key 0 links to its hard keys 1 to 40, each of 40 delays.
std::unique_ptr<RemoteSimulator> chained_remote(const IrStepNames& names)
{
    auto c = std::make_unique<Configuration>();
    init_new_configuration(*c, 0);
    const auto place = [](int key) {
        KeyPlace p;
        p.kind = 1;
        p.device = 0;
        p.hard_entry = key;
        return p;
    };
    for (int key = 1; key <= 40; ++key)
        for (int n = 0; n < 40; ++n) {
            KeyPlace p = place(key);
            append_to_chain(*c, p, duration_fields(step_delay, n + 1));
        }
    for (int key = 1; key <= 40; ++key) {
        KeyPlace p = place(0);
        StepFields link{step_link, 0, 255, static_cast<std::uint16_t>(key + 1), static_cast<std::uint8_t>(key + 1)};
        append_to_chain(*c, p, link);
    }
    return std::make_unique<RemoteSimulator>(std::move(c), names);
}

void BM_PressAChainOf40KeysOf40Steps(benchmark::State& state)
{
    const LibraryStepNames names(std::vector<std::uint8_t>{}, std::vector<std::uint8_t>{});
    auto sim = chained_remote(names);
    for (auto _ : state) {
        auto actions = sim->press_hard(0);
        state.counters["actions"] = static_cast<double>(actions.size());
        benchmark::DoNotOptimize(actions);
    }
}
BENCHMARK(BM_PressAChainOf40KeysOf40Steps)->Unit(benchmark::kMicrosecond);

}  // namespace
