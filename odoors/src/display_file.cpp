#include "display_file.h"

#include "files.h"

namespace odoors {

namespace {

constexpr char endOfText = 26;

std::optional<std::string> readAnyCase(const std::string& path) {
    const std::optional<std::string> found = findFile(path);
    return found ? readFile(*found) : std::nullopt;
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
    return bytes ? bytes->substr(0, bytes->find(endOfText)) : std::string();
}

} // namespace odoors
