// The cost of the tree's edits and of the journal: a snapshot
// (record_undorecord), an undo, AddDevice in a document of 126 devices, and
// opening a maximal file (check, load, tree).
#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>
#include <sstream>

#include "core/app/application.h"
#include "core/document/clock.h"
#include "core/document/launcher.h"
#include "core/document/lifecycle.h"
#include "core/document/open_command.h"
#include "core/document/scripted_ui.h"
#include "core/image/image_writer.h"
#include "core/model/configuration.h"
#include "core/tree/adding.h"
#include "core/tree/journal.h"
#include "platform/posix_file_store.h"
#include "bench_host.h"

namespace {

using namespace tesselo;

// An application in a folder of its own, with one new document of
// `devices` devices.
struct BenchApp : bench::BenchHost {
    explicit BenchApp(int devices) : BenchHost("tesselo-bench")
    {
        muNew(*app);
        for (int i = 0; i < devices; ++i) AddDevice(*app, add_ordinary);
        out.str("");
    }
};

void BM_RecordUndorecord(benchmark::State& state)
{
    BenchApp b(126);
    for (auto _ : state) {
        // The journal is full from the adds: every snapshot drops the oldest.
        record_undorecord(*b.app);
        benchmark::ClobberMemory();
    }
    state.counters["table_bytes"] = static_cast<double>(sizeof(Configuration));
}
BENCHMARK(BM_RecordUndorecord)->Unit(benchmark::kMillisecond);

void BM_Undo(benchmark::State& state)
{
    BenchApp b(126);
    for (auto _ : state) {
        state.PauseTiming();
        record_undorecord(*b.app);
        b.app->journal().redo.count = 0;
        state.ResumeTiming();
        muUndo_Click(*b.app);
    }
}
BENCHMARK(BM_Undo)->Unit(benchmark::kMillisecond);

void BM_AddDeviceTo126(benchmark::State& state)
{
    BenchApp b(126);
    for (auto _ : state) {
        AddDevice(*b.app, add_ordinary);
        state.PauseTiming();
        muUndo_Click(*b.app);
        b.app->journal().redo.count = 0;
        state.ResumeTiming();
    }
}
BENCHMARK(BM_AddDeviceTo126)->Unit(benchmark::kMillisecond);

void BM_OpenMaximalFile(benchmark::State& state)
{
    BenchApp b(127);
    // Every IR record and format the tables take, and every learned code.
    Configuration& c = b.app->config(0);
    c.ir_formats.format_count = ir_format_rows;
    c.ir_data.record_count = ir_data_accepted;
    for (int r = 0; r < ir_data_accepted; ++r) {
        c.ir_data_index[static_cast<std::size_t>(r)] = {r * 66, 62};
        c.ir_data.record(r)[31] = ir_closing_word;
    }
    for (auto& slot : c.learning_memory) slot.fill(0x5A);
    const std::string path = (b.home / "maximal.kcf").string();
    b.ui.queue_answer("file:" + path);
    muSaveas(*b.app);
    b.ui.queue_answer("no");
    close_document(*b.app, 0);
    for (auto _ : state) {
        const int document = open_configuration(*b.app, path);
        state.PauseTiming();
        if (document < 0) {
            state.SkipWithError("the maximal file did not open");
            break;
        }
        b.ui.clear_answers();
        b.ui.queue_answer("no");
        close_document(*b.app, document);
        b.out.str("");
        state.ResumeTiming();
    }
    state.counters["file_bytes"] = static_cast<double>(std::filesystem::file_size(path));
}
BENCHMARK(BM_OpenMaximalFile)->Unit(benchmark::kMillisecond);

}  // namespace
