#pragma once

#include <QObject>

class QTimer;

namespace tesselo {

class Application;
class QtUi;

// Drives the keeping of recovery copies: a few times a second it lets core
// write the copies whose pause has come, but never inside a command that
// waits on a dialog or lets the window system run in a long loop, when the
// tables may be half changed.
class RecoveryTimer : public QObject {
    Q_OBJECT
public:
    static constexpr int interval_ms = 250;
    RecoveryTimer(Application& app, const QtUi& ui, QObject* parent = nullptr);

private:
    void timeout();
    Application& app_;
    const QtUi& ui_;
    QTimer* timer_;
};

}  // namespace tesselo
