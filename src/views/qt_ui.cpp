#include "views/qt_ui.h"

#include "views/download_window.h"
#include "views/error_window.h"

#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QStringList>
#include <QWidget>

namespace tesselo {

namespace {

QMessageBox::Icon qt_icon(Icon icon)
{
    switch (icon) {
    case Icon::information: return QMessageBox::Information;
    case Icon::exclamation: return QMessageBox::Warning;
    case Icon::critical: return QMessageBox::Critical;
    case Icon::question: return QMessageBox::Question;
    case Icon::none: break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons qt_buttons(Buttons buttons)
{
    switch (buttons) {
    case Buttons::ok: return QMessageBox::Ok;
    case Buttons::ok_cancel: return QMessageBox::Ok | QMessageBox::Cancel;
    case Buttons::yes_no: return QMessageBox::Yes | QMessageBox::No;
    case Buttons::yes_no_cancel: return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    }
    return QMessageBox::Ok;
}

QString q(const std::string& text) { return QString::fromStdString(text); }

}  // namespace

QString qt_file_filter(const std::string& filter)
{
    // The pairs are description|pattern; Qt reads the pattern from the description.
    const QStringList parts = q(filter).split('|');
    QStringList names;
    for (int i = 0; i + 1 < parts.size(); i += 2) names << parts[i];
    if (names.isEmpty()) names << q(filter);
    return names.join(";;");
}

void QtUi::message(const std::string& title, const std::string& text, Icon icon)
{
    QMessageBox box(qt_icon(icon), q(title), q(text), QMessageBox::Ok, parent_);
    box.setObjectName("MsgBox");
    box.exec();
}

Answer QtUi::ask(const std::string& title, const std::string& text, Buttons buttons, Icon icon)
{
    QMessageBox box(qt_icon(icon), q(title), q(text), qt_buttons(buttons), parent_);
    box.setObjectName("MsgBox");
    switch (box.exec()) {
    case QMessageBox::Ok: return Answer::ok;
    case QMessageBox::Yes: return Answer::yes;
    case QMessageBox::No: return Answer::no;
    default: break;
    }
    return Answer::cancel;
}

std::optional<std::string> QtUi::open_file(const std::string& title, const std::string& filter)
{
    const QString path = QFileDialog::getOpenFileName(parent_, q(title), {}, qt_file_filter(filter));
    if (path.isEmpty()) return std::nullopt;
    return path.toStdString();
}

std::optional<std::string> QtUi::save_file(const std::string& title, const std::string& filter,
                                           const std::string& suggested)
{
    QFileDialog dialog(parent_, q(title), {}, qt_file_filter(filter));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix("kcf");
    if (!suggested.empty()) dialog.selectFile(q(suggested));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return dialog.selectedFiles().front().toStdString();
}

ErrorWindowAnswer QtUi::error_window(const std::string& title, const std::vector<std::string>& texts,
                                     const std::vector<std::string>& rows)
{
    ErrorWindowForm window(title, texts, rows, parent_);
    window.exec();
    return window.answer();
}

Answer QtUi::key_error(const std::string& text, const std::string& confirm)
{
    // Key_error: the broken key's words, and OK to delete its data or Cancel.
    QMessageBox box(QMessageBox::Critical, "Key_error", q(text), QMessageBox::Ok | QMessageBox::Cancel, parent_);
    box.setObjectName("Key_error");
    box.setInformativeText(q(confirm));
    return box.exec() == QMessageBox::Ok ? Answer::ok : Answer::cancel;
}

void QtUi::status(const std::string& text)
{
    if (status_sink_) status_sink_(q(text));
}

void QtUi::progress(int value, int maximum)
{
    if (progress_sink_) progress_sink_(value, maximum);
}

void QtUi::wait_cursor(bool on)
{
    if (on)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else if (QApplication::overrideCursor())
        QApplication::restoreOverrideCursor();
}

void QtUi::repaint()
{
    if (QWidget* w = QApplication::activeWindow()) w->repaint();
}

void QtUi::yield()
{
    // Windows repaint; the user's clicks wait until the command is done.
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void QtUi::download_window_show(const std::string& caption, bool progress_bar)
{
    if (!download_) download_ = new Download(parent_);
    download_->set_caption(q(caption));
    download_->show_progress(progress_bar);
    download_->show();
    download_->raise();
    download_->repaint();
}

void QtUi::download_window_hide()
{
    if (download_) download_->hide();
}

void QtUi::download_window_unload()
{
    delete download_;
    download_ = nullptr;
}

void QtUi::download_activity(const std::string& text)
{
    if (download_) download_->set_activity(q(text));
}

void QtUi::download_progress(int value, int maximum)
{
    if (!download_) return;
    download_->set_progress(value, maximum);
    download_->progress_bar()->repaint();
}

void QtUi::upload_commands_enabled(bool)
{
    // The frame reads the upload flag itself when it recomputes its entries.
    if (commands_sink_) commands_sink_();
}

void QtUi::editir_status(const std::string& text)
{
    // The status line of an open Add IR Code dialog; with no dialog on the
    // screen the user sees nothing, as the link's exchanges intend.
    editir_status_ = text;
    for (QWidget* top : QApplication::topLevelWidgets()) {
        if (top->objectName() != "EditIR") continue;
        if (auto* line = top->findChild<QLabel*>("Label3")) {
            line->setText(q(text));
            line->repaint();
        }
    }
}

}  // namespace tesselo
