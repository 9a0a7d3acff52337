#include "files/open_file.h"

#include <array>
#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace morvek {
namespace {

constexpr mode_t newFileMode = 0666;

// Links followed before a chain of them counts as a circle.
constexpr int maxLinks = 40;

// Whether the status of the path's directory could be found.
bool statDirectory(const std::string& path, struct stat& status) {
    const std::string directory = directoryOf(path);
    return ::stat(directory.empty() ? "." : directory.c_str(), &status) == 0;
}

// Whether the link is one that the owner of its directory, root or this process's user has made.
bool isTrusted(const std::string& path, const struct stat& link) {
    struct stat directory {};
    return link.st_uid == 0 || link.st_uid == ::geteuid() ||
           (statDirectory(path, directory) && link.st_uid == directory.st_uid);
}

void giveToOwnerOfDirectory(int descriptor, const std::string& path) {
    struct stat file {};
    struct stat directory {};
    const bool isRoots = ::fstat(descriptor, &file) == 0 && file.st_uid == 0;
    const bool isGiven = isRoots && statDirectory(path, directory) && directory.st_uid != 0 &&
                         ::fchown(descriptor, directory.st_uid, directory.st_gid) == 0;
    static_cast<void>(isGiven); // where it is not allowed, the file stays root's
}

} // namespace

OpenFile::~OpenFile() {
    if (descriptor_ >= 0) {
        ::close(descriptor_);
    }
}

std::string directoryOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

std::optional<std::string> followLinks(std::string path) {
    for (int count = 0; count < maxLinks; ++count) {
        struct stat status {};
        if (::lstat(path.c_str(), &status) != 0 || !S_ISLNK(status.st_mode)) {
            return path;
        }
        std::array<char, PATH_MAX> text{};
        const ssize_t length = ::readlink(path.c_str(), text.data(), text.size());
        if (length <= 0 || !isTrusted(path, status)) {
            break;
        }
        std::string next(text.data(), static_cast<std::size_t>(length));
        path = next.front() == '/' ? std::move(next) : directoryOf(path).append(next);
    }
    errno = ELOOP;
    return std::nullopt;
}

int openFile(const std::string& path, int flags) {
    const int all = flags | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    int descriptor = ::open(path.c_str(), all, newFileMode);
    if (descriptor < 0 && errno == ELOOP && (flags & O_NOFOLLOW) == 0) {
        if (const std::optional<std::string> target = followLinks(path)) {
            descriptor = ::open(target->c_str(), all, newFileMode);
        }
    }
    if (descriptor >= 0 && (flags & O_CREAT) != 0 && ::geteuid() == 0) {
        giveToOwnerOfDirectory(descriptor, path);
    }
    return descriptor;
}

int openShared(const std::string& path) {
    int descriptor = openFile(path, O_RDWR | O_NOFOLLOW);
    struct stat directory {};
    if (descriptor < 0 && errno == ENOENT && statDirectory(path, directory)) {
        descriptor = openFile(path, O_RDWR | O_NOFOLLOW | O_CREAT);
        const bool isShared = ::fchmod(descriptor, directory.st_mode & newFileMode) == 0;
        static_cast<void>(isShared);
    }
    return descriptor;
}

bool isStillThere(int descriptor, const std::string& name) {
    struct stat opened {};
    struct stat named {};
    return ::fstat(descriptor, &opened) == 0 && ::lstat(name.c_str(), &named) == 0 &&
           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

} // namespace morvek
