// The cost of packing a Configuration into its image, for a new document and
// for one that fills the tables.
#include <benchmark/benchmark.h>

#include <memory>

#include "core/image/image_writer.h"
#include "core/model/configuration.h"
#include "core/model/hardkey_defaults.h"
#include "full_configuration.h"

namespace {

using namespace tesselo;
using tesselo::bench::full_configuration;

void BM_BuildImageNew(benchmark::State& state)
{
    auto c = std::make_unique<Configuration>();
    init_new_configuration(*c, 0);
    for (auto _ : state) benchmark::DoNotOptimize(build_image(*c));
}
BENCHMARK(BM_BuildImageNew)->Unit(benchmark::kMicrosecond);

void BM_BuildImageFull(benchmark::State& state)
{
    auto c = full_configuration();
    for (auto _ : state) {
        auto image = build_image(*c);
        benchmark::DoNotOptimize(image);
        state.counters["bytes"] = static_cast<double>(image.size());
    }
}
BENCHMARK(BM_BuildImageFull)->Unit(benchmark::kMicrosecond);

void BM_NewConfiguration(benchmark::State& state)
{
    auto c = std::make_unique<Configuration>();
    for (auto _ : state) {
        init_new_configuration(*c, 0);
        benchmark::ClobberMemory();
    }
    state.counters["table_bytes"] = static_cast<double>(sizeof(Configuration));
}
BENCHMARK(BM_NewConfiguration)->Unit(benchmark::kMicrosecond);

}  // namespace
