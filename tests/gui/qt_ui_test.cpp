#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

#include "message_box_answer.h"
#include "views/qt_ui.h"

using namespace tesselo;
using tesselo::testing::answer_next_box;
using tesselo::testing::BoxSeen;

class QtUiTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void messages_carry_their_title_text_and_icon()
    {
        QtUi ui;
        BoxSeen seen;
        answer_next_box(seen, QMessageBox::Ok);
        ui.message(title_alt, "Exceed Devices or Exceed Pages", Icon::exclamation);
        QCOMPARE(seen.title, QString("Kelvarzo Tesselo 3"));
        QCOMPARE(seen.text, QString("Exceed Devices or Exceed Pages"));
        QCOMPARE(seen.icon, QMessageBox::Warning);
        answer_next_box(seen, QMessageBox::Ok);
        ui.message(title_main, "Send Complete!", Icon::information);
        QCOMPARE(seen.icon, QMessageBox::Information);
        answer_next_box(seen, QMessageBox::Ok);
        ui.message(title_main, "no usb device", Icon::none);
        QCOMPARE(seen.icon, QMessageBox::NoIcon);
    }

    void questions_answer_with_the_button_pressed()
    {
        QtUi ui;
        BoxSeen seen;
        answer_next_box(seen, QMessageBox::No);
        QCOMPARE(ui.ask(title_main, "Do you want to save the changes to Untitled1?", Buttons::yes_no_cancel,
                        Icon::exclamation),
                 Answer::no);
        QCOMPARE(seen.buttons.size(), 3);
        QCOMPARE(seen.icon, QMessageBox::Warning);
        answer_next_box(seen, QMessageBox::Cancel);
        QCOMPARE(ui.ask(title_main, "?", Buttons::yes_no_cancel, Icon::exclamation), Answer::cancel);
        answer_next_box(seen, QMessageBox::Yes);
        QCOMPARE(ui.ask(title_main, "?", Buttons::yes_no, Icon::question), Answer::yes);
        QCOMPARE(seen.icon, QMessageBox::Question);
        answer_next_box(seen, QMessageBox::Ok);
        QCOMPARE(ui.ask(title_main, "?", Buttons::ok_cancel, Icon::critical), Answer::ok);
        QCOMPARE(seen.icon, QMessageBox::Critical);
    }

    void the_filter_becomes_qt_s_form()
    {
        QCOMPARE(qt_file_filter("Data Config File (*.kcf)|*.kcf"), QString("Data Config File (*.kcf)"));
        QCOMPARE(qt_file_filter("A (*.a)|*.a|B (*.b)|*.b"), QString("A (*.a);;B (*.b)"));
    }

    void the_save_dialog_has_its_title_and_filter()
    {
        QtUi ui;
        QString title, filter;
        QTimer::singleShot(0, [&] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            QVERIFY(dialog);
            title = dialog->windowTitle();
            filter = dialog->nameFilters().join(";;");
            dialog->reject();
        });
        QCOMPARE(ui.save_file("Save As", "Data Config File (*.kcf)|*.kcf", ""), std::optional<std::string>{});
        QCOMPARE(title, QString("Save As"));
        QCOMPARE(filter, QString("Data Config File (*.kcf)"));
    }

    void the_wait_cursor_comes_and_goes_with_its_guard()
    {
        QtUi ui;
        {
            WaitCursor wait(ui);
            QVERIFY(QApplication::overrideCursor());
            QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
        }
        QVERIFY(!QApplication::overrideCursor());
    }

    void status_and_progress_reach_the_frame()
    {
        QtUi ui;
        QString status;
        std::pair<int, int> progress{-1, -1};
        ui.set_status_sink([&](const QString& text) { status = text; });
        ui.set_progress_sink([&](int v, int m) { progress = {v, m}; });
        ui.status("Save Configuration");
        ui.progress(10, 40);
        QCOMPARE(status, QString("Save Configuration"));
        QCOMPARE(progress, std::make_pair(10, 40));
    }

    void status_and_progress_clear_when_the_work_is_done()
    {
        QtUi ui;
        QString status;
        std::pair<int, int> progress{-1, -1};
        ui.set_status_sink([&](const QString& text) { status = text; });
        ui.set_progress_sink([&](int v, int m) { progress = {v, m}; });
        {
            ui.status("Save Configuration");
            WaitCursor wait(ui);
            ui.progress(35, 50);
            {
                WaitCursor inner(ui);
            }
            // Not before the outermost work is done.
            QCOMPARE(status, QString("Save Configuration"));
            QCOMPARE(progress, std::make_pair(35, 50));
        }
        QCOMPARE(status, QString());
        QCOMPARE(progress, std::make_pair(0, 0));
    }

    void yield_lets_windows_repaint()
    {
        QtUi ui;
        bool ran = false;
        QTimer::singleShot(0, [&] { ran = true; });
        ui.yield();
        QVERIFY(ran);
    }
};

QTEST_MAIN(QtUiTest)
#include "qt_ui_test.moc"
