#pragma once

#include <QDialog>

#include "core/ir/edit_ir.h"

class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QToolButton;

namespace tesselo {

class Application;

// EditIR, "Add IR Code": the current code from the IR library, My Database,
// typed RC5/RC6 fields or learning; Test IR held down to hear it; the
// duration; OK stores it as a step of the key under work.
class EditIRForm : public QDialog {
    Q_OBJECT
public:
    EditIRForm(Application& app, const KeyTarget& target, QWidget* parent = nullptr);

    EditIR& logic() { return logic_; }
    QPushButton* button(const QString& name) const;
    QLabel* name_line() const { return Label1; }
    QLabel* status_line() const { return Label3; }
    QLineEdit* duration_field() const { return Label4; }

    void accept() override;
    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void show_code();
    void irdatabase();
    void mydatabase();
    void rc56edit();
    void learn();
    void register_code();

    Application& app_;
    EditIR logic_;
    QLabel* Label1;
    QLabel* Label3;
    QGroupBox* Frame1;
    QRadioButton* Option1;
    QRadioButton* Option2;
    QLineEdit* Label4;
    QToolButton* up_;
    QToolButton* down_;
    QPushButton* register_;
};

}  // namespace tesselo
