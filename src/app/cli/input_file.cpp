#include "app/cli/input_file.h"

#include <cerrno>
#include <filesystem>
#include <iostream>
#include <system_error>

#include "app/cli/cli_context.h"
#include "core/document/open_command.h"
#include "core/image/image_file.h"
#include "core/image/open_state.h"

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

int open_input_document(CliContext& ctx, const std::string& path, const std::string& on_fault)
{
    std::vector<std::uint8_t> bytes;
    if (!read_input_file(path, bytes)) return -exit_usage;
    ctx.ui.queue_answer(on_fault == "cancel" ? "giveup" : "continue");
    ctx.ui.queue_answer(on_fault == "correct" ? "yes" : "no");
    const int document = open_image(ctx.app, path, std::move(bytes));
    if (document >= 0) return document;
    return ctx.app.open_state().file_corrupted ? -exit_usage : -exit_refused;
}

void report_corrupted(const std::string& path) { std::cerr << "tesselo-cli: " << path << ": file is corrupted\n"; }

}  // namespace tesselo::cli
