#include "files/open_file.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace morvek {
namespace {

constexpr mode_t newFileMode = 0666;

// Whether the status of the path's directory could be found.
bool statDirectory(const std::string& path, struct stat& status) {
    const std::string directory = directoryOf(path);
    return ::stat(directory.empty() ? "." : directory.c_str(), &status) == 0;
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

int openFile(const std::string& path, int flags) {
    constexpr int always = O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    const int descriptor = ::open(path.c_str(), flags | always, newFileMode);
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
