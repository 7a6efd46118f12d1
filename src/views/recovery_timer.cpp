#include "views/recovery_timer.h"

#include <QApplication>
#include <QThread>
#include <QTimer>

#include "core/document/recovery.h"
#include "views/qt_ui.h"

namespace tesselo {

RecoveryTimer::RecoveryTimer(Application& app, const QtUi& ui, QObject* parent)
    : QObject(parent), app_(app), ui_(ui), timer_(new QTimer(this))
{
    setObjectName("RecoveryTimer");
    connect(timer_, &QTimer::timeout, this, &RecoveryTimer::timeout);
    timer_->start(interval_ms);
}

void RecoveryTimer::timeout()
{
    // A dialog, a message box, a menu or a drag runs its own event loop
    // inside the command or gesture that opened it.
    if (QApplication::activeModalWidget() || QApplication::activePopupWidget() ||
        QThread::currentThread()->loopLevel() > 1 || ui_.yielding())
        return;
    app_.recovery().tick();
}

}  // namespace tesselo
