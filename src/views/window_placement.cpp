#include "views/window_placement.h"

#include <algorithm>

#include <QEvent>
#include <QHash>
#include <QMainWindow>
#include <QScreen>
#include <QWidget>

namespace tesselo {

namespace {

// Where the user left each window, by its name, for the rest of the session.
QHash<QString, QPoint>& kept_places()
{
    static QHash<QString, QPoint> places;
    return places;
}

// The decorations that each window had when it was last on the screen: a
// tool window's may differ from the frame's.
QHash<QString, QMargins>& kept_decorations()
{
    static QHash<QString, QMargins> margins;
    return margins;
}

// The decorations that the window manager puts around a window, as it shows
// them; nothing before the window itself is on the screen.
QMargins decorations(const QWidget* window)
{
    if (!window) return {};
    const QRect outer = window->frameGeometry();
    const QRect inner = window->geometry();
    return {inner.left() - outer.left(), inner.top() - outer.top(), outer.right() - inner.right(),
            outer.bottom() - inner.bottom()};
}

// `outer` moved as little as it takes to lie inside `area` (its top left
// corner inside when it is larger).
QPoint inside(const QRect& outer, const QRect& area)
{
    const int x = std::max(area.left(), std::min(outer.left(), area.right() + 1 - outer.width()));
    const int y = std::max(area.top(), std::min(outer.top(), area.bottom() + 1 - outer.height()));
    return {x, y};
}

QRect working_area(const QWidget* window, const QWidget* frame)
{
    const QScreen* screen = (frame ? frame : window)->screen();
    return screen ? screen->availableGeometry() : QRect(0, 0, 1024, 768);
}

// The window's outer size, with the decorations it has or will have: those
// it had the last time, else the frame's.
QSize outer_size(const QWidget* window, const QWidget* frame)
{
    if (window->isVisible() && window->frameGeometry() != window->geometry()) return window->frameGeometry().size();
    const auto kept = kept_decorations().constFind(window->objectName());
    return window->size().grownBy(kept != kept_decorations().constEnd() ? *kept : decorations(frame));
}

QPoint first_place(const QWidget* window, const QWidget* frame, Placement where)
{
    const QRect area = working_area(window, frame);
    const QRect f = frame ? frame->frameGeometry() : area;
    const QSize size = outer_size(window, frame);
    if (where == Placement::centred_on_frame || !frame) {
        QRect r(QPoint(), size);
        r.moveCenter(f.center());
        return r.topLeft();
    }
    if (f.right() + size.width() <= area.right()) return {f.right() + 1, f.top()};
    // Over the frame's right edge, below its menus and toolbar.
    const auto* main = qobject_cast<const QMainWindow*>(frame);
    const int top = main && main->centralWidget() ? main->centralWidget()->mapToGlobal(QPoint(0, 0)).y() : f.top();
    return {f.right() - size.width() - 8, top + 8};
}

// Keeps the place of a window up to date as the user moves it, and puts it
// back inside the screen once the window manager has framed it.
class PlaceKeeper : public QObject {
public:
    explicit PlaceKeeper(QWidget* window, const QWidget* frame) : QObject(window), window_(window), frame_(frame)
    {
        window->installEventFilter(this);
    }
    void placed() { checked_ = false; }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        // Only the moves of a window on the screen count: while it is closed the
        // window manager may hand it back at the screen's corner.
        if (event->type() != QEvent::Move || !window_->isVisible()) return false;
        const QRect outer = window_->frameGeometry();
        if (window_->isVisible() && outer != window_->geometry())
            kept_decorations()[window_->objectName()] = decorations(window_);
        // The first move with the decorations known: the frame may stick out.
        if (!checked_ && event->type() == QEvent::Move && outer != window_->geometry()) {
            checked_ = true;
            const QPoint fitted = inside(outer, working_area(window_, frame_));
            if (fitted != outer.topLeft()) window_->move(fitted);
        }
        if (checked_) kept_places()[window_->objectName()] = window_->pos();
        return false;
    }

private:
    QWidget* window_;
    const QWidget* frame_;
    bool checked_ = false;
};

}  // namespace

void show_placed(QWidget* window, const QWidget* frame, Placement where)
{
    PlaceKeeper* keeper = nullptr;
    for (QObject* child : window->children())
        if (auto* k = dynamic_cast<PlaceKeeper*>(child)) keeper = k;
    if (!keeper) keeper = new PlaceKeeper(window, frame);
    if (!window->isVisible()) {
        const auto kept = kept_places().constFind(window->objectName());
        const QPoint wanted = kept != kept_places().constEnd() ? *kept : first_place(window, frame, where);
        const QPoint place = inside(QRect(wanted, outer_size(window, frame)), working_area(window, frame));
        // A window shown again where it was is not moved: the window manager
        // would take the move for a new placement of its frame.
        if (place != window->pos() || !window->testAttribute(Qt::WA_WState_ExplicitShowHide)) window->move(place);
        keeper->placed();
    }
    window->show();
    window->raise();
}

}  // namespace tesselo
