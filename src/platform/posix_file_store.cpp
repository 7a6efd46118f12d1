#include "platform/posix_file_store.h"

#include <cerrno>
#include <climits>
#include <cstring>
#include <fcntl.h>
#include <random>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace tesselo {

namespace {

std::string words(int error) { return std::strerror(error); }

// A descriptor, closed at the end of its scope.
class Descriptor {
public:
    explicit Descriptor(int fd) : fd_(fd) {}
    ~Descriptor()
    {
        if (fd_ >= 0) ::close(fd_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int get() const { return fd_; }
    bool valid() const { return fd_ >= 0; }

private:
    int fd_;
};

std::string folder_of(const std::string& path)
{
    const auto cut = path.find_last_of('/');
    if (cut == std::string::npos) return ".";
    return cut == 0 ? "/" : path.substr(0, cut);
}

std::string name_of(const std::string& path)
{
    const auto cut = path.find_last_of('/');
    return cut == std::string::npos ? path : path.substr(cut + 1);
}

// The file that `path` stands for: symbolic links are followed to their
// target, 40 at most as the system does, so that the save writes the target
// and the links stay as they are.
bool follow_links(std::string& path, std::string& why)
{
    for (int hop = 0; hop < 40; ++hop) {
        struct stat st {};
        if (::lstat(path.c_str(), &st) != 0 || !S_ISLNK(st.st_mode)) return true;
        char target[PATH_MAX];
        const ssize_t n = ::readlink(path.c_str(), target, sizeof target);
        if (n < 0 || n == static_cast<ssize_t>(sizeof target)) {
            why = words(n < 0 ? errno : ENAMETOOLONG);
            return false;
        }
        const std::string next(target, static_cast<std::size_t>(n));
        path = next.front() == '/' ? next : folder_of(path) + "/" + next;
    }
    why = words(ELOOP);
    return false;
}

// A hidden name beside the target that no other save picks: a random part,
// and the caller creates it exclusively.
std::string scratch_name(const std::string& folder, const std::string& name)
{
    thread_local std::mt19937_64 random{std::random_device{}()};
    return folder + "/." + name + "." + std::to_string(random() % 1000000000000ULL) + ".saving";
}

bool write_all(int fd, const std::uint8_t* data, std::size_t count)
{
    while (count > 0) {
        const ssize_t n = ::write(fd, data, count);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return false;
        data += n;
        count -= static_cast<std::size_t>(n);
    }
    return true;
}

// Gives the unnamed file of `fd` a fresh name in `folder`.
bool link_unnamed(int fd, const std::string& folder, const std::string& name, std::string& scratch)
{
    const std::string self = "/proc/self/fd/" + std::to_string(fd);
    for (int attempt = 0; attempt < 100; ++attempt) {
        scratch = scratch_name(folder, name);
        if (::linkat(AT_FDCWD, self.c_str(), AT_FDCWD, scratch.c_str(), AT_SYMLINK_FOLLOW) == 0) return true;
        // Without /proc the descriptor itself is linked, where the user may.
        if (errno == ENOENT && ::linkat(fd, "", AT_FDCWD, scratch.c_str(), AT_EMPTY_PATH) == 0) return true;
        if (errno != EEXIST) return false;
    }
    return false;
}

}  // namespace

int PosixFileStore::sync(int fd) { return ::fsync(fd); }

int PosixFileStore::open_unnamed(const std::string& folder)
{
    return ::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666);
}

std::optional<std::string> PosixFileStore::replace_file(const std::string& path, const std::vector<std::uint8_t>& bytes)
{
    std::string target = path;
    std::string why;
    if (!follow_links(target, why)) return why;
    const std::string folder = folder_of(target);
    const std::string name = name_of(target);

    struct stat old {};
    const bool exists = ::stat(target.c_str(), &old) == 0;
    if (!exists && errno != ENOENT) return words(errno);
    if (exists) {
        if (S_ISDIR(old.st_mode)) return words(EISDIR);
        if (!S_ISREG(old.st_mode)) return "Not a regular file";
        // A rename in a folder the user may write would replace a file the
        // user may not: such a file is refused, as writing it in place would be.
        if (::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0) return words(errno);
    }

    // The scratch file: unnamed while it is written, so that a killed save
    // leaves nothing behind; a named one where the file system has no O_TMPFILE.
    std::string scratch;
    Descriptor file(open_unnamed(folder));
    const bool unnamed = file.valid();
    int fd = file.get();
    if (!unnamed) {
        if (errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL) return words(errno);
        for (int attempt = 0; attempt < 100 && fd < 0; ++attempt) {
            scratch = scratch_name(folder, name);
            fd = ::open(scratch.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0666);
            if (fd < 0 && errno != EEXIST) return words(errno);
        }
        if (fd < 0) return words(EEXIST);
    }
    Descriptor named(unnamed ? -1 : fd);
    const auto fail = [&](int error) -> std::optional<std::string> {
        if (!scratch.empty()) ::unlink(scratch.c_str());
        return words(error);
    };

    if (exists) {
        // The old owner and group where the user may give them (root, or a
        // group of the user's); else the file stays the user's. Then the mode.
        if (::fchown(fd, old.st_uid, old.st_gid) != 0) {
        }
        if (::fchmod(fd, old.st_mode & 07777) != 0) return fail(errno);
    }
    if (!write_all(fd, bytes.data(), bytes.size())) return fail(errno ? errno : EIO);
    if (sync(fd) != 0) return fail(errno);
    if (unnamed && !link_unnamed(fd, folder, name, scratch)) {
        const int error = errno;
        scratch.clear();
        return words(error);
    }
    if (::rename(scratch.c_str(), target.c_str()) != 0) return fail(errno);

    // The rename lives in the folder: it is synced too, so that a power cut
    // after the save finds the new file under the name.
    Descriptor dir(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (dir.valid() && sync(dir.get()) != 0 && errno != EINVAL) return words(errno);
    return std::nullopt;
}

}  // namespace tesselo
