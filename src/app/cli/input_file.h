#pragma once

#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

namespace tesselo::cli {

struct CliContext;

// Reads the configuration file that a command was given, as the editor's
// Open reads it. When it cannot, prints "tesselo-cli: cannot read FILE: WHY"
// (the same words for every command) and answers false: exit status 2.
bool read_input_file(const std::string& path, std::vector<std::uint8_t>& bytes);

// Opens the script that a command was given, a file or a pipe (not a
// folder). When it cannot, prints "tesselo-cli: cannot read FILE: WHY" and
// answers false: exit status 2.
bool open_input_script(const std::string& path, std::ifstream& in);

// Opens FILE as the editor's Open does, the error window answered as
// --on-fault says (cancel, keep or correct). The document, or the exit
// status as a negative number.
int open_input_document(CliContext& ctx, const std::string& path, const std::string& on_fault);

// Prints "tesselo-cli: FILE: file is corrupted": the bytes are no image.
void report_corrupted(const std::string& path);

}  // namespace tesselo::cli
