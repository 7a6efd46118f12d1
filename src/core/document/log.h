#pragma once

#include <filesystem>
#include <string>

#include "core/document/clock.h"

namespace tesselo {

// "logfile_" plus year, two-digit month and two-digit day, plus ".txt".
std::string log_file_name(const LocalTime& date);

// Appends one line, the text between double quotes. The file is opened and
// closed for each line, so that a crash loses nothing. Returns false when the
// file could not be written.
bool append_log_line(const std::filesystem::path& file, const std::string& text);

}  // namespace tesselo
