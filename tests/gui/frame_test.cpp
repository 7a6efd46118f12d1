#include <QAction>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <QtTest>

#include "gui_support.h"
#include "views/frame_commands.h"
#include "views/mainform.h"

using namespace tesselo;
using namespace tesselo::testing;

class FrameTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void frame_starts_with_its_title()
    {
        FrameFixture f;
        QCOMPARE(f.frame->windowTitle(), QString("Kelvaro Tesselo 3"));
        QCOMPARE(f.frame->objectName(), QString("MDIForm1"));
        QVERIFY(f.frame->isVisible());
        QVERIFY(f.frame->area()->subWindowList().isEmpty());
    }

    void every_menu_entry_stands_with_its_caption()
    {
        FrameFixture f;
        const QList<QAction*> top = f.frame->menuBar()->actions();
        const QStringList menus = {"muFile", "muEdit", "muView", "muInsert", "muTools", "muWindow", "muHelp"};
        QCOMPARE(top.size(), menus.size());
        for (int i = 0; i < menus.size(); ++i) QCOMPARE(top[i]->menu()->objectName(), menus[i]);

        struct Expected {
            const char* menu;
            QStringList names;
            QStringList captions;  // "-" for a divider
        };
        const QList<Expected> expected = {
            {"muFile",
             {"muNew", "muOpen", "muMerge", "muClose", "muFilebar1", "muSave", "muSaveas", "muPrintOverview",
              "muFilebar2", "muDownload", "muUpload", "muFilebar3", "muExit"},
             {"&New Configuration", "&Open Configuration", "&Merge Configuration", "&Close Configuration", "-",
              "&Save Configuration", "Save Configuration &as", "&Print Overview...", "-", "&Download", "&Upload", "-",
              "E&xit"}},
            {"muEdit",
             {"muUndo", "muRedo", "muFilebar4", "muCut", "muCopy", "muPaste", "muDelete", "muFilebar5", "muMoveUp",
              "muMoveDown"},
             {"&Undo", "&Redo", "-", "Cu&t", "&Copy", "&Paste", "&Delete", "-", "Move Up in List", "Move Down in List"}},
            {"muView",
             {"muStandardToolbar", "muStatusBar", "muFilebar6", "muExpandall", "muCollapseall", "muFilebar7",
              "muOpenPage", "muOpenAll", "muCloseAll", "muFilebar8", "muproperties"},
             {"Standard Toolbar", "Status Bar", "-", "Expand All", "Collapse All", "-", "Open Page", "Open All Pages",
              "Close All Pages", "-", "Properties..."}},
            {"muInsert", {"muInsertdevice", "muInsertpage"}, {"Device", "Page"}},
            {"muTools", {"muSimulator", "muRestore"}, {"Simulator", "Restore Default Configuration      "}},
            {"muWindow", {"muCascade", "muTileHor", "muTileVer"}, {"Cascade", "Tile Horizontally", "Tile Vertically"}},
            {"muHelp", {"muAbout"}, {"About"}},
        };
        for (const Expected& e : expected) {
            const QList<QAction*> entries = f.frame->menu(e.menu)->actions();
            QCOMPARE(entries.size(), e.names.size());
            for (int i = 0; i < entries.size(); ++i) {
                QCOMPARE(entries[i]->objectName(), e.names[i]);
                if (e.captions[i] == "-")
                    QVERIFY(entries[i]->isSeparator());
                else
                    QCOMPARE(entries[i]->text(), e.captions[i]);
            }
        }
    }

    void entries_carry_their_keys()
    {
        FrameFixture f;
        QCOMPARE(f.frame->entry("muNew")->shortcut(), QKeySequence("Ctrl+N"));
        QCOMPARE(f.frame->entry("muOpen")->shortcut(), QKeySequence("Ctrl+O"));
        QCOMPARE(f.frame->entry("muSave")->shortcut(), QKeySequence("Ctrl+S"));
        QCOMPARE(f.frame->entry("muUndo")->shortcut(), QKeySequence("Ctrl+Z"));
        QCOMPARE(f.frame->entry("muRedo")->shortcut(), QKeySequence("Ctrl+Y"));
        QCOMPARE(f.frame->entry("muExit")->shortcut(), QKeySequence("Ctrl+Q"));
    }

    void the_key_popup_is_hidden_beside_the_menus()
    {
        FrameFixture f;
        QMenu* popup = f.frame->menu("mukeyedit");
        QVERIFY(popup);
        QStringList names;
        for (QAction* a : popup->actions()) names << a->objectName();
        QCOMPARE(names, QStringList({"mukeyCut", "mukeyCopy", "mukeyPaste", "mukeyDelete", "muFilebar9",
                                     "mukeyproperties", "mukeyhelp"}));
        for (QAction* a : f.frame->menuBar()->actions()) QVERIFY(a->menu() != popup);
    }

    void every_toolbar_button_stands_with_its_key_and_tool_tip()
    {
        FrameFixture f;
        const QList<std::pair<QString, QString>> expected = {
            {"new", "New Configuration"},   {"open", "Open Configuration"},
            {"save", "Save Configuration"}, {"download", "Download to remote control"},
            {"upload", "Upload from remote control"}, {"undo", "Undo"},
            {"redo", "Redo"},               {"cut", ""},
            {"copy", "Copy"},               {"paste", "Paste"},
            {"delete", "Delete"},           {"label", "Label"},
            {"properties", "Properties"},   {"newdevice", "Add new device"},
            {"newpage", "Add new page"},    {"simualtor", "Tesselo Simulator"},
            {"clock", "Clock Sync"},        {"help", "Help"},
        };
        QCOMPARE(f.frame->toolbar()->objectName(), QString("Toolbar1"));
        QList<QAction*> buttons;
        for (QAction* a : f.frame->toolbar()->actions())
            if (!a->isSeparator()) buttons << a;
        QCOMPARE(buttons.size(), expected.size());
        for (int i = 0; i < buttons.size(); ++i) {
            QCOMPARE(buttons[i]->property("key").toString(), expected[i].first);
            QCOMPARE(buttons[i]->property("number").toInt(), i + 1);
            QCOMPARE(buttons[i]->toolTip(), expected[i].second);
            QVERIFY(!buttons[i]->icon().isNull());
        }
    }

    void toolbar_dispatch_compares_keys_in_its_order()
    {
        const QStringList order = {"open", "download", "upload", "newdevice", "undo", "redo", "cut", "copy", "paste",
                                   "delete", "save", "newpage", "clock", "label", "properties", "simualtor", "help"};
        QStringList actual;
        for (const char* key : toolbar_dispatch_order()) actual << key;
        QCOMPARE(actual, order);
        QCOMPARE(toolbar_command("clock"), QString("clock"));
        QCOMPARE(toolbar_command("newdevice"), QString("muInsertdevice"));
    }

    void without_a_document_its_entries_are_disabled()
    {
        FrameFixture f;
        f.frame->update_commands();
        for (const char* name : {"muClose", "muSave", "muSaveas", "muOpenAll", "muCloseAll", "muSimulator"})
            QVERIFY2(!f.frame->entry(name)->isEnabled(), name);
        QVERIFY(f.frame->entry("muNew")->isEnabled());
        QVERIFY(f.frame->entry("muExit")->isEnabled());
        QVERIFY(f.frame->entry("muAbout")->isEnabled());
        QVERIFY(!f.frame->button("save")->isEnabled());
        QVERIFY(f.frame->button("new")->isEnabled());
        QVERIFY(f.frame->button("help")->isEnabled());
    }

    void undo_and_redo_entries_follow_the_journal_as_their_buttons_do()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        const auto states = [&f] {
            f.frame->update_commands();
            return QList<bool>{f.frame->entry("muUndo")->isEnabled(), f.frame->button("undo")->isEnabled(),
                               f.frame->entry("muRedo")->isEnabled(), f.frame->button("redo")->isEnabled()};
        };
        // Nothing to undo or redo.
        QCOMPARE(states(), (QList<bool>{false, false, false, false}));
        f.frame->entry("muInsertdevice")->trigger();
        QCOMPARE(states(), (QList<bool>{true, true, false, false}));
        f.frame->entry("muUndo")->trigger();
        QCOMPARE(states(), (QList<bool>{false, false, true, true}));
        f.frame->entry("muRedo")->trigger();
        QCOMPARE(states(), (QList<bool>{true, true, false, false}));
    }

    void new_opens_a_document_window_in_a_slot()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        QCOMPARE(f.test.app.documents().size(), std::size_t(1));
        QCOMPARE(f.frame->area()->subWindowList().size(), 1);
        mainform* form = f.frame->document_window(0);
        QVERIFY(form);
        QCOMPARE(form->windowTitle(), QString("Untitled1"));
        QCOMPARE(form->property("Tag").toString(), QString("0"));
        QVERIFY(f.frame->entry("muSave")->isEnabled());
        QVERIFY(f.frame->button("save")->isEnabled());
        f.frame->Toolbar1_ButtonClick("new");
        QCOMPARE(f.frame->document_window(1)->windowTitle(), QString("Untitled2"));
        const auto log = f.test.log_lines();
        QVERIFY(log.size() >= 2);
        QCOMPARE(QString::fromStdString(log[1]), QString("\"open new file - Untitled1\""));
        save_screenshot(f.frame.get(), "frame_with_documents");
    }

    void an_eleventh_new_is_refused()
    {
        FrameFixture f;
        for (int i = 0; i < 10; ++i) f.frame->entry("muNew")->trigger();
        f.test.take_lines();
        f.frame->entry("muNew")->trigger();
        QCOMPARE(f.test.app.documents().size(), std::size_t(10));
        const auto lines = f.test.take_lines();
        QCOMPARE(lines.size(), std::size_t(1));
        QCOMPARE(QString::fromStdString(lines[0]), QString("message \"Kelvaro Tessel 3\" \"Exceed files open\""));
    }

    void save_of_an_untitled_document_is_save_as()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        const QString path = QString::fromStdString((f.test.home.path() / "first.kcf").string());
        f.test.ui.queue_answer(("file:" + path).toStdString());
        f.frame->entry("muSave")->trigger();
        QCOMPARE(f.test.ui.dialogs.back().title, std::string("Save As"));
        QCOMPARE(f.test.ui.dialogs.back().filter, std::string("Data Config File (*.kcf)|*.kcf"));
        QVERIFY(QFile::exists(path));
        QCOMPARE(f.frame->document_window(0)->windowTitle(), path);
    }

    void open_and_files_handed_over_open_documents()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        f.frame->entry("muInsertdevice")->trigger();
        const QString path = QString::fromStdString((f.test.home.path() / "kept.kcf").string());
        f.test.ui.queue_answer(("file:" + path).toStdString());
        f.frame->entry("muSaveas")->trigger();
        f.test.ui.queue_answer("no");
        f.frame->entry("muClose")->trigger();
        QTRY_COMPARE(f.frame->area()->subWindowList().size(), 0);

        f.test.ui.queue_answer(("file:" + path).toStdString());
        f.frame->entry("muOpen")->trigger();
        QCOMPARE(f.test.ui.dialogs.back().kind, std::string("open"));
        QCOMPARE(f.test.ui.dialogs.back().filter, std::string("Data Config File (*.kcf)|*.kcf"));
        QCOMPARE(f.frame->document_window(0)->windowTitle(), path);
        QCOMPARE(f.test.app.tree(f.frame->document_window(0)->slot()).count(), 6);

        // A second start hands the same file over: it opens beside the first.
        f.frame->open_files({path});
        QCOMPARE(f.test.app.documents().size(), std::size_t(2));
        QCOMPARE(f.frame->document_window(1)->windowTitle(), path);
    }

    void close_asks_and_cancel_keeps_the_window()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        f.test.take_lines();
        f.test.ui.queue_answer("cancel");
        f.frame->entry("muClose")->trigger();
        QCoreApplication::processEvents();
        QCOMPARE(f.frame->area()->subWindowList().size(), 1);
        auto lines = f.test.take_lines();
        QCOMPARE(QString::fromStdString(lines.at(0)),
                 QString("ask \"Kelvaro Tesselo 3\" \"Do you want to save the changes to Untitled1?\" -> cancel"));
        QCOMPARE(f.test.ui.icons.back(), Icon::exclamation);
        f.test.ui.queue_answer("no");
        f.frame->area()->subWindowList().front()->close();
        QCoreApplication::processEvents();
        QTRY_COMPARE(f.frame->area()->subWindowList().size(), 0);
        QVERIFY(f.test.app.documents().empty());
    }

    void closing_the_frame_closes_every_document_or_stops_at_cancel()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        f.frame->entry("muNew")->trigger();
        f.test.ui.queue_answer("no");
        f.test.ui.queue_answer("cancel");
        QVERIFY(!f.frame->close());
        QCOMPARE(f.test.app.documents().size(), std::size_t(1));
        QVERIFY(f.frame->isVisible());
        f.test.ui.queue_answer("no");
        QVERIFY(f.frame->close());
        QVERIFY(f.test.app.documents().empty());
        QCOMPARE(QString::fromStdString(f.test.log_lines().back()), QString("\"close tessel\""));
    }

    void simulator_and_help_go_through_the_launcher()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        f.frame->entry("muSimulator")->trigger();
        QVERIFY(std::filesystem::exists(f.test.home.path() / "temp.trl"));
        QCOMPARE(QString::fromStdString(f.test.log_lines().back()), QString("\"run simulator - Untitled1\""));
        f.test.launcher.open_result = 2;
        f.test.take_lines();
        f.frame->Toolbar1_ButtonClick("help");
        QCOMPARE(QString::fromStdString(f.test.launcher.calls.back()),
                 QString::fromStdString("open_document " + (f.test.home.path() / "QM5100 Tessel3_E_EN_UG_v00.pdf").string()));
        QCOMPARE(QString::fromStdString(f.test.take_lines().at(0)), QString("message \"Kelvaro Tesselo 3\" \"File not found\""));
    }

    void view_entries_show_and_hide_toolbar_and_status_line()
    {
        FrameFixture f;
        f.frame->entry("muStandardToolbar")->trigger();
        QVERIFY(!f.frame->toolbar()->isVisible());
        f.frame->entry("muStandardToolbar")->trigger();
        QVERIFY(f.frame->toolbar()->isVisible());
        f.frame->entry("muStatusBar")->trigger();
        QVERIFY(!f.frame->statusBar()->isVisible());
    }

    void window_commands_arrange_the_children()
    {
        FrameFixture f;
        f.frame->entry("muNew")->trigger();
        f.frame->entry("muNew")->trigger();
        const auto windows = f.frame->area()->subWindowList();
        // Tile Vertically: columns, a document window the workspace's height.
        f.frame->entry("muTileVer")->trigger();
        QCOMPARE(windows[0]->geometry().top(), 0);
        QCOMPARE(windows[1]->geometry().top(), 0);
        QVERIFY(windows[1]->geometry().left() > windows[0]->geometry().right());
        QVERIFY(windows[0]->height() > f.frame->area()->viewport()->height() / 2);
        // Tile Horizontally: rows, side by side while the row has room.
        f.frame->entry("muTileHor")->trigger();
        QCOMPARE(windows[0]->geometry().topLeft(), QPoint(0, 0));
        QCOMPARE(windows[1]->geometry().top(), 0);
        QVERIFY(!windows[0]->geometry().intersects(windows[1]->geometry()));
        // Cascade: each a title bar below and right of the one before.
        f.frame->entry("muCascade")->trigger();
        QVERIFY(windows[1]->geometry().top() > windows[0]->geometry().top());
        QVERIFY(windows[1]->geometry().left() > windows[0]->geometry().left());
    }
};

QTEST_MAIN(FrameTest)
#include "frame_test.moc"
