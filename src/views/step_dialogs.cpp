#include "views/step_dialogs.h"

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

#include "core/app/application.h"
#include "views/dialog_frame.h"

namespace tesselo {

DurationEdit::DurationEdit(QWidget* parent) : QLineEdit(parent)
{
    setObjectName("Text1");
    setContextMenuPolicy(Qt::NoContextMenu);
    setMaxLength(8);
}

void DurationEdit::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Paste)) return;
    const QString text = event->text();
    const bool character = !text.isEmpty() && text.front().isPrint();
    if (character && !duration_key_accepted(text.front().toLatin1())) return;
    QLineEdit::keyPressEvent(event);
}

void DurationEdit::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    // Leaving by Cancel, or for a box the check itself shows, is no leaving.
    QWidget* to = QApplication::focusWidget();
    const bool cancel = to && to->objectName() == "Command2" && to->window() == window();
    if (!cancel && event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
        Q_EMIT field_left();
}

StepDialog::StepDialog(Application& app, const KeyTarget& target, const QString& name, const QString& title,
                       QWidget* parent)
    : QDialog(parent), app_(app), target_(target)
{
    setObjectName(name);
    setWindowTitle(title);
    setModal(true);
    Command1 = new QPushButton("OK", this);
    Command1->setObjectName("Command1");
    Command1->setDefault(true);
    Command2 = new QPushButton("Cancel", this);
    Command2->setObjectName("Command2");
    connect(Command1, &QPushButton::clicked, this, [this] { ok(); });
    connect(Command2, &QPushButton::clicked, this, &StepDialog::reject);
}

void StepDialog::set_body(QLayout* body, bool fixed_size)
{
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(Command1);
    buttons->addWidget(Command2);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(body);
    layout->addSpacing(6);
    layout->addLayout(buttons);
    dialog_frame(this, fixed_size);
}

void StepDialog::reject()
{
    // Cancel, Esc or the frame: the edit flag goes with the dialog.
    app_.step_edit.clear();
    QDialog::reject();
}

void StepDialog::finish(DialogOk outcome)
{
    if (outcome == DialogOk::refused) return;
    QDialog::accept();
}

DelaytimeWindow::DelaytimeWindow(Application& app, const KeyTarget& target, QWidget* parent)
    : StepDialog(app, target, "Delaytime", QString::fromStdString(add_delay_title), parent), model_(app.step_edit)
{
    Text1 = new DurationEdit(this);
    Text1->setText(QString::fromStdString(model_.Text1));
    Text1->selectAll();
    // The dialog opens with its field ready for typing.
    Text1->setFocus();
    auto* body = new QHBoxLayout;
    auto* caption = new QLabel("Delay time:", this);
    caption->setObjectName("Label1");
    body->addWidget(caption);
    body->addWidget(Text1, 1);
    body->addWidget(new QLabel("sec (0.1 - 32)", this));
    set_body(body, true);
    connect(Text1, &DurationEdit::field_left, this, &DelaytimeWindow::leave_field);
}

void DelaytimeWindow::leave_field()
{
    model_.Text1 = Text1->text().toStdString();
    model_.leave_field(app_.ui());
    Text1->setText(QString::fromStdString(model_.Text1));
}

void DelaytimeWindow::ok()
{
    // OK by Enter never left the field: its range is checked all the same.
    if (Text1->hasFocus()) leave_field();
    model_.Text1 = Text1->text().toStdString();
    finish(model_.ok(app_, target_));
}

AddbeepWindow::AddbeepWindow(Application& app, const KeyTarget& target, QWidget* parent)
    : StepDialog(app, target, "Addbeep", QString::fromStdString(add_beep_title), parent), model_(app.step_edit)
{
    Text1 = new DurationEdit(this);
    Text1->setText(QString::fromStdString(model_.Text1));
    Text1->selectAll();
    Text1->setFocus();
    Slider1 = new QSlider(Qt::Horizontal, this);
    Slider1->setObjectName("Slider1");
    Slider1->setRange(Addbeep::slider_min, Addbeep::slider_max);
    Slider1->setValue(model_.slider);
    Slider1->setTickPosition(QSlider::TicksBelow);
    Label1 = new QLabel(QString::fromStdString(model_.Label1), this);
    Label1->setObjectName("Label1");
    Label1->setMinimumWidth(40);
    auto* body = new QGridLayout;
    body->addWidget(new QLabel("Duration:", this), 0, 0);
    body->addWidget(Text1, 0, 1);
    body->addWidget(new QLabel("sec (0.1 - 32)", this), 0, 2);
    body->addWidget(new QLabel("Frequency:", this), 1, 0);
    body->addWidget(Slider1, 1, 1);
    auto* hertz = new QHBoxLayout;
    hertz->addWidget(Label1);
    hertz->addWidget(new QLabel("Hz", this));
    body->addLayout(hertz, 1, 2);
    set_body(body, true);
    connect(Text1, &DurationEdit::field_left, this, &AddbeepWindow::leave_field);
    connect(Slider1, &QSlider::valueChanged, this, [this](int position) {
        model_.move_slider(position);
        Label1->setText(QString::fromStdString(model_.Label1));
    });
}

void AddbeepWindow::leave_field()
{
    model_.Text1 = Text1->text().toStdString();
    model_.leave_field(app_.ui());
    Text1->setText(QString::fromStdString(model_.Text1));
}

void AddbeepWindow::ok()
{
    // Enter in the field acts as OK (the default button); its range is checked first.
    if (Text1->hasFocus()) leave_field();
    model_.Text1 = Text1->text().toStdString();
    // The frequency is read back from Label1.
    model_.Label1 = Label1->text().toStdString();
    finish(model_.ok(app_, target_));
}

}  // namespace tesselo
