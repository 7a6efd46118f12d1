#include "app/cli/input_file.h"

#include <iostream>

#include "core/image/image_file.h"

namespace tesselo::cli {

bool read_input_file(const std::string& path, std::vector<std::uint8_t>& bytes)
{
    if (const auto why = read_image_file(path, bytes)) {
        std::cerr << "tesselo-cli: cannot read " << path << ": " << *why << '\n';
        return false;
    }
    return true;
}

void report_corrupted(const std::string& path) { std::cerr << "tesselo-cli: " << path << ": file is corrupted\n"; }

}  // namespace tesselo::cli
