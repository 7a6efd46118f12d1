#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "core/document/home_folder.h"
#include "support/test_app.h"

namespace tesselo {
namespace {

namespace fs = std::filesystem;
using testing::TempFolder;

TEST(ResolveHome, OptionThenVariableThenProgramFolderThenXdg)
{
    TempFolder tmp;
    const fs::path exe = tmp.path() / "bin";
    fs::create_directories(exe);
    HomeFolderSources s;
    s.executable_folder = exe;
    s.xdg_data_home = tmp.path() / "xdg";
    s.user_home = tmp.path() / "user";
    EXPECT_EQ(resolve_home(s), tmp.path() / "xdg" / "tesselo");
    s.xdg_data_home.reset();
    EXPECT_EQ(resolve_home(s), tmp.path() / "user" / ".local" / "share" / "tesselo");
    fs::create_directories(exe / "Data base");
    EXPECT_EQ(resolve_home(s), exe);
    s.environment = tmp.path() / "env";
    EXPECT_EQ(resolve_home(s), tmp.path() / "env");
    s.option = tmp.path() / "opt";
    EXPECT_EQ(resolve_home(s), tmp.path() / "opt");
}

TEST(PrepareHome, ANewHomeGetsACopyOfTheInstalledDataBase)
{
    TempFolder tmp;
    const fs::path installed = tmp.path() / "share" / "Data base";
    fs::create_directories(installed);
    std::ofstream(installed / "Lib_KEY.ASM") << ";&*^\n";
    std::string why;
    ASSERT_TRUE(prepare_home(tmp.path() / "home", {installed}, why)) << why;
    EXPECT_TRUE(fs::exists(tmp.path() / "home" / "Data base" / "Lib_KEY.ASM"));
}

TEST(PrepareHome, TheFirstSourceThatIsAFolderIsCopied)
{
    TempFolder tmp;
    const fs::path beside = tmp.path() / "bin" / "Data base";
    const fs::path installed = tmp.path() / "share" / "Data base";
    fs::create_directories(installed);
    std::ofstream(installed / "installed.txt") << "i";
    std::string why;
    // No Data base beside the program: the installed one.
    ASSERT_TRUE(prepare_home(tmp.path() / "first", {beside, installed}, why)) << why;
    EXPECT_TRUE(fs::exists(tmp.path() / "first" / "Data base" / "installed.txt"));
    // A Data base beside the program, as in a build tree: that one.
    fs::create_directories(beside);
    std::ofstream(beside / "beside.txt") << "b";
    ASSERT_TRUE(prepare_home(tmp.path() / "second", {beside, installed}, why)) << why;
    EXPECT_TRUE(fs::exists(tmp.path() / "second" / "Data base" / "beside.txt"));
    EXPECT_FALSE(fs::exists(tmp.path() / "second" / "Data base" / "installed.txt"));
}

TEST(PrepareHome, AnExistingDataBaseIsLeftAsItIs)
{
    TempFolder tmp;
    const fs::path installed = tmp.path() / "share" / "Data base";
    fs::create_directories(installed);
    std::ofstream(installed / "new.txt") << "x";
    fs::create_directories(tmp.path() / "home" / "Data base");
    std::string why;
    ASSERT_TRUE(prepare_home(tmp.path() / "home", {installed}, why));
    EXPECT_FALSE(fs::exists(tmp.path() / "home" / "Data base" / "new.txt"));
}

}  // namespace
}  // namespace tesselo
