// The simulator's window: a configuration that the editor built and saved,
// run from the remote's picture, with its log, its waits and its reload.
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

#include "core/document/lifecycle.h"
#include "core/image/image_writer.h"
#include "core/keys/char_pic_list.h"
#include "core/keys/delay_beep_dialogs.h"
#include "core/keys/ir_step_names.h"
#include "core/keys/jump_dialog.h"
#include "core/keys/key_labels.h"
#include "core/keys/key_locator.h"
#include "core/keys/step_commands.h"
#include "core/tree/adding.h"
#include "core/tree/tree_view.h"
#include "gui_support.h"
#include "without_display.h"
#include "views/remote_picture.h"
#include "views/simulator_window.h"

using namespace tesselo;
using namespace tesselo::testing;

namespace {

// Closes the next message box that opens, keeping its text.
void close_next_box(QString& text)
{
    QTimer::singleShot(0, [&text] {
        for (QWidget* w : QApplication::topLevelWidgets())
            if (auto* box = qobject_cast<QMessageBox*>(w); box && box->isVisible()) {
                text = box->text();
                box->accept();
                return;
            }
    });
}

QString row_text(RemotePicture* picture, int row)
{
    const LcdRow r = picture->row(row);
    const KeyLabel& label = r.has_right ? r.right : r.left;
    return (r.has_right || r.has_left) ? QString::fromStdString(key_label_text(label, label.glyph_count())) : QString();
}

QStringList log_lines(SimulatorWindow& w) { return w.log()->toPlainText().split('\n'); }

}  // namespace

// A document of two devices, saved: DEVICE1's row 1 key waits half a
// second, beeps and jumps to DEVICE2's page.
struct Built {
    RecordingApp test;
    int slot = 0;
    const std::string page = "DEVICE11\\PAGE1";
    QString path = QString::fromStdString((test.home.path() / "try.kcf").string());

    Built()
    {
        muNew(test.app);
        slot = test.app.active()->slot;
        AddDevice(test.app, add_ordinary);
        AddDevice(test.app, add_ordinary);
        click_node(test.app, slot, test.app.tree(slot).find(page));
        select_key(test.app, 5);
        const KeyTarget target{slot, page};
        Delaytime d(test.app.step_edit);
        d.Text1 = "0.5";
        [&] { QCOMPARE(d.ok(test.app, target), DialogOk::done); }();
        Addbeep b(test.app.step_edit);
        b.move_slider(2);
        b.Text1 = "2";
        [&] { QCOMPARE(b.ok(test.app, target), DialogOk::done); }();
        Createjump j(test.app, slot, page);
        [&] { QCOMPARE(j.ok(test.app, target, "DEVICE21\\PAGE1"), DialogOk::done); }();
        label("MOVIE");
    }
    // The key's label typed anew, and the document saved.
    void label(const std::string& text)
    {
        const auto target = label_target(test.app);
        [&] { QVERIFY(target); }();
        if (!target) return;
        for (int caret = label_length(read_label(test.app.config(slot), *target), *target); caret > 0; --caret)
            delete_char(test.app, *target, caret);
        int caret = 0;
        for (char c : text) change_keyname(test.app, *target, char_to_glyph(c), caret++);
        [&] { QVERIFY(save_tofile(test.app, path.toStdString(), 0, slot)); }();
    }
};

// The simulator's window on that document, its speed chosen, the file open.
struct Running {
    Built built;
    LibraryStepNames names{built.test.home.path()};
    SimulatorWindow w{names};
    const QString& path = built.path;

    explicit Running(int speed)
    {
        w.resize(900, 700);
        w.show();
        w.set_speed(speed);
        [&] { QVERIFY(w.open_file(path)); }();
    }
    void press(int picture)
    {
        QTest::mouseClick(w.picture(), Qt::LeftButton, {}, w.picture()->picture_rect(picture).center().toPoint());
    }
};

class SimulatorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void keys_run_their_steps_with_the_log_and_the_display_following()
    {
        Running r(0);
        SimulatorWindow& w = r.w;
        QCOMPARE(w.windowTitle(), QString("try.kcf - Tesselo Simulator"));
        QCOMPARE(row_text(w.picture(), 0), QString("HOME"));
        QCOMPARE(row_text(w.picture(), 1), QString("DEVICE1"));
        QCOMPARE(w.picture()->counter(), QString("001/001"));
        save_screenshot(&w, "simulator_home");

        // The HOME key of DEVICE1, pressed on the picture.
        r.press(5);
        QCOMPARE(w.displayed(), (SimPage{1, 0}));
        QCOMPARE(row_text(w.picture(), 0), QString("DEVICE1"));
        QCOMPARE(row_text(w.picture(), 1), QString("MOVIE"));

        r.press(5);
        QCOMPARE(log_lines(w).mid(log_lines(w).size() - 4),
                 (QStringList{"press soft 1", "  wait 50", "  beep 200 600", "  show 2 1"}));
        QCOMPARE(w.displayed(), (SimPage{2, 0}));
        QCOMPARE(row_text(w.picture(), 0), QString("DEVICE2"));
        save_screenshot(&w, "simulator_after_a_key");

        w.findChild<QPushButton*>("home")->click();
        QCOMPARE(w.displayed(), (SimPage{0, 0}));
        QCOMPARE(log_lines(w).back(), QString("home"));
    }

    void a_delay_really_waits_and_a_beep_shows()
    {
        Running r(1);
        SimulatorWindow& w = r.w;
        r.press(5);
        r.press(5);
        // Half a second at real speed: the key is still running, its beep of
        // two seconds to come.
        QVERIFY(w.busy());
        QCOMPARE(log_lines(w).back(), QString("  wait 50"));
        QVERIFY(!w.findChild<QPushButton*>("home")->isEnabled());
        QCOMPARE(w.displayed(), (SimPage{1, 0}));
        QTRY_VERIFY(w.beep_sign()->isVisible());
        QCOMPARE(w.beep_sign()->text(), QString::fromUtf8("\u266A BEEP 600 Hz"));
        save_screenshot(&w, "simulator_beep");
        QTRY_VERIFY(!w.busy());
        QVERIFY(!w.beep_sign()->isVisible());
        QCOMPARE(w.displayed(), (SimPage{2, 0}));
        QVERIFY(w.findChild<QPushButton*>("home")->isEnabled());
    }

    void the_file_is_read_again_when_it_changes_on_the_page_shown()
    {
        Running r(0);
        SimulatorWindow& w = r.w;
        Built& built = r.built;
        const QString& path = r.path;
        r.press(5);
        QCOMPARE(row_text(w.picture(), 1), QString("MOVIE"));
        // The editor saves the key under another name: the window follows by itself.
        QTest::qWait(1100);  // a new modification time
        built.label("NEWS");
        QTRY_COMPARE(row_text(w.picture(), 1), QString("NEWS"));
        QCOMPARE(w.displayed(), (SimPage{1, 0}));
        QCOMPARE(log_lines(w).back(), "reload " + path);
    }

    void a_file_that_is_no_configuration_is_refused_and_the_running_one_stays()
    {
        Running r(1);
        SimulatorWindow& w = r.w;
        Built& built = r.built;
        const QString& path = r.path;
        const QString bad = QString::fromStdString((built.test.home.path() / "bad.kcf").string());
        QFile file(bad);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("no image here");
        file.close();
        QString said;
        close_next_box(said);
        QVERIFY(!w.open_file(bad));
        QCOMPARE(said, QString("bad.kcf: file is corrupted"));
        QCOMPARE(w.file(), path);
        close_next_box(said);
        QVERIFY(!w.open_file(QString::fromStdString(built.test.home.path().string())));
        QCOMPARE(said, QString::fromStdString(built.test.home.path().filename().string()) + ": Is a directory");
        QCOMPARE(w.file(), path);
    }

    void help_and_version_answer_without_a_display()
    {
        const QString simulator = QString(TESSELO_BUILD_BIN) + "/tesselo-simulator";
        const ProgramOutput help = run_without_display(simulator, {"--help"});
        QCOMPARE(help.exit_code, 0);
        QVERIFY(help.out.contains("[options] [FILE]"));
        const ProgramOutput version = run_without_display(simulator, {"--version"});
        QCOMPARE(version.exit_code, 0);
        QVERIFY(version.out.startsWith("tesselo-simulator "));
    }
};

QTEST_MAIN(SimulatorTest)
#include "simulator_test.moc"
