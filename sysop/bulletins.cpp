#include "sysop/bulletins.h"

#include "files/score_file.h"
#include "files/scroll_file.h"
#include "sysop/charset.h"

#include <algorithm>
#include <array>
#include <sstream>

namespace morvek {
namespace {

constexpr const char* style = R"(
    body { background: #14100c; color: #d8cdb8; font: 16px/1.5 Georgia, serif; margin: 2em auto;
           max-width: 42em; padding: 0 1em; }
    h1, th, td:first-child { color: #d64b3c; font-weight: normal; text-align: left; }
    table { border-collapse: collapse; width: 100%; }
    th, td { border-bottom: 1px solid #3a3027; padding: .3em .6em; vertical-align: top; }
    footer { color: #8a7d6a; font-size: 85%; margin-top: 2em; }
)";

// A bulletin as a table; its texts are CP437.
struct Page {
    std::string title;
    std::vector<std::vector<std::string>> rows;
};

void writeHtml(const GameDirectory& home, const Page& page, std::ostream& out) {
    out << "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n  <meta charset=\"utf-8\">\n"
        << "  <meta name=\"viewport\" content=\"width=device-width\">\n  <title>" << page.title
        << "</title>\n  <style>" << style << "  </style>\n</head>\n<body>\n<h1>" << page.title
        << "</h1>\n<table>\n";
    for (const std::vector<std::string>& row : page.rows) {
        out << "<tr>";
        for (const std::string& cell : row) {
            out << "<td>" << toHtml(cell) << "</td>";
        }
        out << "</tr>\n";
    }
    out << "</table>\n";
    if (const std::string board = toHtml(home.configuration.hostName); !board.empty()) {
        out << "<footer>Hosted by " << board << "</footer>\n";
    }
    out << "</body>\n</html>\n";
}

// A title and lines; the first of two columns is a name.
void writeLines(const Page& page, bool ansi, std::ostream& out) {
    out << (ansi ? "\033[0;31m" : "") << page.title
        << (ansi ? "\033[1m:\033[0;1;37m\n\n" : ":\n\n");
    for (const std::vector<std::string>& row : page.rows) {
        if (row.size() > 1) {
            out << (ansi ? "\033[0;31m" : "") << row.front() << (ansi ? "\033[1m: \033[37m" : ": ");
        }
        out << row.back() << '\n';
    }
    out << (ansi ? "\033[0m" : "");
}

} // namespace

std::string shownText(std::string_view text) {
    std::string shown;
    bool inCode = false;
    for (const char one : text) {
        if (one == '`') {
            inCode = !inCode;
        } else if (!inCode && !isControl(one)) {
            shown += one;
        }
    }
    return shown;
}

bool isShown(const ScrollEntry& entry) { return !entry.author.empty() && !entry.message.empty(); }

std::vector<ScoreEntry> scoresOf(const GameDirectory& home) {
    std::array<ScoreEntry, topTenSize> table;
    const std::int32_t count = parseScores(readData(home, scoreFileName), table);
    std::vector<ScoreEntry> entries(table.begin(), table.begin() + count);
    std::erase_if(entries, isEmptyEntry);
    return entries;
}

void writeScores(const GameDirectory& home, Format format, std::ostream& out) {
    const std::vector<ScoreEntry> entries = scoresOf(home);
    if (format == Format::text || format == Format::ansi) {
        out << (format == Format::text ? plainBulletin(entries) : ansiBulletin(entries));
        return;
    }
    Page page{"Morvek: Top Players", {{"Rank", "Name", "Experience", "Class"}}};
    Json list = Json::array();
    for (const ScoreEntry& entry : entries) {
        const std::size_t rank = list.size() + 1;
        page.rows.push_back(
            {std::to_string(rank), entry.name, std::to_string(entry.score), entry.className});
        list.push_back({{"rank", rank},
                        {"name", toUtf8(entry.name)},
                        {"score", entry.score},
                        {"class", toUtf8(entry.className)}});
    }
    if (format == Format::html) {
        writeHtml(home, page, out);
    } else {
        out << list.dump(2) << '\n';
    }
}

void writeNews(const GameDirectory& home, const std::string& stamp, Format format,
               std::ostream& out) {
    Page page{"Morvek: News of " + dayOf(stamp), {}};
    Json lines = Json::array();
    std::istringstream news(readData(home, stamp + ".txt"));
    for (std::string line; std::getline(news, line);) {
        if (line = withoutControls(line); !line.empty()) {
            page.rows.push_back({line});
            lines.push_back(toUtf8(line));
        }
    }
    if (format == Format::json) {
        out << Json{{"day", dayOf(stamp)}, {"lines", lines}}.dump(2) << '\n';
        return;
    }
    if (page.rows.empty()) {
        page.rows.push_back({"Nobody has joined the game."});
    }
    if (format == Format::html) {
        writeHtml(home, page, out);
    } else {
        writeLines(page, format == Format::ansi, out);
    }
}

void writeBoard(const GameDirectory& home, Format format, std::ostream& out) {
    Page page{"Morvek's Scroll", {}};
    Json list = Json::array();
    for (const std::string& bytes : boardEntries(readBoard(home))) {
        const ScrollEntry entry = textsOf(bytes);
        if (isShown(entry)) {
            page.rows.push_back({shownText(entry.author), shownText(entry.message)});
            list.push_back({{"author", toUtf8(page.rows.back().front())},
                            {"message", toUtf8(page.rows.back().back())}});
        }
    }
    if (format == Format::json) {
        out << list.dump(2) << '\n';
    } else if (format == Format::html) {
        writeHtml(home, page, out);
    } else {
        writeLines(page, format == Format::ansi, out);
    }
}

} // namespace morvek
