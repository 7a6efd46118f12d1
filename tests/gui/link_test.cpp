#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

#include "core/link/download.h"
#include "platform/posix_file_store.h"

#include "core/link/link_test_app.h"
#include "gui_support.h"
#include "views/download_window.h"
#include "views/qt_ui.h"

using namespace tesselo;
using namespace tesselo::testing;

namespace {

// A frame whose link reaches the remote emulator on the virtual clock.
struct LinkFrame {
    LinkTestApp test;
    std::unique_ptr<MDIForm1> frame = std::make_unique<MDIForm1>(test.app);
    LinkFrame() { frame->show(); }
    ~LinkFrame()
    {
        test.ui.clear_answers();
        for (int i = 0; i < 12; ++i) test.ui.queue_answer("no");
        frame->close();
    }
    bool printed(const std::string& line)
    {
        const auto lines = test.take_lines();
        return std::find(lines.begin(), lines.end(), line) != lines.end();
    }
};

}  // namespace

class LinkTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void download_sends_the_active_document()
    {
        LinkFrame f;
        QVERIFY(!f.frame->entry("muDownload")->isEnabled());
        f.frame->entry("muNew")->trigger();
        f.frame->update_commands();
        QVERIFY(f.frame->entry("muDownload")->isEnabled());
        f.frame->entry("muDownload")->trigger();
        QVERIFY(f.printed("message \"Kelvaro Tesselo 3\" \"Send Complete!\""));
        QCOMPARE(f.test.ui.window_events.front(), std::string("show Download with bar"));
        QCOMPARE(f.test.ui.window_events.back(), std::string("unload"));
        QVERIFY(std::filesystem::exists(f.test.home.path() / "temp.trl"));
    }

    void upload_makes_a_new_document()
    {
        LinkFrame f;
        f.frame->entry("muNew")->trigger();
        f.frame->entry("muInsertdevice")->trigger();
        f.frame->Toolbar1_ButtonClick("download");
        f.test.take_lines();
        f.frame->Toolbar1_ButtonClick("upload");
        QVERIFY(f.printed("message \"Kelvaro Tesselo 3\" \"Upload Data Finished\""));
        QCOMPARE(f.test.app.documents().size(), std::size_t(2));
        QCOMPARE(f.frame->document_window(1)->windowTitle(), QString("Untitled2"));
        QCOMPARE(f.test.app.tree(1).find("DEVICE12") != 0, true);
        QVERIFY(f.frame->entry("muUpload")->isEnabled());
        QVERIFY(f.frame->button("upload")->isEnabled());
    }

    void clock_sync_from_its_button()
    {
        LinkFrame f;
        QVERIFY(f.frame->button("clock")->isEnabled());
        f.frame->Toolbar1_ButtonClick("clock");
        QVERIFY(f.printed("message \"Kelvaro Tesselo 3\" \"Send Complete!\""));
        QCOMPARE(QString::fromStdString(f.test.log_lines().back()), QString("\"Clock sync\""));
    }

    void an_upload_holds_its_entry_and_buttons_5_and_16()
    {
        LinkFrame f;
        f.frame->entry("muNew")->trigger();
        f.test.app.flags().upload_in_progress = true;
        f.frame->update_commands();
        QVERIFY(!f.frame->entry("muUpload")->isEnabled());
        QVERIFY(!f.frame->button("upload")->isEnabled());
        QVERIFY(!f.frame->button("simualtor")->isEnabled());
        QVERIFY(f.frame->button("download")->isEnabled());
        f.test.app.flags().upload_in_progress = false;
        f.frame->update_commands();
        QVERIFY(f.frame->button("upload")->isEnabled());
        QVERIFY(f.frame->button("simualtor")->isEnabled());
    }

    void the_download_window_says_which_block_and_attempt_goes_out()
    {
        // The editor's own Ui before a remote that never acknowledges: while
        // the transfer waits, the window tells the block and the attempt.
        TempFolder home;
        QtUi ui;
        VirtualClock clock;
        RecordingLauncher launcher;
        PosixFileStore files;
        Application app(ui, clock, launcher, files, home.path());
        auto remote = std::make_shared<emulator::RemoteEmulator>();
        remote->add_fault(emulator::Fault::mute_ack);
        app.link().set_transport(std::make_unique<emulator::EmulatorTransport>(remote, clock));
        ui.download_window_show("Download", true);
        QString shown;
        bool visible = false;
        // "Send Complete!" comes while the window still shows the last block;
        // the transfer's own yields run the timer before, and it waits.
        QTimer answer;
        answer.setInterval(10);
        QObject::connect(&answer, &QTimer::timeout, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box) return;
            answer.stop();
            shown = ui.download_window()->activity()->text();
            visible = ui.download_window()->activity()->isVisible();
            save_screenshot(ui.download_window(), "download_window_unconfirmed_block");
            box->button(QMessageBox::Ok)->click();
        });
        answer.start();
        std::vector<std::uint8_t> image(41 * 4096 + 10, 7);
        QVERIFY(download_image(app, image, image.size()));
        QCOMPARE(shown, QString("Block 42 of 42, attempt 3 of 3: the remote did not confirm it"));
        QVERIFY(visible);
        QLabel* line = ui.download_window()->activity();
        // The words fit the window: wrapped, wholly inside it, above the bar.
        QVERIFY(ui.download_window()->rect().contains(line->geometry()));
        QVERIFY(line->heightForWidth(line->width()) <= line->height());
        QVERIFY(line->geometry().bottom() < ui.download_window()->progress_bar()->geometry().top());
        ui.download_window_unload();
    }

    void the_qt_ui_loads_and_unloads_the_download_window()
    {
        QtUi ui;
        QVERIFY(!ui.download_window());
        ui.download_window_show("Upload", false);
        QVERIFY(ui.download_window());
        QVERIFY(ui.download_window()->isVisible());
        QCOMPARE(ui.download_window()->windowTitle(), QString("Upload"));
        QVERIFY(!ui.download_window()->progress_bar()->isVisible());
        ui.download_window_show("Download", true);
        ui.download_progress(120, 4800);
        QCOMPARE(ui.download_window()->progress_bar()->value(), 120);
        QCOMPARE(ui.download_window()->progress_bar()->maximum(), 4800);
        ui.download_window_hide();
        QVERIFY(!ui.download_window()->isVisible());
        ui.download_window_unload();
        QVERIFY(!ui.download_window());
        int told = 0;
        ui.set_commands_sink([&told] { ++told; });
        ui.upload_commands_enabled(false);
        QCOMPARE(told, 1);
        ui.editir_status("no usb device");
        QCOMPARE(ui.editir_status_text(), std::string("no usb device"));
    }
};

QTEST_MAIN(LinkTest)
#include "link_test.moc"
