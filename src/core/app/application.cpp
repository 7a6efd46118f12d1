#include "core/app/application.h"

#include <algorithm>

#include "core/app/clipboards.h"
#include "core/document/clock.h"
#include "core/document/log.h"
#include "core/document/recovery.h"
#include "core/image/open_state.h"
#include "core/ir/my_database_store.h"
#include "core/tree/edit_state.h"
#include "core/tree/journal.h"
#include "core/tree/page_windows.h"
#include "core/tree/selection.h"
#include "core/tree/device_clipboard.h"
#include "core/tree/tree_commands.h"
#include "core/tree/tree_model.h"
#include "core/link/download.h"
#include "core/keys/key_edit.h"
#include "core/keys/properties_content.h"

namespace tesselo {

Application::Application(Ui& ui, Clock& clock, Launcher& launcher, FileStore& files, std::filesystem::path home)
    : ui_(ui), clock_(clock), launcher_(launcher), files_(files), home_(std::move(home))
{
    for (auto& slot : slots_) slot = std::make_unique<Configuration>();
    for (auto& tree : trees_) tree = std::make_unique<TreeModel>();
    journal_ = std::make_unique<Journal>();
    selection_ = std::make_unique<TreeSelection>();
    edit_state_ = std::make_unique<EditState>();
    page_windows_ = std::make_unique<PageWindows>();
    tree_commands_ = std::make_unique<TreeCommands>();
    open_state_ = std::make_unique<OpenState>();
    clipboards_ = std::make_unique<Clipboards>();
    install_key_edit_commands(*tree_commands_);
    install_tree_edit_commands(*tree_commands_);
    // Saving in download mode sends the image to the remote before the file is written.
    // The Label command brings the properties window's Label tab forward.
    tree_commands_->label = labelproperties;
    download_hook = [this](std::vector<std::uint8_t>& image, std::size_t length) {
        download_image(*this, image, length);
    };
    recovery_ = std::make_unique<RecoveryKeeper>(*this);
    add_listener(recovery_.get());
}

Application::~Application() { remove_listener(recovery_.get()); }

Document* Application::active()
{
    if (active_ < 0 || active_ >= static_cast<int>(documents_.size())) return nullptr;
    return &documents_[static_cast<std::size_t>(active_)];
}

void Application::activate(int document)
{
    if (document < -1 || document >= static_cast<int>(documents_.size())) return;
    active_ = document;
    notify([](ApplicationListener& l) { l.active_document_changed(); });
}

int Application::document_of_slot(int slot) const
{
    // The newest window of the slot: after a refused close a slot may be
    // taken again while the old window stays open.
    for (int i = static_cast<int>(documents_.size()) - 1; i >= 0; --i)
        if (documents_[static_cast<std::size_t>(i)].slot == slot) return i;
    return -1;
}

int Application::add_document(int slot, const std::string& title)
{
    documents_.push_back({slot, title});
    const int index = static_cast<int>(documents_.size()) - 1;
    notify([index](ApplicationListener& l) { l.document_opened(index); });
    activate(index);
    return index;
}

void Application::remove_document(int document)
{
    if (document < 0 || document >= static_cast<int>(documents_.size())) return;
    const int slot = documents_[static_cast<std::size_t>(document)].slot;
    documents_.erase(documents_.begin() + document);
    notify([slot](ApplicationListener& l) { l.document_closed(slot); });
    // As in any MDI frame, the window behind the closed one becomes active.
    activate(documents_.empty() ? -1 : static_cast<int>(documents_.size()) - 1);
}

void Application::set_title(int document, const std::string& title)
{
    if (document < 0 || document >= static_cast<int>(documents_.size())) return;
    documents_[static_cast<std::size_t>(document)].title = title;
    notify([document](ApplicationListener& l) { l.document_retitled(document); });
}

void Application::add_listener(ApplicationListener* listener) { listeners_.push_back(listener); }

void Application::remove_listener(ApplicationListener* listener)
{
    listeners_.erase(std::remove(listeners_.begin(), listeners_.end(), listener), listeners_.end());
}

void Application::write_log(const std::string& text)
{
    append_log_line(home_ / log_file_name(clock_.local_time()), text);
}

MyDatabaseStore& Application::my_database()
{
    if (!my_database_) {
        my_database_ = std::make_unique<MyDatabaseStore>(home_);
        my_database_->load();
    }
    return *my_database_;
}

}  // namespace tesselo
