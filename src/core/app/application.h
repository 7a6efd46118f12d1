#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/ir/current_code.h"
#include "core/keys/key_selection.h"
#include "core/keys/step_edit_state.h"
#include "core/link/link.h"
#include "core/model/configuration.h"
#include "core/model/limits.h"

namespace tesselo {

class Ui;
class Clock;
class Launcher;
class FileStore;
class TreeModel;
class Journal;
class PageWindows;
struct TreeSelection;
struct EditState;
struct TreeCommands;
struct OpenState;
struct Clipboards;
class MyDatabaseStore;
class RecoveryKeeper;

// An open document window (a mainform): the slot its tables live in (its tag)
// and its title, "Untitled" and a number, or the file's path.
struct Document {
    int slot = 0;
    std::string title;
};

// Told when documents come and go, so that the windows can follow.
class ApplicationListener {
public:
    virtual ~ApplicationListener() = default;
    virtual void document_opened(int /*document*/) {}
    virtual void document_retitled(int /*document*/) {}
    // The document's page windows and the properties window are to be hidden.
    virtual void document_views_hidden(int /*document*/) {}
    // The close was refused: what was hidden comes back as it was.
    virtual void document_views_restored(int /*document*/) {}
    virtual void document_closed(int /*slot*/) {}
    virtual void active_document_changed() {}

    // The tree of document slot `slot` changed: nodes added, removed or
    // rebuilt from the tables (TreeModel of app.tree(slot)).
    virtual void tree_changed(int /*slot*/) {}
    // The tree's selection moved, or the property panel shows other data
    // (app.selection()).
    virtual void selection_changed(int /*slot*/) {}
    // A Remote window of a page was opened; its caption is the page's node key.
    virtual void page_window_opened(int /*slot*/, const std::string& /*caption*/) {}
    // A Remote window is to be closed: its page is gone (after undo or redo).
    virtual void page_window_closed(int /*slot*/, const std::string& /*caption*/) {}
    // A Remote window is to be drawn again from the tables: its 12 key places,
    // its label texts and its page counter (pagelabel).
    virtual void page_window_changed(int /*slot*/, const std::string& /*caption*/) {}
    // One key of a Remote window is to be drawn again: for a side button its
    // LCD row box alone, for a hard key its picture.
    virtual void page_key_changed(int /*slot*/, const std::string& /*caption*/, int /*picture*/) {}
    // The enable states of Undo, Redo and Paste changed (app.edit_state()).
    virtual void edit_states_changed() {}
    // The properties window is to be shown as a child of the frame.
    virtual void properties_requested() {}
    // The properties window is to be shown with its Label tab forward.
    virtual void label_requested() {}
};

// The one application object: ten document slots with their tables, the open
// documents, the ports to the outside world. Its tables are allocated once.
class Application {
public:
    Application(Ui& ui, Clock& clock, Launcher& launcher, FileStore& files, std::filesystem::path home);
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    Ui& ui() { return ui_; }
    Clock& clock() { return clock_; }
    Launcher& launcher() { return launcher_; }
    // Where saves put their files.
    FileStore& files() { return files_; }
    const std::filesystem::path& home() const { return home_; }

    Configuration& config(int slot) { return *slots_[static_cast<std::size_t>(slot)]; }
    // The tree of each document slot, kept for the life of the process.
    TreeModel& tree(int slot) { return *trees_[static_cast<std::size_t>(slot)]; }

    // Application-wide state: the undo and redo journals, the tree's
    // selection, the enable states, the open Remote windows, the tree's
    // installed operations, and what the Open command carries between its steps.
    Journal& journal() { return *journal_; }
    TreeSelection& selection() { return *selection_; }
    EditState& edit_state() { return *edit_state_; }
    PageWindows& page_windows() { return *page_windows_; }
    TreeCommands& tree_commands() { return *tree_commands_; }
    OpenState& open_state() { return *open_state_; }
    // The key clipboard (and the device and page clipboard's buffers beside it).
    Clipboards& clipboards() { return *clipboards_; }
    // My Database, read from the home folder on first use (the frame reads it
    // at start); its files are created when they are missing.
    MyDatabaseStore& my_database();
    // The recovery copies of the documents with unsaved changes.
    RecoveryKeeper& recovery() { return *recovery_; }

    // One byte per slot: 0 free, 1 in use.
    std::array<std::uint8_t, document_slots> slot_in_use{};

    // The IR code under work in the IR dialogs, shared by all documents.
    CurrentIrCode current_ir;

    // The open document windows, in the order they were opened.
    std::vector<Document>& documents() { return documents_; }
    int active_document() const { return active_; }
    Document* active();
    void activate(int document);
    // The document window of a slot, or -1.
    int document_of_slot(int slot) const;

    int add_document(int slot, const std::string& title);
    void remove_document(int document);
    void set_title(int document, const std::string& title);

    void add_listener(ApplicationListener* listener);
    void remove_listener(ApplicationListener* listener);
    template <typename F>
    void notify(F&& f)
    {
        for (auto* l : std::vector<ApplicationListener*>(listeners_)) f(*l);
    }

    // The key selected on a page canvas, one for the application.
    KeySelection key_selection;
    // Whether the Key_error window was shown for the selected key.
    KeyErrorState key_error;
    // The properties form's edit mode for a double-clicked step row.
    StepEditState step_edit;

    // Where save_tofile in download mode hands the finished image; the file
    // then receives the image as it went to the remote, changed bytes included.
    std::function<void(std::vector<std::uint8_t>& image, std::size_t length)> download_hook;

    // The link to the remote, one for the whole program, and the flags that
    // keep a second upload or learn from starting while one runs.
    Link& link() { return link_; }
    ExchangeFlags& flags() { return flags_; }

    // One line to the day's log file in the home folder.
    void write_log(const std::string& text);

private:
    Ui& ui_;
    Clock& clock_;
    Launcher& launcher_;
    FileStore& files_;
    std::filesystem::path home_;
    Link link_{clock_};
    ExchangeFlags flags_;
    std::array<std::unique_ptr<Configuration>, document_slots> slots_;
    std::array<std::unique_ptr<TreeModel>, document_slots> trees_;
    std::unique_ptr<Journal> journal_;
    std::unique_ptr<TreeSelection> selection_;
    std::unique_ptr<EditState> edit_state_;
    std::unique_ptr<PageWindows> page_windows_;
    std::unique_ptr<TreeCommands> tree_commands_;
    std::unique_ptr<OpenState> open_state_;
    std::unique_ptr<Clipboards> clipboards_;
    std::unique_ptr<MyDatabaseStore> my_database_;
    std::unique_ptr<RecoveryKeeper> recovery_;
    std::vector<Document> documents_;
    int active_ = -1;
    std::vector<ApplicationListener*> listeners_;
};

}  // namespace tesselo
