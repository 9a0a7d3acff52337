#include "files.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "text.h"

namespace odoors {

namespace {

constexpr std::size_t chunk = 4096;

struct Closer {
    void operator()(DIR* directory) const { closedir(directory); }
};

} // namespace

std::optional<std::string> findFile(const std::string& path) {
    if (access(path.c_str(), F_OK) == 0) {
        return path;
    }
    const std::string name = lastPart(path);
    const std::string folder = path.substr(0, path.size() - name.size());
    const std::unique_ptr<DIR, Closer> directory(opendir(folder.empty() ? "." : folder.c_str()));
    std::optional<std::string> best;
    const dirent* entry = nullptr;
    while (directory && (entry = readdir(directory.get())) != nullptr) {
        const std::string candidate = folder + entry->d_name;
        if (sameLetters(entry->d_name, name) && (!best || candidate < *best)) {
            best = candidate;
        }
    }
    return best;
}

std::optional<std::string> readFile(const std::string& path) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (file < 0) {
        return std::nullopt;
    }
    struct stat status {};
    if (fstat(file, &status) != 0 || !S_ISREG(status.st_mode)) {
        close(file);
        errno = S_ISDIR(status.st_mode) ? EISDIR : ESPIPE;
        return std::nullopt;
    }
    std::string bytes;
    std::array<char, chunk> buffer;
    ssize_t count = 0;
    while ((count = read(file, buffer.data(), buffer.size())) > 0 ||
           (count < 0 && errno == EINTR)) {
        bytes.append(buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    }
    const int problem = errno;
    close(file);
    errno = problem;
    return count < 0 ? std::nullopt : std::optional(bytes);
}

bool isDirectory(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::string lastPart(const std::string& path) { return path.substr(path.rfind('/') + 1); }

} // namespace odoors
