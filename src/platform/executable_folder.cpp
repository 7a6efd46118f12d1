#include "platform/executable_folder.h"

#include "core/document/home_folder.h"

namespace tesselo {

std::filesystem::path executable_folder()
{
    std::error_code ec;
    const auto exe = std::filesystem::read_symlink("/proc/self/exe", ec);
    return ec ? std::filesystem::path{} : exe.parent_path();
}

std::filesystem::path installed_data_folder()
{
    const auto bin = executable_folder();
    if (bin.empty()) return {};
    return (bin / TESSELO_DATA_FROM_BIN).lexically_normal();
}

std::vector<std::filesystem::path> data_base_sources()
{
    const auto bin = executable_folder();
    if (bin.empty()) return {};
    return {bin / data_base_folder, installed_data_folder() / data_base_folder};
}

}  // namespace tesselo
