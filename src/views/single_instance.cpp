#include "views/single_instance.h"

#include <QDir>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <unistd.h>

namespace tesselo {

QString instance_server_name(const QString& program)
{
    // A test run names its own, so that it never meets the user's programs.
    const QString own = qEnvironmentVariable("TESSELO_INSTANCE_NAME");
    if (own.isEmpty()) return QString("tesselo-%1-%2").arg(program).arg(getuid());
    return program == "editor" ? own : own + "-" + program;
}

bool hand_over(const QString& server_name, const QStringList& files, int timeout_ms)
{
    QLocalSocket socket;
    socket.connectToServer(server_name);
    if (!socket.waitForConnected(timeout_ms)) return false;
    // One request a line: "raise", then "open PATH" for each file.
    QByteArray request = "raise\n";
    for (const QString& file : files) request += "open " + QFileInfo(file).absoluteFilePath().toUtf8() + "\n";
    socket.write(request);
    if (!socket.waitForBytesWritten(timeout_ms)) return false;
    // The running editor answers when it has read everything.
    socket.waitForReadyRead(timeout_ms);
    socket.disconnectFromServer();
    return true;
}

InstanceServer::InstanceServer(QObject* parent) : QObject(parent), server_(new QLocalServer(this))
{
    server_->setSocketOptions(QLocalServer::UserAccessOption);
    connect(server_, &QLocalServer::newConnection, this, &InstanceServer::take_connection);
}

bool InstanceServer::listen(const QString& server_name)
{
    // A running editor answers on its name; a name left behind by an editor
    // that did not end cleanly has nobody behind it and is taken over.
    QLocalSocket probe;
    probe.connectToServer(server_name);
    if (probe.waitForConnected(300)) return false;
    QLocalServer::removeServer(server_name);
    return server_->listen(server_name);
}

void InstanceServer::take_connection()
{
    while (QLocalSocket* socket = server_->nextPendingConnection()) {
        auto buffer = std::make_shared<QByteArray>();
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket, buffer] {
            *buffer += socket->readAll();
            if (!buffer->endsWith('\n')) return;
            QStringList files;
            bool raise = false;
            for (const QByteArray& line : buffer->split('\n')) {
                if (line == "raise") raise = true;
                if (line.startsWith("open ")) files << QString::fromUtf8(line.mid(5));
            }
            buffer->clear();
            socket->write("ok\n");
            socket->flush();
            if (raise) Q_EMIT raise_requested();
            if (!files.isEmpty()) Q_EMIT files_received(files);
        });
    }
}

}  // namespace tesselo
