#pragma once

#include <filesystem>

namespace tesselo {

// The folder of the running program, from /proc/self/exe; empty if unknown.
std::filesystem::path executable_folder();

}  // namespace tesselo
