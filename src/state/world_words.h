// The 311 world words, W0 to W310: all that a character has done to the world. Within a run the
// numbers go down as the places go up; store_player.cpp maps them to the character record.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace morvek {

constexpr std::size_t worldWordCount = 311;
constexpr int locationCount = 76;

using WorldWords = std::array<std::int32_t, worldWordCount>;

// The words that hold the room of a level that was last entered (1 to rooms, 0 before the first).
constexpr std::size_t castleLevel1Position = 157;
constexpr std::size_t castleLevel2Position = 121;
constexpr std::size_t mortuaryLevel1Position = 85;
constexpr std::size_t cavernLevel1Position = 13;

// The levels of many rooms, and where the words of each begin: below its position stand the
// `levelCleared` flags of rooms 1, 2, 3, ...
enum class Level : std::uint8_t { castle1, castle2, mortuary1, cavern1 };

struct LevelWords {
    Level level;
    std::size_t positionWord;
    int rooms;
};

constexpr std::array<LevelWords, 4> levelWords{{
    {Level::castle1, castleLevel1Position, 24},
    {Level::castle2, castleLevel2Position, 24},
    {Level::mortuary1, mortuaryLevel1Position, 35},
    {Level::cavern1, cavernLevel1Position, 13},
}};

constexpr const LevelWords& wordsOf(Level level) {
    return levelWords[static_cast<std::size_t>(level)];
}

// The word of a location's `searched` flag; location is 1 to 76.
constexpr std::size_t searchedWord(int location) {
    return static_cast<std::size_t>(234 - location);
}

// The word of a location's `cleared` flag; location is 1 to 76. W295 belongs to no location.
constexpr std::size_t clearedWord(int location) {
    return static_cast<std::size_t>(location <= 15 ? 311 - location : 310 - location);
}

// The word of a level room's `levelCleared` flag; position is 1 to the level's rooms.
constexpr std::size_t levelClearedWord(Level level, int position) {
    return wordsOf(level).positionWord - static_cast<std::size_t>(position);
}

} // namespace morvek
