#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

#include "core/document/lifecycle.h"
#include "core/document/recovery.h"
#include "core/document/recovery_copy.h"
#include "core/document/recovery_offer.h"
#include "core/tree/adding.h"
#include "gui_support.h"
#include "message_box_answer.h"
#include "views/mainform.h"
#include "views/qt_ui.h"
#include "views/recovery_timer.h"

using namespace tesselo;
using tesselo::testing::save_screenshot;
using tesselo::testing::answer_next_box;
using tesselo::testing::BoxSeen;
using tesselo::testing::TempFolder;

namespace {

// An editor that dies with two documents unsaved: one never saved, one
// saved as tv.kcf and changed since.
bool leave_unsaved_documents(const std::filesystem::path& home)
{
    std::ostringstream out;
    ScriptedUi ui(out);
    VirtualClock clock({2026, 11, 24, 2, 9, 41, 7});
    tesselo::testing::RecordingLauncher launcher;
    PosixFileStore files;
    Application app(ui, clock, launcher, files, home);
    muNew(app);
    ui.queue_answer("file:" + (home / "tv.kcf").string());
    muSave(app);
    AddDevice(app, add_ordinary);
    muNew(app);
    AddDevice(app, add_ordinary);
    clock.advance(RecoveryKeeper::quiet_ms);
    app.recovery().tick();
    return true;
}

// The next start of that editor, before the question: its Ui on Qt and its frame.
struct StartedEditor {
    StartedEditor() : left(leave_unsaved_documents(home.path())), app(ui, clock, launcher, files, home.path()), frame(app)
    {
        attach_frame(ui, frame);
        frame.show();
    }
    TempFolder home;
    bool left;
    QtUi ui;
    SystemClock clock;
    tesselo::testing::RecordingLauncher launcher;
    PosixFileStore files;
    Application app;
    MDIForm1 frame;
};

}  // namespace

// The question at start, as the editor shows it: its words, its buttons,
// and what each answer does to the windows and to recovery/.
class RecoveryQuestionTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void yes_opens_each_document_in_its_window()
    {
        StartedEditor editor;
        const TempFolder& home = editor.home;
        Application& app = editor.app;
        MDIForm1& frame = editor.frame;

        BoxSeen seen;
        answer_next_box(seen, QMessageBox::Yes, [](QWidget* box) { save_screenshot(box, "recovery_question"); });
        QCOMPARE(offer_recovery(app), 2);
        QCOMPARE(seen.title, QString("Kelvaro Tesselo 3"));
        const QString tv = QString::fromStdString((home.path() / "tv.kcf").string());
        QCOMPARE(seen.text, "Recover the unsaved documents kept when the editor stopped?\n\n"
                            "tv.kcf  " + tv + "  2026-11-24 09:41:07\n"
                            "Untitled2  (never saved)  2026-11-24 09:41:07");
        QCOMPARE(seen.icon, QMessageBox::Question);
        QCOMPARE(seen.buttons, (QStringList{"Yes", "No"}));

        QVERIFY(frame.document_window(0));
        QVERIFY(frame.document_window(1));
        QCOMPARE(frame.document_window(0)->windowTitle(), tv);
        QCOMPARE(frame.document_window(1)->windowTitle(), QString("Untitled2"));
        // The copies stay until the documents are saved or closed.
        QCOMPARE(list_recovery_copies(home.path() / "recovery").size(), std::size_t{2});
        save_screenshot(&frame, "recovery_recovered");
    }

    void no_sets_the_copies_aside()
    {
        StartedEditor editor;
        const TempFolder& home = editor.home;
        Application& app = editor.app;
        MDIForm1& frame = editor.frame;

        BoxSeen seen;
        answer_next_box(seen, QMessageBox::No);
        QCOMPARE(offer_recovery(app), 0);
        QVERIFY(!frame.document_window(0));
        QVERIFY(list_recovery_copies(home.path() / "recovery").empty());
        QCOMPARE(list_recovery_copies(home.path() / "recovery" / "declined").size(), std::size_t{2});
    }

    // The timer writes a copy a second after an edit, but not while a
    // message box of a command is open: the command may be half done.
    void the_timer_keeps_copies_outside_dialogs_only()
    {
        TempFolder home;
        QtUi ui;
        SystemClock clock;
        tesselo::testing::RecordingLauncher launcher;
        PosixFileStore files;
        Application app(ui, clock, launcher, files, home.path());
        MDIForm1 frame(app);
        attach_frame(ui, frame);
        frame.show();
        RecoveryTimer timer(app, ui);
        muNew(app);
        AddDevice(app, add_ordinary);
        const auto kept = [&home] { return list_recovery_copies(home.path() / "recovery").size(); };

        bool checked = false;
        QTimer::singleShot(RecoveryKeeper::quiet_ms + 3 * RecoveryTimer::interval_ms, [&] {
            checked = true;
            QCOMPARE(kept(), std::size_t{0});
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            QVERIFY(box);
            box->button(QMessageBox::Ok)->click();
        });
        ui.message(title_main, "Exceed files open", Icon::exclamation);
        QVERIFY(checked);
        QTRY_COMPARE_WITH_TIMEOUT(kept(), std::size_t{1}, 2000);
    }
};

QTEST_MAIN(RecoveryQuestionTest)
#include "recovery_question_test.moc"
