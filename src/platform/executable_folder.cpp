#include "platform/executable_folder.h"

namespace tesselo {

std::filesystem::path executable_folder()
{
    std::error_code ec;
    const auto exe = std::filesystem::read_symlink("/proc/self/exe", ec);
    return ec ? std::filesystem::path{} : exe.parent_path();
}

}  // namespace tesselo
