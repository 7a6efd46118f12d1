// The key clipboard on a document near its limits: a 40-step key with IR
// and learned codes copied and pasted, and a key deleted that 500 other
// steps link to.
#include <benchmark/benchmark.h>

#include <memory>

#include "core/ir/ir_storage.h"
#include "core/ir/rc_codes.h"
#include "core/ir/rc_formats.h"
#include "core/keys/key_clipboard.h"
#include "core/keys/key_locator.h"
#include "core/keys/key_removal.h"
#include "core/keys/key_selection.h"
#include "core/keys/step_chain.h"
#include "bench_host.h"
#include "full_configuration.h"

namespace {

using namespace tesselo;

KeyPlace hard(int device, int key) { return bench::hard_key_place(device, key); }

// The full document with its device names, 960 learned codes, 7800 steps in
// lists of 39, and on hard key 0 of device 1 a key of 20 RC5 codes and 20
// learned codes.
std::unique_ptr<Configuration> maximal_document()
{
    auto c = bench::full_configuration();
    for (int d = 1; d <= 128; ++d)
        c->device_name_table[static_cast<std::size_t>(d)].node_key = "DEVICE" + std::to_string(d) + "1";
    while (check_learntotalno(*c) < 960) check_learnkeyno(*c);
    // The format table is full; RC5's format is its first row.
    c->ir_format_ids[0] = format_id_rc5;
    default_IR5Type(c->ir_formats.records[0]);
    for (int k = 1; k <= 200; ++k) {
        auto place = hard(1 + k / 41, k % 41);
        for (int s = 0; s < 39; ++s) append_to_chain(*c, place, duration_fields(step_delay, s + 1));
    }
    auto source = hard(1, 0);
    for (int i = 0; i < 20; ++i) {
        IrCodeValue code;
        code.format_id = format_id_rc5;
        default_IR5Type(code.format);
        code.word_count = encode_rc5(code.words, i, 10 + i);
        const int record = *append_ir_record(*c, code);
        append_to_chain(*c, source, duration_fields(step_rc5, record));
        IrCodeValue learned;
        learned.learned = true;
        learned.learned_bytes.fill(static_cast<std::uint8_t>(i));
        append_to_chain(*c, source, duration_fields(step_learning, store_learned_code(*c, learned, 1000)));
    }
    return c;
}

void BM_CopyAndPasteFortyStepKey(benchmark::State& state)
{
    const bool other_document = state.range(0) != 0;
    const auto full = maximal_document();
    auto work = std::make_unique<Configuration>();
    auto record = std::make_unique<KeyClipRecord>();
    for (auto _ : state) {
        state.PauseTiming();
        *work = *full;
        state.ResumeTiming();
        copy_key_record(*full, hard(1, 0), other_document ? 1 : 0, *record);
        drop_foreign_steps(*record, 0);
        drop_dangling_steps(*work, *record);
        if (paste_refusal(*work, *record) != PasteRefusal::none) state.SkipWithError("refused");
        auto target = hard(100, 7);
        paste_key_record(*work, target, *record, true);
        benchmark::DoNotOptimize(work->action_steps.step_total);
    }
}
BENCHMARK(BM_CopyAndPasteFortyStepKey)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

// Soft key 1 of device 1's page, and 500 steps of other keys that link to it,
// spread over the step table among delays.
std::unique_ptr<Configuration> linked_document()
{
    auto c = bench::full_configuration();
    for (int d = 1; d <= 128; ++d)
        c->device_name_table[static_cast<std::size_t>(d)].node_key = "DEVICE" + std::to_string(d) + "1";
    auto& slot = c->device_pages[0].slots[1];
    slot = SoftKey{0, 1, 100, no_index, 0};
    for (int k = 0; k < 200; ++k) {
        auto place = hard(2 + k / 41, k % 41);
        for (int s = 0; s < 38; ++s) {
            StepFields f = duration_fields(step_delay, 5);
            const int n = k * 38 + s;
            if (n % 15 == 0 && n / 15 < 500) f = StepFields{step_link, 1, 0, 100, 1};
            append_to_chain(*c, place, f);
        }
    }
    auto key = *locate_softkey(*c, "DEVICE11\\PAGE1", 1);
    for (int s = 0; s < 10; ++s) append_to_chain(*c, key, duration_fields(step_delay, 3));
    return c;
}

void BM_DeleteKeyLinkedFrom500Steps(benchmark::State& state)
{
    const auto full = linked_document();
    auto work = std::make_unique<Configuration>();
    int links = 0;
    for (const auto& s : full->action_steps.steps) links += s.step_type == step_link ? 1 : 0;
    state.counters["links"] = links;
    for (auto _ : state) {
        state.PauseTiming();
        *work = *full;
        const auto place = *locate_softkey(*work, "DEVICE11\\PAGE1", 1);
        state.ResumeTiming();
        remove_key(*work, place);
        benchmark::DoNotOptimize(work->action_steps.step_total);
    }
}
BENCHMARK(BM_DeleteKeyLinkedFrom500Steps)->Unit(benchmark::kMicrosecond);

}  // namespace
