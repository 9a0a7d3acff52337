#include "display_file.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include <sys/stat.h>

#include "files.h"

namespace odoors {

namespace {

constexpr char endOfText = 26;

struct Shown {
    std::string path;
    struct stat status {}; // of the file when it was read
    std::string text;
};

// The menus shown last, since callers go to and fro between a few. They are read again only when
// their files have changed: a stat() a menu.
constexpr std::size_t menusKept = 4;
std::array<Shown, menusKept> menus;
std::size_t nextPlace = 0;

bool isSameVersion(const struct stat& one, const struct stat& other) {
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino &&
           one.st_size == other.st_size && one.st_mtim.tv_sec == other.st_mtim.tv_sec &&
           one.st_mtim.tv_nsec == other.st_mtim.tv_nsec;
}

// The text of a file under this very path.
const std::string* readHere(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) {
        return nullptr;
    }
    for (const Shown& menu : menus) {
        if (menu.path == path && isSameVersion(menu.status, status)) {
            return &menu.text;
        }
    }
    std::optional<std::string> bytes = readFile(path);
    if (!bytes) {
        return nullptr;
    }
    bytes->resize(std::min(bytes->size(), bytes->find(endOfText)));
    Shown& place = menus[nextPlace++ % menusKept];
    place = {path, status, *std::move(bytes)};
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
