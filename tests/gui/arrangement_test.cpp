// The places of the workspace's windows, worked out from their sizes: every
// window keeps its size, none starts above or left of the workspace, tiles
// never overlap, and a new window takes a free spot.
#include <QtTest>

#include "views/page_arrangement.h"

using namespace tesselo;

namespace {

const QSize tree(300, 460);
const QSize page(200, 640);

bool overlap(const std::vector<QRect>& places)
{
    for (std::size_t i = 0; i < places.size(); ++i)
        for (std::size_t j = i + 1; j < places.size(); ++j)
            if (places[i].intersects(places[j])) return true;
    return false;
}

}  // namespace

class ArrangementTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void every_window_keeps_its_size_and_stays_in_the_workspace()
    {
        const std::vector<QSize> sizes = {tree, page, page, page, page, page};
        const QSize visible(1000, 650);
        for (const auto& places : {arrangement::cascade(sizes, visible, 24), arrangement::rows(sizes, visible),
                                   arrangement::columns(sizes, visible)}) {
            QCOMPARE(places.size(), sizes.size());
            for (std::size_t i = 0; i < sizes.size(); ++i) {
                QCOMPARE(places[i].size(), sizes[i]);
                QVERIFY(places[i].left() >= 0 && places[i].top() >= 0);
            }
        }
    }

    void tiles_do_not_overlap_and_wrap_at_the_edge()
    {
        const std::vector<QSize> sizes = {tree, page, page, page, page};
        const QSize visible(1000, 1400);
        const auto rows = arrangement::rows(sizes, visible);
        QVERIFY(!overlap(rows));
        // The tree and three pages fill the first row; the fourth starts the next.
        QCOMPARE(rows[3].top(), 0);
        QCOMPARE(rows[4].topLeft(), QPoint(0, 640 + arrangement::gap));
        const auto columns = arrangement::columns(sizes, visible);
        QVERIFY(!overlap(columns));
        QCOMPARE(columns[1].topLeft(), QPoint(0, 460 + arrangement::gap));
        QCOMPARE(columns[2].topLeft(), QPoint(300 + arrangement::gap, 0));
    }

    void a_cascade_that_reaches_the_bottom_starts_again_at_the_top()
    {
        const std::vector<QSize> sizes = {page, page, page};
        const auto places = arrangement::cascade(sizes, QSize(1000, 680), 24);
        QCOMPARE(places[0].topLeft(), QPoint(0, 0));
        QCOMPARE(places[1].topLeft(), QPoint(24, 24));
        // A third step would pass the bottom: a new cascade right of the first.
        QCOMPARE(places[2].topLeft(), QPoint(24 + 200 + arrangement::gap, 0));
    }

    void a_new_window_takes_the_first_free_spot_else_goes_right_of_all()
    {
        const QSize visible(1000, 700);
        std::vector<QRect> taken = {QRect(QPoint(0, 0), tree)};
        QCOMPARE(arrangement::free_place(page, taken, visible), QPoint(300 + arrangement::gap, 0));
        taken.push_back(QRect(QPoint(302, 0), page));
        taken.push_back(QRect(QPoint(504, 0), page));
        taken.push_back(QRect(QPoint(706, 0), page));
        // No room left in view: right of every window, and the workspace scrolls.
        QCOMPARE(arrangement::free_place(page, taken, visible), QPoint(706 + 200 + arrangement::gap, 0));
        // Below the tree there is room for a small window.
        QCOMPARE(arrangement::free_place(QSize(200, 200), {QRect(QPoint(0, 0), tree)}, QSize(300, 700)),
                 QPoint(0, 460 + arrangement::gap));
    }
};

QTEST_MAIN(ArrangementTest)
#include "arrangement_test.moc"
