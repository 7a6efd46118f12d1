#include <QLocalSocket>
#include <QTemporaryDir>
#include <QProcess>
#include <QtTest>

#include "without_display.h"

using namespace std::chrono_literals;
using tesselo::testing::ProgramOutput;
using tesselo::testing::run_without_display;

// The editor run as a program: a second start ends at once and leaves the
// first one running.
class SecondStartTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void a_second_start_only_raises_the_first()
    {
        QTemporaryDir home;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("QT_QPA_PLATFORM", "offscreen");
        env.insert("TESSELO_HOME", home.path());
        const QString name = "tesselo-test-" + QString::number(QCoreApplication::applicationPid());
        env.insert("TESSELO_INSTANCE_NAME", name);

        QProcess first;
        first.setProcessEnvironment(env);
        first.start(TESSELO_EDITOR, {});
        QVERIFY(first.waitForStarted());
        // The first start listens before it shows its splash.
        QTRY_VERIFY_WITH_TIMEOUT(
            [&] {
                QLocalSocket probe;
                probe.connectToServer(name);
                return probe.waitForConnected(100);
            }(),
            10000);

        QProcess second;
        second.setProcessEnvironment(env);
        second.start(TESSELO_EDITOR, {home.filePath("given.kcf")});
        QVERIFY(second.waitForFinished(5000));
        QCOMPARE(second.exitStatus(), QProcess::NormalExit);
        QCOMPARE(second.exitCode(), 0);
        QCOMPARE(first.state(), QProcess::Running);

        first.terminate();
        QVERIFY(first.waitForFinished(5000));
    }

    void a_new_home_folder_gets_the_data_base_folder()
    {
        // As a user starts it from the build tree with a home folder of their own.
        QTemporaryDir parent;
        const QString home = parent.filePath("new home");
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("QT_QPA_PLATFORM", "offscreen");
        env.insert("TESSELO_HOME", home);
        env.insert("TESSELO_QUIT_WHEN_READY", "1");
        env.insert("TESSELO_INSTANCE_NAME", "tesselo-home-test-" + QString::number(QCoreApplication::applicationPid()));
        QProcess editor;
        editor.setProcessEnvironment(env);
        editor.start(TESSELO_EDITOR, {});
        QVERIFY(editor.waitForFinished(10000));
        QCOMPARE(editor.exitCode(), 0);
        for (const char* file : {"5150LIb.bin", "Lib_KEY.ASM", "F-QX5150 Brandlist.txt"})
            QVERIFY2(QFileInfo::exists(home + "/Data base/" + file), file);
    }

    void help_and_version_answer_without_a_display()
    {
        const ProgramOutput help = run_without_display(TESSELO_EDITOR, {"--help"});
        QCOMPARE(help.exit_code, 0);
        QVERIFY(help.out.startsWith("Usage: tesselo [options] [FILE...]\n"));
        for (const char* variable : {"TESSELO_HOME", "TESSELO_LINK", "TESSELO_STARTUP_LOG", "TESSELO_QUIT_WHEN_READY"})
            QVERIFY2(help.out.contains(variable), variable);
        const ProgramOutput version = run_without_display(TESSELO_EDITOR, {"--version"});
        QCOMPARE(version.exit_code, 0);
        QCOMPARE(version.out, QByteArray("tesselo " TESSELO_VERSION "\n"));
    }
};

QTEST_MAIN(SecondStartTest)
#include "second_start_test.moc"
