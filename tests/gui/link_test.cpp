#include <QProgressBar>
#include <QtTest>

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
