#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QtTest>

#include "core/keys/page_canvas.h"
#include "core/model/hardkey_defaults.h"
#include "gui_support.h"
#include "views/glyph_font.h"
#include "views/mainform.h"
#include "views/remote.h"

using namespace tesselo;
using namespace tesselo::testing;

namespace {

// Lays a device with `pages` pages into the tables of a document, as adding a
// device leaves them: its name row, its pages in page_table and device_pages,
// and a few labelled soft keys on its first page.
void lay_device(Configuration& config, int slot, int pages)
{
    const std::string key = "DEVICE1" + std::to_string(slot + 1);
    reset_entity_hardkeys(config, 1);
    config.device_name_table[1].node_key = key;
    config.device_name_table[1].name.bytes = {7, 20, 22, 37, 12, 9, 22, 5};  // TV-LIVE
    config.device_table[1].page_count = static_cast<std::uint8_t>(pages);
    config.device_table[1].visible_pages = static_cast<std::uint8_t>(pages);
    for (int p = 0; p < pages; ++p) {
        const std::string page_key = key + "\\PAGE" + std::to_string(p + 1);
        config.page_table[static_cast<std::size_t>(1 + p)].node_key = page_key;
        config.page_table[static_cast<std::size_t>(1 + p)].key_count = 1;
        config.device_pages[static_cast<std::size_t>(p)].node_key = page_key;
    }
    auto& first = config.device_pages[0];
    config.page_table[1].key_count = 5;
    first.slots[1] = SoftKey{0, 1, 20, no_index, 0};
    first.slots[2] = SoftKey{0, 2, 21, 3, 0};
    first.slots[3] = SoftKey{0, 130, 22, no_index, 0};
    first.slots[4] = SoftKey{0, 4, 23, no_index, 0};
    config.softkey_labels[20].bytes = {0x24, 14, 5, 23, 19};              // NEWS, left
    config.softkey_labels[21].bytes = {0x04, 13, 15, 22, 9};              // MOVI, centred
    config.softkey_labels[22].bytes = {0x03, 76, 74, 75};                 // play pause stop
    config.softkey_labels[23].bytes = {0x35, 19, 16, 15, 18, 20};         // SPORT, right
    config.action_lists.entries[3] = {0, 2};
}

}  // namespace

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
        f.frame->entry("muOpenAll")->trigger();
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
        lay_device(f.test.app.config(0), 0, 2);
        Remote* page = f.frame->open_page(0, "DEVICE11\\PAGE1");
        QVERIFY(page);
        QCOMPARE(page->findChild<QLabel*>("pagelabel")->text(), QString("001/002"));
        QTest::mouseMove(page, page->picture_rect(7).center().toPoint());
        QCOMPARE(page->hover_index(), 7);
        mainform* form = f.frame->document_window(0);
        QCOMPARE(form->findChild<QLabel*>("Devicelabel")->text(), QString("TV-LIVE"));
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
        lay_device(f.test.app.config(0), 0, 50);
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
        f.frame->entry("muOpenAll")->trigger();
        QCOMPARE(f.frame->page_windows(0).size(), std::size_t(1));
        f.test.ui.queue_answer("no");
        f.frame->entry("muClose")->trigger();
        QTRY_COMPARE(f.frame->area()->subWindowList().size(), 0);
        const auto log = f.test.log_lines();
        QVERIFY(std::find(log.begin(), log.end(), "\"close page HOME1\\PAGE1\"") != log.end());
    }

    void close_all_pages_leaves_the_document()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        f.frame->entry("muOpenAll")->trigger();
        f.frame->entry("muCloseAll")->trigger();
        QTRY_COMPARE(f.frame->page_windows().size(), std::size_t(0));
        QCOMPARE(f.frame->area()->subWindowList().size(), 1);
    }
};

QTEST_MAIN(CanvasTest)
#include "canvas_test.moc"
