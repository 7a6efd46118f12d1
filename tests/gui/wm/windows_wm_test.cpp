// The frame's own windows and its message boxes under a window manager:
// where they open, that they stay inside the screen and remember where the
// user put them, that a box is wide enough for its title, and that the
// Download and Upload window is painted before the first block goes.
#include <QFont>
#include <QFontMetrics>
#include <QLabel>
#include <QProgressBar>

#include "views/download_window.h"
#include "views/properties_window.h"
#include "wm/wm_support.h"

using namespace tesselo;
using namespace tesselo::testing;

namespace {

// The bus with the emulated remote, which tells the test of every write.
class WatchedTransport : public Transport {
public:
    WatchedTransport(std::shared_ptr<emulator::RemoteEmulator> remote, Clock& clock) : inner_(std::move(remote), clock) {}
    std::function<void()> on_write;
    std::vector<std::string> device_paths() override { return inner_.device_paths(); }
    bool open(const std::string& path) override { return inner_.open(path); }
    void close() override { inner_.close(); }
    int read_pipe() const override { return inner_.read_pipe(); }
    int write_pipe() const override { return inner_.write_pipe(); }
    int read(std::uint8_t* b, std::size_t n, std::uint32_t t) override { return inner_.read(b, n, t); }
    int write(const std::uint8_t* b, std::size_t n, std::size_t& w, std::uint32_t t) override
    {
        if (on_write) on_write();
        return inner_.write(b, n, w, t);
    }

private:
    emulator::EmulatorTransport inner_;
};

// The window manager's title font, as openbox's own configuration sets it.
int title_width(const QString& title)
{
    QFont font("sans");
    font.setPointSize(8);
    font.setBold(true);
    return QFontMetrics(font).horizontalAdvance(title);
}

// How many pixels of the picture of the computer (its blue screen) the
// screen shows in a rectangle.
int computer_pixels(const QRect& rect)
{
    const QImage shot = grab_screen(rect);
    int n = 0;
    for (int y = 0; y < shot.height(); ++y)
        for (int x = 0; x < shot.width(); ++x) {
            const QColor c = shot.pixelColor(x, y);
            n += std::abs(c.red() - 0x2F) < 12 && std::abs(c.green() - 0x6F) < 12 && std::abs(c.blue() - 0xD0) < 12;
        }
    return n;
}

bool beside_or_over(const QRect& window, const QRect& frame)
{
    return window.intersects(frame) || window.left() == frame.right() + 1;
}

}  // namespace

class WindowsWmTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void the_properties_window_opens_by_the_frame_inside_the_screen_and_keeps_its_place()
    {
        Editor e;
        e.frame->entry("muNew")->trigger();
        e.frame->entry("muproperties")->trigger();
        properties* window = e.frame->properties_window();
        QVERIFY(window && QTest::qWaitForWindowExposed(window));
        settle();
        save_screen("properties_first");
        QString which;
        QVERIFY2(every_window_inside_the_screen(which), qPrintable(which));
        QVERIFY(beside_or_over(screen_frame(window), screen_frame(e.frame.get())));

        // The user puts it elsewhere, closes it, opens it again.
        window->move(40, 60);
        QTRY_VERIFY(!screen_frame(window).isNull());
        const QPoint where = screen_frame(window).topLeft();
        QCOMPARE(where, QPoint(40, 60));
        window->close();
        settle();
        e.frame->entry("muproperties")->trigger();
        QVERIFY(QTest::qWaitForWindowExposed(window));
        QTRY_COMPARE(screen_frame(window).topLeft(), where);

        // Put partly off the screen, it comes back inside.
        window->move(screen_rect().right() - 60, screen_rect().bottom() - 40);
        settle();
        window->close();
        settle();
        e.frame->entry("muproperties")->trigger();
        QVERIFY(QTest::qWaitForWindowExposed(window));
        settle();
        QVERIFY2(every_window_inside_the_screen(which), qPrintable(which));
        save_screen("properties_again");
    }

    void the_download_and_upload_window_opens_over_the_frame_and_keeps_its_place()
    {
        Editor e;
        e.frame->entry("muNew")->trigger();
        BoxWatcher boxes;
        QRect first;
        QPoint moved_to;
        boxes.on_box = [&](QMessageBox*) {
            Download* window = e.ui.download_window();
            QVERIFY(window && window->isVisible());
            first = screen_frame(window);
            QString which;
            QVERIFY2(every_window_inside_the_screen(which), qPrintable(which));
            save_screen("download_window");
            // The user moves it aside while the box is up.
            window->move(first.topLeft() + QPoint(-120, 90));
            settle();
            moved_to = screen_frame(window).topLeft();
            boxes.on_box = nullptr;
        };
        e.frame->entry("muDownload")->trigger();
        QCOMPARE(boxes.seen.size(), std::size_t(1));
        QVERIFY(screen_frame(e.frame.get()).contains(first));

        QRect second;
        // The upload hides it before the data comes, so the place is read at its first write.
        auto watched = std::make_unique<WatchedTransport>(e.remote, e.clock);
        watched->on_write = [&] {
            if (Download* window = e.ui.download_window(); window && window->isVisible() && second.isNull()) {
                second = screen_frame(window);
                save_screen("upload_window");
            }
        };
        e.app.link().set_transport(std::move(watched));
        e.frame->entry("muUpload")->trigger();
        QCOMPARE(second.topLeft(), moved_to);
    }

    void the_upload_window_is_painted_before_the_first_block()
    {
        Editor e;
        BoxWatcher boxes;
        e.frame->entry("muNew")->trigger();
        settle();
        int painted = -1;
        auto watched = std::make_unique<WatchedTransport>(e.remote, e.clock);
        watched->on_write = [&] {
            Download* window = e.ui.download_window();
            if (painted >= 0 || !window || !window->isVisible()) return;
            // What the screen shows at the first write, without a moment for the window to paint.
            painted = computer_pixels(global_rect(window));
            save_screen("upload_window_at_the_first_write");
        };
        e.app.link().set_transport(std::move(watched));
        e.frame->entry("muUpload")->trigger();
        QVERIFY2(painted > 500, qPrintable(QString("%1 pixels of the computer's screen").arg(painted)));
    }

    void a_message_box_is_wide_enough_for_its_title()
    {
        Editor e;
        BoxWatcher boxes;
        boxes.on_box = [](QMessageBox*) { save_screen("message_box"); };
        e.ui.message(title_main, "Send Complete!", Icon::none);
        e.ui.ask(title_main, "?", Buttons::ok_cancel, Icon::question);
        e.ui.message(title_files, "Exceed files open", Icon::exclamation);
        QCOMPARE(boxes.seen.size(), std::size_t(3));
        for (const auto& box : boxes.seen) {
            // The title, the window's icon and its three buttons.
            QVERIFY2(box.frame.width() >= title_width(box.title) + 100,
                     qPrintable(QString("%1 wide for \"%2\"").arg(box.frame.width()).arg(box.title)));
            QVERIFY(screen_rect().contains(box.frame));
        }
    }

    void the_status_line_and_its_bar_clear_when_the_work_is_done()
    {
        Editor e;
        BoxWatcher boxes;
        e.frame->entry("muNew")->trigger();
        const QString path = QString::fromStdString((e.home.path() / "kept.kcf").string());
        e.app.set_title(0, path.toStdString());
        auto* status = e.frame->findChild<QLabel*>("StatusText");
        auto* bar = e.frame->findChild<QProgressBar*>("ProgressBar1");
        QVERIFY(status && bar);
        e.frame->entry("muSave")->trigger();
        QVERIFY(QFile::exists(path));
        e.frame->open_files({path});
        QCOMPARE(e.app.documents().size(), std::size_t(2));
        e.frame->entry("muDownload")->trigger();
        settle();
        save_screen("status_line_after_the_work");
        QCOMPARE(status->text(), QString());
        QVERIFY(!bar->isVisible());
    }

    // Download's box carries the exclamation mark, as every failure of the
    // link does; Upload's has the plain style.
    void no_usb_device_in_download_and_upload()
    {
        Editor e;
        e.remote->add_fault(emulator::Fault::absent);
        e.frame->entry("muNew")->trigger();
        BoxWatcher boxes;
        e.frame->entry("muDownload")->trigger();
        e.frame->entry("muUpload")->trigger();
        QCOMPARE(boxes.seen.size(), std::size_t(2));
        QCOMPARE(boxes.seen[0].text, QString("no usb device"));
        QCOMPARE(boxes.seen[1].text, QString("no usb device"));
        QCOMPARE(boxes.seen[0].icon, QMessageBox::Warning);
        QCOMPARE(boxes.seen[1].icon, QMessageBox::NoIcon);
    }
};

TESSELO_WM_TEST_MAIN(WindowsWmTest)
#include "windows_wm_test.moc"
