#pragma once

#include <QWidget>

#include "core/model/key_label.h"

class QLabel;
class QTreeWidget;

namespace tesselo {

class Application;

// A device's name as the remote shows it: glyphs on the display's green.
class NamePanel : public QWidget {
    Q_OBJECT
public:
    explicit NamePanel(QWidget* parent = nullptr);
    void set_label(const KeyLabel& label) { label_ = label; update(); }
    QSize sizeHint() const override { return {180, 34}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    KeyLabel label_;
};

// The properties window, one for the application: it shows what the tree's
// selection shows (HOME, a device's name panel, the soft keys of a page).
class properties : public QWidget {
    Q_OBJECT
public:
    properties(Application& app, QWidget* parent = nullptr);
    // Shows the selection that core holds.
    void refresh();

private:
    Application& app_;
    QLabel* heading_;
    NamePanel* name_;
    QTreeWidget* softkeys_;
};

}  // namespace tesselo
