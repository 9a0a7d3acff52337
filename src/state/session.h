#pragma once

#include <cstdint>
#include <string>

namespace morvek {

// This call: who is calling, and how far he is in.
struct Session {
    std::string doorUserName;    // as the board gives it; the key of his slot
    std::string displayUserName; // the same, or "Default"
    std::string hostName;
    std::string gameDirectory;
    std::string characterFileName = "morchars.dat";
    std::string dateStamp;        // "%m%d%y" of the day the call began
    std::int32_t today = 0;       // the same six digits as a number, once a rule has set it
    std::int32_t storedDay = 0;   // the day stamp of the loaded character; no rule reads it
    std::int32_t currentSlot = 0; // as the file says: may be anything
    std::int32_t inGame = 0;
    std::int32_t newPlayer = 0;
    std::int32_t foundPlayer = 0; // no rule reads it
    std::int32_t entered = 0;     // no rule reads it
    std::int32_t nameChecked = 0;
    std::int32_t rollResult = 0;
    std::int32_t sessionStartExperience = 0;
    std::int32_t guessesLeft = 0; // at the healing shrine
    std::int32_t roomRented = 0;
    std::int32_t inTraining = 0;   // no rule reads it
    std::int32_t rosterUnread = 0; // 1: there is a character file that could not be read
    std::int32_t scrollUnread = 0; // and the same of the board
    std::int32_t chosenNumber = 0; // the list number of the player last attacked; no rule reads it
    std::int32_t targetSlot = 0;   // and his slot
};

} // namespace morvek
