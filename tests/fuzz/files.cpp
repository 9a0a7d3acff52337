// The game's files in memory, chance from the input, and every menu a line: without the disk a
// whole call takes less time than a single save.
#include "files.h"

#include "display_file.h"
#include "files/data_file.h"

#include <algorithm>
#include <cstdlib>

namespace fuzz {

std::map<std::string, std::string> files;
unsigned seed = 0;

} // namespace fuzz

using fuzz::files;

extern "C" int rand() noexcept {
    fuzz::seed = fuzz::seed * 1103515245U + 12345U;
    return static_cast<int>(fuzz::seed >> 16U);
}
extern "C" void srand(unsigned) noexcept {}

std::string_view odoors::readDisplayFile(const std::string& name, bool) {
    static std::string shown;
    return shown = name + "\r\n";
}

namespace morvek {

std::optional<std::string> readWhole(const std::string& path) {
    return canRead(path) ? std::optional(files[path]) : std::nullopt;
}

std::optional<std::size_t> readInto(const std::string& path, std::span<char> buffer) {
    return canRead(path) ? std::optional(files[path].copy(buffer.data(), buffer.size()))
                         : std::nullopt;
}

bool canRead(const std::string& path) {
    return files.count(path) > 0;
}

bool isMissing(const std::string& path) {
    return !canRead(path);
}

void createWith(const std::string& path, std::string_view content) {
    files.try_emplace(path, content);
}

bool appendTo(const std::string& path, std::string_view text) {
    files[path] += text;
    return true;
}

Replacement::Replacement(const std::string& path) : target(path), temporary(0) {}

Replacement::~Replacement() = default;

bool Replacement::replace(std::string_view content) {
    files[target] = content;
    return true;
}

bool replaceFile(const std::string& path, std::string_view content) {
    return Replacement(path).replace(content);
}

} // namespace morvek
