// The frame on its screen and the windows of its workspace under a window
// manager: the frame's size from the screen, and every remote whole and
// within reach after Open Page, Open All Pages, Cascade and both Tiles.
#include <QScrollBar>

#include "core/tree/tree_model.h"
#include "core/tree/tree_view.h"
#include "wm/wm_support.h"

using namespace tesselo;
using namespace tesselo::testing;

namespace {

std::vector<QMdiSubWindow*> windows_of(Editor& e)
{
    std::vector<QMdiSubWindow*> windows;
    for (QMdiSubWindow* sub : e.area()->subWindowList(QMdiArea::StackingOrder))
        if (sub->isVisible()) windows.push_back(sub);
    return windows;
}

bool is_page(QMdiSubWindow* sub) { return qobject_cast<Remote*>(sub->widget()) != nullptr; }

// A document with HOME's page and a device of five pages.
void five_pages(Editor& e)
{
    e.frame->entry("muNew")->trigger();
    e.frame->entry("muInsertdevice")->trigger();
    click_node(e.app, 0, e.app.tree(0).find("DEVICE11"));
    for (int p = 2; p <= 5; ++p) e.frame->entry("muInsertpage")->trigger();
}

// Every window of the workspace after an arrangement: the screen holds every
// top-level window; each remote is whole in its window, and its window lies
// in the workspace where scrolling reaches it; a document window keeps room
// for its title and tree. `tiled`: no window lies over another.
void check_workspace(Editor& e, const QString& name, bool tiled)
{
    settle();
    save_screen(name);
    QString which;
    QVERIFY2(every_window_inside_the_screen(which), qPrintable(name + ": " + which));
    const auto windows = windows_of(e);
    const QSize visible = e.area()->viewport()->size();
    const QScrollBar* h = e.area()->horizontalScrollBar();
    const QScrollBar* v = e.area()->verticalScrollBar();
    for (QMdiSubWindow* sub : windows) {
        const QRect r = sub->geometry();
        // Within reach: scrolled to its start, every edge of the window comes into view.
        QVERIFY2(r.left() + h->value() - h->minimum() >= 0 && r.top() + v->value() - v->minimum() >= 0,
                 qPrintable(name + ": a window above or left of the workspace"));
        QVERIFY2(r.right() + 1 - visible.width() <= h->maximum() - h->value(),
                 qPrintable(name + ": a window right of where the workspace scrolls"));
        QVERIFY2(r.bottom() + 1 - visible.height() <= v->maximum() - v->value(),
                 qPrintable(name + ": a window below where the workspace scrolls"));
        if (is_page(sub)) {
            QCOMPARE(sub->widget()->size(), Remote::picture_size());
            QVERIFY2(sub->contentsRect().contains(sub->widget()->geometry()), qPrintable(name + ": a remote cut"));
        } else {
            QVERIFY2(sub->width() >= 250 && sub->height() >= 300, qPrintable(name + ": a document window squeezed"));
        }
    }
    for (std::size_t i = 0; i < windows.size(); ++i)
        for (std::size_t j = i + 1; j < windows.size(); ++j) {
            const QRect below = windows[i]->geometry(), above = windows[j]->geometry();
            if (tiled) QVERIFY2(!below.intersects(above), qPrintable(name + ": a window over another"));
            // A window's title stays free of the windows above it.
            QVERIFY2(!above.contains(below.topLeft() + QPoint(12, 8)), qPrintable(name + ": a title covered"));
        }
}

}  // namespace

class ArrangementWmTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void the_frame_is_sized_from_its_screen()
    {
        Editor e;
        QString which;
        QVERIFY2(every_window_inside_the_screen(which), qPrintable(which));
        const QRect frame = screen_frame(e.frame.get());
        // A document window and a page window side by side, whole, at the least.
        QVERIFY(e.area()->viewport()->width() >= 300 + Remote::picture_size().width());
        // Most of the screen; on a small one all of it.
        QVERIFY(frame.width() * 10 >= screen_rect().width() * 8);
        QVERIFY(frame.height() * 10 >= screen_rect().height() * 8);
        save_screen("frame");
    }

    void open_page_puts_the_page_beside_the_tree()
    {
        Editor e;
        five_pages(e);
        QVERIFY(e.frame->open_page(0, "HOME1\\PAGE1"));
        QVERIFY(e.frame->open_page(0, "DEVICE11\\PAGE1"));
        check_workspace(e, "open_page", true);
        // The page just opened is in view.
        Remote* page = e.frame->page_window(0, "DEVICE11\\PAGE1");
        QVERIFY(QRect(QPoint(), e.area()->viewport()->size()).contains(e.sub(page)->geometry()));
    }

    void open_all_pages_leaves_the_tree_in_view()
    {
        Editor e;
        five_pages(e);
        click_node(e.app, 0, e.app.tree(0).find("DEVICE11"));
        e.frame->entry("muOpenAll")->trigger();
        QCOMPARE(e.frame->page_windows().size(), std::size_t(5));
        check_workspace(e, "open_all_pages", true);
    }

    void cascade_and_tiles_keep_every_remote_whole()
    {
        Editor e;
        five_pages(e);
        click_node(e.app, 0, e.app.tree(0).find("DEVICE11"));
        e.frame->entry("muOpenAll")->trigger();
        QVERIFY(e.frame->open_page(0, "HOME1\\PAGE1"));
        e.frame->entry("muCascade")->trigger();
        check_workspace(e, "cascade", false);
        e.frame->entry("muTileHor")->trigger();
        check_workspace(e, "tile_horizontally", true);
        e.frame->entry("muTileVer")->trigger();
        check_workspace(e, "tile_vertically", true);
        // A second document takes part as well.
        e.frame->entry("muNew")->trigger();
        e.frame->entry("muCascade")->trigger();
        check_workspace(e, "cascade_two_documents", false);
        e.frame->entry("muTileHor")->trigger();
        check_workspace(e, "tile_horizontally_two_documents", true);
    }
};

TESSELO_WM_TEST_MAIN(ArrangementWmTest)
#include "arrangement_wm_test.moc"
