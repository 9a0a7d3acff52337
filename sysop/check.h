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
    warning, // the game plays on, but it did not come from the game or needs the operator
    note,    // nothing is wrong: worth knowing
};

struct Finding {
    Severity severity;
    std::string file;
    std::string place; // the record, line or entry, and its field; empty: the whole file
    std::string text;  // a sentence without its subject
};

using Findings = std::vector<Finding>;

// A place of a file, about which findings are added.
class Subject {
public:
    Subject(Findings& findings, std::string file, std::string place = {})
        : findings_(findings), file_(std::move(file)), place_(std::move(place)) {}

    // A place within this one.
    [[nodiscard]] Subject at(const std::string& place) const {
        return {findings_, file_, place_.empty() ? place : place_ + ": " + place};
    }
    [[nodiscard]] Subject line(std::size_t index) const {
        return at("line " + std::to_string(index + 1));
    }

    // Adds a finding if the condition holds, and returns the condition.
    bool operator()(Severity severity, bool holds, const std::string& text) const;

private:
    Findings& findings_;
    std::string file_;
    std::string place_;
};

// Each of these looks at one kind of file and adds what it finds.
void checkConfiguration(const GameDirectory& home, Findings& findings);
void checkAccess(const GameDirectory& home, Findings& findings);
void checkMenus(const GameDirectory& home, Findings& findings);
void checkCharacters(const GameDirectory& home, Findings& findings);
void checkBoard(const GameDirectory& home, Findings& findings);
void checkScores(const GameDirectory& home, Findings& findings);
void checkNews(const GameDirectory& home, Findings& findings);

// Looks at everything and tells all findings; whether there is no error and no warning among them.
bool checkGame(const GameDirectory& home, bool asJson, std::ostream& out);

// The content of a file of the game that is to be checked. One that cannot be read is added to the
// findings; one that is not there is not.
std::optional<std::string> contentToCheck(const GameDirectory& home, const std::string& name,
                                          Findings& findings);

} // namespace morvek
