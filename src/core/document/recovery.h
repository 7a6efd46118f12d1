#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/app/application.h"
#include "core/model/limits.h"

namespace tesselo {

struct Configuration;

// Keeps a recovery copy of every document with changes that no file holds:
// the bytes Save would write, its title and path, in recovery/ of the home
// folder, so that a crash, a killed session or a power cut loses nothing.
// An edit only notes the tick it happened at; the copy is made by tick(),
// which the editor's timer calls a few times a second, once the user has
// paused, so that a burst of key presses is written once and no edit waits
// for the disk. A document that matches its file again (saved, or undone
// back to it) has no copy; a closed one neither.
class RecoveryKeeper final : public ApplicationListener {
public:
    // The pause after the last edit before the copy is written, and the
    // longest an unbroken run of edits goes without one.
    static constexpr std::uint32_t quiet_ms = 1000;
    static constexpr std::uint32_t longest_ms = 5000;

    explicit RecoveryKeeper(Application& app);
    ~RecoveryKeeper() override;
    RecoveryKeeper(const RecoveryKeeper&) = delete;
    RecoveryKeeper& operator=(const RecoveryKeeper&) = delete;

    // Writes or removes the copies whose time has come.
    void tick();
    // The document's tables are what its file holds (opened, saved): its copy goes.
    void matches_file(int slot);
    // The document was recovered from `copy`: it holds changes no file has,
    // and that copy is its copy from now on.
    void adopt(int slot, const std::filesystem::path& copy);
    // The file that holds the document's copy, or nothing while it has none.
    std::optional<std::filesystem::path> copy_of(int slot) const;
    // Whether an edit waits for its copy.
    bool pending(int slot) const { return entries_[static_cast<std::size_t>(slot)].touched; }

    // ApplicationListener: every notice of a change marks the document; the
    // image tells at the pause whether anything changed.
    void document_opened(int document) override;
    void document_closed(int slot) override;
    void tree_changed(int slot) override { touch(slot); }
    void selection_changed(int slot) override { touch(slot); }
    void page_window_changed(int slot, const std::string&) override { touch(slot); }
    void page_key_changed(int slot, const std::string&, int) override { touch(slot); }
    void edit_states_changed() override;

private:
    struct Entry {
        bool touched = false;
        std::uint32_t first_touch = 0;
        std::uint32_t last_touch = 0;
        // The hash of the bytes its file holds; nothing when no file does.
        std::optional<std::uint64_t> file_hash;
        std::optional<std::uint64_t> written_hash;
        std::filesystem::path copy;
    };

    void touch(int slot);
    void refresh(int slot, const std::string& title);
    // The bytes Save would write for the slot, made from a copy of its tables.
    std::vector<std::uint8_t> file_bytes(int slot);
    void remove_copy(Entry& entry);

    Application& app_;
    std::string session_;
    std::unique_ptr<Configuration> scratch_;
    std::array<Entry, document_slots> entries_{};
};

// FNV-1a over the bytes: tells two images apart.
std::uint64_t image_hash(const std::vector<std::uint8_t>& bytes);

}  // namespace tesselo
