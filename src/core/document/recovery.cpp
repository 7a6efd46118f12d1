#include "core/document/recovery.h"

#include <cstdio>
#include <random>

#include "core/document/clock.h"
#include "core/document/file_store.h"
#include "core/document/lifecycle.h"
#include "core/document/recovery_copy.h"
#include "core/image/image_writer.h"
#include "core/model/configuration.h"

namespace tesselo {

namespace fs = std::filesystem;

std::uint64_t image_hash(const std::vector<std::uint8_t>& bytes)
{
    std::uint64_t hash = 14695981039346656037ULL;
    for (auto b : bytes) {
        hash ^= b;
        hash *= 1099511628211ULL;
    }
    return hash;
}

RecoveryKeeper::RecoveryKeeper(Application& app) : app_(app), scratch_(std::make_unique<Configuration>()) {}

RecoveryKeeper::~RecoveryKeeper() = default;

void RecoveryKeeper::touch(int slot)
{
    if (slot < 0 || slot >= document_slots) return;
    Entry& e = entries_[static_cast<std::size_t>(slot)];
    const std::uint32_t now = app_.clock().tick_count();
    if (!e.touched) e.first_touch = now;
    e.touched = true;
    e.last_touch = now;
}

void RecoveryKeeper::edit_states_changed()
{
    // The journal tells of an edit without naming the document: each open
    // one is looked at when the pause comes.
    for (const Document& d : app_.documents()) touch(d.slot);
}

void RecoveryKeeper::tick()
{
    const std::uint32_t now = app_.clock().tick_count();
    for (const Document& d : app_.documents()) {
        Entry& e = entries_[static_cast<std::size_t>(d.slot)];
        if (!e.touched) continue;
        if (now - e.last_touch < quiet_ms && now - e.first_touch < longest_ms) continue;
        refresh(d.slot, d.title);
    }
}

std::vector<std::uint8_t> RecoveryKeeper::file_bytes(int slot)
{
    // Save recomputes the running sums in the tables it packs; the copy is
    // made from tables of its own, so that keeping it changes no document.
    *scratch_ = app_.config(slot);
    return configuration_file_bytes(*scratch_);
}

void RecoveryKeeper::remove_copy(Entry& e)
{
    if (!e.copy.empty()) {
        std::error_code ec;
        fs::remove(e.copy, ec);
    }
    e.copy.clear();
    e.written_hash.reset();
}

void RecoveryKeeper::refresh(int slot, const std::string& title)
{
    Entry& e = entries_[static_cast<std::size_t>(slot)];
    e.touched = false;
    RecoveryCopy copy;
    copy.image = file_bytes(slot);
    if (copy.image.empty()) return;
    const std::uint64_t hash = image_hash(copy.image);
    if (e.file_hash == hash) {
        remove_copy(e);
        return;
    }
    if (e.written_hash == hash) return;
    copy.title = title;
    copy.path = is_untitled(title) ? std::string{} : title;
    copy.time = recovery_time_text(app_.clock().local_time());
    const fs::path folder = app_.home() / recovery_folder_name;
    std::error_code ec;
    fs::create_directories(folder, ec);
    if (session_.empty()) {
        // The copies of one run of the editor carry a name of their own, so
        // that two editors on one home folder never write each other's.
        std::random_device random;
        char name[24];
        std::snprintf(name, sizeof name, "%08x%08x", random(), random());
        session_ = name;
    }
    const fs::path file =
        e.copy.empty() ? folder / (session_ + "-" + std::to_string(slot + 1) + recovery_copy_extension) : e.copy;
    if (app_.files().replace_file(file.string(), encode_recovery_copy(copy))) {
        // Tried again after the next pause: the disk may have room by then.
        touch(slot);
        return;
    }
    e.copy = file;
    e.written_hash = hash;
}

void RecoveryKeeper::matches_file(int slot)
{
    if (slot < 0 || slot >= document_slots) return;
    Entry& e = entries_[static_cast<std::size_t>(slot)];
    remove_copy(e);
    e.touched = false;
    e.file_hash = image_hash(file_bytes(slot));
}

void RecoveryKeeper::adopt(int slot, const fs::path& copy)
{
    if (slot < 0 || slot >= document_slots) return;
    Entry& e = entries_[static_cast<std::size_t>(slot)];
    // No file holds what the copy holds: it stays until a save or a close,
    // and the next edit writes it again.
    e = Entry{};
    e.copy = copy;
}

std::optional<fs::path> RecoveryKeeper::copy_of(int slot) const
{
    const Entry& e = entries_[static_cast<std::size_t>(slot)];
    if (e.copy.empty()) return std::nullopt;
    return e.copy;
}

void RecoveryKeeper::document_opened(int document)
{
    // A new document is what an untouched new file would be: nothing to
    // keep until it is edited. An opened one is told again with its tables.
    matches_file(app_.documents()[static_cast<std::size_t>(document)].slot);
}

void RecoveryKeeper::document_closed(int slot)
{
    if (slot < 0 || slot >= document_slots) return;
    Entry& e = entries_[static_cast<std::size_t>(slot)];
    remove_copy(e);
    e = Entry{};
}

}  // namespace tesselo
