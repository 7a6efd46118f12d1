#include "views/edit_ir_form.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QVBoxLayout>

#include "core/app/application.h"
#include "views/dialog_frame.h"
#include "views/ir_data_form.h"
#include "views/my_database_forms.h"
#include "views/rc56_edit_form.h"

namespace tesselo {

namespace {

QPushButton* named_button(const QString& text, const QString& name, QWidget* parent)
{
    auto* b = new QPushButton(text, parent);
    b->setObjectName(name);
    b->setAutoDefault(false);
    return b;
}

}  // namespace

EditIRForm::EditIRForm(Application& app, const KeyTarget& target, QWidget* parent)
    : QDialog(parent), app_(app), logic_(app, target)
{
    setObjectName("EditIR");
    setWindowTitle(QString::fromStdString(edit_ir_caption));
    setModal(true);

    auto* sources = new QGroupBox("Code", this);
    auto* source_row = new QHBoxLayout(sources);
    auto* ir_database = named_button("IR Database", "IRDatabase", sources);
    auto* my_database = named_button("My Database", "MyDatabase", sources);
    auto* rc56 = named_button("RC5 / RC6", "RC56", sources);
    auto* learn_ir = named_button("Learn IR", "LearnIR", sources);
    auto* test_ir = named_button("Test IR", "TestIR", sources);
    test_ir->setToolTip("Hold the button down: the remote sends the code until you let go");
    for (auto* b : {ir_database, my_database, rc56, learn_ir, test_ir}) source_row->addWidget(b);
    connect(ir_database, &QPushButton::clicked, this, &EditIRForm::irdatabase);
    connect(my_database, &QPushButton::clicked, this, &EditIRForm::mydatabase);
    connect(rc56, &QPushButton::clicked, this, &EditIRForm::rc56edit);
    connect(learn_ir, &QPushButton::clicked, this, &EditIRForm::learn);
    // Test IR is a press and a hold: the remote sends from the press to the release.
    connect(test_ir, &QPushButton::pressed, this, [this] {
        logic_.test_start();
        show_code();
    });
    connect(test_ir, &QPushButton::released, this, [this] {
        logic_.test_end();
        show_code();
    });

    auto* lines = new QGridLayout;
    Label1 = new QLabel(this);
    Label1->setObjectName("Label1");
    Label1->setFrameShape(QFrame::StyledPanel);
    Label1->setMinimumWidth(320);
    Label1->setTextInteractionFlags(Qt::TextSelectableByMouse);
    Label3 = new QLabel(this);
    Label3->setObjectName("Label3");
    Label3->setFrameShape(QFrame::StyledPanel);
    lines->addWidget(new QLabel("Name:", this), 0, 0);
    lines->addWidget(Label1, 0, 1);
    lines->addWidget(new QLabel("Result", this), 1, 0);
    lines->addWidget(Label3, 1, 1);
    lines->setColumnStretch(1, 1);

    Frame1 = new QGroupBox("Duration", this);
    Frame1->setObjectName("Duration");
    Option1 = new QRadioButton("Default", Frame1);
    Option1->setObjectName("Option1");
    Option2 = new QRadioButton("Minimum", Frame1);
    Option2->setObjectName("Option2");
    Label4 = new QLineEdit(Frame1);
    Label4->setObjectName("Label4");
    Label4->setMaximumWidth(70);
    Label4->installEventFilter(this);
    up_ = new QToolButton(Frame1);
    up_->setArrowType(Qt::UpArrow);
    up_->setObjectName("UpDown1Up");
    down_ = new QToolButton(Frame1);
    down_->setArrowType(Qt::DownArrow);
    down_->setObjectName("UpDown1Down");
    for (auto* b : {up_, down_}) b->setFixedSize(18, 12), b->setAutoRepeat(true);
    auto* updown = new QVBoxLayout;
    updown->setSpacing(0);
    updown->addWidget(up_);
    updown->addWidget(down_);
    auto* duration_row = new QHBoxLayout(Frame1);
    duration_row->addWidget(Option1);
    duration_row->addWidget(Option2);
    duration_row->addWidget(Label4);
    duration_row->addLayout(updown);
    duration_row->addWidget(new QLabel(QString::fromStdString(duration_range_label), Frame1));
    duration_row->addStretch(1);
    connect(Option1, &QRadioButton::toggled, this, [this](bool on) {
        if (on) logic_.choose_default();
        show_code();
    });
    connect(Option2, &QRadioButton::toggled, this, [this](bool on) {
        if (on) logic_.choose_minimum();
        show_code();
    });
    connect(up_, &QToolButton::clicked, this, [this] {
        logic_.UpDown1_up();
        Label4->setText(QString::fromStdString(logic_.Label4));
    });
    connect(down_, &QToolButton::clicked, this, [this] {
        logic_.UpDown1_down();
        Label4->setText(QString::fromStdString(logic_.Label4));
    });
    connect(Label4, &QLineEdit::editingFinished, this, [this] {
        logic_.Label4 = Label4->text().toStdString();
        logic_.leave_duration();
        Label4->setText(QString::fromStdString(logic_.Label4));
    });

    register_ = named_button("Register to My Database...", "Register", this);
    connect(register_, &QPushButton::clicked, this, &EditIRForm::register_code);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(register_);
    bottom->addStretch(1);
    bottom->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &EditIRForm::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &EditIRForm::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(sources);
    layout->addLayout(lines);
    layout->addWidget(Frame1);
    layout->addLayout(bottom);

    (logic_.minimum() ? Option2 : Option1)->setChecked(true);
    Label4->setText(QString::fromStdString(logic_.Label4));
    show_code();
    dialog_frame(this, true);
}

QPushButton* EditIRForm::button(const QString& name) const { return findChild<QPushButton*>(name); }

void EditIRForm::show_code()
{
    const QString name = QString::fromStdString(app_.current_ir.name);
    Label1->setText(name);
    // A library code's step names its code where others keep a duration.
    const bool applies = logic_.duration_applies();
    Frame1->setEnabled(applies);
    Frame1->setToolTip(applies ? QString() : "A code from the IR library is sent for as long as the remote's own rule");
    Label4->setEnabled(applies && logic_.minimum());
    up_->setEnabled(applies && logic_.minimum());
    down_->setEnabled(applies && logic_.minimum());
    register_->setEnabled(!name.isEmpty());
    button("TestIR")->setEnabled(!name.isEmpty());
}

bool EditIRForm::eventFilter(QObject* watched, QEvent* event)
{
    // The duration field's key filter: digits, "." and backspace reach it.
    if (watched == Label4 && event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        const QString text = key->text();
        if (key->key() == Qt::Key_Backspace || key->key() == Qt::Key_Left || key->key() == Qt::Key_Right ||
            key->key() == Qt::Key_Tab || key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter ||
            key->key() == Qt::Key_Escape || key->key() == Qt::Key_Delete || text.isEmpty())
            return false;
        return !(text.size() == 1 && (text[0].isDigit() || text[0] == '.'));
    }
    return QDialog::eventFilter(watched, event);
}

void EditIRForm::irdatabase()
{
    IRDataForm form(app_, this);
    if (form.exec() == QDialog::Accepted) show_code();
}

void EditIRForm::mydatabase()
{
    if (!logic_.my_database_available()) return;
    NewIRDataForm form(app_, this);
    if (form.exec() == QDialog::Accepted) show_code();
}

void EditIRForm::rc56edit()
{
    RC56EditForm form(app_, this);
    // A typed code under work shows its fields again.
    if (const auto t = app_.current_ir.current_ir_type; t >= ir_type_rc5 && t <= ir_type_rc6a)
        form.load_code(app_.current_ir.ir_code_words, app_.current_ir.ir_code_word_count);
    if (form.exec() == QDialog::Accepted) show_code();
}

void EditIRForm::learn()
{
    Label1->clear();
    logic_.learn();
    show_code();
}

void EditIRForm::register_code()
{
    MyDatabaseForm form(app_, this);
    if (form.exec() == QDialog::Accepted) Label3->setText("registered to My Database");
}

void EditIRForm::accept()
{
    if (Label4->hasFocus()) {
        logic_.Label4 = Label4->text().toStdString();
        logic_.leave_duration();
        Label4->setText(QString::fromStdString(logic_.Label4));
    }
    logic_.Label4 = Label4->text().toStdString();
    if (logic_.ok()) QDialog::accept();
}

void EditIRForm::reject()
{
    logic_.cancel();
    QDialog::reject();
}

}  // namespace tesselo
