#include "views/error_window.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace tesselo {

ErrorWindow::ErrorWindow(const QStringList& faults, std::uint8_t& corruption_flag, QWidget* parent)
    : QDialog(parent), flag_(corruption_flag)
{
    setObjectName("ErrorWindow");
    setWindowTitle("Error");
    setModal(true);
    auto* icon = new QLabel(this);
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxCritical).pixmap(32, 32));
    auto* intro = new QLabel(
        "The file that you are trying to open is corrupted and can not be used.  The following commands are corrupt", this);
    intro->setObjectName("Label1");
    intro->setWordWrap(true);
    auto* list = new QListWidget(this);
    list->setObjectName("List1");
    list->addItems(faults);
    auto* advice = new QLabel("It is recommended that you delete these commands or recreate new configuration file.", this);
    advice->setObjectName("Label2");
    advice->setWordWrap(true);
    auto* question = new QLabel("Do you wish to continue?", this);
    question->setObjectName("Label3");
    auto* Command1 = new QPushButton("&Yes", this);
    Command1->setObjectName("Command1");
    auto* Command2 = new QPushButton("&No", this);
    Command2->setObjectName("Command2");
    Command2->setDefault(true);
    connect(Command1, &QPushButton::clicked, this, [this] {
        flag_ = 2;
        accept();
    });
    connect(Command2, &QPushButton::clicked, this, [this] {
        flag_ = 1;
        QDialog::reject();
    });

    auto* top = new QHBoxLayout;
    top->addWidget(icon, 0, Qt::AlignTop);
    top->addWidget(intro, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(Command1);
    buttons->addWidget(Command2);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(list, 1);
    layout->addWidget(advice);
    layout->addWidget(question);
    layout->addLayout(buttons);
    resize(480, 340);
}

void ErrorWindow::reject()
{
    // Escape and the frame's close button give up, unless the user chose to go on.
    if (flag_ != 2) flag_ = 1;
    QDialog::reject();
}

void ErrorWindow::closeEvent(QCloseEvent* event)
{
    if (flag_ != 2) flag_ = 1;
    event->accept();
    QDialog::closeEvent(event);
}

}  // namespace tesselo
