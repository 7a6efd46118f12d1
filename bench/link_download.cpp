// The cost of a download of a maximal image to the in-process emulator with
// no latency, beyond the waits the protocol prescribes (those pass on the
// virtual clock and cost no real time).
#include <benchmark/benchmark.h>

#include <sstream>

#include "core/app/application.h"
#include "core/document/clock.h"
#include "core/document/launcher.h"
#include "core/document/scripted_ui.h"
#include "core/image/image_writer.h"
#include "core/link/download.h"
#include "platform/posix_file_store.h"
#include "quiet_launcher.h"
#include "emulator/emulator_transport.h"
#include "full_configuration.h"

namespace {

using namespace tesselo;

void BM_DownloadMaximalImage(benchmark::State& state)
{
    auto config = tesselo::bench::full_configuration();
    const auto built = build_image(*config);
    std::ostringstream out;
    ScriptedUi ui(out);
    VirtualClock clock;
    bench::QuietLauncher launcher;
    PosixFileStore files;
    Application app(ui, clock, launcher, files, std::filesystem::temp_directory_path());
    auto remote = std::make_shared<emulator::RemoteEmulator>();
    app.link().set_transport(std::make_unique<emulator::EmulatorTransport>(remote, clock));
    std::uint32_t virtual_ms = 0;
    for (auto _ : state) {
        auto image = built;
        const std::uint32_t start = clock.tick_count();
        benchmark::DoNotOptimize(download_image(app, image, image.size()));
        virtual_ms = clock.tick_count() - start;
    }
    state.counters["bytes"] = static_cast<double>(built.size());
    state.counters["blocks"] = static_cast<double>((built.size() + 4095) / 4096);
    state.counters["prescribed_wait_ms"] = virtual_ms;
}
BENCHMARK(BM_DownloadMaximalImage)->Unit(benchmark::kMillisecond);

}  // namespace
