#include "views/download_window.h"

#include <algorithm>
#include <cmath>

#include <QLabel>
#include <QPainter>
#include <QProgressBar>
#include <QTimer>
#include <QVBoxLayout>

#include "views/artwork.h"

namespace tesselo {

namespace {

// The computer, the remote and the data between them: the top of the window.
constexpr int picture_height = 110;

}  // namespace

Download::Download(QWidget* parent) : QWidget(parent, Qt::Tool | Qt::WindowTitleHint | Qt::CustomizeWindowHint)
{
    setObjectName("Download");
    setWindowTitle("Download");
    setFixedSize(360, 200);
    ProgressBar2 = new QProgressBar(this);
    ProgressBar2->setObjectName("ProgressBar2");
    ProgressBar2->setTextVisible(false);
    activity_ = new QLabel(this);
    activity_->setObjectName("activity");
    activity_->setAlignment(Qt::AlignCenter);
    activity_->setWordWrap(true);
    // The picture takes the top; the words of the transfer, up to two lines,
    // stand between it and the bar.
    auto* layout = new QVBoxLayout(this);
    layout->addSpacing(picture_height);
    layout->addWidget(activity_);
    layout->addStretch(1);
    layout->addWidget(ProgressBar2);
    animation_ = new QTimer(this);
    animation_->setInterval(60);
    connect(animation_, &QTimer::timeout, this, [this] {
        frame_ = (frame_ + 1) % 24;
        update();
    });
}

void Download::set_caption(const QString& caption)
{
    setWindowTitle(caption);
    towards_remote_ = caption != "Upload";
    update();
}

void Download::show_progress(bool visible) { ProgressBar2->setVisible(visible); }

void Download::set_progress(int value, int maximum)
{
    ProgressBar2->setMaximum(std::max(1, maximum));
    ProgressBar2->setValue(std::clamp(value, 0, std::max(1, maximum)));
}

void Download::set_activity(const QString& text)
{
    activity_->setText(text);
    activity_->repaint();
}

void Download::showEvent(QShowEvent*) { animation_->start(); }

void Download::hideEvent(QHideEvent*) { animation_->stop(); }

void Download::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    // The computer on the left, the remote on the right, the data between.
    const QRectF screen(30, 22, 74, 52);
    p.setPen(QPen(QColor(0x2E, 0x34, 0x40), 2));
    p.setBrush(QColor(0x2F, 0x6F, 0xD0));
    p.drawRoundedRect(screen, 4, 4);
    p.drawLine(QPointF(67, 74), QPointF(67, 84));
    p.drawLine(QPointF(50, 86), QPointF(84, 86));
    draw_remote_body(p, QRectF(290, 14, 30, 92));
    p.setBrush(QColor(0xB4, 0xCF, 0x9A));
    p.setPen(Qt::NoPen);
    p.drawRect(QRectF(296, 26, 18, 20));
    for (int i = 0; i < 6; ++i) {
        qreal t = std::fmod((frame_ / 24.0) + i / 6.0, 1.0);
        if (!towards_remote_) t = 1 - t;
        const qreal x = 118 + t * 156;
        QColor c(0x2E, 0x9D, 0x5B);
        c.setAlphaF(float(0.25 + 0.75 * std::sin(t * 3.14159)));
        p.setBrush(c);
        p.drawRoundedRect(QRectF(x, 44, 12, 12), 2, 2);
    }
}

}  // namespace tesselo
