#include "files/data_file.h"

#include "files/game_lock.h"
#include "files/open_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace morvek {
namespace {

// A directory can be opened but holds nothing to read: it counts as a file that cannot be opened.
int openToRead(const std::string& path) {
    const int descriptor = openFile(path, O_RDONLY);
    struct stat status {};
    if (descriptor >= 0 && (::fstat(descriptor, &status) != 0 || S_ISDIR(status.st_mode))) {
        ::close(descriptor);
        errno = EISDIR;
        return -1;
    }
    return descriptor;
}

std::optional<std::size_t> readUpTo(int descriptor, std::span<char> buffer) {
    std::size_t total = 0;
    while (total < buffer.size()) {
        const ssize_t got = ::read(descriptor, buffer.data() + total, buffer.size() - total);
        if (got == 0) {
            break;
        }
        if (got > 0) {
            total += static_cast<std::size_t>(got);
        } else if (errno != EINTR) {
            return std::nullopt;
        }
    }
    return total;
}

// Returns 0, or the errno of what failed.
int writeAll(int descriptor, std::string_view content) {
    while (!content.empty()) {
        const ssize_t put = ::write(descriptor, content.data(), content.size());
        if (put > 0) {
            content.remove_prefix(static_cast<std::size_t>(put));
        } else if (put == 0) {
            return ENOSPC;
        } else if (errno != EINTR) {
            return errno;
        }
    }
    return 0;
}

// Whether the error means that this directory or file does not allow a temporary file or a rename:
// a directory without write permission or with the sticky bit, a mounted file. With any other
// error, such as a full disk, writing in place would fail as well, and halfway.
bool needsWritingInPlace(int error) {
    constexpr std::array forbidden{EACCES, EPERM, EBUSY, ELOOP, EISDIR, ENXIO, ENAMETOOLONG};
    return std::find(forbidden.begin(), forbidden.end(), error) != forbidden.end();
}

} // namespace

std::optional<std::size_t> readInto(const std::string& path, std::span<char> buffer) {
    const OpenFile file(openToRead(path));
    if (!file.isOpen()) {
        return std::nullopt;
    }
    return readUpTo(file.get(), buffer);
}

std::optional<std::string> readWhole(const std::string& path) {
    const OpenFile file(openToRead(path));
    if (!file.isOpen()) {
        return std::nullopt;
    }
    std::string content;
    std::array<char, 4096> piece{};
    std::optional<std::size_t> got;
    while ((got = readUpTo(file.get(), piece)).value_or(0) > 0) {
        content.append(piece.data(), *got);
    }
    return got ? std::optional(content) : std::nullopt;
}

bool canRead(const std::string& path) { return OpenFile(openToRead(path)).isOpen(); }

bool isMissing(const std::string& path) {
    return ::access(path.c_str(), F_OK) != 0 && errno == ENOENT;
}

void createWith(const std::string& path, std::string_view content) {
    const OpenFile file(openFile(path, O_WRONLY | O_CREAT | O_APPEND));
    struct stat status {};
    if (file.isOpen() && ::fstat(file.get(), &status) == 0 && status.st_size == 0) {
        writeAll(file.get(), content);
    }
}

bool appendTo(const std::string& path, std::string_view text) {
    const OpenFile file(openFile(path, O_WRONLY | O_CREAT | O_APPEND));
    struct stat before {};
    if (!file.isOpen() || ::fstat(file.get(), &before) != 0) {
        return false;
    }
    const bool isWritten = writeAll(file.get(), text) == 0;
    const bool isUndone = !isWritten && ::ftruncate(file.get(), before.st_size) == 0;
    static_cast<void>(isUndone);
    return isWritten;
}

Replacement::Replacement(const Transaction& transaction, const std::string& path) {
    if (transaction.mayWrite()) {
        open(path);
    } else {
        openError_ = EAGAIN;
    }
}

Replacement::Replacement(const std::string& path) { open(path); }

void Replacement::open(const std::string& path) {
    const std::optional<std::string> target = followLinks(path);
    if (!target) {
        openError_ = errno;
        return;
    }
    target_ = *target;
    temporaryName_ = target_ + ".new";
    inPlace_ = openFile(target_, O_WRONLY);
    if (inPlace_ < 0 && errno != ENOENT) {
        openError_ = errno; // not ours to write
        return;
    }
    struct stat status {};
    if (inPlace_ >= 0 && (::fstat(inPlace_, &status) != 0 || !S_ISREG(status.st_mode))) {
        return; // a device is written as it stands
    }
    openTemporary();
}

Replacement::~Replacement() {
    if (temporary_ >= 0) {
        ::unlink(temporaryName_.c_str());
        ::close(temporary_);
    }
    closeInPlace();
}

void Replacement::closeInPlace() {
    if (inPlace_ >= 0) {
        ::close(inPlace_);
    }
    inPlace_ = -1;
}

// What stands under the temporary file's name is removed, not written to: a call that was killed
// leaves such a file behind, and a link may have been put there.
void Replacement::openTemporary() {
    const bool isFree = ::unlink(temporaryName_.c_str()) == 0 || errno == ENOENT;
    if (isFree) {
        temporary_ = openFile(temporaryName_, O_WRONLY | O_CREAT | O_EXCL);
    }
    if (temporary_ >= 0) {
        return;
    }
    const int error = errno;
    if (!needsWritingInPlace(error)) {
        closeInPlace();
    }
    openError_ = inPlace_ < 0 ? error : 0;
}

int Replacement::finishTemporary(std::string_view content) {
    struct stat status {};
    if (inPlace_ >= 0 && ::fstat(inPlace_, &status) == 0) {
        // The owner is kept where that is allowed, but root's file is given to the directory's
        // owner, as a new one is. The mode comes second, as chown clears bits.
        const bool owned = (status.st_uid == 0 && ::geteuid() == 0) ||
                           ::fchown(temporary_, status.st_uid, status.st_gid) == 0 ||
                           ::fchown(temporary_, static_cast<uid_t>(-1), status.st_gid) == 0;
        static_cast<void>(owned);
        if (::fchmod(temporary_, status.st_mode & 07777U) != 0) {
            return errno;
        }
    }
    const int error = writeAll(temporary_, content);
    return error == 0 && ::fsync(temporary_) != 0 ? errno : error;
}

int Replacement::writeInPlace(std::string_view content) {
    if (const int error = writeAll(inPlace_, content)) {
        return error;
    }
    const bool cut = ::ftruncate(inPlace_, static_cast<off_t>(content.size())) == 0;
    const bool flushed = ::fsync(inPlace_) == 0;
    // A device can be neither cut nor flushed.
    return (cut && flushed) || errno == EINVAL ? 0 : errno;
}

int Replacement::stage(std::string_view content) {
    staged_ = content;
    if (temporary_ < 0) {
        return inPlace_ >= 0 ? 0 : openError_;
    }
    return finishTemporary(content);
}

int Replacement::commit() {
    if (temporary_ < 0) {
        return writeInPlace(staged_);
    }
    // Where there are no locks, another call may have put its own file there.
    if (!isStillThere(temporary_, temporaryName_)) {
        return EBUSY;
    }
    if (::rename(temporaryName_.c_str(), target_.c_str()) == 0) {
        ::close(temporary_);
        temporary_ = -1;
        return 0;
    }
    const int error = errno;
    return needsWritingInPlace(error) && inPlace_ >= 0 ? writeInPlace(staged_) : error;
}

int Replacement::replace(std::string_view content) {
    const int error = stage(content);
    return error == 0 ? commit() : error;
}

int replaceFile(const Transaction& transaction, const std::string& path, std::string_view content) {
    return Replacement(transaction, path).replace(content);
}

int replaceFile(const std::string& path, std::string_view content) {
    return Replacement(path).replace(content);
}

} // namespace morvek
