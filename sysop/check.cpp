#include "sysop/check.h"

#include "files/data_file.h"
#include "files/score_file.h"
#include "files/scroll_file.h"
#include "state/text_slot.h"
#include "sysop/charset.h"

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cstring>
#include <set>
#include <span>

namespace morvek {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view newDay = "It's a new day!\n\r";
constexpr std::string_view newsLineEnd = "\n\r";

constexpr std::size_t longestAuthor = 50;
constexpr std::size_t longestMessage = 49;

bool holdsControls(std::string_view text) {
    return std::any_of(text.begin(), text.end(), isControl);
}

void checkConfigurationLine(std::size_t number, std::string_view line, Findings& findings) {
    const std::string place = "line " + std::to_string(number);
    if (line.size() > longestConfigurationLine) {
        findings.push_back({Severity::error, configurationFileName, place, "",
                            "is longer than 253 characters: the game does not start"});
    } else if (line.ends_with('\r')) {
        findings.push_back({number == configurationLines ? Severity::error : Severity::warning,
                            configurationFileName, place, "",
                            "ends in a carriage return, which the game reads as part of it: use "
                            "line feeds only"});
    } else if (holdsControls(line)) {
        findings.push_back(
            {Severity::warning, configurationFileName, place, "", "contains a control byte"});
    }
}

void checkGameDirectory(const GameDirectory& home, Findings& findings) {
    const std::string& led = home.configuration.gameDirectory;
    std::error_code ignored;
    if (led.empty()) {
        findings.push_back({Severity::warning, configurationFileName, "line 3", "",
                            "is empty: the game uses the directory that it is started in"});
    } else if (!led.ends_with('\r') && !fs::is_directory(home.start / led, ignored)) {
        findings.push_back({Severity::error, configurationFileName, "line 3", "",
                            "is " + inQuotes(led) +
                                ", which is not a directory: the game uses the directory that it "
                                "is started in"});
    }
}

// One text of a board's entry. Of one that is longer than 15 characters the file holds no more
// than the length.
void checkBoardText(const TextSlot& cell, const std::string& place, const char* field,
                    std::size_t longest, Findings& findings) {
    if (cell.length > longest) {
        findings.push_back({Severity::error, scrollFileName, place, field,
                            "has the length " + std::to_string(cell.length) + "; must be at most " +
                                std::to_string(longest)});
    } else if (cell.length > TextSlot::capacity) {
        findings.push_back({Severity::note, scrollFileName, place, field,
                            "had " + std::to_string(cell.length) +
                                " characters; the file keeps only the length of more than 15"});
    } else if (holdsControls(cell.view())) {
        findings.push_back({Severity::error, scrollFileName, place, field,
                            "contains a control byte (" + inQuotes(cell.view()) + " without it)"});
    }
}

void checkScoreEntry(const ScoreEntry& entry, const std::string& place, Findings& findings) {
    if (holdsControls(entry.name)) {
        findings.push_back({Severity::error, scoreFileName, place, "name",
                            "contains a control byte (" + inQuotes(entry.name) + " without it)"});
    }
    // The inn enters even who has no experience yet.
    if (entry.score < 0) {
        findings.push_back({Severity::warning, scoreFileName, place, "score",
                            "is " + std::to_string(entry.score) + "; must not be negative"});
    }
    if (entry.className.empty() || entry.className != colourOfClass(entry.className).name) {
        findings.push_back({Severity::error, scoreFileName, place, "className",
                            "reads as " + inQuotes(entry.className) + ", which is not a class"});
    }
}

std::string lineOf(std::size_t index) { return "line " + std::to_string(index + 1); }

// What was not read, or would be written otherwise than it stands.
void checkScoreText(std::string_view text, std::span<const ScoreEntry> entries,
                    Findings& findings) {
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const std::string line = scoreLine(entries[i]);
        if (!text.starts_with(line)) {
            findings.push_back({Severity::warning, scoreFileName, lineOf(i), "",
                                "is not as the game writes it; it reads as " +
                                    inQuotes(line.substr(0, line.size() - 1))});
            return;
        }
        text.remove_prefix(line.size());
    }
    if (!text.empty()) {
        findings.push_back({Severity::error, scoreFileName, lineOf(entries.size()), "",
                            entries.size() < topTenSize
                                ? "cannot be read: the list ends before it"
                                : "is one too many: the list has ten entries"});
    }
}

void checkScoreOrder(std::span<const ScoreEntry> entries, Findings& findings) {
    std::set<std::string> names;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (i > 0 && entries[i].score > entries[i - 1].score) {
            findings.push_back(
                {Severity::error, scoreFileName, lineOf(i), "score",
                 "is " + std::to_string(entries[i].score) + ", more than in the line before"});
        }
        if (!names.insert(entries[i].name).second) {
            findings.push_back({Severity::warning, scoreFileName, lineOf(i), "name",
                                "is " + inQuotes(entries[i].name) + " again"});
        }
    }
}

void checkNewsText(const std::string& file, std::string_view text, Findings& findings) {
    if (!text.starts_with(newDay)) {
        findings.push_back({Severity::note, file, "line 1", "",
                            "is not \"It's a new day!\": the first call of the day was cut off"});
    }
    for (std::size_t i = 0; !text.empty(); ++i) {
        const std::size_t end = text.find(newsLineEnd);
        const std::string_view line = text.substr(0, end);
        if (end == std::string_view::npos) {
            findings.push_back({Severity::warning, file, lineOf(i), "",
                                "does not end in a line feed and a carriage return"});
        }
        if (holdsControls(line)) {
            findings.push_back({Severity::error, file, lineOf(i), "", "contains a control byte"});
        }
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + newsLineEnd.size());
    }
}

const char* wordOf(Severity severity) {
    switch (severity) {
    case Severity::error:
        return "error";
    case Severity::warning:
        return "warning";
    case Severity::note:
        break;
    }
    return "note";
}

std::size_t countOf(const Findings& findings, Severity severity) {
    return static_cast<std::size_t>(
        std::count_if(findings.begin(), findings.end(),
                      [&](const Finding& finding) { return finding.severity == severity; }));
}

void tell(const Finding& finding, std::ostream& out) {
    out << wordOf(finding.severity) << ": " << finding.file;
    if (!finding.place.empty()) {
        out << ": " << finding.place;
    }
    if (!finding.field.empty()) {
        out << ": " << finding.field;
    }
    out << ' ' << finding.text << '\n';
}

std::string counted(std::size_t count, const std::string& what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

} // namespace

std::optional<std::string> contentToCheck(const GameDirectory& home, const std::string& name,
                                          Findings& findings) {
    const fs::path path = home.data / name;
    std::error_code ignored;
    if (!fs::exists(fs::symlink_status(path, ignored))) {
        return std::nullopt;
    }
    std::optional<std::string> content;
    if (fs::is_regular_file(path, ignored)) {
        content = readWhole(path.string());
        if (!content) {
            findings.push_back({Severity::error, name, "", "",
                                std::string("cannot be read: ") + std::strerror(errno)});
        }
    } else {
        findings.push_back({Severity::error, name, "", "", "is not a regular file"});
    }
    return content;
}

void checkConfiguration(const GameDirectory& home, Findings& findings) {
    const std::optional<std::string> text =
        readWhole((home.start / configurationFileName).string());
    if (!text) {
        findings.push_back({Severity::warning, configurationFileName, "", "",
                            "is missing: no board is named, and the game uses the directory that "
                            "it is started in"});
        return;
    }
    std::string_view rest = *text;
    for (std::size_t number = 1; number <= configurationLines; ++number) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        checkConfigurationLine(number, line, findings);
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    }
    if (parseConfiguration(*text)) {
        checkGameDirectory(home, findings);
    }
}

void checkMenus(const GameDirectory& home, Findings& findings) {
    for (const std::string& name : menuNames) {
        const bool plain = canRead(home.file(name + ".asc"));
        const bool coloured = canRead(home.file(name + ".ans"));
        if (!plain && !coloured) {
            findings.push_back({Severity::error, name + ".asc", "", "",
                                "is missing, and " + name + ".ans too: callers see no menu"});
        } else if (!plain) {
            findings.push_back({Severity::warning, name + ".asc", "", "",
                                "is missing: callers without ANSI graphics see no menu"});
        } else if (!coloured) {
            findings.push_back({Severity::warning, name + ".ans", "", "",
                                "is missing: all callers see the plain menu"});
        }
    }
}

void checkBoard(const GameDirectory& home, Findings& findings) {
    const std::optional<std::string> content = contentToCheck(home, scrollFileName, findings);
    if (!content) {
        return;
    }
    if (content->empty()) {
        findings.push_back({Severity::note, scrollFileName, "", "",
                            "is empty: a call was cut off while a message was written"});
    } else if (content->size() != scrollSize && content->size() != 2 * scrollSize) {
        findings.push_back({Severity::error, scrollFileName, "", "",
                            "has " + std::to_string(content->size()) +
                                " bytes; must be 480, or 960 once it was shown"});
    }
    std::array<TextSlot, scrollSize / sizeof(TextSlot)> cells{};
    std::memcpy(cells.data(), content->data(), std::min(content->size(), scrollSize));
    for (std::size_t i = 0; i < cells.size(); i += 2) {
        const std::string place = "entry " + std::to_string(i / 2 + 1);
        checkBoardText(cells[i], place, "author", longestAuthor, findings);
        checkBoardText(cells[i + 1], place, "message", longestMessage, findings);
    }
}

void checkScores(const GameDirectory& home, Findings& findings) {
    const std::optional<std::string> text = contentToCheck(home, scoreFileName, findings);
    if (!text) {
        return;
    }
    if (text->empty()) {
        findings.push_back({Severity::warning, scoreFileName, "", "",
                            "is empty: it reads as one entry without a name"});
        return;
    }
    std::array<ScoreEntry, topTenSize> table;
    const auto count = static_cast<std::size_t>(parseScores(*text, table));
    const auto entries = std::span<const ScoreEntry>(table).first(count);
    checkScoreText(*text, entries, findings);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        checkScoreEntry(entries[i], lineOf(i), findings);
    }
    checkScoreOrder(entries, findings);
}

void checkNews(const GameDirectory& home, Findings& findings) {
    for (const std::string& name : dataFiles(home)) {
        if (!isNewsFileName(name)) {
            continue;
        }
        if (sortableDay(name.substr(0, 6)).empty()) {
            findings.push_back({Severity::warning, name, "", "", "is not named after a date"});
        }
        if (const std::optional<std::string> text = contentToCheck(home, name, findings)) {
            checkNewsText(name, *text, findings);
        }
    }
}

bool checkGame(const GameDirectory& home, std::ostream& out) {
    Findings findings;
    for (const auto& look : {checkConfiguration, checkAccess, checkMenus, checkCharacters,
                             checkBoard, checkScores, checkNews}) {
        look(home, findings);
    }
    for (const Finding& finding : findings) {
        tell(finding, out);
    }
    const std::size_t errors = countOf(findings, Severity::error);
    const std::size_t warnings = countOf(findings, Severity::warning);
    if (errors + warnings == 0) {
        out << "No errors or warnings.\n";
        return true;
    }
    out << counted(errors, "error") << " and " << counted(warnings, "warning") << ".\n";
    return false;
}

} // namespace morvek
