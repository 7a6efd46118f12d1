#pragma once

#include <chrono>
#include <filesystem>
#include <string>

namespace tesselo {

class Application;

// The question at start, when recovery/ holds copies of unsaved documents.
inline const std::string recovery_question = "Recover the unsaved documents kept when the editor stopped?";
// In the question, a document never saved, and a copy that cannot be read.
inline const std::string recovery_never_saved = "(never saved)";
inline const std::string recovery_damaged = "(damaged)";

// How long a declined copy is kept.
inline constexpr std::chrono::hours declined_kept_for{24 * 7};

// At start, when no other editor runs on the home folder: removes the
// declined copies older than a week, then asks once whether to recover the
// copies of recovery/, naming each. Yes opens each, checked as Open checks a
// file, as a changed document with its title and path; a copy the user gives
// up on, or that cannot be read, is declined. No declines them all. Returns
// the number of documents recovered.
int offer_recovery(Application& app);

// Removes what a write cut short by a kill left in recovery/: the scratch
// files named ".NAME.NNN.saving" (the copy itself, whole, stands beside them
// or never was). Only an editor that is alone on the home folder calls it.
void remove_cut_short_copies(const std::filesystem::path& home);

// Moves a copy to recovery/declined/, where it is kept a week from now.
void decline_recovery_copy(const std::filesystem::path& home, const std::filesystem::path& copy);

// Removes the declined copies that were declined longer than a week before `now`.
void remove_old_declined(const std::filesystem::path& home,
                         std::filesystem::file_time_type now = std::filesystem::file_time_type::clock::now());

}  // namespace tesselo
