#include "views/page_arrangement.h"

#include <algorithm>

namespace tesselo::arrangement {

std::vector<QRect> cascade(const std::vector<QSize>& sizes, const QSize& visible, int step)
{
    std::vector<QRect> places;
    int left = 0;       // where the present cascade starts
    int widest = 0;     // the right edge of its widest window, from `left`
    int in_run = 0;
    for (const QSize& size : sizes) {
        if (in_run > 0 && in_run * step + size.height() > visible.height()) {
            left += widest + gap;
            widest = 0;
            in_run = 0;
        }
        const QRect place(left + in_run * step, in_run * step, size.width(), size.height());
        widest = std::max(widest, place.right() + 1 - left);
        places.push_back(place);
        ++in_run;
    }
    return places;
}

std::vector<QRect> rows(const std::vector<QSize>& sizes, const QSize& visible)
{
    std::vector<QRect> places;
    int x = 0, y = 0, row_bottom = 0;
    for (const QSize& size : sizes) {
        if (x > 0 && x + size.width() > visible.width()) {
            x = 0;
            y = row_bottom + gap;
        }
        places.emplace_back(x, y, size.width(), size.height());
        x += size.width() + gap;
        row_bottom = std::max(row_bottom, y + size.height());
    }
    return places;
}

std::vector<QRect> columns(const std::vector<QSize>& sizes, const QSize& visible)
{
    // Columns are rows with the two axes exchanged.
    std::vector<QSize> turned;
    for (const QSize& size : sizes) turned.push_back(size.transposed());
    std::vector<QRect> places = rows(turned, visible.transposed());
    for (QRect& r : places) r = QRect(r.y(), r.x(), r.height(), r.width());
    return places;
}

QPoint free_place(const QSize& size, const std::vector<QRect>& taken, const QSize& visible)
{
    // The candidates: the origin, and right of and below every window.
    std::vector<int> xs = {0}, ys = {0};
    for (const QRect& r : taken) {
        xs.push_back(r.right() + 1 + gap);
        ys.push_back(r.bottom() + 1 + gap);
    }
    std::sort(xs.begin(), xs.end());
    std::sort(ys.begin(), ys.end());
    for (int y : ys)
        for (int x : xs) {
            const QRect place(QPoint(x, y), size);
            if (x < 0 || y < 0 || place.right() >= visible.width() || place.bottom() >= visible.height()) continue;
            if (std::none_of(taken.begin(), taken.end(), [&](const QRect& r) { return r.intersects(place); }))
                return place.topLeft();
        }
    int right = 0;
    for (const QRect& r : taken) right = std::max(right, r.right() + 1 + gap);
    return {right, 0};
}

}  // namespace tesselo::arrangement
