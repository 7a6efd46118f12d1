#include "core/document/scripted_ui.h"

namespace tesselo {

std::string quoted(const std::string& text)
{
    std::string q = "\"";
    for (char c : text) {
        switch (c) {
        case '\\': q += "\\\\"; break;
        case '"': q += "\\\""; break;
        case '\r': q += "\\r"; break;
        case '\n': q += "\\n"; break;
        default: q += c;
        }
    }
    return q + "\"";
}

void ScriptedUi::message(const std::string& title, const std::string& text, Icon)
{
    out_ << "message " << quoted(title) << ' ' << quoted(text) << '\n';
}

std::optional<std::string> ScriptedUi::take_answer(std::initializer_list<const char*> words)
{
    if (answers_.empty()) return std::nullopt;
    for (const char* w : words)
        if (answers_.front() == w) {
            std::string word = answers_.front();
            answers_.pop_front();
            return word;
        }
    return std::nullopt;
}

Answer ScriptedUi::ask(const std::string& title, const std::string& text, Buttons buttons, Icon)
{
    std::optional<std::string> word;
    switch (buttons) {
    case Buttons::ok: word = take_answer({"ok"}); break;
    case Buttons::ok_cancel: word = take_answer({"ok", "cancel"}); break;
    case Buttons::yes_no: word = take_answer({"yes", "no"}); break;
    case Buttons::yes_no_cancel: word = take_answer({"yes", "no", "cancel"}); break;
    }
    if (!word) {
        // An OK-only box needs no answer; any other question does.
        if (buttons == Buttons::ok) word = "ok";
        else {
            unanswered_ = true;
            word = "cancel";
            if (buttons == Buttons::yes_no) word = "no";
        }
    }
    out_ << "ask " << quoted(title) << ' ' << quoted(text) << " -> " << *word << '\n';
    if (*word == "yes") return Answer::yes;
    if (*word == "no") return Answer::no;
    if (*word == "ok") return Answer::ok;
    return Answer::cancel;
}

std::optional<std::string> ScriptedUi::take_file()
{
    if (answers_.empty() || answers_.front().rfind("file:", 0) != 0) return std::nullopt;
    std::string path = answers_.front().substr(5);
    answers_.pop_front();
    return path;
}

std::optional<std::string> ScriptedUi::open_file(const std::string&, const std::string&) { return take_file(); }

std::optional<std::string> ScriptedUi::save_file(const std::string&, const std::string&, const std::string&)
{
    return take_file();
}

Answer ScriptedUi::key_error(const std::string& text, const std::string& confirm)
{
    return ask(title_main, text + "\r\n" + confirm, Buttons::ok_cancel, Icon::critical);
}

ErrorWindowAnswer ScriptedUi::error_window(const std::string& title, const std::vector<std::string>& texts,
                                           const std::vector<std::string>& rows)
{
    std::string text;
    const auto line = [&text](const std::string& l) { text += (text.empty() ? "" : "\n") + l; };
    if (!texts.empty()) line(texts.front());
    for (const auto& row : rows) line(row);
    for (std::size_t i = 1; i < texts.size(); ++i) line(texts[i]);
    auto word = take_answer({"continue", "giveup"});
    if (!word) {
        unanswered_ = true;
        word = "closed";
    }
    out_ << "ask " << quoted(title) << ' ' << quoted(text) << " -> " << *word << '\n';
    if (*word == "continue") return ErrorWindowAnswer::go_on;
    if (*word == "giveup") return ErrorWindowAnswer::give_up;
    return ErrorWindowAnswer::closed;
}

void ScriptedUi::status(const std::string& text) { out_ << "status " << quoted(text) << '\n'; }

void ScriptedUi::editir_status(const std::string& text) { out_ << "status " << quoted(text) << '\n'; }

void ScriptedUi::download_window_show(const std::string& caption, bool progress_bar)
{
    download_window.loaded = true;
    download_window.visible = true;
    download_window.caption = caption;
    download_window.progress_bar = progress_bar;
}

void ScriptedUi::download_window_unload() { download_window = DownloadWindow{}; }

void ScriptedUi::download_progress(int value, int maximum)
{
    download_window.value = value;
    download_window.maximum = maximum;
}

}  // namespace tesselo
