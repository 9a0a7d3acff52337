#include "files/score_file.h"

#include <array>
#include <charconv>

namespace morvek {
namespace {

constexpr std::array<ClassColour, 9> classColours{{
    {"Cleric", "`blue`", "\033[0;34m"},
    {"Fighter", "`cyan`", "\033[0;36m"},
    {"Paladin", "`magenta`", "\033[0;35m"},
    {"Ranger", "`brown`", "\033[0;33m"},
    {"Rogue", "`bright blue`", "\033[1;34m"},
    {"Warlock", "`bright green`", "\033[1;32m"},
    {"Warlord", "`bright cyan`", "\033[1;36m"},
    {"Wizard", "`bright magenta`", "\033[1;35m"},
    {"", "", ""},
}};

constexpr std::string_view rule = "-----------------------------------------------------------";
constexpr std::string_view headings = "Rank  Name                  Experience        Class";

constexpr std::string_view whiteSpace = " \t\n\v\f\r";

void skipWhiteSpace(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(whiteSpace), text.size()));
}

// Reads one entry and removes it from the text; false when it cannot be read whole.
bool parseEntry(std::string_view& text, ScoreEntry& entry) {
    const std::size_t mark = text.find('#');
    if (mark == std::string_view::npos) {
        return false;
    }
    std::string_view rest = text.substr(mark + 1);
    skipWhiteSpace(rest);
    if (rest.starts_with('+') && !rest.starts_with("+-")) {
        rest.remove_prefix(1);
    }
    std::int32_t score = 0;
    const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), score);
    if (error != std::errc()) {
        return false;
    }
    entry.name = text.substr(0, mark);
    entry.score = score;
    rest.remove_prefix(static_cast<std::size_t>(end - rest.data()));
    skipWhiteSpace(rest);
    entry.className = rest.substr(0, rest.find_first_of(whiteSpace));
    rest.remove_prefix(entry.className.size());
    skipWhiteSpace(rest);
    text = rest;
    return true;
}

// A text of a bulletin's line, padded with blanks and never cut. What a terminal would obey and
// not show is left out.
std::string field(std::string_view text, std::size_t width) {
    std::string padded;
    for (const char one : text) {
        const auto code = static_cast<unsigned char>(one);
        if (code >= 32 && code != 127) {
            padded += one;
        }
    }
    padded.resize(std::max(padded.size(), width), ' ');
    return padded;
}

std::string_view afterRank(std::size_t rank) { return rank < topTenSize ? ".    " : ".   "; }

} // namespace

const ClassColour& colourOfClass(std::string_view className) {
    for (const ClassColour& colour : classColours) {
        if (className == colour.name) {
            return colour;
        }
    }
    return classColours.back();
}

bool isEmptyEntry(const ScoreEntry& entry) {
    return entry.name.empty() && entry.score == 0 && entry.className.empty();
}

std::int32_t parseScores(std::string_view text, std::span<ScoreEntry> table) {
    if (text.empty()) {
        table.front() = ScoreEntry{};
        return 1;
    }
    std::int32_t count = 0;
    for (ScoreEntry& entry : table) {
        if (text.empty() || !parseEntry(text, entry)) {
            break;
        }
        ++count;
    }
    return count;
}

std::string scoreLine(const ScoreEntry& entry) {
    return entry.name + '#' + std::to_string(entry.score) + entry.className + '\n';
}

std::string plainBulletin(std::span<const ScoreEntry> entries) {
    std::string text = "Morvek RPG Top Players:\n\n";
    text.append(headings).append("\n").append(rule).append("\n");
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (!isEmptyEntry(entries[i])) {
            text.append(std::to_string(i + 1)).append(afterRank(i + 1));
            text.append(field(entries[i].name, 22));
            text.append(field(std::to_string(entries[i].score), 18));
            text.append(field(entries[i].className, 15)).append("\n");
        }
    }
    return text;
}

std::string ansiBulletin(std::span<const ScoreEntry> entries) {
    std::string text = "\033[0;31mMorvek RPG Top Players\033[1m:\n\n";
    text.append("\033[0;31m").append(headings).append("\033[37m\n");
    text.append("\033[1;37m").append(rule).append("\033[0m\n");
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (!isEmptyEntry(entries[i])) {
            text.append("\033[0;31m").append(std::to_string(i + 1));
            text.append("\033[1;31m").append(afterRank(i + 1)).append("\033[37m");
            text.append(field(entries[i].name, 22));
            text.append(field(std::to_string(entries[i].score), 18));
            text.append(colourOfClass(entries[i].className).ansiSequence);
            text.append(field(entries[i].className, 15)).append("\033[0m\n");
        }
    }
    return text;
}

} // namespace morvek
