#include "display_file.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <utility>

#include <sys/stat.h>

#include "files.h"

namespace odoors {

namespace {

constexpr char endOfText = 26;

// What tells a file from the one that was there before.
struct Version {
    dev_t device = 0;
    ino_t number = 0;
    off_t size = 0;
    std::int64_t changedSecond = 0;
    std::int64_t changedNanosecond = 0;

    bool operator==(const Version&) const = default;
};

struct Shown {
    std::string path;
    Version version;
    std::string text;
};

// Callers go to and fro between a few menus: these were shown last, and are read again only when
// their files have changed.
constexpr std::size_t menusKept = 4;
std::array<Shown, menusKept> menus;
std::size_t nextPlace = 0;

std::optional<Version> versionOf(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) {
        return std::nullopt;
    }
    return Version{status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec,
                   status.st_mtim.tv_nsec};
}

// The text of a file under this very path.
const std::string* readHere(const std::string& path) {
    const std::optional<Version> version = versionOf(path);
    if (!version) {
        return nullptr;
    }
    for (const Shown& menu : menus) {
        if (menu.path == path && menu.version == *version) {
            return &menu.text;
        }
    }
    std::optional<std::string> bytes = readFile(path);
    if (!bytes) {
        return nullptr;
    }
    bytes->resize(std::min(bytes->size(), bytes->find(endOfText)));
    Shown& place = menus[nextPlace++ % menusKept];
    place = {path, *version, *std::move(bytes)};
    return &place.text;
}

const std::string* readAnyCase(const std::string& path) {
    const std::string* text = readHere(path);
    if (text == nullptr) {
        const std::optional<std::string> found = findFile(path);
        text = found ? readHere(*found) : nullptr;
    }
    return text;
}

} // namespace

std::string_view readDisplayFile(const std::string& name, bool ansi) {
    const std::string* text = ansi ? readAnyCase(name + ".ans") : nullptr;
    if (text == nullptr) {
        text = readAnyCase(name + ".asc");
    }
    return text != nullptr ? std::string_view(*text) : std::string_view();
}

} // namespace odoors
