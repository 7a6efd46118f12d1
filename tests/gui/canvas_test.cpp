#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QtTest>

#include "core/keys/page_canvas.h"
#include "core/tree/page_windows.h"
#include "gui_support.h"
#include "views/glyph_font.h"
#include "views/mainform.h"
#include "views/properties_window.h"
#include "views/remote.h"

using namespace tesselo;
using namespace tesselo::testing;


class CanvasTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void the_font_covers_every_glyph_code()
    {
        for (int code = 1; code <= 100; ++code) {
            const GlyphBitmap bits = glyph_bitmap(code);
            int lit = 0;
            for (auto row : bits) lit += row;
            QVERIFY2(lit > 0, qPrintable(QString("glyph %1 has no picture").arg(code)));
        }
        QCOMPARE(glyph_bitmap(0), GlyphBitmap{});
        QCOMPARE(glyph_bitmap(101), GlyphBitmap{});
        // Pause, stop and play are signs of their own.
        QVERIFY(glyph_bitmap(74) != glyph_bitmap(75));
        QVERIFY(glyph_bitmap(75) != glyph_bitmap(76));
    }

    void a_home_page_shows_home_in_its_title_row()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        QVERIFY(click_tree_node(*f.frame, 0, "HOME1\\PAGE1", Qt::LeftButton, true));
        const auto pages = f.frame->page_windows();
        QCOMPARE(pages.size(), std::size_t(1));
        Remote* page = pages.front();
        QCOMPARE(page->windowTitle(), QString("HOME1\\PAGE1"));
        QCOMPARE(page->tag(), QString("000+000"));
        QCOMPARE(page->findChild<QLabel*>("pagelabel")->text(), QString("001/001"));
        const auto boxes = page->findChildren<LcdRowBox*>("labelRichText1");
        QCOMPARE(boxes.size(), 6);
        QStringList indexes;
        for (auto* box : boxes) indexes << box->property("Index").toString();
        QCOMPARE(indexes, QStringList({"0", "3", "6", "9", "12", "15"}));
        QCOMPARE(page->device_text(), QString("HOME"));
        QCOMPARE(page->size(), QSize(192, 614));
        // Twips become pixels: picture 22 stands at 900, 4215 twips.
        QCOMPARE(page->picture_rect(22), QRectF(60 + 22, 281 + 4, 28, 28));
        QCOMPARE(QString::fromStdString(f.test.log_lines().back()), QString("\"Open page PAGE1/HOME-HOME1\\PAGE1\""));
        page->select_key(33);
        save_screenshot(page, "home_page_canvas");
        save_screenshot(f.frame.get(), "frame_with_home_page");
    }

    void hovering_a_key_fills_the_status_panel()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        f.frame->entry("muInsertdevice")->trigger();
        QVERIFY(click_tree_node(*f.frame, 0, "DEVICE11"));
        f.frame->entry("muInsertpage")->trigger();
        label_first_page(f.test.app.config(0), "DEVICE11\\PAGE1");
        QVERIFY(click_tree_node(*f.frame, 0, "DEVICE11\\PAGE1", Qt::LeftButton, true));
        Remote* page = f.frame->page_window(0, "DEVICE11\\PAGE1");
        QVERIFY(page);
        QCOMPARE(page->findChild<QLabel*>("pagelabel")->text(), QString("001/002"));
        QTest::mouseMove(page, page->picture_rect(7).center().toPoint());
        QCOMPARE(page->hover_index(), 7);
        mainform* form = f.frame->document_window(0);
        QCOMPARE(form->findChild<QLabel*>("Devicelabel")->text(), QString("DEVICE1"));
        QCOMPARE(form->findChild<QLabel*>("keylabel")->text(), QString("MOVI"));
        QCOMPARE(form->findChild<QLabel*>("marcolabel")->text(), QString("2 action steps"));
        QTest::mouseMove(page, page->picture_rect(2).center().toPoint());
        // Picture 2 is hard key 0, which a new device calls ON.
        QCOMPARE(form->findChild<QLabel*>("keylabel")->text(), QString("ON"));
        QTest::mouseClick(page, Qt::LeftButton, {}, page->picture_rect(5).center().toPoint());
        QCOMPARE(page->selected_index(), 5);
        QTest::mouseMove(page, page->picture_rect(40).center().toPoint());
        save_screenshot(page, "device_page_canvas");
    }

    void the_46th_page_window_is_refused()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        f.frame->entry("muInsertdevice")->trigger();
        QVERIFY(click_tree_node(*f.frame, 0, "DEVICE11"));
        for (int p = 2; p <= 46; ++p) f.frame->entry("muInsertpage")->trigger();
        f.test.take_lines();
        for (int p = 1; p <= 45; ++p)
            QVERIFY(f.frame->open_page(0, QString("DEVICE11\\PAGE%1").arg(p)));
        QCOMPARE(f.frame->page_windows().size(), std::size_t(45));
        QVERIFY(f.test.take_lines().empty());
        QVERIFY(!f.frame->open_page(0, "DEVICE11\\PAGE46"));
        QCOMPARE(f.frame->page_windows().size(), std::size_t(45));
        const auto lines = f.test.take_lines();
        QCOMPARE(lines.size(), std::size_t(1));
        QCOMPARE(QString::fromStdString(lines[0]), QString("message \"Kelvaro Tesselo 3\" \"Out of Memory\""));
        // A page already open is brought forward, not counted again.
        QVERIFY(f.frame->open_page(0, "DEVICE11\\PAGE3"));
        QVERIFY(f.test.take_lines().empty());
    }

    void closing_the_document_closes_its_pages()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        QVERIFY(click_tree_node(*f.frame, 0, "HOME1\\PAGE1"));
        f.frame->entry("muOpenPage")->trigger();
        QCOMPARE(f.frame->page_windows(0).size(), std::size_t(1));
        f.test.ui.queue_answer("no");
        f.frame->entry("muClose")->trigger();
        QTRY_COMPARE(f.frame->area()->subWindowList().size(), 0);
        const auto log = f.test.log_lines();
        QVERIFY(std::find(log.begin(), log.end(), "\"close page HOME1\\PAGE1\"") != log.end());
    }

    void one_key_is_selected_in_all_page_windows()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        f.frame->entry("muInsertdevice")->trigger();
        Remote* home = f.frame->open_page(0, "HOME1\\PAGE1");
        Remote* device = f.frame->open_page(0, "DEVICE11\\PAGE1");
        QVERIFY(home && device);
        QTest::mouseClick(home, Qt::LeftButton, {}, home->picture_rect(5).center().toPoint());
        QCOMPARE(home->selected_index(), 5);
        QCOMPARE(device->selected_index(), -1);
        // The click is the application's key selection, whole: a soft key on row 1.
        QCOMPARE(f.test.app.key_selection.selected_kind, kind_soft);
        QCOMPARE(f.test.app.key_selection.selected_row, 3);
        QTest::mouseClick(device, Qt::LeftButton, {}, device->picture_rect(33).center().toPoint());
        QCOMPARE(device->selected_index(), 33);
        QCOMPARE(home->selected_index(), -1);
        save_screenshot(f.frame.get(), "one_selected_key");
        // A click in the tree moves the selection off the keys.
        QVERIFY(click_tree_node(*f.frame, 0, "DEVICE11"));
        QCOMPARE(device->selected_index(), -1);
        QCOMPARE(home->selected_index(), -1);
    }

    void cancel_at_the_close_question_brings_the_page_windows_back_as_they_were()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        Remote* page = f.frame->open_page(0, "HOME1\\PAGE1");
        QVERIFY(page);
        QWidget* sub = page->parentWidget();
        sub->move(420, 30);
        const QRect where = sub->geometry();
        f.frame->entry("muproperties")->trigger();
        QVERIFY(f.frame->properties_window()->isVisible());
        f.test.ui.queue_answer("cancel");
        f.frame->entry("muClose")->trigger();
        QCoreApplication::processEvents();
        QCOMPARE(f.frame->page_windows().size(), std::size_t(1));
        QVERIFY(sub->isVisible());
        QCOMPARE(sub->geometry(), where);
        QVERIFY(f.frame->properties_window()->isVisible());
    }

    void close_all_pages_leaves_the_document()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        QVERIFY(click_tree_node(*f.frame, 0, "HOME1\\PAGE1"));
        f.frame->entry("muOpenAll")->trigger();
        QCOMPARE(f.frame->page_windows().size(), std::size_t(1));
        f.frame->entry("muCloseAll")->trigger();
        QTRY_COMPARE(f.frame->page_windows().size(), std::size_t(0));
        QCOMPARE(f.frame->area()->subWindowList().size(), 1);
    }
};

QTEST_MAIN(CanvasTest)
#include "canvas_test.moc"
