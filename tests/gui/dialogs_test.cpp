#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QtTest>

#include "gui_support.h"
#include "views/download_window.h"
#include "core/document/open_command.h"
#include "views/error_window.h"
#include "views/qt_ui.h"

using namespace tesselo;
using namespace tesselo::testing;

class DialogsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void the_error_window_shows_its_texts_and_faults()
    {
        ErrorWindowForm window(error_window_title, {error_window_intro, error_window_advice, error_window_question},
                               {"DEVICE1/PAGE1/KEY 2", "HOME/PAGE1/KEY 1"});
        QCOMPARE(window.windowTitle(), QString("Error"));
        QCOMPARE(window.findChild<QLabel*>("Label1")->text(),
                 QString("The file that you are trying to open is corrupted and can not be used.  The following "
                         "commands are corrupt"));
        QCOMPARE(window.findChild<QLabel*>("Label2")->text(),
                 QString("It is recommended that you delete these commands or recreate new configuration file."));
        QCOMPARE(window.findChild<QLabel*>("Label3")->text(), QString("Do you wish to continue?"));
        QCOMPARE(window.findChild<QListWidget*>("List1")->count(), 2);
        QCOMPARE(window.findChild<QListWidget*>("List1")->item(1)->text(), QString("HOME/PAGE1/KEY 1"));
        window.show();
        save_screenshot(&window, "error_window");
    }

    void command1_goes_on_and_command2_gives_up()
    {
        {
            ErrorWindowForm window("Error", {"a", "b"}, {});
            window.show();
            window.findChild<QPushButton*>("Command1")->click();
            QCOMPARE(window.answer(), ErrorWindowAnswer::go_on);
        }
        ErrorWindowForm window("Error", {"a", "b"}, {});
        window.show();
        window.findChild<QPushButton*>("Command2")->click();
        QCOMPARE(window.answer(), ErrorWindowAnswer::give_up);
    }

    void closing_the_error_window_by_its_frame_counts_as_cancel()
    {
        // The Qt Ui shows the window; closing it by its frame answers "closed",
        // which core counts as cancel unless the user had chosen to go on.
        QtUi ui;
        QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); });
        QCOMPARE(ui.error_window("Error", {"a", "b"}, {"x"}), ErrorWindowAnswer::closed);
        ErrorWindowForm window("Error", {"a"}, {});
        window.show();
        window.close();
        QCOMPARE(window.answer(), ErrorWindowAnswer::closed);
    }

    void the_download_window_shows_its_caption_and_progress()
    {
        Download window;
        window.set_caption("Upload");
        window.show_progress(false);
        window.show();
        QCOMPARE(window.windowTitle(), QString("Upload"));
        QVERIFY(!window.progress_bar()->isVisible());
        window.set_caption("Download");
        window.show_progress(true);
        window.set_progress(250, 1000);
        QCOMPARE(window.progress_bar()->objectName(), QString("ProgressBar2"));
        QVERIFY(window.progress_bar()->isVisible());
        QCOMPARE(window.progress_bar()->value(), 250);
        save_screenshot(&window, "download_window");
    }
};

QTEST_MAIN(DialogsTest)
#include "dialogs_test.moc"
