#pragma once

// The editor as the program puts it together (frame, Qt's Ui port, the
// remote emulator on the link), on a virtual display with a window manager,
// and what a test reads back from the screen.

#include <functional>
#include <memory>

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QPixmap>
#include <QScreen>
#include <QTimer>
#include <QWindow>
#include <QtTest>

#include "core/document/clock.h"
#include "emulator/emulator_transport.h"
#include "platform/posix_file_store.h"
#include "support/test_app.h"
#include "views/mainform.h"
#include "views/mdi_form1.h"
#include "views/qt_ui.h"
#include "views/remote.h"
#include "wm/virtual_screen.h"

namespace tesselo::testing {

// The screen of this run, set by the test's main.
inline VirtualScreen*& virtual_screen()
{
    static VirtualScreen* screen = nullptr;
    return screen;
}

// Lets the window manager and the windows do their work: map, place,
// decorate, paint.
inline void settle(int ms = 150)
{
    QCoreApplication::processEvents();
    QTest::qWait(ms);
}

// What the screen shows in a rectangle of global coordinates.
inline QImage grab_screen(const QRect& rect)
{
    return QGuiApplication::primaryScreen()
        ->grabWindow(0, rect.x(), rect.y(), rect.width(), rect.height())
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
}

inline QRect global_rect(const QWidget* widget)
{
    return QRect(widget->mapToGlobal(QPoint(0, 0)), widget->size());
}

// A picture of the whole screen for a reviewer, in build/screenshots.
inline void save_screen(const QString& name)
{
    QDir().mkpath(TESSELO_SCREENSHOTS);
    const QString size = QString("%1x%2").arg(virtual_screen()->width()).arg(virtual_screen()->height());
    grab_screen(QRect(0, 0, virtual_screen()->width(), virtual_screen()->height()))
        .save(QString(TESSELO_SCREENSHOTS) + "/wm_" + size + "_" + name + ".png");
}

inline QRect screen_rect() { return QRect(0, 0, virtual_screen()->width(), virtual_screen()->height()); }

// The window manager's frame of a top-level window, as the X server holds it:
// the smallest mapped top-level window around the window's own rectangle.
inline QRect screen_frame(const QWidget* window)
{
    const QRect client(window->mapToGlobal(QPoint(0, 0)), window->size());
    QRect best;
    for (const ScreenWindow& w : virtual_screen()->mapped_windows()) {
        const QRect r(w.x, w.y, w.width, w.height);
        // The window manager's frame is the window with its decorations, not
        // a larger window (the editor's frame) that happens to hold it.
        const bool decorations_only = r.width() <= client.width() + 40 && r.height() <= client.height() + 80;
        if (r.contains(client) && decorations_only &&
            (best.isNull() || r.width() * r.height() < best.width() * best.height()))
            best = r;
    }
    return best;
}

// Waits, two seconds at most, until the window manager has framed `window`
// and the frame stays where it is.
inline void wait_framed(const QWidget* window)
{
    QRect last;
    for (int i = 0; i < 100; ++i) {
        settle(20);
        const QRect now = screen_frame(window);
        if (!now.isNull() && now.height() > window->height() && now == last) return;
        last = now;
    }
}

// Every mapped top-level window lies wholly inside the screen.
inline bool every_window_inside_the_screen(QString& which)
{
    for (const ScreenWindow& w : virtual_screen()->mapped_windows()) {
        const QRect r(w.x, w.y, w.width, w.height);
        // Helper windows of one pixel, kept off the screen, are nothing a user sees.
        if (r.width() <= 1 && r.height() <= 1) continue;
        if (!screen_rect().contains(r)) {
            which = QString("a window at %1,%2 %3x%4").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height());
            return false;
        }
    }
    return true;
}

// The editor: its application with Qt's Ui port, the remote emulator on the
// link (its waits on a virtual clock), and the frame as the program shows it.
struct Editor {
    TempFolder home;
    QtUi ui;
    VirtualClock clock;
    RecordingLauncher launcher;
    PosixFileStore files;
    Application app{ui, clock, launcher, files, home.path()};
    std::shared_ptr<emulator::RemoteEmulator> remote = std::make_shared<emulator::RemoteEmulator>();
    std::unique_ptr<MDIForm1> frame;

    Editor()
    {
        app.link().set_transport(std::make_unique<emulator::EmulatorTransport>(remote, clock));
        frame = std::make_unique<MDIForm1>(app);
        attach_frame(ui, *frame);
        frame->show();
        if (!QTest::qWaitForWindowExposed(frame.get())) qWarning("the frame was not shown");
        wait_framed(frame.get());
    }
    ~Editor()
    {
        // Whatever is still open goes without its questions.
        while (!app.documents().empty()) {
            app.slot_in_use[static_cast<std::size_t>(app.documents().front().slot)] = 0;
            app.remove_document(0);
        }
        frame->close();
        frame.reset();
        QCoreApplication::processEvents();
    }

    QMdiArea* area() const { return frame->area(); }
    QMdiSubWindow* sub(QWidget* w) const { return qobject_cast<QMdiSubWindow*>(w->parentWidget()); }
};

// Answers the message boxes that come while it lives, with their default
// button, after noting each one and what the screen shows of it.
struct BoxWatcher {
    struct Seen {
        QString title, text;
        QMessageBox::Icon icon = QMessageBox::NoIcon;
        QRect frame;     // with the window manager's decorations
        QRect geometry;  // the box itself
    };
    std::vector<Seen> seen;
    std::function<void(QMessageBox*)> on_box;
    QTimer timer;

    BoxWatcher()
    {
        timer.setInterval(30);
        QObject::connect(&timer, &QTimer::timeout, [this] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box || !box->isVisible()) return;
            // Until the window manager has put it on the screen.
            if (!box->windowHandle() || !box->windowHandle()->isExposed()) return;
            timer.stop();
            settle(100);
            seen.push_back({box->windowTitle(), box->text(), box->icon(), screen_frame(box), global_rect(box)});
            if (on_box) on_box(box);
            QAbstractButton* button = box->defaultButton() ? static_cast<QAbstractButton*>(box->defaultButton())
                                                           : box->buttons().value(0);
            if (button) button->click();
            timer.start();
        });
        timer.start();
    }
};

}  // namespace tesselo::testing

// The main of a test program on a virtual display with a window manager, of
// the size that TESSELO_SCREEN names ("1280x1024" when unset).
#define TESSELO_WM_TEST_MAIN(TestClass)                                                                \
    int main(int argc, char** argv)                                                                    \
    {                                                                                                  \
        int width = 1280, height = 1024;                                                               \
        if (const char* s = std::getenv("TESSELO_SCREEN")) std::sscanf(s, "%dx%d", &width, &height);   \
        tesselo::testing::VirtualScreen screen(width, height);                                         \
        if (!screen.ready()) {                                                                         \
            std::fprintf(stderr, "no virtual display with a window manager: %s\n", screen.why().c_str()); \
            return 1;                                                                                  \
        }                                                                                              \
        tesselo::testing::virtual_screen() = &screen;                                                  \
        qputenv("QT_QPA_PLATFORM", "xcb");                                                             \
        qunsetenv("QT_SCALE_FACTOR");                                                                  \
        QApplication app(argc, argv);                                                                  \
        TestClass test;                                                                                \
        return QTest::qExec(&test, argc, argv);                                                        \
    }
