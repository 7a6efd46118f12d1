#include "views/qt_ui.h"

#include "views/download_window.h"
#include "views/error_window.h"
#include "views/mdi_form1.h"
#include "views/window_placement.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QGridLayout>
#include <QSpacerItem>
#include <QThread>
#include <QWindow>
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

// A box is made wide enough for its title, so that the window manager need
// not cut it ("Ke...o 3"): room for the title in a bold face, with the
// window's icon and three buttons of the title bar beside it.
void fit_title(QMessageBox& box)
{
    QFont bold = box.font();
    bold.setBold(true);
    const int wanted = QFontMetrics(bold).horizontalAdvance(box.windowTitle()) * 5 / 4 + 120;
    if (auto* grid = qobject_cast<QGridLayout*>(box.layout()))
        grid->addItem(new QSpacerItem(wanted, 0, QSizePolicy::Minimum, QSizePolicy::Fixed), grid->rowCount(), 0, 1,
                      grid->columnCount());
}

// Waits, with the user's input held back, until the window manager has put
// `window` on the screen, for at most a second, and paints it there: an
// exchange that follows blocks the program and paints nothing.
void paint_on_screen(QWidget* window)
{
    QElapsedTimer waited;
    waited.start();
    const QWindow* handle = window->windowHandle();
    while (handle && !handle->isExposed() && waited.elapsed() < 1000) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 10);
        if (!handle->isExposed()) QThread::msleep(5);
    }
    window->repaint();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

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

void attach_frame(QtUi& ui, MDIForm1& frame)
{
    ui.set_parent(&frame);
    ui.set_commands_sink([&frame] { frame.update_commands(); });
    ui.set_status_sink([&frame](const QString& text) { frame.set_status(text); });
    ui.set_progress_sink([&frame](int value, int maximum) { frame.set_progress(value, maximum); });
}

void QtUi::message(const std::string& title, const std::string& text, Icon icon)
{
    QMessageBox box(qt_icon(icon), q(title), q(text), QMessageBox::Ok, parent_);
    box.setObjectName("MsgBox");
    fit_title(box);
    box.exec();
}

Answer QtUi::ask(const std::string& title, const std::string& text, Buttons buttons, Icon icon)
{
    QMessageBox box(qt_icon(icon), q(title), q(text), qt_buttons(buttons), parent_);
    box.setObjectName("MsgBox");
    fit_title(box);
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
    fit_title(box);
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
    if (on) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        return;
    }
    if (!QApplication::overrideCursor()) return;
    QApplication::restoreOverrideCursor();
    // The work is done: the status line no longer says what runs, and the bar goes.
    if (QApplication::overrideCursor()) return;
    status("");
    progress(0, 0);
}

void QtUi::repaint()
{
    if (QWidget* w = QApplication::activeWindow()) w->repaint();
}

void QtUi::yield()
{
    // Windows repaint; the user's clicks wait until the command is done.
    ++yielding_;
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    --yielding_;
}

void QtUi::download_window_show(const std::string& caption, bool progress_bar)
{
    if (!download_) download_ = new Download(parent_);
    download_->set_caption(q(caption));
    download_->show_progress(progress_bar);
    show_placed(download_, parent_, Placement::centred_on_frame);
    paint_on_screen(download_);
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
