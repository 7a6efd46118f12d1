#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tesselo {

// The most bytes a configuration file may have. Its image and tail stay under
// 1 MiB whatever the tables hold (the largest is about 862 KiB); the bound
// leaves a clear margin above that.
inline constexpr std::size_t image_file_limit = std::size_t{4} << 20;

// Reads the configuration file at `path` whole into `bytes`. Anything that is
// not a regular file, or that holds more than image_file_limit bytes, is
// refused before it can hang the program or grow its memory: reading stops at
// the bound whatever the file says of its own size. Nothing when the file was
// read; else the words that say why not, the same for every command:
// "No such file or directory", "Is a directory", "Not a regular file",
// "File too large", or the system's words for a file that would not open or read.
std::optional<std::string> read_image_file(const std::string& path, std::vector<std::uint8_t>& bytes);

}  // namespace tesselo
