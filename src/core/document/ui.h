#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tesselo {

enum class Icon { none, information, exclamation, critical, question };
enum class Buttons { ok, ok_cancel, yes_no, yes_no_cancel };
enum class Answer { ok, cancel, yes, no };
// ErrorWindow's outcome: Command1 (go on), Command2 (give up), or closed by its frame.
enum class ErrorWindowAnswer { go_on, give_up, closed };

// What core needs of the window system. The editor supplies message boxes and
// dialogs; the command line supplies a scripted one that prints and answers
// from a queue.
class Ui {
public:
    virtual ~Ui() = default;

    virtual void message(const std::string& title, const std::string& text, Icon icon) = 0;
    virtual Answer ask(const std::string& title, const std::string& text, Buttons buttons, Icon icon) = 0;
    // The file dialogs: the chosen path, or nothing when the user cancels.
    virtual std::optional<std::string> open_file(const std::string& title, const std::string& filter) = 0;
    virtual std::optional<std::string> save_file(const std::string& title, const std::string& filter,
                                                 const std::string& suggested) = 0;
    // ErrorWindow, modal: texts[0] stands above the list of faults `rows`,
    // texts[1] onward below it, the last being the question.
    virtual ErrorWindowAnswer error_window(const std::string& title, const std::vector<std::string>& texts,
                                           const std::vector<std::string>& rows) = 0;
    virtual void status(const std::string& text) = 0;
    virtual void progress(int value, int maximum) = 0;
    virtual void wait_cursor(bool on) = 0;
    virtual void repaint() = 0;
    // Lets the window system repaint during a long loop.
    virtual void yield() = 0;
    // The Key_error window: a key's list is broken. OK deletes the key's
    // data, Cancel changes nothing.
    virtual Answer key_error(const std::string& text, const std::string& confirm) = 0;

    // The modeless Download window of the link's transfers: its caption and
    // whether its progress bar ProgressBar2 shows; hidden, and unloaded.
    virtual void download_window_show(const std::string& caption, bool progress_bar) = 0;
    virtual void download_window_hide() = 0;
    virtual void download_window_unload() = 0;
    // ProgressBar2's value and maximum.
    virtual void download_progress(int value, int maximum) = 0;
    // The line under the animation that says what the transfer is doing now
    // (the block and the attempt), so that a remote that does not answer shows.
    virtual void download_activity(const std::string& text) = 0;
    // The Upload menu entry and the toolbar's buttons 16 and 5.
    virtual void upload_commands_enabled(bool enabled) = 0;
    // The status line (Label3) of the Add IR Code dialog, where the link's
    // exchanges put some of their words.
    virtual void editir_status(const std::string& text) = 0;
};

// The titles of the system's message boxes. All three are in use.
inline const std::string title_main = "Kelvaro Tesselo 3";
inline const std::string title_alt = "Kelvarzo Tesselo 3";
inline const std::string title_files = "Kelvaro Tessel 3";

// Shows the wait cursor for the life of the guard, so that every exit restores it.
class WaitCursor {
public:
    explicit WaitCursor(Ui& ui) : ui_(ui) { ui_.wait_cursor(true); }
    ~WaitCursor() { ui_.wait_cursor(false); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

private:
    Ui& ui_;
};

}  // namespace tesselo
