#pragma once

#include <array>
#include <functional>

#include <QRectF>
#include <QWidget>

#include "core/keys/page_canvas.h"

class QLabel;
class QPainter;

namespace tesselo {

// The remote's display, drawn with any painter (a window, a printed page),
// in the picture's pixels: the panel with its frame and glass and the rule
// below the title row; the place of LCD row `row`'s glyphs in the panel;
// one row's labels; and the whole display with its six rows.
void draw_lcd_panel(QPainter& painter, const QRectF& panel);
QRectF lcd_row_box(const QRectF& panel, int row);
void draw_lcd_row(QPainter& painter, const QRectF& box, const LcdRow& row);
void draw_display(QPainter& painter, const QRectF& panel, const std::array<LcdRow, lcd_rows>& rows);
// The size of the display's panel, in the picture's pixels.
QSizeF lcd_panel_size();

// One LCD row of the display: its soft keys' labels drawn as glyphs.
class LcdRowBox : public QWidget {
    Q_OBJECT
public:
    LcdRowBox(int row, QWidget* parent);
    void set_row(const LcdRow& row) { row_ = row; update(); }
    const LcdRow& lcd_row() const { return row_; }
    int row() const { return row_number_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int row_number_;
    LcdRow row_;
};

// The remote's picture: its body, the display with its six rows of labels,
// the page counter, and the 56 key pictures with the hard keys' names. The
// page windows and the simulator both show the remote through it, so that
// the two never look different.
class RemotePicture : public QWidget {
    Q_OBJECT
public:
    explicit RemotePicture(QWidget* parent = nullptr);
    // The picture's size: the whole remote, always.
    static QSize picture_size();

    // The picture at a point of the widget, or -1; where picture `index` stands.
    int picture_at(const QPointF& point) const;
    QRectF picture_rect(int index) const;
    int hover_index() const { return hover_; }

    // What the display shows.
    void set_rows(const std::array<LcdRow, lcd_rows>& rows);
    void set_row(int row, const LcdRow& content);
    LcdRow row(int row) const;
    void set_counter(const QString& text);
    QString counter() const;
    // Where the hard keys' names come from: the label of hard key 0 to 40,
    // read at every paint, or nothing for a key without a name.
    void set_hard_labels(std::function<const KeyLabel*(int key)> labels) { hard_labels_ = std::move(labels); }
    // One key drawn again: a side button's row box is set by its owner.
    void update_picture(int index);

Q_SIGNALS:
    void picture_hovered(int index);
    void picture_pressed(int index);
    void picture_released(int index);
    void picture_double_clicked(int index);

protected:
    // The picture drawn as selected, or -1.
    virtual int selected_picture() const { return -1; }

    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    QRectF to_pixels(const TwipRect& r) const;

    int hover_ = -1;
    int pressed_ = -1;
    QLabel* pagelabel;
    std::array<LcdRowBox*, lcd_rows> labelRichText1{};
    std::function<const KeyLabel*(int)> hard_labels_;
};

}  // namespace tesselo
