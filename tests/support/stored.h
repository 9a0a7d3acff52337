// Characters and texts as the files hold them.
#pragma once

#include "state/roster.h"
#include "support/temporary_directory.h"

#include <cstring>

// The 24 bytes of a text of at most 15 characters.
inline std::string storedText(std::string text) {
    const std::string length{static_cast<char>(text.size()), '\0', '\0', '\0'};
    text.resize(16, '\0');
    return std::string(4, '\0') + length + text;
}

// Gives a slot of the roster in memory a character.
inline void own(std::size_t number, std::string_view owner, std::string_view name) {
    game.roster.slots()[number].ownerName.assign(owner);
    game.roster.slots()[number].name.assign(name);
}

// The roster in memory, as the character file holds it.
inline std::string rosterBytes() {
    return {reinterpret_cast<const char*>(game.roster.slots().data()), sizeof game.roster.slots()};
}

// A slot of the character file.
inline PlayerRecord storedSlot(std::size_t number) {
    PlayerRecord record;
    char* const bytes = reinterpret_cast<char*>(&record);
    readFile("morchars.dat").copy(bytes, sizeof record, number * sizeof record);
    return record;
}
