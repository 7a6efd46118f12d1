#include "views/ir_data_form.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

#include "core/app/application.h"
#include "views/dialog_frame.h"

namespace tesselo {

IRDataForm::IRDataForm(Application& app, QWidget* parent) : QDialog(parent), logic_(app)
{
    setObjectName("IRData");
    setWindowTitle("IR Database");
    setModal(true);
    Combo1 = new QComboBox(this);
    Combo1->setObjectName("Category");
    for (const auto& name : logic_.categories()) Combo1->addItem(QString::fromStdString(name));
    Combo1->setCurrentIndex(-1);
    Combo1->setPlaceholderText("Select a category");
    const auto list = [this](const char* name) {
        auto* l = new QListWidget(this);
        l->setObjectName(name);
        l->setMinimumWidth(150);
        return l;
    };
    brands_ = list("Brand");
    codesets_ = list("CodeSet");
    functions_ = list("Function");

    connect(Combo1, &QComboBox::currentIndexChanged, this, [this](int index) {
        logic_.choose_category(index);
        fill(brands_, logic_.brands());
        codesets_->clear();
        functions_->clear();
    });
    connect(brands_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row < 0) return;
        logic_.choose_brand(row);
        fill(codesets_, logic_.codesets());
        functions_->clear();
    });
    connect(codesets_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row < 0) return;
        logic_.choose_codeset(row);
        fill(functions_, logic_.functions());
    });
    connect(functions_, &QListWidget::currentRowChanged, this, [this](int row) { logic_.choose_function(row); });
    connect(functions_, &QListWidget::itemDoubleClicked, this, [this] { accept(); });

    auto* grid = new QGridLayout;
    grid->addWidget(new QLabel("Category", this), 0, 0);
    grid->addWidget(Combo1, 0, 1, 1, 2);
    grid->addWidget(new QLabel("Brand", this), 1, 0);
    grid->addWidget(new QLabel("Code set", this), 1, 1);
    grid->addWidget(new QLabel("Function", this), 1, 2);
    grid->addWidget(brands_, 2, 0);
    grid->addWidget(codesets_, 2, 1);
    grid->addWidget(functions_, 2, 2);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &IRDataForm::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &IRDataForm::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid, 1);
    layout->addWidget(buttons);
    resize(560, 380);
    dialog_frame(this, false);
}

void IRDataForm::fill(QListWidget* list, const std::vector<std::string>& items)
{
    const QSignalBlocker quiet(list);
    list->clear();
    for (const auto& item : items) list->addItem(QString::fromStdString(item));
}

void IRDataForm::accept()
{
    if (logic_.ok()) QDialog::accept();
}

}  // namespace tesselo
