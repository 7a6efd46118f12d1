// The frame's commands on a whole document: File > Merge Configuration,
// Tools > Restore Default Configuration and File > Print Overview....
#include <QAction>
#include <QApplication>
#include <QFile>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPrintDialog>
#include <QPrinter>
#include <QTimer>
#include <QtTest>

#include "gui_support.h"
#include "views/remote.h"

using namespace tesselo;
using namespace tesselo::testing;

class WholeDocumentTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void the_entries_need_a_document()
    {
        FrameFixture f;
        f.frame->update_commands();
        for (const char* name : {"muMerge", "muRestore", "muPrintOverview"}) QVERIFY2(!f.frame->entry(name)->isEnabled(), name);
        f.frame->entry("muNew")->trigger();
        f.frame->update_commands();
        for (const char* name : {"muMerge", "muRestore", "muPrintOverview"}) QVERIFY2(f.frame->entry(name)->isEnabled(), name);
        QCOMPARE(f.frame->entry("muPrintOverview")->shortcut(), QKeySequence("Ctrl+P"));
    }

    void restore_asks_empties_the_tree_closes_the_pages_and_undo_brings_them_back()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        f.frame->entry("muInsertdevice")->trigger();
        f.frame->entry("muInsertdevice")->trigger();
        const int slot = f.frame->document_window(0)->slot();
        QVERIFY(f.frame->open_page(0, "DEVICE11\\PAGE1"));
        QVERIFY(f.frame->open_page(0, "HOME1\\PAGE1"));
        QCOMPARE(f.frame->page_windows(slot).size(), std::size_t(2));
        f.test.take_lines();

        // No keeps everything.
        f.test.ui.queue_answer("no");
        f.frame->entry("muRestore")->trigger();
        QCOMPARE(QString::fromStdString(f.test.take_lines().at(0)),
                 QString("ask \"Kelvaro Tesselo 3\" \"Do you want to restore the default configuration?\" -> no"));
        QCOMPARE(f.test.app.tree(slot).count(), 9);
        QCOMPARE(f.frame->page_windows(slot).size(), std::size_t(2));

        f.test.ui.queue_answer("yes");
        f.frame->entry("muRestore")->trigger();
        QTRY_COMPARE(f.frame->page_windows(slot).size(), std::size_t(0));
        QCOMPARE(f.test.app.tree(slot).count(), 3);
        QCOMPARE(f.frame->document_window(0)->tree()->model()->rowCount(), 1);
        f.frame->update_commands();
        QVERIFY(f.frame->button("undo")->isEnabled());
        QVERIFY(!f.frame->button("redo")->isEnabled());
        save_screenshot(f.frame.get(), "restore_default_configuration");

        f.frame->entry("muUndo")->trigger();
        QCOMPARE(f.test.app.tree(slot).count(), 9);
        QVERIFY(f.test.app.tree(slot).find("DEVICE21\\PAGE1") != 0);
        QCOMPARE(f.frame->document_window(0)->tree()->model()->rowCount(), 3);
    }

    void merge_appends_the_files_devices_to_the_tree_and_shows_its_status()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        f.frame->entry("muInsertdevice")->trigger();
        f.frame->entry("muInsertdevice")->trigger();
        const QString path = QString::fromStdString((f.test.home.path() / "two.kcf").string());
        f.test.ui.queue_answer(("file:" + path).toStdString());
        f.frame->entry("muSaveas")->trigger();
        f.frame->entry("muNew")->trigger();
        const int slot = f.frame->document_window(1)->slot();
        f.test.take_lines();
        f.test.ui.queue_answer(("file:" + path).toStdString());
        f.frame->entry("muMerge")->trigger();
        QCOMPARE(f.test.ui.dialogs.back().title, std::string("Merge"));
        QCOMPARE(QString::fromStdString(f.test.take_lines().at(0)), QString("status \"2 devices merged, 0 steps dropped\""));
        QCOMPARE(f.test.app.tree(slot).count(), 9);
        QCOMPARE(f.frame->document_window(1)->tree()->model()->rowCount(), 3);
        f.frame->update_commands();
        QVERIFY(f.frame->button("undo")->isEnabled());
        f.frame->entry("muUndo")->trigger();
        QCOMPARE(f.test.app.tree(slot).count(), 3);
    }

    void print_overview_offers_the_print_dialog_and_cancel_prints_nothing()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        const auto log = f.test.log_lines();
        QString title;
        bool offers_a_file = false;
        QTimer::singleShot(0, [&] {
            auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
            if (!dialog) return;
            title = dialog->windowTitle();
            offers_a_file = dialog->printer()->docName() == "Overview of Untitled1";
            dialog->reject();
        });
        f.frame->entry("muPrintOverview")->trigger();
        QCOMPARE(title, QString("Print Overview"));
        QVERIFY(offers_a_file);
        QCOMPARE(f.test.log_lines(), log);
    }

    void print_overview_draws_the_document_on_the_chosen_printer()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        f.frame->entry("muInsertdevice")->trigger();
        const QString path = QString::fromStdString((f.test.home.path() / "overview.pdf").string());
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(path);
        QVERIFY(f.frame->print_overview(printer));
        QFile pdf(path);
        QVERIFY(pdf.open(QIODevice::ReadOnly));
        QVERIFY(pdf.read(5) == "%PDF-");
        const auto lines = f.test.log_lines();
        QCOMPARE(QString::fromStdString(lines.at(lines.size() - 2)), QString("\"print overview (start) Untitled1\""));
        QCOMPARE(QString::fromStdString(lines.back()), QString("\"Untitled1 - print overview\""));
    }
};

QTEST_MAIN(WholeDocumentTest)
#include "whole_document_test.moc"
