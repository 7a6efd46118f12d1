// The pictures of the user guide, the README and the metainfo that show the
// programs as a user's desktop does: a configuration made with tesselo-cli,
// opened in the editor and in the simulator under a window manager. Each
// picture is taken once what it shows has been checked.
#include <QPlainTextEdit>
#include <QProcess>
#include <QTreeWidget>

#include "core/keys/ir_step_names.h"
#include "views/action_frame.h"
#include "views/properties_window.h"
#include "views/simulator_window.h"
#include "wm/wm_support.h"

using namespace tesselo;
using namespace tesselo::testing;

namespace {

// A TV and a DVD player: the TV's first page has five keys with codes, a
// delay, a link and a jump; the DVD's a PLAY key.
const char* const demo_script = R"(new
add-device
add-device
select DEVICE11
label "\b\b\b\b\b\b\bTV"
select DEVICE21
label "\b\b\b\b\b\b\bDVD"
select DEVICE21\PAGE1
key soft 1
label PLAY
add-ir rc5 5 53
select DEVICE11\PAGE1
key soft 1
label POWER
add-ir rc5 0 12
key soft 2
label NEWS
add-ir rc5 0 1
add-delay 0.5
add-ir rc5 0 2
key soft 3
label MOVIE
add-link soft DEVICE21\PAGE1 1
add-jump DEVICE21\PAGE1
key soft 4
label "VOL +"
add-ir rc5 0 16
key soft 5
label "VOL -"
add-ir rc5 0 17
)";

// The configuration, saved by tesselo-cli in `folder`; empty on failure.
QString demo_configuration(const std::filesystem::path& folder)
{
    const QString path = QString::fromStdString((folder / "living room.kcf").string());
    QProcess cli;
    cli.start(TESSELO_CLI, {"--home", QString::fromStdString(folder.string()), "script", "-"});
    cli.write(demo_script);
    cli.write(QString("save-as \"%1\"\n").arg(path).toUtf8());
    cli.closeWriteChannel();
    if (!cli.waitForFinished(20000) || cli.exitCode() != 0) {
        qWarning("tesselo-cli: %s", cli.readAll().constData());
        return {};
    }
    return path;
}

// The part of the screen that the windows' frames cover, with a margin, as
// the guide's picture.
void save_windows(const QString& name, const std::vector<QRect>& frames)
{
    QRect area;
    for (const QRect& r : frames) area = area.united(r);
    area = area.adjusted(-8, -8, 8, 8).intersected(screen_rect());
    QDir().mkpath(TESSELO_SCREENSHOTS);
    // A pixel of the screen, 96 to the inch: the guide prints it at that size.
    QImage picture = grab_screen(area);
    picture.setDotsPerMeterX(qRound(96 / 0.0254));
    picture.setDotsPerMeterY(qRound(96 / 0.0254));
    QVERIFY(picture.save(QString(TESSELO_SCREENSHOTS) + "/" + name + ".png"));
}

QStringList step_rows(properties* window)
{
    QStringList rows;
    QTreeWidget* list = window->action_frame()->list();
    for (int i = 0; i < list->topLevelItemCount(); ++i) rows << list->topLevelItem(i)->text(0);
    return rows;
}

}  // namespace

class GuideWmTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void the_editor_with_a_page_and_the_properties_of_a_key()
    {
        Editor e;
        const QString path = demo_configuration(e.home.path());
        QVERIFY(!path.isEmpty());
        e.frame->open_files({path});
        QCOMPARE(e.app.documents().size(), std::size_t(1));
        Remote* page = e.frame->open_page(0, "DEVICE11\\PAGE1");
        QVERIFY(page);
        settle();
        // The NEWS key, row 2 on the right.
        QTest::mouseClick(page, Qt::LeftButton, {}, page->picture_rect(7).center().toPoint());
        properties* window = e.frame->properties_window();
        QVERIFY(window && QTest::qWaitForWindowExposed(window));
        wait_framed(window);
        QCOMPARE(step_rows(window), QStringList({"RC5 0 1", "DELAY 0.5 S", "RC5 0 2"}));
        QString which;
        QVERIFY2(every_window_inside_the_screen(which), qPrintable(which));
        save_windows("guide_editor", {screen_frame(e.frame.get()), screen_frame(window)});
    }

    void the_simulator_running_the_configuration()
    {
        TempFolder home;
        const QString path = demo_configuration(home.path());
        QVERIFY(!path.isEmpty());
        LibraryStepNames names(home.path());
        SimulatorWindow window(names);
        window.place_on_screen();
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        wait_framed(&window);
        QVERIFY(window.open_file(path));
        window.set_speed(0);
        // HOME's TV key, then the TV's NEWS key.
        window.press_picture(5);
        window.press_picture(7);
        QTRY_VERIFY(!window.busy());
        settle();
        const QStringList log = window.log()->toPlainText().split('\n');
        QCOMPARE(log.mid(log.size() - 6),
                 QStringList({"press soft 1", "  show 1 1", "press soft 2", "  send RC5 0 1", "  wait 50", "  send RC5 0 2"}));
        QString which;
        QVERIFY2(every_window_inside_the_screen(which), qPrintable(which));
        save_windows("guide_simulator", {screen_frame(&window)});
    }

    // The README shows a copy of the guide's picture of the editor, kept in
    // the repository: it is the editor as the build shows it, but for the
    // scratch folder's name in a title. When the editor's look changes, copy
    // the new picture over it.
    void the_readme_shows_the_editor_as_it_is()
    {
        const QString taken = QString(TESSELO_SCREENSHOTS) + "/guide_editor.png";
        const QString kept = QString(TESSELO_SOURCE_DIR) + "/docs/pictures/tesselo.png";
        const QImage now = QImage(taken).convertToFormat(QImage::Format_RGB32);
        const QImage readme = QImage(kept).convertToFormat(QImage::Format_RGB32);
        QVERIFY2(!now.isNull(), qPrintable(taken));
        QVERIFY2(!readme.isNull(), qPrintable(kept));
        const QString refresh = "the README's picture is out of date: cp " + taken + " " + kept;
        QVERIFY2(now.size() == readme.size(), qPrintable(refresh));
        qint64 differ = 0;
        for (int y = 0; y < now.height(); ++y)
            for (int x = 0; x < now.width(); ++x) differ += now.pixel(x, y) != readme.pixel(x, y);
        QVERIFY2(differ * 100 <= qint64(now.width()) * now.height(), qPrintable(refresh));
    }
};

TESSELO_WM_TEST_MAIN(GuideWmTest)
#include "guide_wm_test.moc"
