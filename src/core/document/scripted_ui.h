#pragma once

#include <deque>
#include <ostream>
#include <string>

#include "core/document/ui.h"

namespace tesselo {

// The Ui of the command line and the tests: every message, question and
// status text is printed as one line, and questions and file dialogs are
// answered from a queue ("yes", "no", "cancel", "ok", "continue", "giveup",
// "file:PATH").
class ScriptedUi : public Ui {
public:
    explicit ScriptedUi(std::ostream& out) : out_(out) {}

    void queue_answer(const std::string& word) { answers_.push_back(word); }
    // Puts an answer before every queued one: the next dialog takes it.
    void queue_answer_first(const std::string& word) { answers_.push_front(word); }
    void clear_answers() { answers_.clear(); }
    std::size_t queued() const { return answers_.size(); }
    // Set when a question found no answer in the queue (it was taken as Cancel).
    bool unanswered() const { return unanswered_; }
    void reset_unanswered() { unanswered_ = false; }

    void message(const std::string& title, const std::string& text, Icon icon) override;
    Answer ask(const std::string& title, const std::string& text, Buttons buttons, Icon icon) override;
    std::optional<std::string> open_file(const std::string& title, const std::string& filter) override;
    std::optional<std::string> save_file(const std::string& title, const std::string& filter,
                                         const std::string& suggested) override;
    // Printed as a question whose text is the window's lines and rows, one
    // after the other; answered "continue" or "giveup" from the queue, and
    // "closed" (unanswered) when neither is queued.
    ErrorWindowAnswer error_window(const std::string& title, const std::vector<std::string>& texts,
                                   const std::vector<std::string>& rows) override;
    void status(const std::string& text) override;
    void progress(int, int) override {}
    void wait_cursor(bool) override {}
    void repaint() override {}
    void yield() override {}
    // Printed as a question under the main title, answered "ok" or "cancel".
    Answer key_error(const std::string& text, const std::string& confirm) override;
    void download_window_show(const std::string& caption, bool progress_bar) override;
    void download_window_hide() override { download_window.visible = false; }
    void download_window_unload() override;
    void download_progress(int value, int maximum) override;
    void download_activity(const std::string& text) override { download_window.activity = text; }
    void upload_commands_enabled(bool enabled) override { upload_enabled = enabled; }
    // Printed as a status text, like the main status line.
    void editir_status(const std::string& text) override;

    // What the Download window shows now.
    struct DownloadWindow {
        bool loaded = false;
        bool visible = false;
        std::string caption;
        bool progress_bar = false;
        int value = 0;
        int maximum = 100;
        std::string activity;
    };
    DownloadWindow download_window;
    bool upload_enabled = true;

    // The next queued word if it is one of `words`, taken from the queue.
    std::optional<std::string> take_answer(std::initializer_list<const char*> words);

protected:
    std::ostream& out() { return out_; }

private:
    std::optional<std::string> take_file();

    std::ostream& out_;
    std::deque<std::string> answers_;
    bool unanswered_ = false;
};

// A text between double quotes, with \\, \", \r and \n escaped.
std::string quoted(const std::string& text);

}  // namespace tesselo
