#include "drop_file.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

#include "door32.h"
#include "files.h"
#include "text.h"

namespace odoors {

namespace {

struct Kind {
    const char* fileName;
    DropFile (*read)(const DropLines& lines);
};

// In the order in which they are looked for.
constexpr std::array<Kind, 1> kinds{{{"DOOR32.SYS", readDoor32}}};

[[noreturn]] void refuseFile(const std::string& path, const std::string& reason) {
    throw Refusal{path + ": " + reason};
}

DropFile readKind(const Kind& kind, const std::string& path) {
    const std::optional<std::string> bytes = readFile(path);
    if (!bytes) {
        refuseFile(path, std::string("cannot be read: ") + std::strerror(errno));
    }
    return kind.read(DropLines(path, *bytes));
}

std::optional<DropFile> readFromDirectory(const std::string& directory) {
    for (const Kind& kind : kinds) {
        if (const auto found = findFile(directory + '/' + kind.fileName)) {
            return readKind(kind, *found);
        }
    }
    return std::nullopt;
}

} // namespace

DropLines::DropLines(std::string path, std::string_view bytes) : path_(std::move(path)) {
    while (!bytes.empty()) {
        const std::size_t end = std::min(bytes.size(), bytes.find('\n'));
        lines_.emplace_back(withoutTrailingBlanks(bytes.substr(0, end)));
        bytes.remove_prefix(std::min(bytes.size(), end + 1));
    }
}

void DropLines::require(std::size_t count) const {
    if (lines_.size() < count) {
        refuse(lines_.size() + 1, "is missing; " + std::to_string(count) + " lines are needed");
    }
}

std::int64_t DropLines::number(std::size_t line) const {
    const std::optional<std::int64_t> number = readNumber(text(line));
    if (!number) {
        refuse(line, "is no number");
    }
    return *number;
}

void DropLines::refuse(std::size_t line, const std::string& reason) const {
    refuseFile(path_, "line " + std::to_string(line) + ' ' + reason);
}

std::optional<DropFile> readDropFile(const std::string& path) {
    if (isDirectory(path)) {
        return readFromDirectory(path);
    }
    const std::string found = findFile(path).value_or(path);
    for (const Kind& kind : kinds) {
        if (sameLetters(lastPart(found), kind.fileName)) {
            return readKind(kind, found);
        }
    }
    refuseFile(path, "is no drop file of a known name");
}

} // namespace odoors
