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
#include "core/document/ui.h"
#include "views/dialog_frame.h"

namespace tesselo {

namespace {

// A duration field holding the dialog's opening value, ready for typing.
DurationEdit* duration_field(const std::string& text, QWidget* parent)
{
    auto* field = new DurationEdit(parent);
    field->setText(QString::fromStdString(text));
    field->selectAll();
    field->setFocus();
    return field;
}

// Leaving the field: the model checks the range and may empty it.
template <typename Model>
void leave(Model& model, DurationEdit* field, Ui& ui)
{
    model.Text1 = field->text().toStdString();
    model.leave_field(ui);
    field->setText(QString::fromStdString(model.Text1));
}

// What OK reads: OK by Enter never left the field, so its range is checked all the same.
template <typename Model>
void take_field(Model& model, DurationEdit* field, Ui& ui)
{
    if (field->hasFocus()) leave(model, field, ui);
    model.Text1 = field->text().toStdString();
}

}  // namespace

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
    Text1 = duration_field(model_.Text1, this);
    auto* body = new QHBoxLayout;
    auto* caption = new QLabel("Delay time:", this);
    caption->setObjectName("Label1");
    body->addWidget(caption);
    body->addWidget(Text1, 1);
    body->addWidget(new QLabel("sec (0.1 - 32)", this));
    set_body(body, true);
    connect(Text1, &DurationEdit::field_left, this, &DelaytimeWindow::leave_field);
}

void DelaytimeWindow::leave_field() { leave(model_, Text1, app_.ui()); }

void DelaytimeWindow::ok()
{
    take_field(model_, Text1, app_.ui());
    finish(model_.ok(app_, target_));
}

AddbeepWindow::AddbeepWindow(Application& app, const KeyTarget& target, QWidget* parent)
    : StepDialog(app, target, "Addbeep", QString::fromStdString(add_beep_title), parent), model_(app.step_edit)
{
    Text1 = duration_field(model_.Text1, this);
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

void AddbeepWindow::leave_field() { leave(model_, Text1, app_.ui()); }

void AddbeepWindow::ok()
{
    // Enter in the field acts as OK: it is the default button.
    take_field(model_, Text1, app_.ui());
    // The frequency is read back from Label1.
    model_.Label1 = Label1->text().toStdString();
    finish(model_.ok(app_, target_));
}

}  // namespace tesselo
