#include "views/artwork.h"

#include <algorithm>
#include <cmath>

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QRadialGradient>
#include <QToolButton>

namespace tesselo {

namespace {

const QColor ink(0x2E, 0x34, 0x40);
const QColor blue(0x2F, 0x6F, 0xD0);
const QColor green(0x2E, 0x9D, 0x5B);
const QColor red(0xD0, 0x3B, 0x3B);
const QColor amber(0xE8, 0xA3, 0x17);
const QColor paper(0xFB, 0xFB, 0xF8);

// Draws a picture in a 32 by 32 frame at two densities.
template <typename Draw>
QIcon make_icon(Draw draw)
{
    QIcon icon;
    for (int scale : {1, 2}) {
        QPixmap pixmap(32 * scale, 32 * scale);
        pixmap.setDevicePixelRatio(scale);
        pixmap.fill(Qt::transparent);
        QPainter p(&pixmap);
        p.setRenderHint(QPainter::Antialiasing);
        draw(p);
        p.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

QPen line(const QColor& c, qreal w = 2.0) { return QPen(c, w, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin); }

void sheet(QPainter& p, const QRectF& r)
{
    QPainterPath path;
    path.moveTo(r.topLeft());
    path.lineTo(r.right() - 6, r.top());
    path.lineTo(r.right(), r.top() + 6);
    path.lineTo(r.bottomRight());
    path.lineTo(r.bottomLeft());
    path.closeSubpath();
    p.setPen(line(ink, 1.5));
    p.setBrush(paper);
    p.drawPath(path);
    p.drawLine(QPointF(r.right() - 6, r.top()), QPointF(r.right() - 6, r.top() + 6));
    p.drawLine(QPointF(r.right() - 6, r.top() + 6), QPointF(r.right(), r.top() + 6));
}

void arrow(QPainter& p, QPointF from, QPointF to, const QColor& c)
{
    p.setPen(line(c, 3));
    p.drawLine(from, to);
    const QPointF d = (to - from) / std::hypot(to.x() - from.x(), to.y() - from.y());
    const QPointF n(-d.y(), d.x());
    p.drawLine(to, to - d * 6 + n * 5);
    p.drawLine(to, to - d * 6 - n * 5);
}

void small_remote(QPainter& p, const QRectF& r)
{
    p.setPen(line(ink, 1.5));
    QLinearGradient g(r.topLeft(), r.topRight());
    g.setColorAt(0, QColor(0x5A, 0x60, 0x6C));
    g.setColorAt(1, QColor(0x35, 0x3A, 0x44));
    p.setBrush(g);
    p.drawRoundedRect(r, 3, 3);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0xA8, 0xD8, 0x8C));
    p.drawRect(QRectF(r.left() + 2.5, r.top() + 3, r.width() - 5, r.height() * 0.3));
    p.setBrush(QColor(0xDD, 0xDD, 0xDD));
    for (int row = 0; row < 2; ++row)
        for (int col = 0; col < 2; ++col)
            p.drawEllipse(QPointF(r.left() + r.width() * (0.33 + 0.34 * col), r.top() + r.height() * (0.58 + 0.2 * row)),
                          1.4, 1.4);
}

void plus_badge(QPainter& p, QPointF c)
{
    p.setPen(Qt::NoPen);
    p.setBrush(green);
    p.drawEllipse(c, 6.5, 6.5);
    p.setPen(line(Qt::white, 2.2));
    p.drawLine(c + QPointF(-3.5, 0), c + QPointF(3.5, 0));
    p.drawLine(c + QPointF(0, -3.5), c + QPointF(0, 3.5));
}

void curved_arrow(QPainter& p, bool back)
{
    QPainterPath path;
    const qreal s = back ? 1 : -1;
    path.moveTo(16 + s * 9, 24);
    path.cubicTo(16 + s * 11, 12, 16 - s * 2, 7, 16 - s * 9, 13);
    p.setPen(line(blue, 3));
    p.setBrush(Qt::NoBrush);
    p.drawPath(path);
    const QPointF tip(16 - s * 11, 14.5);
    p.setBrush(blue);
    p.setPen(Qt::NoPen);
    QPolygonF head;
    head << tip + QPointF(-s * 1, -8) << tip + QPointF(s * 6, 2) << tip + QPointF(-s * 3, 4);
    p.drawPolygon(head);
}

void television(QPainter& p, bool hidden)
{
    const QColor frame = hidden ? QColor(0xA0, 0xA4, 0xAA) : ink;
    p.setPen(line(frame, 1.5));
    p.setBrush(frame);
    p.drawRoundedRect(QRectF(3, 6, 26, 18), 3, 3);
    QLinearGradient g(0, 8, 0, 22);
    g.setColorAt(0, hidden ? QColor(0xD8, 0xDC, 0xE0) : QColor(0x7F, 0xB8, 0xF0));
    g.setColorAt(1, hidden ? QColor(0xC0, 0xC4, 0xC8) : QColor(0x2F, 0x6F, 0xD0));
    p.setBrush(g);
    p.setPen(Qt::NoPen);
    p.drawRoundedRect(QRectF(5.5, 8.5, 21, 13), 1.5, 1.5);
    p.setPen(line(frame, 2));
    p.drawLine(QPointF(11, 28), QPointF(21, 28));
    p.drawLine(QPointF(16, 24), QPointF(16, 28));
}

void hidden_mark(QPainter& p)
{
    p.setPen(line(red, 2.5));
    p.drawLine(QPointF(4, 4), QPointF(28, 28));
}

}  // namespace

QIcon toolbar_picture(const QString& key)
{
    if (key == "new") return make_icon([](QPainter& p) { sheet(p, QRectF(7, 3, 18, 26)); });
    if (key == "open")
        return make_icon([](QPainter& p) {
            p.setPen(line(QColor(0x9A, 0x6B, 0x10), 1.5));
            p.setBrush(amber);
            QPainterPath back;
            back.addRoundedRect(QRectF(3, 7, 24, 19), 2, 2);
            p.drawPath(back);
            p.setBrush(QColor(0xF6, 0xC8, 0x5F));
            QPolygonF front;
            front << QPointF(7, 13) << QPointF(30, 13) << QPointF(26, 26) << QPointF(3, 26);
            p.drawPolygon(front);
        });
    if (key == "save")
        return make_icon([](QPainter& p) {
            p.setPen(line(ink, 1.5));
            p.setBrush(blue);
            p.drawRoundedRect(QRectF(4, 4, 24, 24), 2.5, 2.5);
            p.setBrush(paper);
            p.drawRect(QRectF(9, 4, 14, 9));
            p.setBrush(QColor(0xE4, 0xE8, 0xEE));
            p.drawRect(QRectF(8, 17, 16, 11));
        });
    if (key == "download" || key == "upload")
        return make_icon([key](QPainter& p) {
            small_remote(p, QRectF(18, 6, 11, 22));
            if (key == "download")
                arrow(p, QPointF(4, 16), QPointF(15, 16), green);
            else
                arrow(p, QPointF(15, 16), QPointF(4, 16), blue);
        });
    if (key == "undo") return make_icon([](QPainter& p) { curved_arrow(p, true); });
    if (key == "redo") return make_icon([](QPainter& p) { curved_arrow(p, false); });
    if (key == "cut")
        return make_icon([](QPainter& p) {
            p.setPen(line(ink, 2.2));
            p.drawLine(QPointF(10, 4), QPointF(20, 20));
            p.drawLine(QPointF(22, 4), QPointF(12, 20));
            p.setBrush(Qt::NoBrush);
            p.setPen(line(red, 2.2));
            p.drawEllipse(QPointF(10, 24), 4, 4);
            p.drawEllipse(QPointF(22, 24), 4, 4);
        });
    if (key == "copy")
        return make_icon([](QPainter& p) {
            sheet(p, QRectF(4, 3, 16, 20));
            sheet(p, QRectF(12, 9, 16, 20));
        });
    if (key == "paste")
        return make_icon([](QPainter& p) {
            p.setPen(line(QColor(0x7A, 0x52, 0x1C), 1.5));
            p.setBrush(QColor(0xC8, 0x8A, 0x3C));
            p.drawRoundedRect(QRectF(4, 5, 20, 24), 2, 2);
            p.setBrush(QColor(0xB0, 0xB4, 0xBA));
            p.drawRoundedRect(QRectF(9, 2, 10, 6), 1.5, 1.5);
            sheet(p, QRectF(13, 12, 15, 18));
        });
    if (key == "delete")
        return make_icon([](QPainter& p) {
            p.setPen(line(red, 4));
            p.drawLine(QPointF(8, 8), QPointF(24, 24));
            p.drawLine(QPointF(24, 8), QPointF(8, 24));
        });
    if (key == "label")
        return make_icon([](QPainter& p) {
            QPolygonF tag;
            tag << QPointF(3, 16) << QPointF(11, 7) << QPointF(29, 7) << QPointF(29, 25) << QPointF(11, 25);
            p.setPen(line(ink, 1.5));
            p.setBrush(QColor(0xFF, 0xE0, 0x8A));
            p.drawPolygon(tag);
            p.setBrush(ink);
            p.drawEllipse(QPointF(10, 16), 1.6, 1.6);
            p.setPen(line(ink, 2));
            p.drawLine(QPointF(15, 22), QPointF(19.5, 10));
            p.drawLine(QPointF(19.5, 10), QPointF(24, 22));
            p.drawLine(QPointF(16.8, 17.5), QPointF(22.2, 17.5));
        });
    if (key == "properties")
        return make_icon([](QPainter& p) {
            sheet(p, QRectF(6, 3, 20, 26));
            p.setPen(line(blue, 2));
            for (int y : {11, 16, 21}) p.drawLine(QPointF(10, y), QPointF(22, y));
        });
    if (key == "newdevice")
        return make_icon([](QPainter& p) {
            small_remote(p, QRectF(6, 3, 13, 26));
            plus_badge(p, QPointF(23, 23));
        });
    if (key == "newpage")
        return make_icon([](QPainter& p) {
            sheet(p, QRectF(4, 3, 18, 24));
            plus_badge(p, QPointF(23, 23));
        });
    if (key == "simualtor")
        return make_icon([](QPainter& p) {
            small_remote(p, QRectF(4, 3, 13, 26));
            p.setPen(Qt::NoPen);
            p.setBrush(green);
            QPolygonF play;
            play << QPointF(19, 9) << QPointF(30, 16) << QPointF(19, 23);
            p.drawPolygon(play);
        });
    if (key == "clocksync")
        return make_icon([](QPainter& p) {
            p.setPen(line(ink, 2));
            p.setBrush(paper);
            p.drawEllipse(QPointF(16, 16), 12, 12);
            p.setPen(line(blue, 2.4));
            p.drawLine(QPointF(16, 16), QPointF(16, 8));
            p.drawLine(QPointF(16, 16), QPointF(22, 19));
        });
    if (key == "help")
        return make_icon([](QPainter& p) {
            p.setPen(Qt::NoPen);
            p.setBrush(blue);
            p.drawEllipse(QPointF(16, 16), 13, 13);
            p.setPen(Qt::white);
            QFont f = p.font();
            f.setBold(true);
            f.setPixelSize(19);
            p.setFont(f);
            p.drawText(QRectF(3, 3, 26, 26), Qt::AlignCenter, "?");
        });
    return {};
}

QIcon tree_picture(const QString& image)
{
    if (image == "home")
        return make_icon([](QPainter& p) {
            p.setPen(line(ink, 1.5));
            p.setBrush(red);
            QPolygonF roof;
            roof << QPointF(2, 16) << QPointF(16, 3) << QPointF(30, 16);
            p.drawPolygon(roof);
            p.setBrush(paper);
            p.drawRect(QRectF(7, 15, 18, 14));
            p.setBrush(blue);
            p.drawRect(QRectF(13, 20, 6, 9));
        });
    if (image == "properties")
        return make_icon([](QPainter& p) {
            p.setPen(line(ink, 1.5));
            p.setBrush(QColor(0xE8, 0xEC, 0xF2));
            p.drawRoundedRect(QRectF(4, 5, 24, 22), 3, 3);
            p.setPen(line(green, 2.2));
            for (int y : {11, 16, 21}) {
                p.drawLine(QPointF(8, y), QPointF(11, y));
                p.drawLine(QPointF(14, y), QPointF(24, y));
            }
        });
    if (image == "tv" || image == "hide tv") {
        const bool hidden = image == "hide tv";
        return make_icon([hidden](QPainter& p) {
            television(p, hidden);
            if (hidden) hidden_mark(p);
        });
    }
    if (image == "device" || image == "hide device") {
        const bool hidden = image == "hide device";
        return make_icon([hidden](QPainter& p) {
            if (hidden) p.setOpacity(0.45);
            small_remote(p, QRectF(9, 2, 14, 28));
            p.setOpacity(1);
            if (hidden) hidden_mark(p);
        });
    }
    // The keys of the Link dialog's tree: a side button, a hard button, and
    // greyed the ones that cannot be chosen.
    if (image == "button" || image == "disablebutton" || image == "hardbutton" || image == "disablehardbutton") {
        const bool hard = image.endsWith("hardbutton");
        const bool disabled = image.startsWith("disable");
        return make_icon([hard, disabled](QPainter& p) {
            if (disabled) p.setOpacity(0.4);
            p.setPen(line(ink, 1.5));
            p.setBrush(hard ? QColor(0xC9, 0xCE, 0xD6) : QColor(0xA8, 0xD8, 0x8C));
            if (hard) p.drawEllipse(QRectF(6, 8, 20, 16));
            else p.drawRoundedRect(QRectF(4, 10, 24, 12), 3, 3);
        });
    }
    return {};
}

QIcon command_picture(const QString& key)
{
    if (key.startsWith("align ")) {
        const int side = key == "align left" ? 0 : key == "align right" ? 2 : 1;
        return make_icon([side](QPainter& p) {
            p.setPen(line(ink, 2.4));
            const int widths[] = {22, 14, 20, 12};
            for (int i = 0; i < 4; ++i) {
                const qreal w = widths[i];
                const qreal left = side == 0 ? 5 : side == 2 ? 27 - w : 16 - w / 2;
                p.drawLine(QPointF(left, 8 + i * 5.5), QPointF(left + w, 8 + i * 5.5));
            }
        });
    }
    if (key == "move up" || key == "move down") {
        const bool up = key == "move up";
        return make_icon([up](QPainter& p) { arrow(p, QPointF(16, up ? 26 : 6), QPointF(16, up ? 6 : 26), blue); });
    }
    return {};
}

QToolButton* picture_button(const QString& name, const QString& picture, const QString& tip, QWidget* parent)
{
    auto* b = new QToolButton(parent);
    b->setObjectName(name);
    b->setIcon(command_picture(picture));
    b->setIconSize(QSize(18, 18));
    b->setToolTip(tip);
    return b;
}

QIcon program_icon()
{
    return make_icon([](QPainter& p) {
        QRadialGradient glow(QPointF(16, 16), 16);
        glow.setColorAt(0, QColor(0x2F, 0x6F, 0xD0, 90));
        glow.setColorAt(1, Qt::transparent);
        p.setPen(Qt::NoPen);
        p.setBrush(glow);
        p.drawEllipse(QPointF(16, 16), 16, 16);
        small_remote(p, QRectF(9, 1, 14, 30));
    });
}

void draw_remote_body(QPainter& painter, const QRectF& box)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient shade(box.topLeft(), box.topRight());
    shade.setColorAt(0, QColor(0x3C, 0x41, 0x4B));
    shade.setColorAt(0.45, QColor(0x55, 0x5B, 0x67));
    shade.setColorAt(1, QColor(0x2B, 0x2F, 0x37));
    painter.setPen(QPen(QColor(0x1C, 0x1F, 0x25), 1.2));
    painter.setBrush(shade);
    const qreal radius = box.width() * 0.22;
    painter.drawRoundedRect(box.adjusted(0.6, 0.6, -0.6, -0.6), radius, radius * 0.6);
    // A thin highlight along the left edge gives the body its curve.
    painter.setPen(QPen(QColor(255, 255, 255, 40), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(box.adjusted(2, 2, -2, -2), radius - 2, radius * 0.6 - 2);
    painter.restore();
}

void draw_key_picture(QPainter& painter, const QRectF& box, int index, KeyState state)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    QColor base(0xD6, 0xD9, 0xDE);
    if (index == 0 || index == 2) base = QColor(0xC8, 0x3A, 0x3A);                 // the power keys
    else if (index >= 3 && index <= 14) base = QColor(0x9C, 0xA3, 0xAE);          // the display's side buttons
    else if (index >= 20 && index <= 24) base = QColor(0x7E, 0x98, 0xC4);         // the cursor ring
    else if (index >= 52) base = QColor(0xB9, 0xC2, 0x8E);                        // the coloured keys' row
    if (state == KeyState::pressed) base = base.darker(135);
    if (state == KeyState::hover) base = base.lighter(118);
    const QRectF r = box.adjusted(0.5, 0.5, -0.5, -0.5).translated(0, state == KeyState::pressed ? 0.8 : 0);
    QLinearGradient g(r.topLeft(), r.bottomLeft());
    g.setColorAt(0, state == KeyState::pressed ? base : base.lighter(125));
    g.setColorAt(1, state == KeyState::pressed ? base.lighter(110) : base.darker(118));
    const bool round = index == 22 || index == 35 || index == 38 || index >= 52;
    const qreal radius = round ? std::min(r.width(), r.height()) / 2 : std::min(r.width(), r.height()) * 0.35;
    painter.setPen(QPen(QColor(0x16, 0x19, 0x1E), 0.9));
    painter.setBrush(g);
    painter.drawRoundedRect(r, radius, radius);
    if (state == KeyState::selected || state == KeyState::hover) {
        const QColor ring = state == KeyState::selected ? QColor(0xFF, 0xB3, 0x1A) : QColor(0x8C, 0xC8, 0xFF);
        painter.setPen(QPen(ring, state == KeyState::selected ? 2.0 : 1.4));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(r.adjusted(-1, -1, 1, 1), radius + 1, radius + 1);
    }
    painter.restore();
}

}  // namespace tesselo
