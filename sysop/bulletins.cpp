#include "sysop/bulletins.h"

#include "files/score_file.h"
#include "files/scroll_file.h"
#include "sysop/charset.h"
#include "sysop/fields.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <span>
#include <vector>

namespace morvek {
namespace {

using Json = nlohmann::ordered_json;

constexpr const char* style = R"(
    body { background: #14100c; color: #d8cdb8; font: 16px/1.5 Georgia, serif; margin: 2em auto;
           max-width: 42em; padding: 0 1em; }
    h1 { color: #d64b3c; font-weight: normal; }
    table { border-collapse: collapse; width: 100%; }
    th { color: #d64b3c; font-weight: normal; text-align: left; }
    th, td { border-bottom: 1px solid #3a3027; padding: .3em .6em; }
    td.number, th.number { text-align: right; font-variant-numeric: tabular-nums; }
    dt { color: #d64b3c; }
    dd { margin: 0 0 .6em 1.5em; }
    footer { color: #8a7d6a; font-size: 85%; margin-top: 2em; }
)";

void beginPage(const std::string& title, std::ostream& out) {
    out << "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n  <meta charset=\"utf-8\">\n"
        << "  <meta name=\"viewport\" content=\"width=device-width\">\n  <title>" << title
        << "</title>\n  <style>" << style << "  </style>\n</head>\n<body>\n<h1>" << title
        << "</h1>\n";
}

void endPage(const GameDirectory& home, std::ostream& out) {
    const std::string board = escaped(toUtf8(home.configuration.hostName));
    if (!board.empty()) {
        out << "<footer>Hosted by " << board << "</footer>\n";
    }
    out << "</body>\n</html>\n";
}

using Entries = std::span<const ScoreEntry>;

void writeScorePage(const GameDirectory& home, Entries entries, std::ostream& out) {
    beginPage("Morvek: Top Players", out);
    out << "<table>\n<tr><th class=\"number\">Rank</th><th>Name</th>"
        << "<th class=\"number\">Experience</th><th>Class</th></tr>\n";
    for (std::size_t i = 0; i < entries.size(); ++i) {
        out << "<tr><td class=\"number\">" << i + 1 << "</td><td>"
            << escaped(toUtf8(entries[i].name)) << "</td><td class=\"number\">" << entries[i].score
            << "</td><td>" << escaped(toUtf8(entries[i].className)) << "</td></tr>\n";
    }
    out << "</table>\n";
    endPage(home, out);
}

void writeScoreJson(Entries entries, std::ostream& out) {
    Json list = Json::array();
    for (std::size_t i = 0; i < entries.size(); ++i) {
        list.push_back({{"rank", i + 1},
                        {"name", toUtf8(entries[i].name)},
                        {"score", entries[i].score},
                        {"class", toUtf8(entries[i].className)}});
    }
    out << list.dump(2) << '\n';
}

// The lines of a day's news, as CP437 without control bytes.
std::vector<std::string> newsLines(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        if (std::string shown = withoutControls(line); !shown.empty()) {
            lines.push_back(std::move(shown));
        }
    }
    return lines;
}

void writeNewsPage(const GameDirectory& home, const std::string& title,
                   const std::vector<std::string>& lines, std::ostream& out) {
    beginPage(title, out);
    for (const std::string& line : lines) {
        out << "<p>" << escaped(toUtf8(line)) << "</p>\n";
    }
    endPage(home, out);
}

Json jsonOfNews(const std::string& stamp, const std::vector<std::string>& lines) {
    Json list = Json::array();
    for (const std::string& line : lines) {
        list.push_back(toUtf8(line));
    }
    return {{"day", dayOf(*wholeNumber(stamp))}, {"lines", list}};
}

// What the board shows, oldest first, as CP437 without control bytes and colour codes.
std::vector<ScrollEntry> shownEntries(const GameDirectory& home) {
    Scroll board;
    const std::string content = readData(home, scrollFileName);
    overlayScroll(std::span(content.data(), std::min(content.size(), scrollSize)), board);
    std::vector<ScrollEntry> shown;
    for (const ScrollEntry& entry : board) {
        if (!entry.author.empty() && !entry.message.empty()) {
            shown.push_back({withoutControls(withoutColourCodes(entry.author)),
                             withoutControls(withoutColourCodes(entry.message))});
        }
    }
    return shown;
}

void writeBoardPage(const GameDirectory& home, const std::vector<ScrollEntry>& entries,
                    std::ostream& out) {
    beginPage("Morvek's Scroll", out);
    out << "<dl>\n";
    for (const ScrollEntry& entry : entries) {
        out << "<dt>" << escaped(toUtf8(entry.author)) << "</dt><dd>"
            << escaped(toUtf8(entry.message)) << "</dd>\n";
    }
    out << "</dl>\n";
    endPage(home, out);
}

void writeBoardJson(const std::vector<ScrollEntry>& entries, std::ostream& out) {
    Json list = Json::array();
    for (const ScrollEntry& entry : entries) {
        list.push_back({{"author", toUtf8(entry.author)}, {"message", toUtf8(entry.message)}});
    }
    out << list.dump(2) << '\n';
}

} // namespace

std::string withoutColourCodes(std::string_view text) {
    std::string shown;
    bool inCode = false;
    for (const char one : text) {
        if (one == '`') {
            inCode = !inCode;
        } else if (!inCode) {
            shown += one;
        }
    }
    return shown;
}

void writeScores(const GameDirectory& home, Format format, std::ostream& out) {
    std::array<ScoreEntry, topTenSize> table;
    const auto count = static_cast<std::size_t>(parseScores(readData(home, scoreFileName), table));
    std::vector<ScoreEntry> entries(table.begin(), table.begin() + static_cast<long>(count));
    std::erase_if(entries, isEmptyEntry);
    switch (format) {
    case Format::text:
        out << plainBulletin(entries);
        break;
    case Format::ansi:
        out << ansiBulletin(entries);
        break;
    case Format::html:
        writeScorePage(home, entries, out);
        break;
    case Format::json:
        writeScoreJson(entries, out);
        break;
    }
}

void writeNews(const GameDirectory& home, const std::string& stamp, Format format,
               std::ostream& out) {
    const std::string title = "Morvek: News of " + dayOf(*wholeNumber(stamp));
    std::vector<std::string> lines = newsLines(readData(home, stamp + ".txt"));
    if (format == Format::json) {
        out << jsonOfNews(stamp, lines).dump(2) << '\n';
        return;
    }
    if (lines.empty()) {
        lines.emplace_back("Nobody has joined the game.");
    }
    if (format == Format::html) {
        writeNewsPage(home, title, lines, out);
        return;
    }
    const bool ansi = format == Format::ansi;
    out << (ansi ? "\033[0;31m" : "") << title << (ansi ? "\033[1m:\033[0;1;37m\n\n" : ":\n\n");
    for (const std::string& line : lines) {
        out << line << '\n';
    }
    out << (ansi ? "\033[0m" : "");
}

void writeBoard(const GameDirectory& home, Format format, std::ostream& out) {
    const std::vector<ScrollEntry> entries = shownEntries(home);
    if (format == Format::html) {
        writeBoardPage(home, entries, out);
        return;
    }
    if (format == Format::json) {
        writeBoardJson(entries, out);
        return;
    }
    const bool ansi = format == Format::ansi;
    out << (ansi ? "\033[0;31mMorvek's Scroll\033[1m:\033[0m\n\n" : "Morvek's Scroll:\n\n");
    for (const ScrollEntry& entry : entries) {
        out << (ansi ? "\033[0;31m" : "") << entry.author << (ansi ? "\033[1m: \033[37m" : ": ")
            << entry.message << (ansi ? "\033[0m\n" : "\n");
    }
}

} // namespace morvek
