// The editor's start-up from a loaded program to a usable frame, and the
// drawing of a page window, on the offscreen platform.
#include <benchmark/benchmark.h>

#include <sstream>

#include <QApplication>
#include <QPixmap>
#include <QTemporaryDir>

#include "core/app/application.h"
#include "core/document/clock.h"
#include "core/document/lifecycle.h"
#include "core/document/scripted_ui.h"
#include "platform/posix_file_store.h"
#include "platform/posix_launcher.h"
#include "offscreen_main.h"
#include "views/mdi_form1.h"
#include "views/remote.h"

namespace {

// The log of the runs goes to a folder of its own.
struct Host {
    QTemporaryDir home;
    std::ostringstream out;
    tesselo::ScriptedUi ui{out};
    tesselo::VirtualClock clock;
    tesselo::PosixLauncher launcher;
    tesselo::PosixFileStore files;
    tesselo::Application app{ui, clock, launcher, files, home.path().toStdString()};
};

void BM_FrameReady(benchmark::State& state)
{
    Host host;
    for (auto _ : state) {
        tesselo::MDIForm1 frame(host.app);
        frame.show();
        QApplication::processEvents();
        benchmark::DoNotOptimize(frame.isVisible());
    }
}
BENCHMARK(BM_FrameReady)->Unit(benchmark::kMillisecond);

void BM_NewDocumentWindow(benchmark::State& state)
{
    Host host;
    tesselo::MDIForm1 frame(host.app);
    frame.show();
    for (auto _ : state) {
        tesselo::muNew(host.app);
        QApplication::processEvents();
        state.PauseTiming();
        for (int i = 0; i < 2; ++i) host.ui.queue_answer("no");
        tesselo::close_document(host.app, host.app.active_document());
        QApplication::processEvents();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_NewDocumentWindow)->Unit(benchmark::kMillisecond);

void BM_PaintPageWindow(benchmark::State& state)
{
    Host host;
    tesselo::MDIForm1 frame(host.app);
    frame.show();
    tesselo::muNew(host.app);
    tesselo::Remote* page = frame.open_page(0, "HOME1\\PAGE1");
    QPixmap pixmap(page->size() * 2);
    pixmap.setDevicePixelRatio(2);
    for (auto _ : state) page->render(&pixmap);
    host.ui.queue_answer("no");
    tesselo::close_frame(host.app);
}
BENCHMARK(BM_PaintPageWindow)->Unit(benchmark::kMicrosecond);

}  // namespace

TESSELO_OFFSCREEN_BENCHMARK_MAIN()
