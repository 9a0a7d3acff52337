#include "drop_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <limits>
#include <vector>

#include <fnmatch.h>

#include "clock.h"
#include "files.h"
#include "startup_error.h"
#include "text.h"
#include "text/cp437.h"

namespace odoors {

namespace {

[[noreturn]] void fail(const std::string& path, const std::string& reason) {
    throw StartupError{path + ": " + reason};
}

// The lines of a drop file, counted from 1. What is asked of a line and cannot be had throws.
class Lines {
public:
    // Lines end in CRLF or LF, the last one perhaps in nothing.
    Lines(const std::string& path, std::string_view bytes, std::size_t needed) : path_(path) {
        while (!bytes.empty()) {
            const std::size_t end = std::min(bytes.size(), bytes.find('\n'));
            lines_.emplace_back(withoutTrailingBlanks(bytes.substr(0, end)));
            bytes.remove_prefix(std::min(bytes.size(), end + 1));
        }
        if (lines_.size() < needed) {
            refuse(lines_.size() + 1,
                   "is missing; " + std::to_string(needed) + " lines are needed");
        }
    }

    const std::string& path() const { return path_; }

    std::size_t count() const { return lines_.size(); }

    // The line without the blanks at its end.
    const std::string& text(std::size_t line) const { return lines_[line - 1]; }

    // The whole number in the line, held within ±10^13.
    std::int64_t number(std::size_t line) const { return numberOf(line, text(line)); }

    // The number in the line without its fraction.
    std::int64_t wholePart(std::size_t line) const {
        const std::string& all = text(line);
        const std::size_t point = std::min(all.size(), all.find('.'));
        const std::string fraction = all.substr(std::min(all.size(), point + 1));
        const bool digits = std::all_of(fraction.begin(), fraction.end(), isDigit);
        return numberOf(line, digits ? all.substr(0, point) : all);
    }

    // The whole number in the line, held within the limits of an int.
    int smallNumber(std::size_t line) const {
        using Limits = std::numeric_limits<int>;
        return static_cast<int>(
            std::clamp<std::int64_t>(number(line), Limits::min(), Limits::max()));
    }

    [[noreturn]] void refuse(std::size_t line, const std::string& reason) const {
        fail(path_, "line " + std::to_string(line) + ' ' + reason);
    }

private:
    std::int64_t numberOf(std::size_t line, const std::string& digits) const {
        const std::optional<std::int64_t> number = readNumber(digits);
        if (!number) {
            refuse(line, "is not a number");
        }
        return *number;
    }

    const std::string& path_;
    std::vector<std::string> lines_;
};

// What a word means, in any letter case; none for a word that is not in the table.
template <typename Meaning, std::size_t size>
std::optional<Meaning> lookUp(const std::pair<std::string_view, Meaning> (&table)[size],
                              std::string_view word) {
    for (const auto& [known, meaning] : table) {
        if (sameLetters(known, word)) {
            return meaning;
        }
    }
    return std::nullopt;
}

// DOOR32.SYS:
//
//      1  how the caller comes: 0 local, 1 serial line, 2 socket
//      2  the descriptor of the socket
//      4  the board's program; WWIV writes seconds where others write minutes
//      6  real name
//      7  alias
//      9  minutes left
//     10  emulation: 0 none, 1 and above ANSI
//     11  node
//
// Boards write 0 for callers whom they serve through standard input and output themselves.
void readDoor32(const Lines& lines, DropFile& file) {
    const std::int64_t commType = lines.number(1);
    file.route = commType == 0   ? Route::standardStreams
                 : commType == 2 ? Route::socket
                                 : Route::unreachable;
    file.socket = lines.smallNumber(2);
    file.realName = lines.text(6);
    file.alias = lines.text(7);
    file.secondsLeft = lines.number(9) * (lines.text(4).starts_with("WWIV") ? 1 : secondsPerMinute);
    file.ansi = lines.number(10) >= 1;
    file.node = lines.smallNumber(11);
}

// DOOR.SYS, which later boards made longer; the way to the caller is not in it:
//
//      4  node
//     10  name
//     19  minutes left
//     20  graphics: GR ANSI, NG none, 7E none and seven bits
//     36  alias, where there is such a line
//
// Line 14 is the caller's password and must never be shown.
void readDoorSys(const Lines& lines, DropFile& file) {
    constexpr std::pair<std::string_view, bool> graphics[]{
        {"GR", true}, {"NG", false}, {"7E", false}};
    file.node = lines.smallNumber(4);
    file.realName = lines.text(10);
    file.secondsLeft = lines.number(19) * secondsPerMinute;
    file.ansi = lookUp(graphics, lines.text(20));
    file.alias = lines.count() >= 36 ? lines.text(36) : "";
}

// DORINFOn.DEF, n being the node; the way to the caller is not in it:
//
//      7  first name
//      8  last name; NLN or nothing for callers who have one name only
//     10  graphics: 0 none, 1 and above ANSI
//     12  minutes left
//
// The name may be the real one or the alias, which the file does not tell.
void readDorinfo(const Lines& lines, DropFile& file) {
    const std::string& first = lines.text(7);
    const std::string& last = sameLetters(lines.text(8), "NLN") ? "" : lines.text(8);
    file.alias = first + (first.empty() || last.empty() ? "" : " ") + last;
    file.ansi = lines.number(10) >= 1;
    file.secondsLeft = lines.number(12) * secondsPerMinute;
    const std::string name = lastPart(lines.path());
    const std::size_t begin = std::min(name.size(), name.find_first_of("0123456789"));
    const auto number = readNumber(name.substr(begin, name.find('.', begin) - begin));
    file.node = number && *number <= 9999 ? static_cast<int>(*number) : 1;
}

// CHAIN.TXT; the way to the caller is not in it:
//
//      2  alias
//      3  real name
//     14  ANSI: 1 when the caller has it
//     16  seconds left, perhaps with a fraction
void readChain(const Lines& lines, DropFile& file) {
    file.alias = lines.text(2);
    file.realName = lines.text(3);
    file.ansi = lines.number(14) == 1;
    file.secondsLeft = lines.wholePart(16);
}

// A moment YYYY-MM-DDTHH:MM:SSZ as its second since the start of 1970.
std::optional<std::int64_t> readMoment(std::string_view text) {
    constexpr std::string_view form = "0000-00-00T00:00:00Z";
    const auto fits = [](char c, char place) { return place == '0' ? isDigit(c) : c == place; };
    if (!std::equal(text.begin(), text.end(), form.begin(), form.end(), fits)) {
        return std::nullopt;
    }
    const auto part = [text](std::size_t at, std::size_t length) {
        return static_cast<int>(readNumber(text.substr(at, length)).value_or(0));
    };
    using namespace std::chrono;
    const year_month_day date{year(part(0, 4)), month(static_cast<unsigned>(part(5, 2))),
                              day(static_cast<unsigned>(part(8, 2)))};
    const hours hour(part(11, 2));
    const minutes minute(part(14, 2));
    const seconds second(part(17, 2));
    if (!date.ok() || hour.count() > 23 || minute.count() > 59 || second.count() > 60) {
        return std::nullopt;
    }
    return seconds(sys_days(date).time_since_epoch() + hour + minute + second).count();
}

// BBSDEV.DRP, in UTF-8:
//
//      1  version of this layout: 1.x
//      2  how the caller comes
//      3  what belongs to it: the descriptor of a socket
//      4  alias, the only name there is
//      8  ANSI: Y or N
//     11  when the caller must be off, YYYY-MM-DDTHH:MM:SSZ; empty: whenever he likes
//     12  what his terminal shows
//     18  node
void readBbsdev(const Lines& lines, DropFile& file) {
    constexpr std::pair<std::string_view, Route> transports[]{
        {"local", Route::standardStreams}, {"stdio", Route::standardStreams},
        {"socket", Route::socket},         {"serial", Route::unreachable},
        {"winserial", Route::unreachable}, {"uart", Route::unreachable},
        {"fossil", Route::unreachable}};
    constexpr std::pair<std::string_view, bool> answers[]{{"Y", true}, {"N", false}};
    constexpr std::pair<std::string_view, Charset> charsets[]{{"UTF-8", Charset::utf8},
                                                              {"IBM437", Charset::cp437}};
    constexpr std::int64_t unlimited = 100'000LL * 24 * 60 * secondsPerMinute;
    if (!lines.text(1).starts_with("1.")) {
        lines.refuse(1, "is an unknown version; 1.x is needed");
    }
    const std::optional<Route> route = lookUp(transports, lines.text(2));
    if (!route) {
        lines.refuse(2, "is an unknown connection type");
    }
    const std::optional<std::int64_t> end = readMoment(lines.text(11));
    if (!end && !lines.text(11).empty()) {
        lines.refuse(11, "is not a time in UTC (YYYY-MM-DDTHH:MM:SSZ)");
    }
    file.route = *route;
    file.socket = *route == Route::socket ? lines.smallNumber(3) : -1;
    file.alias = text::toCp437(lines.text(4)).value_or(lines.text(4));
    file.ansi = lookUp(answers, lines.text(8));
    file.secondsLeft = end ? *end - calendarSecond() : unlimited;
    file.charset = lookUp(charsets, lines.text(12));
    file.node = lines.smallNumber(18);
}

struct Kind {
    const char* pattern; // of the file's name
    std::size_t linesNeeded;
    void (*read)(const Lines& lines, DropFile& file);

    DropFile parse(const std::string& path, std::string_view bytes) const {
        DropFile file;
        read({path, bytes, linesNeeded}, file);
        return file;
    }
};

constexpr Kind bbsdev{"BBSDEV.DRP", 19, readBbsdev};
constexpr std::array kinds{Kind{"DOOR32.SYS", 11, readDoor32}, Kind{"DOOR.SYS", 31, readDoorSys},
                           Kind{"DORINFO*.DEF", 12, readDorinfo}, Kind{"CHAIN.TXT", 32, readChain},
                           bbsdev};

std::string readBytes(const std::string& path) {
    std::optional<std::string> bytes = readFile(path);
    if (!bytes) {
        fail(path, errno == ESPIPE ? std::string("is a pipe or a device, not a file")
                                   : std::string("cannot be read: ") + std::strerror(errno));
    }
    constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";
    if (bytes->starts_with(byteOrderMark)) {
        bytes->erase(0, byteOrderMark.size());
    }
    return *std::move(bytes);
}

} // namespace

DropFile parseDropFile(const std::string& path, std::string_view bytes) {
    const std::string name = lastPart(path);
    for (const Kind& kind : kinds) {
        if (fnmatch(kind.pattern, name.c_str(), FNM_CASEFOLD) == 0) {
            return kind.parse(path, bytes);
        }
    }
    fail(path, "is not the name of a known drop file");
}

std::optional<DropFile> readDropFile(const std::string& path, int node) {
    if (!isDirectory(path)) {
        const std::string found = findFile(path).value_or(path);
        return parseDropFile(found, readBytes(found));
    }
    const std::string dorinfo = "DORINFO" + std::to_string(node) + ".DEF";
    for (const char* name :
         {"DOOR32.SYS", "DOOR.SYS", dorinfo.c_str(), "DORINFO1.DEF", "CHAIN.TXT"}) {
        if (const auto found = findFile((path + '/').append(name))) {
            return parseDropFile(*found, readBytes(*found));
        }
    }
    return std::nullopt;
}

DropFile readBbsdevFile(const std::string& path) { return bbsdev.parse(path, readBytes(path)); }

} // namespace odoors
