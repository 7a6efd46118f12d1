#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

class QLocalServer;

namespace tesselo {

// The name under which a running program of ours listens: one editor and
// one simulator per user.
QString instance_server_name(const QString& program = "editor");

// A second start hands its files to the running editor and asks it to raise
// its frame. True when a running editor took them; the second start then ends.
bool hand_over(const QString& server_name, const QStringList& files, int timeout_ms = 1500);

// The running editor's side: it hears second starts.
class InstanceServer : public QObject {
    Q_OBJECT
public:
    explicit InstanceServer(QObject* parent = nullptr);
    // Listens under `server_name`, taking the name over from an editor that crashed.
    bool listen(const QString& server_name);

Q_SIGNALS:
    void raise_requested();
    void files_received(const QStringList& files);

private:
    void take_connection();
    QLocalServer* server_;
};

}  // namespace tesselo
