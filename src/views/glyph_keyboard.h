#pragma once

#include <vector>

#include <QToolButton>
#include <QWidget>

#include "core/model/key_label.h"

namespace tesselo {

// Text1 of the Label tab: the label as the remote's glyph pictures, with a
// caret. A key press never reaches it as a letter: it is told as a character
// code (8 for Backspace), and the field shows what the tables then hold.
class GlyphField : public QWidget {
    Q_OBJECT
public:
    explicit GlyphField(QWidget* parent = nullptr);
    void show_label(const KeyLabel& label, int length, int caret);
    int caret() const { return caret_; }
    int length() const { return length_; }
    const KeyLabel& label() const { return label_; }
    QSize sizeHint() const override;

Q_SIGNALS:
    void key_typed(int code);
    void caret_moved(int caret);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QRectF glyph_box() const;
    qreal dot() const { return 3.0; }

    KeyLabel label_;
    int length_ = 0;
    int caret_ = 0;
};

// One button of the Command9 glyph keyboard: the glyph's picture, its
// character or key name as the tool tip.
class GlyphButton : public QToolButton {
    Q_OBJECT
public:
    GlyphButton(int glyph, QWidget* parent);
    int glyph() const { return glyph_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int glyph_;
};

// The Command9 glyph keyboard: a button for the blank and for each of the
// 100 glyphs, in rows; the arrow keys move the focus over them.
class GlyphKeyboard : public QWidget {
    Q_OBJECT
public:
    static constexpr int columns = 13;
    explicit GlyphKeyboard(QWidget* parent = nullptr);
    GlyphButton* button(int glyph) const;

Q_SIGNALS:
    void glyph_pressed(int glyph);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::vector<GlyphButton*> buttons_;  // by glyph number, 0 the blank
};

}  // namespace tesselo
