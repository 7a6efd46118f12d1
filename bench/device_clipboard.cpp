// The device and page clipboard and the tree's moves on a large document:
// 40 devices of one page and a device of 40 pages whose 11 keys a page have
// three steps each (1320 steps), plus an RC5 code on each of its pages.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>
#include <sstream>

#include "core/app/application.h"
#include "core/document/clock.h"
#include "core/document/lifecycle.h"
#include "core/document/scripted_ui.h"
#include "core/ir/ir_storage.h"
#include "core/ir/rc_codes.h"
#include "core/ir/rc_formats.h"
#include "core/keys/key_locator.h"
#include "core/keys/step_chain.h"
#include "core/model/configuration.h"
#include "core/tree/adding.h"
#include "core/tree/device_clipboard.h"
#include "core/tree/edit_state.h"
#include "core/tree/journal.h"
#include "core/tree/node_keys.h"
#include "core/tree/tree_model.h"
#include "core/tree/tree_moves.h"
#include "core/tree/tree_view.h"
#include "platform/posix_file_store.h"
#include "bench_host.h"

namespace {

using namespace tesselo;

struct BenchApp : bench::BenchHost {
    const std::string big = "DEVICE411";

    BenchApp() : BenchHost("tesselo-bench-device-clipboard")
    {
        muNew(*app);
        for (int i = 0; i < 41; ++i) AddDevice(*app, add_ordinary);
        Configuration& c = app->config(0);
        select(big);
        for (int p = 1; p < 40; ++p) addpage(*app, add_ordinary);
        IrCodeValue code;
        code.format_id = format_id_rc5;
        default_IR5Type(code.format);
        code.word_count = encode_rc5(code.words, 5, 12);
        for (int p = 1; p <= 40; ++p) {
            const std::string page = device_page_key(big, p);
            for (int row = 1; row < 6; ++row)
                for (int left = 0; left < 2; ++left) {
                    auto place = *locate_softkey(c, page, static_cast<std::uint8_t>(row + (left ? 128 : 0)));
                    for (int s = 0; s < 3; ++s) append_to_chain(c, place, duration_fields(step_delay, 10 + s));
                }
            auto place = *locate_softkey(c, page, 0);
            const int number = *store_ir_code(c, code);
            append_to_chain(c, place, duration_fields(step_rc5, number));
        }
        out.str("");
    }
    void select(const std::string& key) { click_node(*app, 0, app->tree(0).find(key)); }
};

void BM_DeleteDeviceOf40Pages(benchmark::State& state)
{
    BenchApp b;
    for (auto _ : state) {
        b.select(b.big);
        cut_devicepage(*b.app, cut_mode_delete);
        state.PauseTiming();
        muUndo_Click(*b.app);
        state.ResumeTiming();
    }
}
BENCHMARK(BM_DeleteDeviceOf40Pages)->Unit(benchmark::kMillisecond);

void BM_MoveDevicePastOneOf40Pages(benchmark::State& state)
{
    BenchApp b;
    b.select("DEVICE401");
    for (auto _ : state) {
        // Down past the big device, then up again: two moves an iteration.
        Move_treeviewdown(*b.app);
        Move_treeviewup(*b.app);
    }
    state.SetItemsProcessed(state.iterations() * 2);
}
BENCHMARK(BM_MoveDevicePastOneOf40Pages)->Unit(benchmark::kMillisecond);

void BM_PasteDeviceOf40Pages(benchmark::State& state)
{
    BenchApp b;
    b.select(b.big);
    if (!copy_devicepage(*b.app)) state.SkipWithError("the copy was refused");
    if (!paste_devicepage(*b.app)) state.SkipWithError(("the paste was refused: " + b.out.str()).c_str());
    muUndo_Click(*b.app);
    b.app->edit_state().clipboard_kind = clipboard_device;
    for (auto _ : state) {
        paste_devicepage(*b.app);
        state.PauseTiming();
        muUndo_Click(*b.app);
        // Undo empties the clipboard's kind; the buffer itself stays filled.
        b.app->edit_state().clipboard_kind = clipboard_device;
        state.ResumeTiming();
    }
}
BENCHMARK(BM_PasteDeviceOf40Pages)->Unit(benchmark::kMillisecond);

}  // namespace
