// Recovery copies: what an edit pays for them (a note of the tick), and what
// the editor's timer pays at the pause after the edits, when the copy of a
// full document is made and written through the file store.
#include <benchmark/benchmark.h>

#include "bench_host.h"
#include "core/document/lifecycle.h"
#include "core/document/recovery.h"
#include "core/model/configuration.h"
#include "core/tree/adding.h"
#include "full_configuration.h"

namespace {

using namespace tesselo;

// The note an edit leaves: all an edit waits for.
void BM_RecoveryNoteOfAnEdit(benchmark::State& state)
{
    bench::BenchHost host("tesselo-bench-recovery-note");
    muNew(*host.app);
    for (auto _ : state) host.app->recovery().edit_states_changed();
}
BENCHMARK(BM_RecoveryNoteOfAnEdit);

// The copy of a full document written at the pause: the image made from a
// copy of the tables, and the file written, synced and renamed.
void BM_RecoveryCopyOfAFullDocument(benchmark::State& state)
{
    bench::BenchHost host("tesselo-bench-recovery-copy");
    muNew(*host.app);
    const auto full = bench::full_configuration();
    host.app->config(0) = *full;
    bool flip = false;
    for (auto _ : state) {
        // A change each time, so that each pause writes the copy.
        host.app->config(0).learning_keys[0] = (flip = !flip) ? 1 : 2;
        host.app->recovery().edit_states_changed();
        host.clock.advance(RecoveryKeeper::quiet_ms);
        host.app->recovery().tick();
    }
}
BENCHMARK(BM_RecoveryCopyOfAFullDocument)->Unit(benchmark::kMillisecond);

}  // namespace
