#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "core/document/clock.h"

namespace tesselo {

// The folder below the home folder where unsaved documents are kept, and
// the one where the copies a user did not want wait a week before they go.
inline const std::string recovery_folder_name = "recovery";
inline const std::string declined_folder_name = "declined";
inline const std::string recovery_copy_extension = ".recovery";

// One unsaved document as it is kept: its title, the file it belongs to
// (empty for a document never saved), the local time it was written, and the
// bytes that Save would write for it.
struct RecoveryCopy {
    std::string title;
    std::string path;
    std::string time;
    std::vector<std::uint8_t> image;
};

// The copy's file: a few text lines (a first line that names the kind of
// file, then "title: ", "path: ", "time: " and "image: " with the image's
// length, a backslash, a line feed and a carriage return written "\\", "\n"
// and "\r"), an empty line, and the image's bytes, exactly that many.
std::vector<std::uint8_t> encode_recovery_copy(const RecoveryCopy& copy);
// Nothing when the bytes are not such a file, or the image is not whole.
std::optional<RecoveryCopy> decode_recovery_copy(const std::vector<std::uint8_t>& bytes);

// A copy as the folders hold it; `copy` is empty for a file that cannot be read.
struct RecoveryListing {
    std::filesystem::path file;
    bool declined = false;
    std::optional<RecoveryCopy> copy;
};

// The copies in `folder` (recovery/ or recovery/declined/), oldest first.
std::vector<RecoveryListing> list_recovery_copies(const std::filesystem::path& folder, bool declined = false);
// The copies of the home folder: the unsaved ones, then the declined ones.
std::vector<RecoveryListing> all_recovery_copies(const std::filesystem::path& home);

// "2026-11-15 00:12:00"
std::string recovery_time_text(const LocalTime& time);

}  // namespace tesselo
