// File > Merge Configuration: a file of 64 devices merged into a document of
// 60, from the file's check and read to the last renumbered link.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>
#include <sstream>

#include "core/app/application.h"
#include "core/document/clock.h"
#include "core/document/lifecycle.h"
#include "core/document/scripted_ui.h"
#include "core/image/image_writer.h"
#include "core/ir/ir_storage.h"
#include "core/ir/rc_codes.h"
#include "core/ir/rc_formats.h"
#include "core/keys/key_locator.h"
#include "core/keys/key_selection.h"
#include "core/keys/step_chain.h"
#include "core/tree/adding.h"
#include "core/tree/journal.h"
#include "core/tree/merge_configuration.h"
#include "core/tree/tree_model.h"
#include "core/tree/tree_view.h"
#include "platform/posix_file_store.h"
#include "bench_host.h"

namespace {

using namespace tesselo;

KeyPlace hard(int device, int key) { return bench::hard_key_place(device, key); }

// Gives each of the devices of the active document, rows `first` on, four
// labelled soft keys and four hard keys with five steps each (an RC5 code, a
// jump and a link to the next device's page and hard key, a delay, and on
// every eighth device a learned code), and a link to the next device's first
// soft key.
void program_devices(Application& app, int slot, int first)
{
    Configuration& c = app.config(slot);
    const int last = device_count(c);
    for (int d = first; d <= last; ++d) {
        const int next = d == last ? first : d + 1;
        const std::string page = c.page_table[static_cast<std::size_t>(pages_before(c, d))].node_key;
        for (int k = 0; k < 8; ++k) {
            KeyPlace place = k < 4 ? *locate_softkey(c, page, static_cast<std::uint8_t>(k + 1)) : hard(d, k);
            for (int s = 0; s < 5; ++s) {
                StepFields f = duration_fields(step_delay, s + 1);
                if (s % 5 == 1) {
                    IrCodeValue code;
                    code.format_id = format_id_rc5;
                    default_IR5Type(code.format);
                    code.word_count = encode_rc5(code.words, d % 32, (k * 10 + s) % 64);
                    f = duration_fields(step_rc5, *append_ir_record(c, code));
                } else if (s % 5 == 2) {
                    f = {step_jump, static_cast<std::uint8_t>(next), 0, 0, 0};
                } else if (s % 5 == 3) {
                    f = {step_link, static_cast<std::uint8_t>(next), 255, 3, 3};
                } else if (s == 4 && d % 8 == 0) {
                    IrCodeValue learned;
                    learned.learned = true;
                    learned.learned_bytes.fill(static_cast<std::uint8_t>(d));
                    f = duration_fields(step_learning, store_learned_code(c, learned, 1));
                }
                append_to_chain(c, place, f);
            }
            if (k < 4) {
                const SoftKey* key = softkey_at(c, *locate_softkey(c, page, static_cast<std::uint8_t>(k + 1)));
                c.softkey_labels[static_cast<std::size_t>(key->label_index)].bytes = {3, 11, 5, 25};
            }
        }
        // A link to the next device's first soft key.
        KeyPlace linking = hard(d, 9);
        append_to_chain(c, linking, {step_link, static_cast<std::uint8_t>(next), 0, 0, 1});
    }
}

struct BenchMerge : bench::BenchHost {
    std::string file;

    BenchMerge(int file_devices, int document_devices) : BenchHost("tesselo-bench-merge")
    {
        muNew(*app);
        for (int i = 0; i < file_devices; ++i) AddDevice(*app, add_ordinary);
        program_devices(*app, 0, 1);
        file = (home / "merged.kcf").string();
        save_tofile(*app, file, 0, 0);
        ui.queue_answer("no");
        close_document(*app, 0);
        muNew(*app);
        for (int i = 0; i < document_devices; ++i) AddDevice(*app, add_ordinary);
        program_devices(*app, 0, 1);
        out.str("");
    }
};

void BM_Merge64DevicesInto60(benchmark::State& state)
{
    BenchMerge b(64, 60);
    int merged = 0;
    for (auto _ : state) {
        b.ui.queue_answer("file:" + b.file);
        merged = muMerge(*b.app);
        state.PauseTiming();
        if (merged != 64) {
            state.SkipWithError("the merge was refused");
            break;
        }
        muUndo_Click(*b.app);
        b.out.str("");
        state.ResumeTiming();
    }
    state.counters["devices"] = merged;
    state.counters["steps"] = b.app->config(0).action_steps.step_total;
    b.ui.queue_answer("file:" + b.file);
    muMerge(*b.app);
    state.counters["steps_merged"] = b.app->config(0).action_steps.step_total;
    state.counters["records_merged"] = b.app->config(0).ir_data.record_count;
}
BENCHMARK(BM_Merge64DevicesInto60)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
