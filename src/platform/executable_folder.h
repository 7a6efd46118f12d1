#pragma once

#include <filesystem>
#include <vector>

namespace tesselo {

// The folder of the running program, from /proc/self/exe; empty if unknown.
std::filesystem::path executable_folder();

// The program's installed data (the "Data base" folder, the user guide):
// share/tesselo beside the bin folder that holds the program, so that an
// installation under any prefix, or a package unpacked anywhere, finds its
// own data. Empty if the program's folder is unknown.
std::filesystem::path installed_data_folder();

// Where a new home folder takes its "Data base" folder from: beside the
// program (a build tree, a portable copy), else the installed one.
std::vector<std::filesystem::path> data_base_sources();

}  // namespace tesselo
