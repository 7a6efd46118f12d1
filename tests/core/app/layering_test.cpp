// The folders of core say what uses what: the tables below everything, the
// application that composes the folders above them, and no window system.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path core_folder = fs::path(TESSELO_SOURCE_DIR) / "src" / "core";

// The quoted and angled includes of every source file below `folder`.
std::vector<std::pair<fs::path, std::string>> includes_below(const fs::path& folder)
{
    static const std::regex include_line(R"(^\s*#\s*include\s*[<"]([^>"]+)[>"])");
    std::vector<std::pair<fs::path, std::string>> found;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (!entry.is_regular_file()) continue;
        std::ifstream in(entry.path());
        std::string line;
        std::smatch m;
        while (std::getline(in, line))
            if (std::regex_search(line, m, include_line)) found.emplace_back(entry.path(), m[1].str());
    }
    return found;
}

TEST(Layering, TheApplicationLivesAboveTheFoldersItComposes)
{
    EXPECT_TRUE(fs::exists(core_folder / "app" / "application.h"));
    EXPECT_TRUE(fs::exists(core_folder / "app" / "application.cpp"));
    EXPECT_FALSE(fs::exists(core_folder / "document" / "application.h"));
    for (const auto& [file, header] : includes_below(core_folder))
        EXPECT_NE(header, "core/document/application.h") << file;
}

TEST(Layering, TheTablesIncludeNothingButTheTables)
{
    for (const auto& [file, header] : includes_below(core_folder / "model"))
        if (header.rfind("core/", 0) == 0) EXPECT_EQ(header.rfind("core/model/", 0), 0u) << file << " includes " << header;
}

TEST(Layering, CoreNeverIncludesTheWindowSystem)
{
    for (const auto& [file, header] : includes_below(core_folder)) {
        EXPECT_NE(header.rfind("Q", 0), 0u) << file << " includes " << header;
        EXPECT_EQ(header.find("views/"), std::string::npos) << file << " includes " << header;
    }
}

}  // namespace
