// The RC encoders and decoders, and a lookup in the IR library: a code set's
// offset, a key's code and a brand name.
#include <benchmark/benchmark.h>

#include "core/ir/brand_list.h"
#include "core/ir/ir_data_dialog.h"
#include "core/ir/ir_library.h"
#include "core/ir/key_list.h"
#include "core/ir/rc_codes.h"

namespace {

using namespace tesselo;

void encode_rc5_all(benchmark::State& state)
{
    IrCodeWords words{};
    for (auto _ : state) {
        for (int c = 0; c < 128; ++c) benchmark::DoNotOptimize(encode_rc5(words, c & 31, c));
    }
    state.SetItemsProcessed(state.iterations() * 128);
}
BENCHMARK(encode_rc5_all);

void encode_rc6a_long(benchmark::State& state)
{
    IrCodeWords words{};
    int c = 0;
    for (auto _ : state) benchmark::DoNotOptimize(encode_rc6a(words, 40000, 17, c++ & 255));
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(encode_rc6a_long);

void decode_each_protocol(benchmark::State& state)
{
    IrCodeWords rc5{}, rc5x{}, rc6{}, rc6a{};
    const int n5 = encode_rc5(rc5, 3, 100), n5x = encode_rc5x(rc5x, 3, 100, 20), n6 = encode_rc6(rc6, 30, 200),
              n6a = encode_rc6a(rc6a, 40000, 30, 200);
    RcFields f;
    for (auto _ : state) {
        benchmark::DoNotOptimize(Get_RC5_Code(rc5, n5, f));
        benchmark::DoNotOptimize(Get_RC5x_Code(rc5x, n5x, f));
        benchmark::DoNotOptimize(Get_RC6_m0_Code(rc6, n6, f));
        benchmark::DoNotOptimize(Get_RC6_mA_Code(rc6a, n6a, f));
    }
    state.SetItemsProcessed(state.iterations() * 4);
}
BENCHMARK(decode_each_protocol);

// The whole lookup of the library dialog's OK, on the generated library.
void library_lookup(benchmark::State& state)
{
    const auto files = load_ir_library_files(TESSELO_BUILD_BIN);
    auto handle = CreateGetIR();
    IrFormatRecord format{};
    IrCodeWords words{};
    for (auto _ : state) {
        const auto offset = check_deviceoffset(files.library, "vcr001:");
        benchmark::DoNotOptimize(GetIRCode(handle.get(), offset, 5, format, words, files.library_path));
    }
    if (read_ir_directory(files.library).codesets.empty()) state.SkipWithError("no IR library was generated");
}
BENCHMARK(library_lookup);

void brand_and_key_names(benchmark::State& state)
{
    const auto files = load_ir_library_files(TESSELO_BUILD_BIN);
    for (auto _ : state) {
        benchmark::DoNotOptimize(search_brandname(files.brandlist, 5));
        benchmark::DoNotOptimize(decode_keyname(files.keylist, "vcr001:", 16));
    }
}
BENCHMARK(brand_and_key_names);

}  // namespace
