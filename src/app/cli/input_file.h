#pragma once

#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

namespace tesselo::cli {

// Reads the configuration file that a command was given, as the editor's
// Open reads it. When it cannot, prints "tesselo-cli: cannot read FILE: WHY"
// (the same words for every command) and answers false: exit status 2.
bool read_input_file(const std::string& path, std::vector<std::uint8_t>& bytes);

// Opens the script that a command was given, a file or a pipe (not a
// folder). When it cannot, prints "tesselo-cli: cannot read FILE: WHY" and
// answers false: exit status 2.
bool open_input_script(const std::string& path, std::ifstream& in);

// Prints "tesselo-cli: FILE: file is corrupted": the bytes are no image.
void report_corrupted(const std::string& path);

}  // namespace tesselo::cli
