#include <QAction>
#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMimeData>
#include <QMenu>
#include <QStandardItemModel>
#include <QtTest>

#include "core/keys/page_canvas.h"
#include "core/tree/tree_model.h"
#include "core/tree/page_windows.h"
#include "gui_support.h"
#include "views/properties_window.h"
#include "views/remote.h"
#include <QLabel>
#include <QTreeWidget>

using namespace tesselo;
using namespace tesselo::testing;

namespace {

// The rows of the tree as the view shows them: indentation and text.
QStringList shown_tree(mainform* form)
{
    QStringList rows;
    const auto* model = form->tree()->model();
    std::function<void(const QModelIndex&, int)> walk = [&](const QModelIndex& parent, int depth) {
        for (int r = 0; r < model->rowCount(parent); ++r) {
            const QModelIndex index = model->index(r, 0, parent);
            rows << QString(depth * 2, ' ') + index.data().toString();
            walk(index, depth + 1);
        }
    };
    walk({}, 0);
    return rows;
}

// The popup's items: "caption" enabled, "(caption)" greyed, "[caption]" checked, "-" a divider.
QStringList popup_items(mainform* form)
{
    std::unique_ptr<QMenu> menu(form->build_popup_menu());
    QStringList items;
    if (!menu) return items;
    for (QAction* a : menu->actions()) {
        if (a->isSeparator()) items << "-";
        else if (a->isChecked()) items << "[" + a->text() + "]";
        else if (!a->isEnabled()) items << "(" + a->text() + ")";
        else items << a->text();
    }
    return items;
}

}  // namespace

class TreeTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void a_new_document_shows_home_its_properties_and_page1()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        QCOMPARE(shown_tree(f.frame->document_window(0)), QStringList({"HOME", "  PROPERTIES", "  PAGE1"}));
    }

    void insert_device_and_page_change_the_tree_as_core_says()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        mainform* form = f.frame->document_window(0);
        QVERIFY(!f.frame->entry("muInsertpage")->isEnabled());
        f.frame->entry("muInsertdevice")->trigger();
        QCOMPARE(shown_tree(form), QStringList({"HOME", "  PROPERTIES", "  PAGE1", "DEVICE1", "  DEVICE1 PROPERTIES",
                                                "  PAGE1"}));
        QVERIFY(click_tree_node(*f.frame, 0, "HOME1"));
        f.frame->update_commands();
        QVERIFY(!f.frame->entry("muInsertpage")->isEnabled());
        QVERIFY(!f.frame->button("newpage")->isEnabled());
        QVERIFY(click_tree_node(*f.frame, 0, "DEVICE11"));
        f.frame->update_commands();
        QVERIFY(f.frame->entry("muInsertpage")->isEnabled());
        QVERIFY(f.frame->button("newpage")->isEnabled());
        f.frame->entry("muInsertpage")->trigger();
        QCOMPARE(shown_tree(form).mid(3), QStringList({"DEVICE1", "  DEVICE1 PROPERTIES", "  PAGE1", "  PAGE2"}));
        // The toolbar runs the same operations.
        f.frame->Toolbar1_ButtonClick("newdevice");
        QCOMPARE(shown_tree(form).mid(7), QStringList({"DEVICE2", "  DEVICE2 PROPERTIES", "  PAGE1"}));
        save_screenshot(f.frame.get(), "frame_with_a_document_tree");
    }

    void undo_and_redo_through_the_menus()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        mainform* form = f.frame->document_window(0);
        QVERIFY(!f.frame->button("undo")->isEnabled());
        f.frame->entry("muInsertdevice")->trigger();
        const QStringList with_device = shown_tree(form);
        QVERIFY(f.frame->button("undo")->isEnabled());
        QVERIFY(!f.frame->button("redo")->isEnabled());
        f.frame->entry("muUndo")->trigger();
        QCOMPARE(shown_tree(form), QStringList({"HOME", "  PROPERTIES", "  PAGE1"}));
        QVERIFY(!f.frame->button("undo")->isEnabled());
        QVERIFY(f.frame->button("redo")->isEnabled());
        f.frame->entry("muRedo")->trigger();
        QCOMPARE(shown_tree(form), with_device);
        QVERIFY(f.frame->button("undo")->isEnabled());
        const auto log = f.test.log_lines();
        QVERIFY(std::find(log.begin(), log.end(), "\"undo - Untitled1\"") != log.end());
        QVERIFY(std::find(log.begin(), log.end(), "\"redo - Untitled1\"") != log.end());
    }

    void undo_of_a_device_closes_its_page_windows()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        f.frame->entry("muInsertdevice")->trigger();
        QVERIFY(f.frame->open_page(0, "DEVICE11\\PAGE1"));
        QCOMPARE(f.frame->page_windows().size(), std::size_t(1));
        f.frame->entry("muUndo")->trigger();
        QTRY_COMPARE(f.frame->page_windows().size(), std::size_t(0));
        QCOMPARE(f.test.app.page_windows().all().size(), std::size_t(0));
    }

    void the_popup_menus_have_their_states_on_each_kind_of_node()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        f.frame->entry("muInsertdevice")->trigger();
        f.frame->entry("muInsertdevice")->trigger();
        mainform* form = f.frame->document_window(0);
        QVERIFY(click_tree_node(*f.frame, 0, "HOME1"));
        QCOMPARE(popup_items(form), QStringList({"Add Device  ALT-D", "-", "(Add Page    ALT-P)"}));
        QVERIFY(click_tree_node(*f.frame, 0, "HOME1\\PAGE1"));
        QCOMPARE(popup_items(form), QStringList({"Open Page", "-", "Add Device  ALT-D", "-", "(Add Page    ALT-P)"}));
        QVERIFY(click_tree_node(*f.frame, 0, "HOME1PROPERTIES"));
        QVERIFY(popup_items(form).isEmpty());
        QVERIFY(click_tree_node(*f.frame, 0, "DEVICE11"));
        const QStringList device = popup_items(form);
        QCOMPARE(device.mid(0, 4), QStringList({"Add Device  ALT-D", "Add Page    ALT-P", "-", "Open All Pages"}));
        QVERIFY(device.contains("(Paste)"));
        QVERIFY(device.contains("(Move Up      Ctrl-Up)"));
        QVERIFY(device.contains("(Expand)"));
        QVERIFY(click_tree_node(*f.frame, 0, "DEVICE21"));
        QVERIFY(popup_items(form).contains("(Move Down  Ctrl-Down)"));
        QVERIFY(click_tree_node(*f.frame, 0, "DEVICE11\\PAGE1"));
        const QStringList page = popup_items(form);
        QCOMPARE(page.mid(0, 3), QStringList({"Open Page", "-", "Add Page    ALT-P"}));
        QVERIFY(page.contains("(Move Up      Ctrl-Up)"));
        QVERIFY(page.contains("(Move Down  Ctrl-Down)"));
    }

    void popup_items_run_their_operations()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        mainform* form = f.frame->document_window(0);
        QVERIFY(click_tree_node(*f.frame, 0, "HOME1"));
        std::unique_ptr<QMenu> menu(form->build_popup_menu());
        menu->findChild<QAction*>("Add Device")->trigger();
        QCOMPARE(shown_tree(form).mid(3, 1), QStringList({"DEVICE1"}));
    }

    void the_tree_s_shortcuts_add_devices_and_pages()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        mainform* form = f.frame->document_window(0);
        QVERIFY(click_tree_node(*f.frame, 0, "HOME1"));
        QTest::keyClick(form->tree(), Qt::Key_D, Qt::AltModifier);
        QCOMPARE(shown_tree(form).mid(3, 1), QStringList({"DEVICE1"}));
        // ALT-P on HOME does nothing, without a word.
        QTest::keyClick(form->tree(), Qt::Key_P, Qt::AltModifier);
        QCOMPARE(shown_tree(form).size(), 6);
        QVERIFY(click_tree_node(*f.frame, 0, "DEVICE11"));
        QTest::keyClick(form->tree(), Qt::Key_P, Qt::AltModifier);
        QCOMPARE(shown_tree(form).last(), QString("  PAGE2"));
        // A typed character never edits a node.
        QTest::keyClicks(form->tree(), "X");
        QTest::keyClick(form->tree(), Qt::Key_F2);
        QCOMPARE(shown_tree(form).mid(3, 1), QStringList({"DEVICE1"}));
        QVERIFY(!form->tree()->isPersistentEditorOpen(form->tree()->currentIndex()));
    }

    void a_double_click_on_a_page_opens_it_with_the_device_s_name_in_the_title_row()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        f.frame->entry("muInsertdevice")->trigger();
        QVERIFY(click_tree_node(*f.frame, 0, "DEVICE11\\PAGE1", Qt::LeftButton, true));
        Remote* page = f.frame->page_window(0, "DEVICE11\\PAGE1");
        QVERIFY(page);
        const auto rows = lcd_page_rows(f.test.app.config(0), page->page());
        QVERIFY(rows[0].has_right);
        QCOMPARE(QString::fromStdString(key_label_text(rows[0].right, rows[0].right.glyph_count())), QString("DEVICE1"));
        QCOMPARE(page->device_text(), QString("DEVICE1"));
    }

    void a_sixth_device_grows_the_counters_of_open_home_pages()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        QVERIFY(f.frame->open_page(0, "HOME1\\PAGE1"));
        for (int i = 0; i < 6; ++i) f.frame->entry("muInsertdevice")->trigger();
        QCOMPARE(f.frame->page_window(0, "HOME1\\PAGE1")->pagelabel_text(), QString("001/002"));
    }

    void properties_show_the_selection()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        f.frame->entry("muInsertdevice")->trigger();
        QVERIFY(click_tree_node(*f.frame, 0, "DEVICE11"));
        f.frame->entry("muproperties")->trigger();
        QVERIFY(f.frame->properties_window());
        QVERIFY(f.frame->properties_window()->isVisible());
        QCOMPARE(f.frame->properties_window()->findChild<QLabel*>("heading")->text(),
                 QString("Device properties: DEVICE1"));
        QVERIFY(click_tree_node(*f.frame, 0, "DEVICE11\\PAGE1"));
        QVERIFY(f.frame->properties_window()->findChild<QWidget*>("noproperties")->isVisible());
    }

    void devices_and_pages_dragged_in_one_tree_and_onto_another_document()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        f.frame->entry("muInsertdevice")->trigger();
        f.frame->entry("muInsertdevice")->trigger();
        f.frame->entry("muNew")->trigger();
        f.frame->entry("muInsertdevice")->trigger();
        mainform* first = f.frame->document_window(0);
        mainform* second = f.frame->document_window(1);
        QVERIFY(first && second);
        const auto drop_on = [&](mainform* form, const std::string& target, int slot, const QString& key) {
            const QModelIndex index = form->index_of(f.test.app.tree(form->slot()).find(target));
            const QPoint at = form->tree()->visualRect(index).center();
            std::unique_ptr<QMimeData> mime(mainform::node_drag_mime(slot, key));
            QDragEnterEvent enter(at, Qt::CopyAction, mime.get(), Qt::LeftButton, {});
            QApplication::sendEvent(form->tree()->viewport(), &enter);
            QDragMoveEvent move(at, Qt::CopyAction, mime.get(), Qt::LeftButton, {});
            QApplication::sendEvent(form->tree()->viewport(), &move);
            const bool allowed = move.isAccepted();
            QDropEvent drop(at, Qt::CopyAction, mime.get(), Qt::LeftButton, {});
            QApplication::sendEvent(form->tree()->viewport(), &drop);
            return allowed;
        };
        // A device dropped on itself is copied to the end of its tree.
        QVERIFY(drop_on(first, "DEVICE11", 0, "DEVICE11"));
        QCOMPARE(shown_tree(first).mid(3), QStringList({"DEVICE1", "  DEVICE1 PROPERTIES", "  PAGE1", "DEVICE2",
                                                        "  DEVICE2 PROPERTIES", "  PAGE1", "DEVICE1",
                                                        "  DEVICE1 PROPERTIES", "  PAGE1"}));
        // HOME refuses; a page dropped on the other document's device is copied there,
        // and the other document's window came forward as the pointer entered its tree.
        QVERIFY(!drop_on(second, "HOME2", 0, "DEVICE11\\PAGE1"));
        QVERIFY(drop_on(second, "DEVICE12", 0, "DEVICE11\\PAGE1"));
        auto* sub = qobject_cast<QMdiSubWindow*>(second->parentWidget());
        QVERIFY(sub && sub->mdiArea()->activeSubWindow() == sub);
        QCOMPARE(shown_tree(second).mid(3), QStringList({"DEVICE1", "  DEVICE1 PROPERTIES", "  PAGE1", "  PAGE2"}));
        QCOMPARE(f.test.app.tree(0).count(), 12);
        save_screenshot(f.frame.get(), "tree_drag_across_documents");
    }

    void move_up_and_hide_from_the_keys_and_the_popup()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        f.frame->entry("muInsertdevice")->trigger();
        f.frame->entry("muInsertdevice")->trigger();
        mainform* form = f.frame->document_window(0);
        QVERIFY(click_tree_node(*f.frame, 0, "DEVICE21"));
        QTest::keyClick(form->tree(), Qt::Key_Up, Qt::ControlModifier);
        QCOMPARE(shown_tree(form).mid(3, 4), QStringList({"DEVICE2", "  DEVICE2 PROPERTIES", "  PAGE1", "DEVICE1"}));
        QVERIFY(click_tree_node(*f.frame, 0, "DEVICE11"));
        std::unique_ptr<QMenu> menu(form->build_popup_menu());
        QAction* hide = nullptr;
        for (QAction* a : menu->actions())
            if (a->text() == "Hide Device") hide = a;
        QVERIFY(hide && hide->isEnabled());
        hide->trigger();
        QVERIFY(shown_tree(form).contains("[DEVICE1]"));
        QVERIFY(popup_items(form).contains("[Hide Device]"));
        save_screenshot(form, "tree_moved_and_hidden");
        // Edit > Undo takes the hiding back.
        f.frame->entry("muUndo")->trigger();
        QVERIFY(!shown_tree(form).contains("[DEVICE1]"));
    }
};

QTEST_MAIN(TreeTest)
#include "tree_test.moc"
