#include "views/form2.h"

#include <cmath>

#include <QApplication>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QThread>

#include "core/document/ui.h"
#include "views/artwork.h"

namespace tesselo {

Form2::Form2(QWidget* parent) : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint)
{
    setObjectName("Form2");
    setFixedSize(460, 260);
    setAttribute(Qt::WA_TranslucentBackground);
    if (QScreen* screen = QApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());
}

void Form2::change_wallpaper(int duration_ms)
{
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < duration_ms) {
        set_phase(qreal(clock.elapsed()) / duration_ms);
        QApplication::processEvents(QEventLoop::AllEvents, 15);
        QThread::msleep(15);
    }
    set_phase(1);
}

void Form2::set_phase(qreal phase)
{
    phase_ = phase;
    repaint();
}

void Form2::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    QLinearGradient back(0, 0, width(), height());
    back.setColorAt(0, QColor(0x1D, 0x2B, 0x44));
    back.setColorAt(1, QColor(0x0E, 0x14, 0x20));
    p.setPen(Qt::NoPen);
    p.setBrush(back);
    p.drawRoundedRect(rect(), 14, 14);

    // The remote, upright at the left, with its signal going out in waves.
    const QRectF body(54, 52, 46, 170);
    draw_remote_body(p, body);
    p.setBrush(QColor(0xB4, 0xCF, 0x9A));
    p.drawRect(QRectF(body.left() + 9, body.top() + 22, body.width() - 18, 34));
    for (int i = 0; i < 3; ++i) {
        const qreal wave = std::fmod(phase_ * 3 + i / 3.0, 1.0);
        QColor c(0x7F, 0xB8, 0xF0);
        c.setAlphaF(float(1 - wave));
        p.setPen(QPen(c, 3, Qt::SolidLine, Qt::RoundCap));
        p.setBrush(Qt::NoBrush);
        const qreal r = 14 + wave * 70;
        p.drawArc(QRectF(body.center().x() - r, body.top() - r + 6, 2 * r, 2 * r), 35 * 16, 110 * 16);
    }
    // The LCD rows fill in as the frame loads.
    const int lit = int(phase_ * 4.999);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0x1F, 0x2A, 0x1A));
    for (int row = 0; row < lit && row < 4; ++row)
        p.drawRect(QRectF(body.left() + 13, body.top() + 26 + row * 7.5, (body.width() - 26) * (row % 2 ? 0.6 : 0.9), 3.5));

    p.setPen(Qt::white);
    QFont title = font();
    title.setPixelSize(30);
    title.setBold(true);
    p.setFont(title);
    p.drawText(QRectF(140, 78, 300, 44), Qt::AlignLeft | Qt::AlignVCenter, QString::fromStdString(title_main));
    QFont small = font();
    small.setPixelSize(13);
    p.setFont(small);
    p.setPen(QColor(0xB8, 0xC4, 0xD6));
    p.drawText(QRectF(142, 122, 300, 24), Qt::AlignLeft | Qt::AlignVCenter, "Editor for the QM4100 and QM5100 remote controls");
    // A thin bar tells how far the loading has come.
    p.setBrush(QColor(255, 255, 255, 40));
    p.drawRoundedRect(QRectF(142, 190, 270, 5), 2.5, 2.5);
    p.setBrush(QColor(0x7F, 0xB8, 0xF0));
    p.drawRoundedRect(QRectF(142, 190, 270 * phase_, 5), 2.5, 2.5);
}

}  // namespace tesselo
