#include "core/image/image_file.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace tesselo {

namespace {

std::string words_of(std::errc code) { return std::make_error_code(code).message(); }

}  // namespace

std::optional<std::string> read_image_file(const std::string& path, std::vector<std::uint8_t>& bytes)
{
    namespace fs = std::filesystem;
    bytes.clear();
    std::error_code ec;
    const fs::file_status status = fs::status(path, ec);
    if (ec) return ec.message();
    // A folder, a FIFO or a device is refused before it is opened: opening a
    // FIFO waits for a writer, and a device may never end.
    if (fs::is_directory(status)) return words_of(std::errc::is_a_directory);
    if (!fs::is_regular_file(status)) return "Not a regular file";
    const auto claimed = fs::file_size(path, ec);
    if (!ec && claimed > image_file_limit) return words_of(std::errc::file_too_large);

    errno = 0;
    std::ifstream in(path, std::ios::binary);
    if (!in) return errno ? std::generic_category().message(errno) : words_of(std::errc::io_error);
    // The size that the file claims is only a hint: reading stops as soon as
    // it passes the bound, and a file that grew beyond it is refused all the same.
    bytes.reserve(ec ? 0 : static_cast<std::size_t>(claimed));
    char chunk[65536];
    while (in && bytes.size() <= image_file_limit) {
        in.read(chunk, static_cast<std::streamsize>(sizeof chunk));
        bytes.insert(bytes.end(), chunk, chunk + in.gcount());
    }
    if (in.bad()) {
        bytes.clear();
        return words_of(std::errc::io_error);
    }
    if (bytes.size() > image_file_limit) {
        bytes.clear();
        return words_of(std::errc::file_too_large);
    }
    return std::nullopt;
}

}  // namespace tesselo
