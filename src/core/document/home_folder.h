#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tesselo {

// The folder of the IR library, the key list and the brand list.
inline const std::string data_base_folder = "Data base";

struct HomeFolderSources {
    std::optional<std::filesystem::path> option;       // --home DIR
    std::optional<std::filesystem::path> environment;  // TESSELO_HOME
    std::filesystem::path executable_folder;
    std::optional<std::filesystem::path> xdg_data_home;  // XDG_DATA_HOME
    std::optional<std::filesystem::path> user_home;      // HOME
};

// The program's folder, where the log, correct.log, temp.trl, the My Database
// files and the "Data base" folder live: the option, else the variable, else
// the executable's folder when it holds a "Data base" folder, else
// $XDG_DATA_HOME/tesselo (normally ~/.local/share/tesselo).
std::filesystem::path resolve_home(const HomeFolderSources& sources);

// Reads the environment for resolve_home.
HomeFolderSources home_sources_from_environment(const std::filesystem::path& executable_folder,
                                                std::optional<std::filesystem::path> option);

// Makes the home folder, and gives it a copy of a "Data base" folder when it
// has none: the first of `sources` that is a folder (the one beside the
// program in a build tree or a portable copy, then the installed one).
// False, with the reason, when that failed.
bool prepare_home(const std::filesystem::path& home, const std::vector<std::filesystem::path>& sources,
                  std::string& why);

}  // namespace tesselo
