// Everything that the game knows, in one place: the player, the roster of all characters, this
// call's session, the opponent at hand, the world. Operations work on `game`; flags are ints that
// hold 0 or 1, as they do in the files.
#pragma once

#include "state/monster.h"
#include "state/player_record.h"
#include "state/world_words.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>

namespace morvek {

// The caller's character.
struct Player {
    std::string name{};
    std::string className{};
    std::int32_t level = 0;
    std::int32_t experience = 0;
    double gold = 0.0; // money on hand
    double bankGold = 0.0;
    std::int32_t experienceNeeded = 0;
    std::int32_t hitPoints = 0;
    std::int32_t maxHitPoints = 0;
    std::int32_t strength = 0;
    std::int32_t constitution = 0;
    std::int32_t dexterity = 0;
    std::int32_t intelligence = 0;
    std::int32_t wisdom = 0;
    std::int32_t charisma = 0;
    std::int32_t weaponNumber = 0;
    std::string weapon{};
    std::int32_t armourNumber = 0;
    std::string armour{};
    std::int32_t turnsLeft = 0;
    std::int32_t turnsPerDay = 0;
    std::int32_t reservedCounter = 0;
    std::int32_t weaponDamage = 0; // die size of this round's blows
    std::int32_t armourValue = 0;  // armour of this round
    std::int32_t strengthGain = 0; // the last level's gains
    std::int32_t dexterityGain = 0;
    std::int32_t intelligenceGain = 0;
    std::int32_t hitPointGain = 0;
    std::int32_t restoredTurns = 0; // set by a level gained; nothing reads them
    std::int32_t restoredTurnsPerDay = 0;
};

constexpr std::size_t slotCount = 50;

// The last slot is reached by the healed save alone.
constexpr std::size_t searchedSlots = 49;

// One line of the player list: a copy of a character as the file last had it.
struct PlayerListEntry {
    TextSlot version{"0.6.9a"};
    std::int32_t slotIndex = 0;
    std::int32_t lastPlayedDay = 0;
    TextSlot name;
    TextSlot className;
    std::int32_t level = 0;
    std::int32_t experience = 0;
    double gold = 0.0;
    double bankGold = 0.0;
    std::int32_t experienceNeeded = 0;
    std::int32_t hitPoints = 0;
    std::int32_t maxHitPoints = 0;
    std::int32_t strength = 0;
    std::int32_t constitution = 0;
    std::int32_t dexterity = 0;
    std::int32_t intelligence = 0;
    std::int32_t wisdom = 0;
    std::int32_t charisma = 0;
    std::int32_t weaponNumber = 0;
    TextSlot weapon;
    std::int32_t armourNumber = 0;
    TextSlot armour;
    std::int32_t turnsLeft = 0;
    std::int32_t turnsPerDay = 0;
    std::int32_t reservedCounter = 0;
    std::int32_t currentLocation = 0;
};

// An empty slot, with the mark that every slot carries from the start and no save rewrites.
constexpr PlayerRecord emptySlot() {
    PlayerRecord slot;
    slot.version.assign("0.6.8a");
    return slot;
}

constexpr std::array<PlayerRecord, slotCount> emptySlots() {
    std::array<PlayerRecord, slotCount> slots{};
    slots.fill(emptySlot());
    return slots;
}

// The character file in memory, and what the player list made of it. They take their 90,000 bytes
// when somebody first asks for them, so a caller who only looks at the title does without.
class Roster {
public:
    using Slots = std::array<PlayerRecord, slotCount>;
    using List = std::array<PlayerListEntry, slotCount>;

    Slots& slots() { return made().slots; }
    List& list() { return made().list; }

    std::int32_t playerCount = 0; // the number of the last player listed, plus one

private:
    struct Tables {
        Slots slots = emptySlots();
        List list{};
    };

    Tables& made() {
        if (!tables) {
            tables = std::make_unique<Tables>();
        }
        return *tables;
    }

    std::unique_ptr<Tables> tables;
};

static_assert(sizeof(Roster::Slots) == 75000);

struct ScoreEntry {
    std::string name;
    std::int32_t score = 0;
    std::string className;
};

constexpr std::size_t topTenSize = 10;

struct Scores {
    ScoreEntry entry; // the score about to be entered
    std::array<ScoreEntry, topTenSize> table{};
    std::int32_t count = 0; // entries read
};

struct ScrollEntry {
    std::string author;
    std::string message;
};

// The message board, oldest message first.
using Scroll = std::array<ScrollEntry, 10>;

// This call: who is calling, and how far he is in.
struct Session {
    std::string doorUserName;    // as the board gives it; the key of his slot
    std::string displayUserName; // the same, or "Default"
    std::string hostName;
    std::string gameDirectory;
    std::string characterFileName = "morchars.dat";
    std::string dateStamp;        // "%m%d%y" of the day the call began
    std::int32_t today = 0;       // the same six digits as a number, once a rule has set it
    std::int32_t storedDay = 0;   // the day stamp that the character had when loaded
    std::int32_t currentSlot = 0; // as the file says: may be anything
    std::int32_t inGame = 0;
    std::int32_t newPlayer = 0;
    std::int32_t foundPlayer = 0;
    std::int32_t entered = 0;
    std::int32_t nameChecked = 0;
    std::int32_t rollResult = 0;
    std::int32_t sessionStartExperience = 0;
    std::int32_t guessesLeft = 0; // at the healing shrine
    std::int32_t roomRented = 0;
    std::int32_t inTraining = 0;
    std::int32_t rosterUnread = 0; // 1: there is a character file that could not be read
    std::int32_t scrollUnread = 0; // and the same of the board
    std::int32_t chosenNumber = 0; // the list number of the player last attacked
    std::int32_t targetSlot = 0;   // and his slot
};

// The opponent at hand and his group.
struct Encounter {
    Monster monster;
    std::int32_t lastRoll = 0;
    std::int32_t goldDie = 0;
    std::int32_t monsterCount = 0;
    std::int32_t attackOrder = 0; // 0: the player strikes first this round
    std::int32_t groupActive = 0;
    std::int32_t ambushPending = 0;
    double lastTreasure = 0.0;
};

// Where the player is, and what he has done there.
struct World {
    WorldWords words{};
    std::int32_t currentLocation = 0;
    std::int32_t previousLocation = 0;
    std::int32_t leavingWorld = 0;
    std::int32_t exhaustedShown = 0; // 1: shown; a save sets 50, which counts as not shown
    std::int32_t playerDead = 0;
    std::int32_t foundMorvek = 0;

    std::int32_t& searched(int location) { return words[searchedWord(location)]; }
    std::int32_t& cleared(int location) { return words[clearedWord(location)]; }
    std::int32_t& position(Level level) { return words[wordsOf(level).positionWord]; }
    std::int32_t& levelCleared(Level level, int room) {
        return words[levelClearedWord(level, room)];
    }
};

struct GameState {
    Player player;
    Roster roster;
    Session session;
    Encounter encounter;
    World world;
    Scores scores;
    Scroll scroll{};
};

extern GameState game;

// The slot numbered `currentSlot`, or null when that number is out of range.
PlayerRecord* slotOfCurrentNumber();

// The day stamp's text as a number.
std::int32_t dayNumber();

} // namespace morvek
