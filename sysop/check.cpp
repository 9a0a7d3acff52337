#include "sysop/check.h"

#include "files/data_file.h"
#include "files/score_file.h"
#include "files/scroll_file.h"
#include "state/text_slot.h"
#include "sysop/charset.h"
#include "sysop/failure.h"
#include "text/cp437.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <set>
#include <span>
#include <sys/stat.h>
#include <unistd.h>

namespace morvek {
namespace {

// What follows this byte in a display file, a description, is not shown.
constexpr char endOfText = 26;

using enum Severity;

constexpr std::string_view newDay = "It's a new day!\n\r";
constexpr std::string_view newsLineEnd = "\n\r";

constexpr std::size_t longestAuthor = 50;
constexpr std::size_t longestMessage = 49;

constexpr std::array severityWords{"error", "warning", "note"};

std::string withoutIt(std::string_view text) {
    return "contains a control byte (" + inQuotes(text) + " without it)";
}

// One text of a board's entry. Of one that is longer than 15 characters the file holds no more
// than the length.
void checkBoardText(const TextSlot& cell, const Subject& about, std::size_t longest) {
    const std::string length = std::to_string(cell.length);
    if (!about(error, cell.length > longest,
               "has the length " + length + "; must be at most " + std::to_string(longest))) {
        about(note, cell.length > TextSlot::capacity,
              "had " + length + " characters; the file keeps only the length of more than 15");
    }
    about(error, holdsControls(cell.view()), withoutIt(cell.view()));
}

// What was not read, or would be written otherwise than it stands.
void checkScoreText(std::string_view text, std::span<const ScoreEntry> entries,
                    const Subject& about) {
    bool isTold = false;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const std::string line = scoreLine(entries[i]);
        const std::string_view trimmed =
            text.substr(std::min(text.find_first_not_of(' '), text.size()));
        const bool isTrimmed = !text.starts_with(line) && trimmed.starts_with(line);
        isTold = isTold || about.line(i)(note, isTrimmed,
                                         "begins with a blank, which the game does not read");
        text = isTrimmed ? trimmed : text;
        if (about.line(i)(warning, !text.starts_with(line),
                          "is not as the game writes it; it reads as " +
                              inQuotes(line.substr(0, line.size() - 1)))) {
            return;
        }
        text.remove_prefix(line.size());
    }
    about.line(entries.size())(error, !text.empty(),
                               entries.size() < topTenSize
                                   ? "cannot be read: the list ends before it"
                                   : "is one too many: the list has ten entries");
}

void checkNewsText(std::string_view text, const Subject& about) {
    about.line(0)(note, !text.starts_with(newDay),
                  "is not \"It's a new day!\": the first call of the day was cut off");
    for (std::size_t i = 0; !text.empty(); ++i) {
        const std::size_t end = text.find(newsLineEnd);
        about.line(i)(warning, end == std::string_view::npos,
                      "does not end in a line feed and a carriage return");
        about.line(i)(error, holdsControls(text.substr(0, end)), "contains a control byte");
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + newsLineEnd.size());
    }
}

void checkMenu(const GameDirectory& home, const std::string& file, Findings& findings) {
    auto content = file.empty() ? std::nullopt : contentToCheck(home, file, findings);
    if (!content) {
        return;
    }
    content->resize(std::min(content->size(), content->find(endOfText)));
    const Subject about(findings, file);
    about(warning, content->empty(), "is empty");
    about(warning, text::looksLikeUtf8(*content),
          "is in UTF-8: callers see other characters; convert it to CP437");
    std::size_t lines = 0;
    for (std::size_t at = 0; (at = content->find('\n', at)) != std::string::npos; ++at, ++lines) {
        if (about.line(lines)(
                warning, at == 0 || (*content)[at - 1] != '\r',
                "ends in a line feed without a carriage return: what follows does not "
                "begin at the left")) {
            return;
        }
    }
}

} // namespace

bool Subject::operator()(Severity severity, bool holds, const std::string& text) const {
    if (holds) {
        findings_.push_back({severity, file_, place_, text});
    }
    return holds;
}

std::optional<std::string> contentToCheck(const GameDirectory& home, const std::string& name,
                                          Findings& findings) {
    const fs::path path = home.data / name;
    const Subject about(findings, name);
    std::error_code ignored;
    if (!fs::exists(fs::symlink_status(path, ignored)) ||
        about(error, !fs::is_regular_file(path, ignored), "is not a regular file")) {
        return std::nullopt;
    }
    std::optional<std::string> content = readWhole(path.string());
    about(error, !content, std::string("cannot be read: ") + std::strerror(errno));
    return content;
}

void checkConfiguration(const GameDirectory& home, Findings& findings) {
    const Subject about(findings, configurationFileName);
    const std::optional<std::string> text =
        readWhole((home.start / configurationFileName).string());
    if (!text) {
        about(warning, true,
              std::string("cannot be read: ") + std::strerror(errno) +
                  ": no board is named, and the game uses the directory that it is "
                  "started in");
        return;
    }
    std::string_view rest = *text;
    for (std::size_t i = 0; i < configurationLines; ++i) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        const Subject here = about.line(i);
        if (!here(error, line.size() > longestConfigurationLine,
                  "is longer than 253 characters: the game does not start") &&
            !here(warning, line.ends_with('\r'),
                  "ends in a carriage return, which the game reads as part of it")) {
            here(warning, holdsControls(line), "contains a control byte");
        }
        here(warning, i == 1 && text::looksLikeUtf8(line),
             "is in UTF-8: callers see other characters; convert it to CP437");
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    }
    if (const auto configuration = parseConfiguration(*text)) {
        const std::string& led = configuration->gameDirectory;
        std::error_code ignored;
        const std::string instead = "the game uses the directory that it is started in";
        about.line(2)(warning, led.empty(), "is empty: " + instead);
        about.line(2)(error, !led.empty() && !fs::is_directory(home.start / led, ignored),
                      "is " + inQuotes(led) + ", which is not a directory: " + instead);
    }
}

void checkAccess(const GameDirectory& home, Findings& findings) {
    std::vector<std::string> names = dataFiles(home);
    names.insert(names.end(), {".", lockFileName});
    // Root asks as the owner of the directory, as whom the game runs.
    struct stat owner {};
    const bool isRoot = ::geteuid() == 0 && ::stat(home.data.c_str(), &owner) == 0 &&
                        ::setegid(owner.st_gid) == 0 && ::seteuid(owner.st_uid) == 0;
    for (const std::string& name : names) {
        const bool isDirectory = name == ".";
        const int mode = isDirectory ? W_OK | X_OK : W_OK;
        const bool isRefused =
            ::faccessat(AT_FDCWD, home.file(name).c_str(), mode, AT_EACCESS) != 0;
        Subject(findings, isDirectory ? home.data.string() : name)(
            warning, isRefused && errno != ENOENT,
            std::string("cannot be written by the board's user: ") + std::strerror(errno));
    }
    failIf(isRoot && (::seteuid(0) != 0 || ::setegid(::getgid()) != 0), "cannot be root again");
    const Subject lock(findings, lockFileName);
    lock(warning, !home.lock->works(),
         "cannot be locked, the file system has no locks: let one "
         "caller play at a time (-ONECALLER)");
    const std::optional<std::string> content = contentToCheck(home, lockFileName, findings);
    lock(warning, content && !content->empty(), "is not empty");
}

void checkMenus(const GameDirectory& home, Findings& findings) {
    for (const std::string& name : menuNames) {
        const std::string plain = nameInAnyCase(home, name + ".asc");
        const std::string coloured = nameInAnyCase(home, name + ".ans");
        const Subject about(findings, name + (plain.empty() ? ".asc" : ".ans"));
        if (!about(error, plain.empty() && coloured.empty(),
                   "is missing, and " + name + ".ans too: callers see no menu")) {
            about(warning, plain.empty(), "is missing: callers without ANSI graphics see no menu");
            about(warning, coloured.empty(), "is missing: all callers see the plain menu");
        }
        for (const std::string& file : {plain, coloured}) {
            checkMenu(home, file, findings);
        }
    }
}

void checkBoard(const GameDirectory& home, Findings& findings) {
    const std::optional<std::string> content = contentToCheck(home, scrollFileName, findings);
    if (!content) {
        return;
    }
    const Subject about(findings, scrollFileName);
    const std::size_t size = content->size();
    about(note, size == 0 && !home.lock->isBoardTaken(),
          "is empty: a call was cut off while a message was written");
    about(error, size != 0 && size != scrollSize && size != 2 * scrollSize,
          "has " + std::to_string(size) + " bytes; must be 480, or 960 once it was shown");
    const std::vector<std::string> entries = boardEntries(*content);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        std::array<TextSlot, 2> cells;
        std::memcpy(cells.data(), entries[i].data(), sizeof cells);
        const Subject entry = about.at("entry " + std::to_string(i + 1));
        checkBoardText(cells[0], entry.at("author"), longestAuthor);
        checkBoardText(cells[1], entry.at("message"), longestMessage);
    }
}

void checkScores(const GameDirectory& home, Findings& findings) {
    contentToCheck(home, plainBulletinName, findings);
    contentToCheck(home, ansiBulletinName, findings);
    const std::optional<std::string> text = contentToCheck(home, scoreFileName, findings);
    const Subject about(findings, scoreFileName);
    if (!text || about(warning, text->empty(), "is empty: it reads as one entry without a name")) {
        return;
    }
    std::array<ScoreEntry, topTenSize> table;
    const auto count = static_cast<std::size_t>(parseScores(*text, table));
    const auto entries = std::span<const ScoreEntry>(table).first(count);
    checkScoreText(*text, entries, about);
    std::set<std::string> names;
    for (std::size_t i = 0; i < count; ++i) {
        const ScoreEntry& entry = entries[i];
        const std::string score = "is " + std::to_string(entry.score);
        const Subject here = about.line(i);
        const Subject name = here.at("name");
        name(error, holdsControls(entry.name), withoutIt(entry.name));
        name(warning, !names.insert(entry.name).second, "is " + inQuotes(entry.name) + " again");
        // The inn enters even who has no experience yet.
        here.at("score")(warning, entry.score < 0, score + "; must not be negative");
        here.at("score")(error, i > 0 && entry.score > entries[i - 1].score,
                         score + ", more than in the line before");
        here.at("className")(error,
                             entry.className.empty() ||
                                 entry.className != colourOfClass(entry.className).name,
                             "reads as " + inQuotes(entry.className) + ", which is not a class");
    }
}

void checkNews(const GameDirectory& home, Findings& findings) {
    for (const std::string& name : dataFiles(home)) {
        if (isNewsFileName(name)) {
            const Subject about(findings, name);
            about(warning, dayOf(name.substr(0, 6)).empty(), "is not named after a date");
            if (const std::optional<std::string> text = contentToCheck(home, name, findings)) {
                checkNewsText(*text, about);
            }
        }
    }
}

bool checkGame(const GameDirectory& home, bool asJson, std::ostream& out) {
    const Transaction transaction(*home.lock);
    Findings findings;
    for (const auto& look : {checkConfiguration, checkAccess, checkMenus, checkCharacters,
                             checkBoard, checkScores, checkNews}) {
        look(home, findings);
    }
    std::array<std::size_t, severityWords.size()> counts{};
    Json list = Json::array();
    for (const auto& [severity, file, place, text] : findings) {
        const auto kind = static_cast<std::size_t>(severity);
        ++counts[kind];
        list.push_back(
            {{"severity", severityWords[kind]}, {"file", file}, {"place", place}, {"text", text}});
        if (!asJson) {
            out << severityWords[kind] << ": " << file << (place.empty() ? "" : ": " + place) << ' '
                << text << '\n';
        }
    }
    const bool isGood = counts[0] + counts[1] == 0;
    const std::string told = counted(counts[0], "error") + " and " + counted(counts[1], "warning");
    out << (asJson ? list.dump(2) : isGood ? "No errors or warnings." : told + ".") << '\n';
    return isGood;
}

} // namespace morvek
