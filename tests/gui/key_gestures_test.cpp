#include <QMenu>
#include <QMimeData>
#include <QtTest>

#include "core/keys/key_drag.h"
#include "core/keys/key_edit.h"
#include "core/keys/key_locator.h"
#include "core/keys/step_chain.h"
#include "core/model/action_chain.h"
#include "gui_support.h"
#include "views/mdi_form1.h"
#include "views/remote.h"

using namespace tesselo;
using namespace tesselo::testing;

namespace {

const std::string page_key = "DEVICE11\\PAGE1";

// A new document with one device, its first page open.
Remote* open_device_page(FrameFixture& f)
{
    f.frame->entry("muNew")->trigger();
    f.frame->entry("muInsertdevice")->trigger();
    if (!click_tree_node(*f.frame, 0, page_key, Qt::LeftButton, true)) return nullptr;
    return f.frame->page_window(0, QString::fromStdString(page_key));
}

// Gives the key at `picture` of the page `steps` delays of 1 to `steps` hundredths.
void add_delays(Application& app, int picture, int steps)
{
    KeySelection s;
    s.select_picture(picture);
    auto place = *locate_key(app.config(0), page_key, s);
    for (int i = 1; i <= steps; ++i) append_to_chain(app.config(0), place, duration_fields(step_delay, i));
}

std::vector<int> delays_of(Application& app, int picture)
{
    KeySelection s;
    s.select_picture(picture);
    const Configuration& c = app.config(0);
    std::vector<int> out;
    for (int step : steps_of_list(c, key_action_list(c, *locate_key(c, page_key, s))))
        out.push_back(step_number_value(c.action_steps.steps[static_cast<std::size_t>(step)]));
    return out;
}

QStringList menu_items(QMenu* menu)
{
    QStringList items;
    for (QAction* a : menu->actions())
        items << (a->isSeparator() ? "-" : a->isEnabled() ? a->text() : "(" + a->text() + ")");
    return items;
}

void press(Remote* page, int picture, Qt::KeyboardModifiers modifiers, Qt::MouseButton button = Qt::LeftButton)
{
    QTest::mousePress(page, button, modifiers, page->picture_rect(picture).center().toPoint());
}

void drop(Remote* page, int picture, const KeyDragData& data)
{
    std::unique_ptr<QMimeData> mime(key_drag_mime(data));
    const QPointF at = page->picture_rect(picture).center();
    QDragEnterEvent enter(at.toPoint(), Qt::MoveAction, mime.get(), Qt::LeftButton, {});
    QApplication::sendEvent(page, &enter);
    QDropEvent event(at, Qt::MoveAction, mime.get(), Qt::LeftButton, {});
    QApplication::sendEvent(page, &event);
}

}  // namespace

class KeyGesturesTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void the_key_popup_and_the_edit_menu_follow_the_key()
    {
        FrameFixture f;
        Remote* page = open_device_page(f);
        QVERIFY(page);
        add_delays(f.test.app, 5, 2);
        press(page, 5, {}, Qt::RightButton);
        QTest::mouseRelease(page, Qt::RightButton, {}, page->picture_rect(5).center().toPoint());
        QMenu* shown = f.frame->findChild<QMenu*>("cPopup2");
        QVERIFY(shown);
        QCOMPARE(menu_items(shown), QStringList({"Cut", "Copy", "(Paste)", "Delete", "-", "Label", "Properties"}));
        save_screenshot(shown, "key_popup");
        shown->close();
        std::unique_ptr<QMenu> menu(f.frame->build_key_menu());
        menu->findChild<QAction*>("Copy")->trigger();
        f.frame->update_commands();
        // A hard key: no Cut, but Paste now, in the menu, on the toolbar and in mukeyedit.
        QTest::mouseClick(page, Qt::LeftButton, {}, page->picture_rect(33).center().toPoint());
        QVERIFY(!f.frame->entry("muCut")->isEnabled());
        QVERIFY(!f.frame->button("cut")->isEnabled());
        QVERIFY(!f.frame->entry("mukeyCut")->isEnabled());
        QVERIFY(f.frame->entry("muPaste")->isEnabled());
        QVERIFY(f.frame->button("paste")->isEnabled());
        QVERIFY(f.frame->entry("mukeyPaste")->isEnabled());
        f.frame->entry("muPaste")->trigger();
        QCOMPARE(delays_of(f.test.app, 33), (std::vector<int>{1, 2}));
        // The title row can be copied but neither cut nor deleted.
        QTest::mouseClick(page, Qt::LeftButton, {}, page->picture_rect(3).center().toPoint());
        QVERIFY(f.frame->entry("muCopy")->isEnabled());
        QVERIFY(!f.frame->entry("muDelete")->isEnabled());
        QVERIFY(!f.frame->entry("mukeyDelete")->isEnabled());
        // mukeyedit's Delete runs the Edit menu's.
        QTest::mouseClick(page, Qt::LeftButton, {}, page->picture_rect(33).center().toPoint());
        f.frame->entry("mukeyDelete")->trigger();
        QVERIFY(delays_of(f.test.app, 33).empty());
        save_screenshot(f.frame.get(), "frame_after_key_paste");
    }

    void a_press_chooses_the_drag_mode_by_the_exact_shift_state()
    {
        FrameFixture f;
        Remote* page = open_device_page(f);
        QVERIFY(page);
        press(page, 40, Qt::AltModifier);
        QCOMPARE(page->drag_source(), 40);
        QCOMPARE(page->drag_mode(), drag_action);
        QTest::mouseRelease(page, Qt::LeftButton, {}, page->picture_rect(40).center().toPoint());
        press(page, 40, Qt::ShiftModifier | Qt::AltModifier);
        QCOMPARE(page->drag_mode(), drag_link);
        QTest::mouseRelease(page, Qt::LeftButton, {}, page->picture_rect(40).center().toPoint());
        press(page, 40, Qt::ControlModifier);
        QCOMPARE(page->drag_mode(), drag_copy);
        QTest::mouseRelease(page, Qt::LeftButton, {}, page->picture_rect(40).center().toPoint());
        press(page, 40, Qt::ControlModifier | Qt::AltModifier);
        QCOMPARE(page->drag_mode(), drag_move);
        QTest::mouseRelease(page, Qt::LeftButton, {}, page->picture_rect(40).center().toPoint());
        // No drag from the locked pictures, nor a move from the title row.
        press(page, 16, {});
        QCOMPARE(page->drag_source(), -1);
        QTest::mouseRelease(page, Qt::LeftButton, {}, page->picture_rect(16).center().toPoint());
        press(page, 3, {});
        QCOMPARE(page->drag_source(), -1);
        QTest::mouseRelease(page, Qt::LeftButton, {}, page->picture_rect(3).center().toPoint());
        press(page, 3, Qt::AltModifier);
        QCOMPARE(page->drag_source(), 3);
        QTest::mouseRelease(page, Qt::LeftButton, {}, page->picture_rect(3).center().toPoint());
        // Each mode has its own icon.
        QVERIFY(drag_icon(drag_move).toImage() != drag_icon(drag_copy).toImage());
        QVERIFY(drag_icon(drag_action).toImage() != drag_icon(drag_link).toImage());
        QPixmap icons(4 * 36, 36);
        icons.fill(Qt::white);
        QPainter p(&icons);
        for (int mode = 0; mode < 4; ++mode) p.drawPixmap(mode * 36 + 2, 2, drag_icon(mode));
        p.end();
        QDir().mkpath(TESSELO_SCREENSHOTS);
        icons.save(QString(TESSELO_SCREENSHOTS) + "/drag_icons.png");
    }

    void drops_in_each_mode_change_the_keys()
    {
        FrameFixture f;
        Remote* page = open_device_page(f);
        QVERIFY(page);
        add_delays(f.test.app, 5, 3);
        const QString caption = QString::fromStdString(page_key);
        drop(page, 7, {0, caption, 5, drag_copy});
        QCOMPARE(delays_of(f.test.app, 7), (std::vector<int>{1, 2, 3}));
        drop(page, 40, {0, caption, 5, drag_action});
        QCOMPARE(delays_of(f.test.app, 40), (std::vector<int>{1, 2, 3}));
        drop(page, 9, {0, caption, 7, drag_move});
        QVERIFY(delays_of(f.test.app, 7).empty());
        QCOMPARE(delays_of(f.test.app, 9), (std::vector<int>{1, 2, 3}));
        drop(page, 41, {0, caption, 9, drag_link});
        QCOMPARE(delays_of(f.test.app, 41).size(), std::size_t(1));
        // The selection follows the drop.
        QCOMPARE(page->selected_index(), 41);
        QCOMPARE(QString::fromStdString(f.test.log_lines().back()),
                 QString("\"Drag(link) from DEVICE11\\PAGE1 row 3 to DEVICE11\\PAGE1 hard 41\""));
        // A drop on itself does nothing.
        drop(page, 41, {0, caption, 41, drag_copy});
        QCOMPARE(delays_of(f.test.app, 41).size(), std::size_t(1));
        save_screenshot(page, "page_after_drops");
    }
};

QTEST_MAIN(KeyGesturesTest)
#include "key_gestures_test.moc"
