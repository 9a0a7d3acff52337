// What is wrong with a game's files. They are read as the game reads them; whatever play could not
// have given is told with its file, its record and its field.
#pragma once

#include "sysop/game_directory.h"

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace morvek {

enum class Severity : std::uint8_t {
    error,   // the game misreads it, or plays wrong with it
    warning, // the game plays on, but it did not come from the game
    note,    // nothing is wrong: worth knowing
};

struct Finding {
    Severity severity = Severity::error;
    std::string file;
    std::string place; // the record, line or entry; empty: the whole file
    std::string field; // empty: all of the place
    std::string text;  // a sentence without its subject
};

using Findings = std::vector<Finding>;

// Each of these looks at one kind of file and adds what it finds.
void checkConfiguration(const GameDirectory& home, Findings& findings);
void checkAccess(const GameDirectory& home, Findings& findings);
void checkMenus(const GameDirectory& home, Findings& findings);
void checkCharacters(const GameDirectory& home, Findings& findings);
void checkBoard(const GameDirectory& home, Findings& findings);
void checkScores(const GameDirectory& home, Findings& findings);
void checkNews(const GameDirectory& home, Findings& findings);

// Looks at everything and tells all findings, one a line, and how many they are; whether there is
// no error and no warning among them.
bool checkGame(const GameDirectory& home, std::ostream& out);

// The file's content for a check; adds a finding, and gives nothing, when it cannot be read. A
// file that is not there gives nothing and adds nothing.
std::optional<std::string> contentToCheck(const GameDirectory& home, const std::string& name,
                                          Findings& findings);

} // namespace morvek
