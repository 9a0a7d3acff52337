#include "drop_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <limits>
#include <utility>

#include "bbsdev.h"
#include "chain.h"
#include "door32.h"
#include "door_sys.h"
#include "dorinfo.h"
#include "files.h"
#include "text.h"

namespace odoors {

namespace {

// In the name of a kind this stands for a number.
constexpr char anyNumber = '#';

struct Kind {
    std::string_view fileName;
    DropFile (*read)(const DropLines& lines);
    bool sought = true; // whether a directory is searched for it
};

// In the order in which they are looked for.
constexpr std::array<Kind, 5> kinds{{{"DOOR32.SYS", readDoor32},
                                     {"DOOR.SYS", readDoorSys},
                                     {"DORINFO#.DEF", readDorinfo},
                                     {"CHAIN.TXT", readChain},
                                     {"BBSDEV.DRP", readBbsdev, false}}};

[[noreturn]] void refuseFile(const std::string& path, const std::string& reason) {
    throw Refusal{path + ": " + reason};
}

[[noreturn]] void refuseUnreadable(const std::string& path) {
    refuseFile(path, std::string("cannot be read: ") + std::strerror(errno));
}

DropLines readLines(const std::string& path) {
    const std::optional<std::string> bytes = readFile(path);
    if (!bytes) {
        refuseUnreadable(path);
    }
    return {path, *bytes};
}

bool isNameOf(std::string_view name, std::string_view kindName) {
    const std::size_t mark = kindName.find(anyNumber);
    if (mark == std::string_view::npos) {
        return sameLetters(name, kindName);
    }
    const std::string_view end = kindName.substr(mark + 1);
    return name.size() > mark + end.size() &&
           sameLetters(name.substr(0, mark), kindName.substr(0, mark)) &&
           sameLetters(name.substr(name.size() - end.size()), end);
}

std::string numbered(std::string_view kindName, int number) {
    std::string name(kindName);
    const std::size_t mark = name.find(anyNumber);
    return mark == std::string::npos ? name : name.replace(mark, 1, std::to_string(number));
}

std::optional<DropFile> readFromDirectory(const std::string& directory, int node) {
    for (const Kind& kind : kinds) {
        std::optional<std::string> found;
        for (const int number : {node, 1}) {
            if (kind.sought && !found) {
                found = findFile(directory + '/' + numbered(kind.fileName, number));
            }
        }
        if (found) {
            return kind.read(readLines(*found));
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
        refuse(line, "is not a number");
    }
    return *number;
}

int DropLines::smallNumber(std::size_t line) const {
    return static_cast<int>(std::clamp<std::int64_t>(number(line), std::numeric_limits<int>::min(),
                                                     std::numeric_limits<int>::max()));
}

void DropLines::refuse(std::size_t line, const std::string& reason) const {
    refuseFile(path_, "line " + std::to_string(line) + ' ' + reason);
}

std::optional<DropFile> readDropFile(const std::string& path, int node) {
    if (isDirectory(path)) {
        return readFromDirectory(path, node);
    }
    const std::optional<std::string> found = findFile(path);
    if (!found) {
        errno = ENOENT;
        refuseUnreadable(path);
    }
    for (const Kind& kind : kinds) {
        if (isNameOf(lastPart(*found), kind.fileName)) {
            return kind.read(readLines(*found));
        }
    }
    refuseFile(path, "is not the name of a known drop file");
}

DropFile readBbsdevFile(const std::string& path) {
    return readBbsdev(readLines(path));
}

} // namespace odoors
