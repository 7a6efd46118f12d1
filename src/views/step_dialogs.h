#pragma once

#include <QDialog>
#include <QLineEdit>

#include "core/keys/delay_beep_dialogs.h"
#include "core/keys/step_commands.h"

class QLabel;
class QPushButton;
class QSlider;

namespace tesselo {

class Application;

// A duration field of the Delay and Beep dialogs: only digits, "." and
// Backspace reach it; leaving it is told, so that the range is checked.
class DurationEdit : public QLineEdit {
    Q_OBJECT
public:
    explicit DurationEdit(QWidget* parent = nullptr);

Q_SIGNALS:
    void field_left();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
};

// The dialogs' common part: OK (Command1) and Cancel (Command2); Cancel, Esc
// and the window's frame clear the edit flag.
class StepDialog : public QDialog {
    Q_OBJECT
public:
    StepDialog(Application& app, const KeyTarget& target, const QString& name, const QString& title,
               QWidget* parent);
    void reject() override;
    QPushButton* ok_button() const { return Command1; }
    QPushButton* cancel_button() const { return Command2; }

protected:
    // Lays out `body` above the two buttons; a dialog of fixed fields takes
    // the size they need, a tree dialog may grow.
    void set_body(QLayout* body, bool fixed_size);
    // What OK came to: the dialog stays open only after a refused value.
    void finish(DialogOk outcome);
    virtual void ok() = 0;

    Application& app_;
    KeyTarget target_;
    QPushButton* Command1;
    QPushButton* Command2;
};

// Delaytime: a delay step, "Add Delay".
class DelaytimeWindow : public StepDialog {
    Q_OBJECT
public:
    DelaytimeWindow(Application& app, const KeyTarget& target, QWidget* parent = nullptr);
    DurationEdit* field() const { return Text1; }

protected:
    void ok() override;

private:
    void leave_field();
    Delaytime model_;
    DurationEdit* Text1;
};

// Addbeep: a beep step, "Add Beep": its duration and the slider's frequency.
class AddbeepWindow : public StepDialog {
    Q_OBJECT
public:
    AddbeepWindow(Application& app, const KeyTarget& target, QWidget* parent = nullptr);
    DurationEdit* field() const { return Text1; }
    QSlider* slider() const { return Slider1; }

protected:
    void ok() override;

private:
    void leave_field();
    Addbeep model_;
    DurationEdit* Text1;
    QSlider* Slider1;
    QLabel* Label1;
};

}  // namespace tesselo
