#include "views/error_window.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace tesselo {

ErrorWindowForm::ErrorWindowForm(const std::string& title, const std::vector<std::string>& texts,
                                 const std::vector<std::string>& rows, QWidget* parent)
    : QDialog(parent)
{
    setObjectName("ErrorWindow");
    setWindowTitle(QString::fromStdString(title));
    setModal(true);
    auto* icon = new QLabel(this);
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxCritical).pixmap(32, 32));
    auto* layout = new QVBoxLayout(this);
    auto* top = new QHBoxLayout;
    top->addWidget(icon, 0, Qt::AlignTop);
    auto* intro = new QLabel(texts.empty() ? QString() : QString::fromStdString(texts.front()), this);
    intro->setObjectName("Label1");
    intro->setWordWrap(true);
    top->addWidget(intro, 1);
    layout->addLayout(top);

    auto* list = new QListWidget(this);
    list->setObjectName("List1");
    for (const auto& row : rows) list->addItem(QString::fromStdString(row));
    layout->addWidget(list, 1);
    for (std::size_t i = 1; i < texts.size(); ++i) {
        auto* text = new QLabel(QString::fromStdString(texts[i]), this);
        text->setObjectName(QString("Label%1").arg(i + 1));
        text->setWordWrap(true);
        layout->addWidget(text);
    }

    auto* Command1 = new QPushButton("&Yes", this);
    Command1->setObjectName("Command1");
    auto* Command2 = new QPushButton("&No", this);
    Command2->setObjectName("Command2");
    Command2->setDefault(true);
    connect(Command1, &QPushButton::clicked, this, [this] {
        answer_ = ErrorWindowAnswer::go_on;
        accept();
    });
    connect(Command2, &QPushButton::clicked, this, [this] {
        answer_ = ErrorWindowAnswer::give_up;
        reject();
    });
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(Command1);
    buttons->addWidget(Command2);
    layout->addLayout(buttons);
    resize(500, 360);
}

}  // namespace tesselo
