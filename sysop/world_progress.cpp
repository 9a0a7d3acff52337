#include "sysop/world_progress.h"

#include "state/game_state.h"
#include "state/store_player.h"
#include "sysop/fields.h"

#include <algorithm>

namespace morvek {
namespace {

constexpr std::array<LevelName, levelWords.size()> levelNames{{
    {"castle1", "Castle Level 1"},
    {"castle2", "Castle Level 2"},
    {"mortuary1", "Underground Mortuary Level 1"},
    {"cavern1", "Rattlehead Cavern Level 1"},
}};

std::string numbered(std::string_view name, int number) {
    return std::string(name).append(".").append(std::to_string(number));
}

// The flags by the numbers of their words; empty where a word is none.
std::array<std::string, worldWordCount> flagsByWord() {
    std::array<std::string, worldWordCount> names;
    for (int location = 1; location <= locationCount; ++location) {
        names[searchedWord(location)] = numbered("searched", location);
        names[clearedWord(location)] = numbered("cleared", location);
    }
    for (const LevelWords& words : levelWords) {
        for (int room = 1; room <= words.rooms; ++room) {
            names[levelClearedWord(words.level, room)] = numbered(nameOf(words.level).key, room);
        }
    }
    return names;
}

// A record whose every stored word holds its number plus one.
PlayerRecord recordOfWordNumbers() {
    resetGame();
    for (std::size_t word = 0; word < worldWordCount; ++word) {
        game.world.words[word] = static_cast<std::int32_t>(word + 1);
    }
    PlayerRecord slot;
    storePlayer(slot, StoreKind::whole);
    resetGame();
    return slot;
}

std::vector<WorldFlag> findWorldFlags() {
    const auto names = flagsByWord();
    const PlayerRecord numbers = recordOfWordNumbers();
    std::vector<WorldFlag> flags;
    std::array<bool, worldWordCount> met{};
    for (const std::int32_t stored : numbers.worldState) {
        const auto word = static_cast<std::size_t>(stored - 1);
        flags.push_back(stored == 0 ? WorldFlag{} : WorldFlag{names[word], met[word]});
        if (stored != 0) {
            met[word] = true;
        }
    }
    return flags;
}

} // namespace

const LevelName& nameOf(Level level) { return levelNames[static_cast<std::size_t>(level)]; }

Progress progressOf(const PlayerRecord& slot) {
    resetGame();
    restorePlayer(slot);
    Progress progress;
    for (int location = 1; location <= locationCount; ++location) {
        if (game.world.searched(location) == 1) {
            progress.searched.push_back(location);
        }
        if (game.world.cleared(location) == 1) {
            progress.cleared.push_back(location);
        }
    }
    for (const LevelWords& words : levelWords) {
        for (int room = 1; room <= words.rooms; ++room) {
            if (game.world.levelCleared(words.level, room) == 1) {
                progress.levels[static_cast<std::size_t>(words.level)].push_back(room);
            }
        }
    }
    resetGame();
    return progress;
}

const std::vector<WorldFlag>& worldFlags() {
    static const std::vector<WorldFlag> flags = findWorldFlags();
    return flags;
}

bool setWorldFlag(PlayerRecord& slot, std::string_view name, std::int32_t value) {
    bool found = false;
    for (std::size_t i = 0; i < worldFlags().size(); ++i) {
        if (!name.empty() && sameWord(worldFlags()[i].name, name)) {
            slot.worldState[i] = value;
            found = true;
        }
    }
    return found;
}

} // namespace morvek
