// The properties window at its busiest: one key press in the Label field of
// a maximal document, from the key event to the redrawn LCD row (each press
// journals the whole document), and refreshing ListView1 for a 40-step key.
#include <benchmark/benchmark.h>

#include <sstream>

#include <QApplication>
#include <QKeyEvent>
#include <QTabBar>
#include <QTemporaryDir>

#include "core/app/application.h"
#include "core/document/clock.h"
#include "core/document/lifecycle.h"
#include "core/document/scripted_ui.h"
#include "core/keys/delay_beep_dialogs.h"
#include "core/keys/step_commands.h"
#include "core/tree/adding.h"
#include "core/tree/tree_model.h"
#include "core/tree/tree_view.h"
#include "platform/posix_launcher.h"
#include "views/glyph_keyboard.h"
#include "views/label_frame.h"
#include "offscreen_main.h"
#include "platform/posix_file_store.h"
#include "views/mdi_form1.h"
#include "views/properties_window.h"
#include "views/remote.h"

namespace {

using namespace tesselo;

// A frame over a document of 127 devices, the first device's page open and
// its row 1 key selected in the properties window.
struct Host {
    QTemporaryDir home;
    std::ostringstream out;
    ScriptedUi ui{out};
    VirtualClock clock;
    PosixLauncher launcher;
    PosixFileStore files;
    Application app{ui, clock, launcher, files, home.path().toStdString()};
    MDIForm1 frame{app};
    Remote* page = nullptr;

    Host()
    {
        frame.show();
        muNew(app);
        for (int d = 0; d < 127; ++d) AddDevice(app, add_ordinary);
        page = frame.open_page(0, "DEVICE11\\PAGE1");
        QApplication::processEvents();
        click_node(app, 0, app.tree(0).find("DEVICE11\\PAGE1"));
        const QPoint key = page->picture_rect(5).center().toPoint();
        QMouseEvent press(QEvent::MouseButtonPress, key, page->mapToGlobal(key), Qt::LeftButton, Qt::LeftButton, {});
        QApplication::sendEvent(page, &press);
        QApplication::processEvents();
        out.str("");
    }
    ~Host()
    {
        ui.queue_answer("no");
        close_frame(app);
    }
};

void press(QWidget* field, int key, const QString& text)
{
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(field, &down);
    // The row box paints before the next press arrives.
    QApplication::processEvents();
}

void BM_LabelKeyPress(benchmark::State& state)
{
    Host host;
    properties* window = host.frame.properties_window();
    window->tab_strip()->setCurrentIndex(1);
    QWidget* field = window->label_frame()->field();
    press(field, Qt::Key_A, "a");
    if (window->label_frame()->model().length != 1) state.SkipWithError("the key press reached no label");
    press(field, Qt::Key_Backspace, "");
    for (auto _ : state) {
        // A glyph typed, and taken out again: two presses, two journal entries.
        press(field, Qt::Key_A, "a");
        press(field, Qt::Key_Backspace, "");
    }
    state.SetItemsProcessed(2 * state.iterations());
    state.SetLabel("key presses");
}
BENCHMARK(BM_LabelKeyPress)->Unit(benchmark::kMillisecond);

void BM_ListView1Refresh40Steps(benchmark::State& state)
{
    Host host;
    const KeyTarget target{0, "DEVICE11\\PAGE1"};
    for (int i = 0; i < steps_per_list; ++i) {
        Delaytime delay(host.app.step_edit);
        delay.ok(host.app, target);
    }
    properties* window = host.frame.properties_window();
    window->refresh();
    if (window->content().action.rows.size() != steps_per_list) state.SkipWithError("the key has no 40 steps");
    for (auto _ : state) {
        window->refresh();
        QApplication::processEvents();
    }
}
BENCHMARK(BM_ListView1Refresh40Steps)->Unit(benchmark::kMicrosecond);

}  // namespace

TESSELO_OFFSCREEN_BENCHMARK_MAIN()
