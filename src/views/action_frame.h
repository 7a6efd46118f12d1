#pragma once

#include <QWidget>

#include "core/keys/properties_content.h"

class QCheckBox;
class QPushButton;
class QToolButton;
class QTreeWidget;

namespace tesselo {

class Application;

// The Action tab: ListView1 with the key's step rows, the buttons that add,
// delete and move steps, and the key's switches Check1 "Punch Through",
// Check2 "Sleep Timer" and Check3 "Link to Right side button".
class ActionFrame : public QWidget {
    Q_OBJECT
public:
    ActionFrame(Application& app, QWidget* parent = nullptr);
    // Fills the list and the switches; what filling them does is no click.
    void load(const ActionPanel& panel);
    QTreeWidget* list() const { return ListView1; }
    // The first selected row, 1-based; 0 for none.
    int selected_row() const;
    void select_row(int row);
    bool filling() const { return filling_; }

    // The buttons' and the list's gestures, as a click or a key runs them.
    void AddDelayBt_Click();
    void AddBeepBt_Click();
    void CreateJumpBt_Click();
    void CreateLinkBt_Click();
    void DeleteBt_Click();
    void MoveUPBt_Click();
    void MoveDownBt_Click();
    void ListView1_DblClick(int row);

Q_SIGNALS:
    // The key's steps or switches changed: the window shows the tables again.
    void key_changed(int select_row);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::optional<KeyTarget> target() const;
    template <typename Window>
    void open_dialog();
    void move(bool up);

    Application& app_;
    bool filling_ = false;
    QTreeWidget* ListView1;
    QPushButton* AddDelayBt;
    QPushButton* AddBeepBt;
    QPushButton* CreateJumpBt;
    QPushButton* CreateLinkBt;
    QPushButton* DeleteBt;
    QToolButton* MoveUPBt;
    QToolButton* MoveDownBt;
    QCheckBox* Check1;
    QCheckBox* Check2;
    QCheckBox* Check3;
};

}  // namespace tesselo
