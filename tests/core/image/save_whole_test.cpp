// A save puts the whole new file in the place of the old one, or leaves the
// old one: never a half file, never a scratch file beside it, never a file
// made of two saves; and it keeps what the user set up: the file's mode, a
// symbolic link, a file the user may not write.
#include <gtest/gtest.h>

#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "core/document/lifecycle.h"
#include "core/image/image_writer.h"
#include "core/tree/adding.h"
#include "support/as_other_user.h"
#include "support/test_app.h"

namespace tesselo {
namespace {

using testing::read_bytes;
using testing::TempFolder;
using testing::TestApp;
namespace fs = std::filesystem;

// A document of `devices` devices in slot 0, and its file's bytes.
std::vector<std::uint8_t> document_of(TestApp& t, int devices)
{
    muNew(t.app);
    for (int i = 0; i < devices; ++i) AddDevice(t.app, add_ordinary);
    auto bytes = build_image(t.app.config(0));
    const auto tail = file_tail(t.app.config(0));
    bytes.insert(bytes.end(), tail.begin(), tail.end());
    t.out.str("");
    return bytes;
}

void write_file(const fs::path& path, const std::vector<std::uint8_t>& bytes)
{
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

std::vector<std::string> names_in(const fs::path& folder)
{
    std::vector<std::string> names;
    for (const auto& e : fs::directory_iterator(folder)) names.push_back(e.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

struct SaveWhole : ::testing::Test {
    TestApp t;
    TempFolder folder;
    std::vector<std::uint8_t> old_bytes = std::vector<std::uint8_t>(3000, 0x5A);
    fs::path path = folder.path() / "doc.kcf";
};

TEST_F(SaveWhole, ASaveNeverWritesIntoTheScratchFileOfAnotherSave)
{
    const auto ours = document_of(t, 2);
    // Another save to the same path is half-way through its scratch file,
    // under the hidden name beside the target that a save used to take.
    const std::vector<std::uint8_t> theirs(200000, 0x33);
    const fs::path their_scratch = folder.path() / ".doc.kcf.saving";
    const int fd = ::open(their_scratch.c_str(), O_CREAT | O_WRONLY | O_TRUNC, 0644);
    ASSERT_GE(fd, 0);
    ASSERT_EQ(::write(fd, theirs.data(), 100000), 100000);

    ASSERT_TRUE(save_tofile(t.app, path.string(), 0, 0));
    EXPECT_EQ(read_bytes(path), ours);
    EXPECT_EQ(read_bytes(their_scratch), std::vector<std::uint8_t>(theirs.begin(), theirs.begin() + 100000));

    // The other save ends: its file replaces ours, whole.
    ASSERT_EQ(::write(fd, theirs.data() + 100000, 100000), 100000);
    ::close(fd);
    ASSERT_EQ(::rename(their_scratch.c_str(), path.c_str()), 0);
    EXPECT_EQ(read_bytes(path), theirs);
}

TEST_F(SaveWhole, TwoEditorsSavingOnePathAtOnceLeaveOneOfTheFilesWhole)
{
    TestApp other;
    const auto first = document_of(t, 1);
    const auto second = document_of(other, 7);
    int failures = 0;
    const auto saves = [&](TestApp& editor, int& failed) {
        for (int i = 0; i < 40; ++i)
            if (!save_tofile(editor.app, path.string(), 0, 0)) ++failed;
    };
    int failed_first = 0, failed_second = 0;
    std::thread a(saves, std::ref(t), std::ref(failed_first));
    std::thread b(saves, std::ref(other), std::ref(failed_second));
    a.join();
    b.join();
    failures = failed_first + failed_second;
    EXPECT_EQ(failures, 0) << t.out.str() << other.out.str();
    const auto bytes = read_bytes(path);
    EXPECT_TRUE(bytes == first || bytes == second) << bytes.size();
    EXPECT_EQ(names_in(folder.path()), std::vector<std::string>{"doc.kcf"});
}

TEST_F(SaveWhole, ASaveKilledHalfWayLeavesTheOldFileAndNothingBesideIt)
{
    document_of(t, 3);
    write_file(path, old_bytes);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        // Writing past 64 KiB kills the process (SIGXFSZ), half-way through
        // the image, as a crash or a kill would.
        const rlimit limit{65536, 65536};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        save_tofile(t.app, path.string(), 0, 0);
        ::_exit(0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the save was not cut short";
    EXPECT_EQ(WTERMSIG(status), SIGXFSZ);
    EXPECT_EQ(read_bytes(path), old_bytes);
    EXPECT_EQ(names_in(folder.path()), std::vector<std::string>{"doc.kcf"});
}

TEST_F(SaveWhole, ASaveKeepsTheFilesMode)
{
    const auto bytes = document_of(t, 1);
    for (const auto mode : {fs::perms::owner_read | fs::perms::owner_write,
                            fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read,
                            fs::perms::owner_all | fs::perms::group_all | fs::perms::others_read}) {
        write_file(path, old_bytes);
        fs::permissions(path, mode);
        ASSERT_TRUE(save_tofile(t.app, path.string(), 0, 0));
        EXPECT_EQ(fs::status(path).permissions(), mode);
        EXPECT_EQ(read_bytes(path), bytes);
    }
}

TEST_F(SaveWhole, ASymbolicLinkIsWrittenThroughToItsTargetAndStaysALink)
{
    const auto bytes = document_of(t, 2);
    fs::create_directories(folder.path() / "kept");
    const fs::path target = folder.path() / "kept" / "real.kcf";
    write_file(target, old_bytes);
    // A link beside the target, relative, and a link to that link.
    fs::create_symlink("kept/real.kcf", path);
    const fs::path second = folder.path() / "again.kcf";
    fs::create_symlink(path, second);
    ASSERT_TRUE(save_tofile(t.app, second.string(), 0, 0));
    EXPECT_TRUE(fs::is_symlink(path));
    EXPECT_TRUE(fs::is_symlink(second));
    EXPECT_EQ(fs::read_symlink(path), "kept/real.kcf");
    EXPECT_EQ(read_bytes(target), bytes);
    EXPECT_EQ(names_in(folder.path() / "kept"), std::vector<std::string>{"real.kcf"});
    // A link whose target is not there yet: the target is made.
    fs::remove(target);
    ASSERT_TRUE(save_tofile(t.app, path.string(), 0, 0));
    EXPECT_TRUE(fs::is_symlink(path));
    EXPECT_EQ(read_bytes(target), bytes);
}

TEST_F(SaveWhole, AFileTheUserMayNotWriteIsRefusedWithItsMessageAndLeftAsItIs)
{
    document_of(t, 1);
    write_file(path, old_bytes);
    fs::permissions(path, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    // The folder is the user's to write: a rename could replace the file.
    fs::permissions(folder.path(), fs::perms::all);
    const int status = testing::as_other_user([&] {
        const bool saved = save_tofile(t.app, path.string(), 0, 0);
        const bool told = t.out.str() == "message \"Kelvaro Tesselo 3\" \"Unable to write " + path.string() +
                                              "\\rPermission denied\"\n";
        return !saved && told ? 0 : 1;
    });
    EXPECT_EQ(status, 0);
    EXPECT_EQ(read_bytes(path), old_bytes);
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    EXPECT_EQ(names_in(folder.path()), std::vector<std::string>{"doc.kcf"});
}

TEST_F(SaveWhole, WhatIsNoRegularFileIsRefusedAndLeftAsItIs)
{
    document_of(t, 1);
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    EXPECT_FALSE(save_tofile(t.app, path.string(), 0, 0));
    EXPECT_EQ(t.out.str(), "message \"Kelvaro Tesselo 3\" \"Unable to write " + path.string() + "\\rNot a regular file\"\n");
    EXPECT_TRUE(fs::is_fifo(path));
    EXPECT_EQ(names_in(folder.path()), std::vector<std::string>{"doc.kcf"});
}

// The store's syncs, each with what the target held at that moment.
class SyncRecorder : public PosixFileStore {
public:
    std::vector<std::string> syncs;
    fs::path target;

protected:
    int sync(int fd) override
    {
        struct stat st {};
        ::fstat(fd, &st);
        syncs.push_back(std::string(S_ISDIR(st.st_mode) ? "folder" : "file") + " " +
                        std::to_string(fs::exists(target) ? fs::file_size(target) : 0));
        return PosixFileStore::sync(fd);
    }
};

TEST(PosixFileStore, TheFileIsSyncedBeforeTheRenameAndTheFolderAfter)
{
    TempFolder folder;
    SyncRecorder store;
    store.target = folder.path() / "doc.kcf";
    write_file(store.target, std::vector<std::uint8_t>(10, 1));
    ASSERT_FALSE(store.replace_file(store.target.string(), std::vector<std::uint8_t>(500, 2)));
    EXPECT_EQ(store.syncs, (std::vector<std::string>{"file 10", "folder 500"}));
    EXPECT_EQ(read_bytes(store.target), std::vector<std::uint8_t>(500, 2));
}

// A file system without O_TMPFILE.
class NamedScratchStore : public PosixFileStore {
protected:
    int open_unnamed(const std::string&) override
    {
        errno = EOPNOTSUPP;
        return -1;
    }
};

TEST(PosixFileStore, WithoutUnnamedFilesAScratchOfARandomNameIsRenamedIntoPlace)
{
    TempFolder folder;
    NamedScratchStore store;
    const auto target = folder.path() / "doc.kcf";
    // The name a save used to take is no obstacle: it belongs to no one.
    write_file(folder.path() / ".doc.kcf.saving", std::vector<std::uint8_t>(7, 7));
    write_file(target, std::vector<std::uint8_t>(10, 1));
    fs::permissions(target, fs::perms::owner_read | fs::perms::owner_write);
    ASSERT_FALSE(store.replace_file(target.string(), std::vector<std::uint8_t>(500, 2)));
    EXPECT_EQ(read_bytes(target), std::vector<std::uint8_t>(500, 2));
    EXPECT_EQ(fs::status(target).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(read_bytes(folder.path() / ".doc.kcf.saving"), std::vector<std::uint8_t>(7, 7));
    EXPECT_EQ(names_in(folder.path()), (std::vector<std::string>{".doc.kcf.saving", "doc.kcf"}));
    // A folder the scratch cannot be made in: refused, and nothing left.
    EXPECT_EQ(store.replace_file((folder.path() / "none" / "a.kcf").string(), {1}), "No such file or directory");
}

TEST(PosixFileStore, ANewFileInAFolderThatIsNotThereIsRefused)
{
    TempFolder folder;
    PosixFileStore store;
    EXPECT_EQ(store.replace_file((folder.path() / "none" / "a.kcf").string(), {1, 2}), "No such file or directory");
}

}  // namespace
}  // namespace tesselo
