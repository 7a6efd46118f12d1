#include <QSignalSpy>
#include <QtTest>

#include "gui_support.h"
#include "views/single_instance.h"

using namespace tesselo;
using namespace tesselo::testing;

class InstanceTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void a_second_start_hands_its_files_to_the_first()
    {
        const QString name = instance_server_name() + "-test-" + QString::number(QCoreApplication::applicationPid());
        InstanceServer server;
        QVERIFY(server.listen(name));
        QSignalSpy raised(&server, &InstanceServer::raise_requested);
        QSignalSpy files(&server, &InstanceServer::files_received);
        // The second start runs in a process of its own; here a thread of the
        // event loop serves, since hand_over waits for the answer.
        bool taken = false;
        QTimer::singleShot(0, [&] { taken = hand_over(name, {"/tmp/a b.kcf", "relative.kcf"}, 3000); });
        QTRY_COMPARE(files.count(), 1);
        QTRY_VERIFY(taken);
        QCOMPARE(raised.count(), 1);
        const QStringList received = files.front().front().toStringList();
        QCOMPARE(received.size(), 2);
        QCOMPARE(received[0], QString("/tmp/a b.kcf"));
        QCOMPARE(received[1], QDir::current().absoluteFilePath("relative.kcf"));
    }

    void without_a_running_editor_nothing_takes_the_files()
    {
        QVERIFY(!hand_over(instance_server_name() + "-nobody-" + QString::number(QCoreApplication::applicationPid()), {}, 300));
    }

    void a_name_left_behind_is_taken_over()
    {
        const QString name = instance_server_name() + "-stale-" + QString::number(QCoreApplication::applicationPid());
        {
            InstanceServer first;
            QVERIFY(first.listen(name));
            // A second editor may not take a name that answers.
            InstanceServer second;
            QVERIFY(!second.listen(name));
        }
        InstanceServer third;
        QVERIFY(third.listen(name));
    }

    void the_frame_rises_when_asked()
    {
        FrameFixture f;
        f.frame->showMinimized();
        f.frame->raise_frame();
        QVERIFY(!f.frame->isMinimized());
        QVERIFY(f.frame->isVisible());
    }
};

QTEST_MAIN(InstanceTest)
#include "instance_test.moc"
