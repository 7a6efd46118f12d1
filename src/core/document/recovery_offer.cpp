#include "core/document/recovery_offer.h"

#include <vector>

#include "core/app/application.h"
#include "core/document/lifecycle.h"
#include "core/document/open_command.h"
#include "core/document/recovery.h"
#include "core/document/recovery_copy.h"
#include "core/document/ui.h"

namespace tesselo {

namespace fs = std::filesystem;

namespace {

std::string question_line(const RecoveryListing& listing)
{
    if (!listing.copy) return listing.file.filename().string() + "  " + recovery_damaged;
    const RecoveryCopy& c = *listing.copy;
    return document_display_name(c.title) + "  " + (c.path.empty() ? recovery_never_saved : c.path) + "  " + c.time;
}

bool all_slots_taken(const Application& app)
{
    for (auto used : app.slot_in_use)
        if (!used) return false;
    return true;
}

}  // namespace

void decline_recovery_copy(const fs::path& home, const fs::path& copy)
{
    const fs::path folder = home / recovery_folder_name / declined_folder_name;
    std::error_code ec;
    fs::create_directories(folder, ec);
    const fs::path target = folder / copy.filename();
    fs::rename(copy, target, ec);
    // The week counts from now, not from the last edit.
    if (!ec) fs::last_write_time(target, fs::file_time_type::clock::now(), ec);
}

void remove_cut_short_copies(const fs::path& home)
{
    std::error_code ec;
    std::vector<fs::path> scratch;
    for (fs::directory_iterator it(home / recovery_folder_name, ec), end; !ec && it != end; it.increment(ec)) {
        const std::string name = it->path().filename().string();
        const std::string tail = ".saving";
        if (name.size() > tail.size() + 1 && name.front() == '.' &&
            name.compare(name.size() - tail.size(), tail.size(), tail) == 0)
            scratch.push_back(it->path());
    }
    for (const auto& file : scratch) fs::remove(file, ec);
}

void remove_old_declined(const fs::path& home, fs::file_time_type now)
{
    std::error_code ec;
    for (const RecoveryListing& l : list_recovery_copies(home / recovery_folder_name / declined_folder_name, true)) {
        const auto written = fs::last_write_time(l.file, ec);
        if (!ec && now - written > declined_kept_for) fs::remove(l.file, ec);
    }
}

int offer_recovery(Application& app)
{
    remove_old_declined(app.home());
    remove_cut_short_copies(app.home());
    const auto copies = list_recovery_copies(app.home() / recovery_folder_name);
    if (copies.empty()) return 0;
    std::string text = recovery_question + "\n";
    for (const RecoveryListing& l : copies) text += "\n" + question_line(l);
    if (app.ui().ask(title_main, text, Buttons::yes_no, Icon::question) != Answer::yes) {
        for (const RecoveryListing& l : copies) decline_recovery_copy(app.home(), l.file);
        return 0;
    }
    int recovered = 0;
    for (const RecoveryListing& l : copies) {
        if (!l.copy) {
            file_is_corrupted(app);
            decline_recovery_copy(app.home(), l.file);
            continue;
        }
        // Checked as any file the Open command reads, its faults in the error window.
        const int document = open_image(app, l.copy->title, l.copy->image);
        if (document < 0) {
            // Ten documents open: the rest wait for the next start.
            if (all_slots_taken(app)) break;
            decline_recovery_copy(app.home(), l.file);
            continue;
        }
        app.recovery().adopt(app.documents()[static_cast<std::size_t>(document)].slot, l.file);
        ++recovered;
    }
    return recovered;
}

}  // namespace tesselo
