#pragma once

#include <functional>

#include <QString>

#include "core/document/ui.h"

class QWidget;

namespace tesselo {

// The Ui port on Qt: message boxes with the system's titles and icons, the
// file dialogs, the wait cursor, and event processing for long loops. The
// frame hands it its status line and progress bar.
class QtUi final : public Ui {
public:
    void set_parent(QWidget* parent) { parent_ = parent; }
    void set_status_sink(std::function<void(const QString&)> sink) { status_sink_ = std::move(sink); }
    void set_progress_sink(std::function<void(int, int)> sink) { progress_sink_ = std::move(sink); }

    void message(const std::string& title, const std::string& text, Icon icon) override;
    Answer ask(const std::string& title, const std::string& text, Buttons buttons, Icon icon) override;
    std::optional<std::string> open_file(const std::string& title, const std::string& filter) override;
    std::optional<std::string> save_file(const std::string& title, const std::string& filter,
                                         const std::string& suggested) override;
    ErrorWindowAnswer error_window(const std::string& title, const std::vector<std::string>& texts,
                                   const std::vector<std::string>& rows) override;
    void status(const std::string& text) override;
    void progress(int value, int maximum) override;
    void wait_cursor(bool on) override;
    void repaint() override;
    void yield() override;

private:
    QWidget* parent_ = nullptr;
    std::function<void(const QString&)> status_sink_;
    std::function<void(int, int)> progress_sink_;
};

// "Data Config File (*.kcf)|*.kcf" in the form of Qt's file dialogs:
// "Data Config File (*.kcf)", one filter a line.
QString qt_file_filter(const std::string& filter);

}  // namespace tesselo
