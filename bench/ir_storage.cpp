// Storing a code into a document whose IR data holds 7999 records (the
// search for an identical code is linear), and registering into and picking
// from a My Database of 10,000 codes.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>
#include <random>
#include <sstream>

#include "core/app/application.h"
#include "core/document/clock.h"
#include "core/document/launcher.h"
#include "core/document/scripted_ui.h"
#include "core/ir/ir_storage.h"
#include "core/ir/my_database_forms.h"
#include "core/ir/my_database_store.h"
#include "platform/posix_file_store.h"
#include "bench_host.h"

namespace {

using namespace tesselo;
namespace fs = std::filesystem;

// A code of the RC5 format whose words 1 and 2 tell it apart.
IrCodeValue numbered_code(int n)
{
    IrCodeValue code;
    code.format_id = 5;
    code.word_count = 8;
    code.words = {2, static_cast<std::int16_t>(0x8010), static_cast<std::int16_t>(n), static_cast<std::int16_t>(n >> 8), 1, 2, 3, 4};
    return code;
}

void BM_StoreCodeBehind7999Records(benchmark::State& state)
{
    auto c = std::make_unique<Configuration>();
    clear_configuration(*c);
    for (int n = 0; n < 7999; ++n) append_ir_record(*c, numbered_code(n));
    const IrCodeValue fresh = numbered_code(9999);
    for (auto _ : state) {
        // A new code: every record is compared before it is added at 7999.
        benchmark::DoNotOptimize(store_ir_code(*c, fresh));
        c->ir_data.record_count = 7999;
    }
}
BENCHMARK(BM_StoreCodeBehind7999Records)->Unit(benchmark::kMicrosecond);

void BM_FindTheLastOf7999Records(benchmark::State& state)
{
    auto c = std::make_unique<Configuration>();
    clear_configuration(*c);
    for (int n = 0; n < 7999; ++n) append_ir_record(*c, numbered_code(n));
    const IrCodeValue last = numbered_code(7998);
    for (auto _ : state) benchmark::DoNotOptimize(find_ir_record(*c, last));
}
BENCHMARK(BM_FindTheLastOf7999Records)->Unit(benchmark::kMicrosecond);

// An application whose My Database holds 10,000 codes: 10 brands of 10
// devices of 10 models of 10 functions. Made once, in a scratch folder.
struct BigMyDatabase : bench::BenchHost {
    BigMyDatabase() : BenchHost("tesselo-bench-mydb")
    {
        MyDatabaseStore& store = app->my_database();
        for (int b = 0; b < 10; ++b) {
            const int brand = store.add_mydata_name(level_brand, "BRAND" + std::to_string(b), 0);
            for (int d = 0; d < 10; ++d) {
                const int device = store.add_mydata_name(level_device, "DEVICE" + std::to_string(d), brand);
                for (int m = 0; m < 10; ++m) {
                    const int model = store.add_mydata_name(level_model, "MODEL" + std::to_string(m), device);
                    for (int f = 0; f < 10; ++f) {
                        const int function = store.add_mydata_name(level_function, "FUNCTION" + std::to_string(f), model);
                        store.put_mykey_record(0, function, numbered_code(((b * 10 + d) * 10 + m) * 10 + f));
                    }
                }
            }
        }
    }
};

BigMyDatabase& big_database()
{
    static BigMyDatabase db;
    return db;
}

void BM_RegisterIntoMyDatabaseOf10000(benchmark::State& state)
{
    BigMyDatabase& db = big_database();
    int n = 0;
    for (auto _ : state) {
        // A new function under an existing model: the walk, a node and a code.
        const MyDbNames names{"BRAND9", "DEVICE9", "MODEL9", "NEW" + std::to_string(n++)};
        benchmark::DoNotOptimize(register_ir_code(db.ui, db.app->my_database(), names, numbered_code(n)));
    }
    state.counters["codes"] = db.app->my_database().code_count();
}
BENCHMARK(BM_RegisterIntoMyDatabaseOf10000)->Unit(benchmark::kMillisecond);

void BM_PickFromMyDatabaseOf10000(benchmark::State& state)
{
    BigMyDatabase& db = big_database();
    for (auto _ : state) {
        NewIRData pick(*db.app);
        pick.choose_name(level_brand, "BRAND7");
        pick.choose_name(level_device, "DEVICE3");
        pick.choose_name(level_model, "MODEL5");
        pick.choose_name(level_function, "FUNCTION1");
        benchmark::DoNotOptimize(pick.ok());
    }
}
BENCHMARK(BM_PickFromMyDatabaseOf10000)->Unit(benchmark::kMillisecond);

void BM_NameAMyDatabaseStepAmong10000(benchmark::State& state)
{
    BigMyDatabase& db = big_database();
    const IrCodeValue code = numbered_code(9000);
    for (auto _ : state) benchmark::DoNotOptimize(db.app->my_database().names_of_code(code));
}
BENCHMARK(BM_NameAMyDatabaseStepAmong10000)->Unit(benchmark::kMicrosecond);

}  // namespace
