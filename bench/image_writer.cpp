// The cost of packing a Configuration into its image, for a new document and
// for one that fills the tables.
#include <benchmark/benchmark.h>

#include <memory>

#include "core/image/image_writer.h"
#include "core/model/configuration.h"
#include "core/model/hardkey_defaults.h"

namespace {

using namespace tesselo;

std::unique_ptr<Configuration> full_configuration()
{
    auto c = std::make_unique<Configuration>();
    init_new_configuration(*c, 0);
    // 26 HOME pages with 5 Devices each would pass 128; 128 Devices with one page each.
    c->device_table[0].page_count = 26;
    for (int p = 0; p < 26; ++p) c->page_table[static_cast<std::size_t>(p)].key_count = p < 25 ? 6 : 4;
    for (int d = 1; d <= 128; ++d) {
        c->device_table[static_cast<std::size_t>(d)] = {0, 1, 1, 0};
        reset_entity_hardkeys(*c, d);
        auto& page = c->page_table[static_cast<std::size_t>(25 + d)];
        page.key_count = 12;
        page.node_key = "DEVICE" + std::to_string(d) + "1\\PAGE1";
        c->device_pages[static_cast<std::size_t>(d - 1)].node_key = page.node_key;
    }
    c->ir_data.record_count = 8000;
    for (int r = 0; r < 8000; ++r) c->ir_data_index[static_cast<std::size_t>(r)] = {r * 66, 62};
    c->ir_formats.format_count = 400;
    return c;
}

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
