#include "views/rc56_edit_form.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QVBoxLayout>

#include "core/app/application.h"
#include "views/dialog_frame.h"

namespace tesselo {

namespace {

constexpr std::array<RcField, 4> field_order{RcField::Text3, RcField::Text1, RcField::Text4, RcField::Text2};
const char* const field_names[] = {"Command", "Customer Code", "System", "Data"};
const char* const control_names[] = {"Text1", "Text2", "Text3", "Text4"};

std::size_t at(RcField f) { return static_cast<std::size_t>(f); }

}  // namespace

RC56EditForm::RC56EditForm(Application& app, QWidget* parent) : QDialog(parent), logic_(app.ui(), app.current_ir)
{
    setObjectName("RC56Edit");
    setWindowTitle("RC5 / RC6");
    setModal(true);
    auto* protocols = new QGroupBox("Protocol", this);
    auto* row = new QHBoxLayout(protocols);
    for (int p = rc_protocol_rc5; p <= rc_protocol_rc6a; ++p) {
        auto* option = new QRadioButton(QString::fromStdString(rc_protocol_name(p)), protocols);
        option->setObjectName(QString("Option1_%1").arg(p));
        Option1[static_cast<std::size_t>(p)] = option;
        row->addWidget(option);
        connect(option, &QRadioButton::toggled, this, [this, p](bool on) {
            if (on) choose(p);
        });
    }
    auto* grid = new QGridLayout;
    int line = 0;
    for (RcField f : field_order) {
        auto* name = new QLabel(field_names[at(f)], this);
        auto* edit = new QLineEdit(this);
        edit->setObjectName(control_names[at(f)]);
        edit->setValidator(new QIntValidator(0, 65535, edit));
        edit->setMaxLength(5);
        auto* range = new QLabel(this);
        range->setObjectName(QString("Range%1").arg(control_names[at(f)]));
        name->setBuddy(edit);
        grid->addWidget(name, line, 0);
        grid->addWidget(edit, line, 1);
        grid->addWidget(range, line, 2);
        fields_[at(f)] = edit;
        ranges_[at(f)] = range;
        names_[at(f)] = name;
        connect(edit, &QLineEdit::editingFinished, this, [this, f] { leave(f); });
        ++line;
    }
    grid->setColumnMinimumWidth(2, 70);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &RC56EditForm::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &RC56EditForm::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(protocols);
    layout->addLayout(grid);
    layout->addWidget(buttons);
    Option1[rc_protocol_rc5]->setChecked(true);
    show_protocol();
    dialog_frame(this, true);
}

bool RC56EditForm::load_code(const IrCodeWords& words, int count)
{
    if (!logic_.load_code(words, count)) return false;
    Option1[static_cast<std::size_t>(logic_.protocol())]->setChecked(true);
    fields_[at(RcField::Text1)]->setText(QString::fromStdString(logic_.Text1));
    fields_[at(RcField::Text2)]->setText(QString::fromStdString(logic_.Text2));
    fields_[at(RcField::Text3)]->setText(QString::fromStdString(logic_.Text3));
    fields_[at(RcField::Text4)]->setText(QString::fromStdString(logic_.Text4));
    show_protocol();
    return true;
}

void RC56EditForm::choose(int protocol)
{
    logic_.choose_protocol(protocol);
    show_protocol();
}

void RC56EditForm::show_protocol()
{
    for (RcField f : field_order) {
        const bool used = logic_.enabled(f);
        fields_[at(f)]->setEnabled(used);
        names_[at(f)]->setEnabled(used);
        ranges_[at(f)]->setText(QString::fromStdString(logic_.range_label(f)));
    }
}

void RC56EditForm::take_texts()
{
    logic_.Text1 = fields_[at(RcField::Text1)]->text().toStdString();
    logic_.Text2 = fields_[at(RcField::Text2)]->text().toStdString();
    logic_.Text3 = fields_[at(RcField::Text3)]->text().toStdString();
    logic_.Text4 = fields_[at(RcField::Text4)]->text().toStdString();
}

void RC56EditForm::leave(RcField f)
{
    // A field left empty is judged by OK; the message box's own focus change
    // must not judge it a second time.
    if (checking_ || fields_[at(f)]->text().isEmpty()) return;
    checking_ = true;
    take_texts();
    if (!logic_.leave_field(f)) {
        fields_[at(f)]->setFocus();
        // Enter in the field also presses OK: the field has had its word.
        just_refused_ = true;
        QTimer::singleShot(0, this, [this] { just_refused_ = false; });
    }
    checking_ = false;
}

void RC56EditForm::accept()
{
    if (just_refused_) return;
    checking_ = true;
    take_texts();
    const bool done = logic_.ok();
    checking_ = false;
    if (done) QDialog::accept();
}

}  // namespace tesselo
