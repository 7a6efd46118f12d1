#pragma once

#include <functional>

#include <QString>

#include "core/document/ui.h"

class QWidget;

namespace tesselo {

class Download;
class MDIForm1;

// The Ui port on Qt: message boxes with the system's titles and icons, the
// file dialogs, the wait cursor, and event processing for long loops. The
// frame hands it its status line and progress bar, which clear when the
// wait cursor goes: the work they tell of is done.
class QtUi final : public Ui {
public:
    void set_parent(QWidget* parent) { parent_ = parent; }
    void set_status_sink(std::function<void(const QString&)> sink) { status_sink_ = std::move(sink); }
    void set_progress_sink(std::function<void(int, int)> sink) { progress_sink_ = std::move(sink); }
    // Told when the Upload entry and its buttons are to follow the upload.
    void set_commands_sink(std::function<void()> sink) { commands_sink_ = std::move(sink); }
    // The Download window while it is loaded, else null.
    Download* download_window() const { return download_; }
    // Whether a long loop of a command lets the window system run now: the
    // command is not done, and its tables may be half changed.
    bool yielding() const { return yielding_ > 0; }
    // What the link last put in the Add IR Code dialog's status line.
    const std::string& editir_status_text() const { return editir_status_; }

    void message(const std::string& title, const std::string& text, Icon icon) override;
    Answer ask(const std::string& title, const std::string& text, Buttons buttons, Icon icon) override;
    std::optional<std::string> open_file(const std::string& title, const std::string& filter) override;
    std::optional<std::string> save_file(const std::string& title, const std::string& filter,
                                         const std::string& suggested) override;
    ErrorWindowAnswer error_window(const std::string& title, const std::vector<std::string>& texts,
                                   const std::vector<std::string>& rows) override;
    Answer key_error(const std::string& text, const std::string& confirm) override;
    void status(const std::string& text) override;
    void progress(int value, int maximum) override;
    void wait_cursor(bool on) override;
    void repaint() override;
    void yield() override;
    void download_window_show(const std::string& caption, bool progress_bar) override;
    void download_window_hide() override;
    void download_window_unload() override;
    void download_progress(int value, int maximum) override;
    void download_activity(const std::string& text) override;
    void upload_commands_enabled(bool enabled) override;
    void editir_status(const std::string& text) override;

private:
    QWidget* parent_ = nullptr;
    std::function<void(const QString&)> status_sink_;
    std::function<void(int, int)> progress_sink_;
    std::function<void()> commands_sink_;
    Download* download_ = nullptr;
    std::string editir_status_;
    int yielding_ = 0;
};

// Gives the Ui port its frame: the parent of its boxes and windows, the status
// line, the progress bar and the commands that follow an upload.
void attach_frame(QtUi& ui, MDIForm1& frame);

// "Data Config File (*.kcf)|*.kcf" in the form of Qt's file dialogs:
// "Data Config File (*.kcf)", one filter a line.
QString qt_file_filter(const std::string& filter);

}  // namespace tesselo
