#include "display_file.h"

#include <algorithm>
#include <utility>

#include "files.h"

namespace odoors {

namespace {

constexpr char endOfText = 26;

std::optional<std::string> readAnyCase(const std::string& path) {
    std::optional<std::string> bytes = readFile(path);
    if (!bytes) {
        const std::optional<std::string> found = findFile(path);
        bytes = found ? readFile(*found) : std::nullopt;
    }
    return bytes;
}

} // namespace

std::string readDisplayFile(const std::string& name, bool ansi) {
    std::optional<std::string> bytes;
    if (ansi) {
        bytes = readAnyCase(name + ".ans");
    }
    if (!bytes) {
        bytes = readAnyCase(name + ".asc");
    }
    if (!bytes) {
        return {};
    }
    bytes->resize(std::min(bytes->size(), bytes->find(endOfText)));
    return *std::move(bytes);
}

} // namespace odoors
