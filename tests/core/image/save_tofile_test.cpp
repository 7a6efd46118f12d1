#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "core/document/lifecycle.h"
#include "core/image/byte_reader.h"
#include "core/image/image_writer.h"
#include "support/test_app.h"

namespace tesselo {
namespace {

using testing::read_bytes;
using testing::RecordingApp;

TEST(SaveTofile, FileIsTheImageFollowedByTheLearnedKeyTail)
{
    RecordingApp t;
    ASSERT_EQ(muNew(t.app), 0);
    t.app.config(0).learning_keys[0] = 0x0A0B;
    const auto path = t.home.path() / "one.kcf";
    ASSERT_TRUE(save_tofile(t.app, path.string(), 0, 0));
    const auto bytes = read_bytes(path);
    const std::int32_t P = ByteReader(bytes).u24(4 * 24) - 4096;
    ASSERT_EQ(bytes.size(), static_cast<std::size_t>(P + 2006));
    EXPECT_EQ(bytes[static_cast<std::size_t>(P + 6)], 0x0B);
    EXPECT_EQ(bytes[static_cast<std::size_t>(P + 7)], 0x0A);
    const auto image = build_image(t.app.config(0));
    EXPECT_TRUE(std::equal(image.begin(), image.end(), bytes.begin()));
}

TEST(SaveTofile, ProgressBarMaximumIs50WhenStoring)
{
    RecordingApp t;
    muNew(t.app);
    ASSERT_TRUE(save_tofile(t.app, (t.home.path() / "a.kcf").string(), 0, 0));
    ASSERT_FALSE(t.ui.progress_values.empty());
    for (auto [value, maximum] : t.ui.progress_values) {
        EXPECT_EQ(maximum, 50);
        EXPECT_LE(value, 50);
    }
    // the bar advances in steps of 5
    for (std::size_t i = 1; i + 1 < t.ui.progress_values.size(); ++i)
        EXPECT_EQ(t.ui.progress_values[i].first - t.ui.progress_values[i - 1].first, 5);
}

TEST(SaveTofile, DownloadModeHandsTheImageOverAndStillWritesTheFile)
{
    RecordingApp t;
    muNew(t.app);
    std::vector<std::uint8_t> handed;
    std::size_t handed_length = 0;
    t.app.download_hook = [&](const std::vector<std::uint8_t>& image, std::size_t length) {
        handed = image;
        handed_length = length;
    };
    const auto path = t.home.path() / "temp.trl";
    ASSERT_TRUE(save_tofile(t.app, path.string(), 1, 0));
    const std::int32_t P = ByteReader(handed).u24(4 * 24) - 4096;
    EXPECT_EQ(handed_length, static_cast<std::size_t>(P + 6));
    EXPECT_EQ(handed.size(), handed_length);
    EXPECT_EQ(read_bytes(path).size(), handed_length + 2000);
    for (auto [value, maximum] : t.ui.progress_values) EXPECT_EQ(maximum, 1000);
}

TEST(SaveTofile, AFailedWriteLeavesTheOldFileAndNoScratchBehind)
{
    RecordingApp t;
    muNew(t.app);
    // A folder stands where the file should go: the rename cannot replace it.
    const auto blocked = t.home.path() / "blocked.kcf";
    std::filesystem::create_directories(blocked / "inside");
    EXPECT_FALSE(save_tofile(t.app, blocked.string(), 0, 0));
    EXPECT_TRUE(std::filesystem::is_directory(blocked / "inside"));
    for (const auto& e : std::filesystem::directory_iterator(t.home.path()))
        EXPECT_EQ(e.path().filename().string().find(".saving"), std::string::npos) << e.path();
    const auto lines = t.take_lines();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].rfind("message \"Kelvaro Tesselo 3\" \"Unable to write ", 0), 0u) << lines[0];
}

TEST(SaveTofile, AGoodFileIsReplacedWhole)
{
    RecordingApp t;
    muNew(t.app);
    const auto path = t.home.path() / "b.kcf";
    {
        std::ofstream old(path, std::ios::binary);
        old << std::string(300000, 'x');
    }
    ASSERT_TRUE(save_tofile(t.app, path.string(), 0, 0));
    const auto bytes = read_bytes(path);
    EXPECT_EQ(bytes.size(), build_image(t.app.config(0)).size() + 2000);
    EXPECT_EQ(bytes[0], 0x00);
    EXPECT_EQ(bytes[1], 0x10);
}

TEST(SaveTofile, DamagedTablesAreReportedAndNoFileIsWritten)
{
    RecordingApp t;
    muNew(t.app);
    t.app.config(0).device_table[0].page_count = 200;
    const auto path = t.home.path() / "c.kcf";
    EXPECT_FALSE(save_tofile(t.app, path.string(), 0, 0));
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_EQ(t.take_lines(), (std::vector<std::string>{
                                  "message \"Kelvaro Tesselo 3\" \"The Configuration is damaged and can not be saved\""}));
}

}  // namespace
}  // namespace tesselo
