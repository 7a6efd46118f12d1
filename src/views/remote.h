#pragma once

#include <array>

#include <QWidget>

#include "core/keys/page_canvas.h"

class QLabel;

namespace tesselo {

class Application;

// One LCD row of a page window: its soft keys' labels drawn as glyphs.
class LcdRowBox : public QWidget {
    Q_OBJECT
public:
    LcdRowBox(int row, QWidget* parent);
    void set_row(const LcdRow& row) { row_ = row; update(); }
    int row() const { return row_number_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int row_number_;
    LcdRow row_;
};

// A page window: the remote's body with its display and 56 key pictures.
// It holds no key data: every paint reads the document's tables.
class Remote : public QWidget {
    Q_OBJECT
public:
    Remote(Application& app, int slot, const PageRef& page, QWidget* parent = nullptr);

    int slot() const { return slot_; }
    const PageRef& page() const { return page_; }
    QString tag() const { return tag_; }
    QString caption() const { return windowTitle(); }
    // Reads the page again from the tables (after an edit, undo or redo) and
    // shows the page counter. False when the page is gone.
    bool refresh(const QString& pagelabel);
    QString pagelabel_text() const;
    // Set when core has let the window go: its close is no user's gesture.
    void release() { released_ = true; }
    bool released() const { return released_; }

    int selected_index() const { return selected_; }
    int hover_index() const { return hover_; }
    // The picture at a point of the window, or -1.
    int picture_at(const QPointF& point) const;
    QRectF picture_rect(int index) const;
    void select_key(int index);
    // One key drawn again from the tables: a side button's LCD row box, or a
    // hard key's picture.
    void refresh_key(int index);

    // Plain-text label of a key, the device's name, and the key's step count.
    QString key_text(int index) const;
    QString device_text() const;
    int key_steps(int index) const;

Q_SIGNALS:
    void key_hovered(Remote* window, int index);
    void key_selected(Remote* window, int index);
    // A double click on a key: its Add IR Code dialog.
    void key_double_clicked(Remote* window, int index);
    void closed(Remote* window);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    QRectF to_pixels(const TwipRect& r) const;
    void update_rows();

    Application& app_;
    int slot_;
    PageRef page_;
    QString tag_;
    int selected_ = -1;
    int hover_ = -1;
    int pressed_ = -1;
    bool released_ = false;
    QLabel* pagelabel;
    std::array<LcdRowBox*, lcd_rows> labelRichText1{};
};

}  // namespace tesselo
