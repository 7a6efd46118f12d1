#include "core/document/home_folder.h"

#include <cstdlib>

namespace tesselo {

namespace fs = std::filesystem;

fs::path resolve_home(const HomeFolderSources& s)
{
    if (s.option && !s.option->empty()) return *s.option;
    if (s.environment && !s.environment->empty()) return *s.environment;
    std::error_code ec;
    if (!s.executable_folder.empty() && fs::is_directory(s.executable_folder / data_base_folder, ec))
        return s.executable_folder;
    if (s.xdg_data_home && !s.xdg_data_home->empty()) return *s.xdg_data_home / "tesselo";
    if (s.user_home && !s.user_home->empty()) return *s.user_home / ".local" / "share" / "tesselo";
    return fs::current_path(ec) / "tesselo";
}

HomeFolderSources home_sources_from_environment(const fs::path& executable_folder, std::optional<fs::path> option)
{
    HomeFolderSources s;
    s.option = std::move(option);
    s.executable_folder = executable_folder;
    if (const char* v = std::getenv("TESSELO_HOME")) s.environment = fs::path(v);
    if (const char* v = std::getenv("XDG_DATA_HOME")) s.xdg_data_home = fs::path(v);
    if (const char* v = std::getenv("HOME")) s.user_home = fs::path(v);
    return s;
}

bool prepare_home(const fs::path& home, const std::vector<fs::path>& sources, std::string& why)
{
    std::error_code ec;
    fs::create_directories(home, ec);
    if (ec) {
        why = ec.message();
        return false;
    }
    const fs::path data = home / data_base_folder;
    if (fs::exists(data, ec)) return true;
    for (const fs::path& source : sources) {
        if (source.empty() || !fs::is_directory(source, ec) || fs::equivalent(source, data, ec)) continue;
        fs::copy(source, data, fs::copy_options::recursive, ec);
        if (ec) {
            why = ec.message();
            return false;
        }
        return true;
    }
    return true;
}

}  // namespace tesselo
