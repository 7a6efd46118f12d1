// A configuration file is read whole, but only a regular file and never more
// than any image can be: a folder, a FIFO or a device is refused at once.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sys/stat.h>

#include "core/image/image_file.h"
#include "core/image/image_layout.h"
#include "support/as_other_user.h"
#include "support/test_app.h"

namespace tesselo {
namespace {

using testing::TempFolder;
namespace fs = std::filesystem;

void write_file(const fs::path& path, std::size_t size, std::uint8_t value = 7)
{
    std::ofstream out(path, std::ios::binary);
    const std::vector<char> bytes(size, static_cast<char>(value));
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

TEST(ImageFile, TheBoundLeavesAClearMarginAboveTheLargestFile)
{
    // Every section at its largest: 129 device rows, 1848 soft keys, 155
    // pages, 400 IR formats and 8100 IR records of 63 bytes (33 words with
    // the two closing ones), then the 2000-byte tail.
    const std::int64_t N = device_rows, K = flat_softkey_rows, T = page_rows, F = ir_format_rows, R = ir_data_rows;
    const std::int64_t L = R * 63;
    const std::int64_t largest = 100 + 4 + 4 + 12 + 6 + 12 + 125 + 64000 + 24002 + 72002 + 164 * N + 410 * N + 164 * N +
                                 738 + 7 * K + 7680 + 4 * T + 4 * N + 10 * N + 2 * N + 2 + 64 * F + 2 * F + 2 + L +
                                 4 * R + 4 * R + 6 + 2000;
    EXPECT_LT(largest, 1 << 20);
    EXPECT_GE(static_cast<std::int64_t>(image_file_limit), 2 * largest);
}

TEST(ImageFile, ARegularFileIsReadWhole)
{
    TempFolder folder;
    std::vector<std::uint8_t> bytes;
    write_file(folder.path() / "a.kcf", 1000, 9);
    EXPECT_FALSE(read_image_file((folder.path() / "a.kcf").string(), bytes));
    EXPECT_EQ(bytes, std::vector<std::uint8_t>(1000, 9));
    write_file(folder.path() / "empty.kcf", 0);
    EXPECT_FALSE(read_image_file((folder.path() / "empty.kcf").string(), bytes));
    EXPECT_TRUE(bytes.empty());
}

TEST(ImageFile, AFileOfExactlyTheBoundIsReadAndOneByteMoreIsTooLarge)
{
    TempFolder folder;
    std::vector<std::uint8_t> bytes;
    const auto at_bound = folder.path() / "bound.kcf";
    write_file(at_bound, image_file_limit);
    EXPECT_FALSE(read_image_file(at_bound.string(), bytes));
    EXPECT_EQ(bytes.size(), image_file_limit);
    const auto beyond = folder.path() / "beyond.kcf";
    write_file(beyond, image_file_limit + 1);
    EXPECT_EQ(read_image_file(beyond.string(), bytes), "File too large");
    EXPECT_TRUE(bytes.empty());
}

TEST(ImageFile, AFolderAFifoAndADeviceAreRefusedWithoutReading)
{
    TempFolder folder;
    std::vector<std::uint8_t> bytes{1, 2, 3};
    EXPECT_EQ(read_image_file(folder.path().string(), bytes), "Is a directory");
    EXPECT_TRUE(bytes.empty());
    const auto fifo = folder.path() / "fifo.kcf";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    // Opening a FIFO would wait for a writer for ever.
    EXPECT_EQ(read_image_file(fifo.string(), bytes), "Not a regular file");
    // A device that never ends.
    EXPECT_EQ(read_image_file("/dev/zero", bytes), "Not a regular file");
    EXPECT_EQ(read_image_file("/dev/null", bytes), "Not a regular file");
}

TEST(ImageFile, AMissingOrUnreadableFileSaysWhy)
{
    TempFolder folder;
    std::vector<std::uint8_t> bytes;
    EXPECT_EQ(read_image_file((folder.path() / "missing.kcf").string(), bytes), "No such file or directory");
    EXPECT_EQ(read_image_file((folder.path() / "missing" / "a.kcf").string(), bytes), "No such file or directory");
    const auto locked = folder.path() / "locked.kcf";
    write_file(locked, 10);
    fs::permissions(locked, fs::perms::none);
    const int status = testing::as_other_user([&] {
        std::vector<std::uint8_t> b;
        return read_image_file(locked.string(), b) == std::optional<std::string>("Permission denied") ? 0 : 1;
    });
    EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace tesselo
