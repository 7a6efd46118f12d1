// The page window's display under a window manager: every LCD row shows its
// labels, read back from what the screen shows.
#include "core/keys/page_canvas.h"
#include "gui_support.h"
#include "views/glyph_font.h"
#include "wm/wm_support.h"

using namespace tesselo;
using namespace tesselo::testing;

namespace {

bool ink(QRgb pixel) { return qGray(pixel) < 110; }

// The dots of a label as the display shows them, one pixel a dot.
QImage label_dots(const KeyLabel& label)
{
    const int count = label.glyph_count();
    QImage dots(std::max(1, count * glyph_advance - 1), glyph_height, QImage::Format_Mono);
    dots.fill(0);
    for (int i = 0; i < count; ++i) {
        const GlyphBitmap bits = glyph_bitmap(label.bytes[static_cast<std::size_t>(1 + i)]);
        for (int r = 0; r < glyph_height; ++r)
            for (int c = 0; c < glyph_width; ++c)
                if (bits[static_cast<std::size_t>(r)] & (0x10 >> c)) dots.setPixel(i * glyph_advance + c, r, 1);
    }
    return dots;
}

int dot_count(const QImage& dots)
{
    int n = 0;
    for (int y = 0; y < dots.height(); ++y)
        for (int x = 0; x < dots.width(); ++x) n += dots.pixelIndex(x, y);
    return n;
}

// Whether the grab of a row shows exactly these labels' dots, each somewhere
// in the row, and no other ink.
bool row_shows(const QImage& grab, const std::vector<KeyLabel>& labels, QString& why)
{
    int expected = 0;
    for (const KeyLabel& label : labels) {
        const QImage dots = label_dots(label);
        expected += dot_count(dots);
        bool found = false;
        for (int oy = 0; oy + dots.height() <= grab.height() && !found; ++oy)
            for (int ox = 0; ox + dots.width() <= grab.width() && !found; ++ox) {
                bool same = true;
                for (int y = 0; y < dots.height() && same; ++y)
                    for (int x = 0; x < dots.width() && same; ++x)
                        same = ink(grab.pixel(ox + x, oy + y)) == (dots.pixelIndex(x, y) == 1);
                found = same;
            }
        if (!found) {
            why = QString("a label of %1 glyphs is not painted").arg(label.glyph_count());
            return false;
        }
    }
    int painted = 0;
    for (int y = 0; y < grab.height(); ++y)
        for (int x = 0; x < grab.width(); ++x) painted += ink(grab.pixel(x, y));
    if (painted != expected) why = QString("%1 dots of ink where the labels have %2").arg(painted).arg(expected);
    return painted == expected;
}

// Checks every row of a page window against the labels of its page.
void check_rows(Editor& e, Remote* page, const QString& shot)
{
    QVERIFY(page);
    QVERIFY(QTest::qWaitForWindowExposed(page));
    e.area()->setActiveSubWindow(e.sub(page));
    settle();
    save_screen(shot);
    const auto rows = lcd_page_rows(e.app.config(page->slot()), page->page());
    const auto boxes = page->findChildren<LcdRowBox*>("labelRichText1");
    QCOMPARE(boxes.size(), lcd_rows);
    int labelled = 0;
    for (LcdRowBox* box : boxes) {
        const LcdRow& row = rows[static_cast<std::size_t>(box->row())];
        std::vector<KeyLabel> labels;
        if (row.has_right) labels.push_back(row.right);
        if (row.has_left) labels.push_back(row.left);
        labelled += static_cast<int>(labels.size());
        QString why;
        // The glyphs stand in the middle of the box; its lowest lines may touch the display's rim.
        QVERIFY2(row_shows(grab_screen(global_rect(box).adjusted(0, 3, 0, -3)), labels, why),
                 qPrintable(QString("row %1: %2").arg(box->row()).arg(why)));
    }
    QVERIFY(labelled > 1);
}

}  // namespace

class DisplayWmTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void every_row_shows_its_labels_on_a_home_page()
    {
        Editor e;
        e.frame->entry("muNew")->trigger();
        e.frame->entry("muInsertdevice")->trigger();
        e.frame->entry("muInsertdevice")->trigger();
        Remote* page = e.frame->open_page(0, "HOME1\\PAGE1");
        check_rows(e, page, "home_page_labels");
    }

    void every_row_shows_its_labels_on_a_device_page_at_every_window_size()
    {
        Editor e;
        e.frame->entry("muNew")->trigger();
        e.frame->entry("muInsertdevice")->trigger();
        label_first_page(e.app.config(0), "DEVICE11\\PAGE1");
        Remote* page = e.frame->open_page(0, "DEVICE11\\PAGE1");
        check_rows(e, page, "device_page_labels");
        // Squeezed and stretched, the rows still show their labels.
        QMdiSubWindow* sub = e.sub(page);
        sub->resize(sub->width(), sub->height() / 2);
        check_rows(e, page, "device_page_labels_squeezed");
        sub->resize(sub->width() + 200, sub->height() * 3);
        check_rows(e, page, "device_page_labels_stretched");
    }
};

TESSELO_WM_TEST_MAIN(DisplayWmTest)
#include "display_wm_test.moc"
