#include "app/cli/input_file.h"

#include <cerrno>
#include <filesystem>
#include <iostream>
#include <system_error>

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

bool open_input_script(const std::string& path, std::ifstream& in)
{
    std::string why;
    std::error_code ec;
    if (std::filesystem::is_directory(path, ec)) {
        why = std::make_error_code(std::errc::is_a_directory).message();
    } else {
        errno = 0;
        in.open(path);
        if (!in) why = std::generic_category().message(errno ? errno : EIO);
    }
    if (why.empty()) return true;
    std::cerr << "tesselo-cli: cannot read " << path << ": " << why << '\n';
    return false;
}

void report_corrupted(const std::string& path) { std::cerr << "tesselo-cli: " << path << ": file is corrupted\n"; }

}  // namespace tesselo::cli
