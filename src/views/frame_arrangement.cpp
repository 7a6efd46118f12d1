// The frame's size on its screen, and the places of the windows in its
// workspace: new ones in a free spot, all of them by the Window menu. A page
// window always keeps the size of the whole remote.
#include <algorithm>

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QScreen>
#include <QScrollBar>
#include <QStatusBar>
#include <QStyle>
#include <QTimer>
#include <QToolBar>

#include "views/mainform.h"
#include "views/mdi_form1.h"
#include "views/page_arrangement.h"
#include "views/remote.h"

namespace tesselo {

namespace {

// A document window's size in the workspace: its tree and status panel.
constexpr QSize document_window_size(300, 460);
// Room the window manager's decorations may take around the frame.
constexpr QSize decorations_room(8, 32);

bool is_page(const QMdiSubWindow* sub) { return qobject_cast<const Remote*>(sub->widget()) != nullptr; }

// A page window's size with the whole remote in it.
QSize whole_size(const QMdiSubWindow* sub)
{
    return sub->widget()->size() + (sub->size() - sub->contentsRect().size());
}

// The same, before any page window is open: the remote and the window's title bar and frame.
QSize page_window_estimate(const QWidget* frame)
{
    const QStyle* style = frame->style();
    const int border = style->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth, nullptr, frame);
    const int title = style->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, frame);
    return Remote::picture_size() + QSize(2 * border, title + 2 * border);
}

}  // namespace

void MDIForm1::size_from_screen()
{
    const QScreen* s = screen();
    const QRect area = s ? s->availableGeometry() : QRect(0, 0, 1024, 768);
    // Room for a document window and three page windows side by side, whole.
    const QSize page = page_window_estimate(this);
    const int scroll_bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    const int chrome = menuBar()->sizeHint().height() + Toolbar1->sizeHint().height() +
                       statusBar()->sizeHint().height() + 2 * area_->frameWidth() + scroll_bar;
    const QSize wanted(document_window_size.width() + 3 * (page.width() + arrangement::gap) + scroll_bar,
                       page.height() + chrome);
    const QSize room = area.size() - decorations_room;
    if (wanted.width() > room.width() || wanted.height() > room.height()) {
        // A small screen: the whole of it, and the workspace scrolls.
        resize(room);
        move(area.topLeft());
        setWindowState(windowState() | Qt::WindowMaximized);
        return;
    }
    const QSize size = QSize(std::max(wanted.width(), area.width() * 85 / 100),
                             std::max(wanted.height(), area.height() * 85 / 100))
                           .boundedTo(room);
    resize(size);
    move(area.center() - QPoint((size.width() + decorations_room.width()) / 2, (size.height() + decorations_room.height()) / 2));
}

void MDIForm1::place_new_window(QMdiSubWindow* sub)
{
    const QSize visible = area_->viewport()->size();
    std::vector<QRect> taken;
    for (QMdiSubWindow* other : area_->subWindowList())
        if (other != sub && other->isVisible() && !other->isMinimized()) taken.push_back(other->geometry());
    const QSize size = is_page(sub) ? whole_size(sub) : document_window_size;
    sub->setGeometry(QRect(arrangement::free_place(size, taken, visible), size));
    // Once the command is done, the workspace shows the first window it
    // opened: the page of Open Page, the first page (beside its tree) of Open All Pages.
    if (scroll_target_) return;
    scroll_target_ = sub;
    QTimer::singleShot(0, this, [this] {
        QMdiSubWindow* target = scroll_target_;
        scroll_target_ = nullptr;
        if (!target) return;
        QScrollBar* bar = area_->horizontalScrollBar();
        const QRect r = target->geometry();
        const int width = area_->viewport()->width();
        if (r.right() >= width) bar->setValue(bar->value() + std::min(r.left(), r.right() + 1 - width));
        else if (r.left() < 0) bar->setValue(bar->value() + r.left());
    });
}

void MDIForm1::arrange(Arrangement how)
{
    area_->horizontalScrollBar()->setValue(area_->horizontalScrollBar()->minimum());
    area_->verticalScrollBar()->setValue(area_->verticalScrollBar()->minimum());
    std::vector<QMdiSubWindow*> windows;
    for (QMdiSubWindow* sub : area_->subWindowList(QMdiArea::CreationOrder))
        if (sub->isVisible() && !sub->isMinimized()) windows.push_back(sub);
    // The documents first, then the pages in the order they were opened.
    std::stable_partition(windows.begin(), windows.end(), [](QMdiSubWindow* sub) { return !is_page(sub); });

    const QSize visible = area_->viewport()->size();
    int page_height = 0;
    for (QMdiSubWindow* sub : windows)
        if (is_page(sub)) page_height = std::max(page_height, whole_size(sub).height());
    const int scroll_bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    std::vector<QSize> sizes;
    for (QMdiSubWindow* sub : windows) {
        if (sub->isMaximized()) sub->showNormal();
        QSize size = is_page(sub) ? whole_size(sub) : document_window_size;
        // A document window takes the height of a row of pages, or of the whole column.
        if (!is_page(sub) && how == Arrangement::tile_horizontally && page_height > 0) size.setHeight(page_height);
        if (!is_page(sub) && how == Arrangement::tile_vertically)
            size.setHeight(std::max(document_window_size.height() * 2 / 3, visible.height() - scroll_bar));
        sizes.push_back(size);
    }
    const int step = style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, this) + 4;
    const std::vector<QRect> places = how == Arrangement::cascade             ? arrangement::cascade(sizes, visible, step)
                                      : how == Arrangement::tile_horizontally ? arrangement::rows(sizes, visible)
                                                                              : arrangement::columns(sizes, visible);
    for (std::size_t i = 0; i < windows.size(); ++i) {
        windows[i]->setGeometry(places[i]);
        // In a cascade each window lies over the one before, its title bar free.
        if (how == Arrangement::cascade) windows[i]->raise();
    }
}

}  // namespace tesselo
