#include "views/my_database_forms.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/app/application.h"
#include "views/dialog_frame.h"

namespace tesselo {

namespace {

QString q(const std::string& text) { return QString::fromStdString(text); }

// The four labelled boxes in a grid, one row a level.
MyDbBoxes make_boxes(QWidget* parent, QGridLayout* grid)
{
    MyDbBoxes boxes{};
    for (int level = level_brand; level <= level_function; ++level) {
        const QString name = q(mydb_level_name(level));
        auto* box = new QComboBox(parent);
        box->setObjectName(name);
        box->setMinimumWidth(220);
        auto* label = new QLabel(name, parent);
        label->setBuddy(box);
        grid->addWidget(label, level - level_brand, 0);
        grid->addWidget(box, level - level_brand, 1);
        boxes[static_cast<std::size_t>(level - level_brand)] = box;
    }
    return boxes;
}

QDialogButtonBox* ok_cancel(QDialog* dialog)
{
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, dialog);
    QObject::connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    return buttons;
}

}  // namespace

MyDatabaseForm::MyDatabaseForm(Application& app, QWidget* parent) : QDialog(parent), app_(app), logic_(app)
{
    setObjectName("MyDatabase");
    setWindowTitle("My Database");
    setModal(true);
    auto* grid = new QGridLayout;
    boxes_ = make_boxes(this, grid);
    static const char* const adders[] = {"AddBrand", "AddDevice", "AddModel", "AddFunction"};
    for (int level = level_brand; level <= level_function; ++level) {
        auto* add = new QPushButton("Add...", this);
        add->setObjectName(adders[level - level_brand]);
        add->setToolTip(q(AddDataBase(app_, level).caption()));
        grid->addWidget(add, level - level_brand, 2);
        connect(add, &QPushButton::clicked, this, [this, level] { add_name(level); });
        fill(level);
    }
    auto* intro = new QLabel("The code is registered to My Database under these names.", this);
    intro->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(intro);
    layout->addLayout(grid);
    layout->addWidget(ok_cancel(this));
    dialog_frame(this, true);
}

void MyDatabaseForm::fill(int level, const QString& choose)
{
    QComboBox* b = box(level);
    b->clear();
    for (const auto& name : logic_.names(level)) b->addItem(q(name));
    if (!choose.isEmpty()) b->setCurrentIndex(b->findText(choose));
}

void MyDatabaseForm::add_name(int level)
{
    AddDataBaseForm form(app_, level, this);
    if (form.exec() == QDialog::Accepted && !form.added().isEmpty()) fill(level, form.added());
}

void MyDatabaseForm::accept()
{
    for (int level = level_brand; level <= level_function; ++level)
        logic_.choose(level, box(level)->currentText().toStdString());
    if (logic_.ok()) QDialog::accept();
}

AddDataBaseForm::AddDataBaseForm(Application& app, int level, QWidget* parent) : QDialog(parent), logic_(app, level)
{
    setObjectName("AddDataBase");
    setWindowTitle(q(logic_.caption()));
    setModal(true);
    Text1 = new QLineEdit(this);
    Text1->setObjectName("Text1");
    Text1->setMaxLength(mydb_name_bytes);
    Text1->setMinimumWidth(260);
    auto* buttons = ok_cancel(this);
    QPushButton* ok = buttons->button(QDialogButtonBox::Ok);
    ok->setEnabled(false);
    connect(Text1, &QLineEdit::textChanged, this, [ok](const QString& t) { ok->setEnabled(!t.trimmed().isEmpty()); });
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(q(mydb_level_name(level)) + " name", this));
    layout->addWidget(Text1);
    layout->addWidget(buttons);
    dialog_frame(this, true);
}

void AddDataBaseForm::accept()
{
    logic_.Text1 = Text1->text().toStdString();
    if (!logic_.ok()) return;
    added_ = Text1->text().trimmed();
    QDialog::accept();
}

NewIRDataForm::NewIRDataForm(Application& app, QWidget* parent) : QDialog(parent), logic_(app)
{
    setObjectName("NewIRData");
    setWindowTitle("My Database");
    setModal(true);
    auto* grid = new QGridLayout;
    boxes_ = make_boxes(this, grid);
    for (int level = level_brand; level <= level_function; ++level)
        connect(box(level), &QComboBox::activated, this, [this, level](int index) {
            logic_.choose(level, index);
            show_lists();
        });
    auto* cmdClear = new QPushButton("Clear", this);
    cmdClear->setObjectName("cmdClear");
    auto* cmdBuildAll = new QPushButton("Build All", this);
    cmdBuildAll->setObjectName("cmdBuildAll");
    connect(cmdClear, &QPushButton::clicked, this, [this] {
        logic_.cmdClear();
        show_lists();
    });
    connect(cmdBuildAll, &QPushButton::clicked, this, [this] {
        logic_.cmdBuildAll();
        show_lists();
    });
    auto* tools = new QHBoxLayout;
    tools->addWidget(cmdClear);
    tools->addWidget(cmdBuildAll);
    tools->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addLayout(tools);
    auto* buttons = ok_cancel(this);
    ok_ = buttons->button(QDialogButtonBox::Ok);
    layout->addWidget(buttons);
    show_lists();
    dialog_frame(this, true);
}

void NewIRDataForm::show_lists()
{
    for (int level = level_brand; level <= level_function; ++level) {
        QComboBox* b = box(level);
        const QSignalBlocker quiet(b);
        b->clear();
        for (const auto& name : logic_.names(level)) b->addItem(q(name));
        b->setCurrentIndex(logic_.chosen(level));
        b->setEnabled(logic_.names(level).size() > 1);
    }
    // A code is taken once its function is chosen.
    ok_->setEnabled(logic_.chosen(level_function) > 0);
}

void NewIRDataForm::accept()
{
    if (logic_.ok()) QDialog::accept();
}

}  // namespace tesselo
