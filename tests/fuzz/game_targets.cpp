// What the game reads: its files, and the keys of a whole call.
#include "fuzz.h"

#include "display_file.h"
#include "door/door_session.h"
#include "door/title_menu.h"
#include "files/configuration_file.h"
#include "files/data_file.h"
#include "files/score_file.h"
#include "files/scroll_file.h"
#include "screen/screen.h"
#include "state/game_state.h"
#include "state/roster.h"
#include "state/scores.h"
#include "support/character.h"
#include "text.h"
#include "towne/news.h"
#include "towne/scores.h"
#include "towne/scroll_board.h"

using namespace morvek;

namespace {

// What the next draws of chance follow from.
unsigned seed = 0;

} // namespace

extern "C" int rand() noexcept {
    seed = seed * 1103515245U + 12345U;
    return static_cast<int>(seed >> 16U);
}
extern "C" void srand(unsigned) noexcept {}

// Every menu is a line.
std::string_view odoors::readDisplayFile(const std::string& name, bool) {
    static std::string shown;
    return shown = name + "\r\n";
}

namespace fuzz {
namespace {

constexpr std::size_t rosterSize = sizeof(Roster::Slots);
constexpr const char* rosterName = "morchars.dat";

// A new game, in a directory without any file.
void beginGame() {
    resetGame();
    game.session.dateStamp = "111526";
    seed = 0;
    for (const auto& entry : std::filesystem::directory_iterator(workFolder().self)) {
        std::filesystem::remove(entry);
    }
}

// A character file of three, the second of them the caller's.
std::string characterFile() {
    Roster::Slots slots;
    slots.fill(emptySlot());
    std::size_t number = 0;
    for (const char* owner : {"Bob", "Alice", "Carol"}) {
        PlayerRecord& slot = slots[number++] = character(owner, owner);
        slot.hitPoints = slot.maxHitPoints = slot.strength = slot.dexterity = 18;
        slot.gold = 5000;
    }
    return {reinterpret_cast<const char*>(slots.data()), rosterSize};
}

// Forges the character file: each patch is the number of a slot, an offset of two bytes in its
// record, a length, and so many bytes. A patch without bytes ends the file there.
void forge(std::string& bytes, std::string_view& patches, std::size_t most) {
    for (; most > 0 && !patches.empty(); --most) {
        const std::size_t slot = takeNumber(patches) % slotCount;
        const std::size_t offset = takeNumber(patches) + 256 * takeNumber(patches);
        const std::size_t place = slot * sizeof(PlayerRecord) + offset % sizeof(PlayerRecord);
        const std::string_view patch = take(patches, takeNumber(patches) % 64);
        if (patch.empty()) {
            bytes.resize(std::min(bytes.size(), place));
        } else if (place + patch.size() <= bytes.size()) {
            patch.copy(bytes.data() + place, patch.size());
        }
    }
}

// A call with this character file, which is saved whole or not at all.
void play(const Call& call, const std::string& roster) {
    if (!roster.empty()) {
        workFolder().write(rosterName, roster);
    }
    hold(call, [] {
        sanitizeUserName(TextSlot::capacity);
        setDisplayName();
        detectTerminal();
        titleMenu();
    });
    const std::string after = readWhole(rosterName).value_or("");
    require(after == roster || after.size() == rosterSize);
}

} // namespace

extern const Target configuration = [](std::string_view input) {
    beginGame();
    workFolder().write(configurationFileName, input);
    hold({1, "Q"}, [] {
        if (readConfiguration()) {
            titleMenu();
        }
    });
};

// The name of the player whose score is entered ends in a line feed.
extern const Target scores = [](std::string_view input) {
    beginGame();
    const unsigned bits = takeNumber(input);
    game.player.experience = static_cast<std::int32_t>(takeNumber(input) << 5U);
    game.player.name = take(input, std::min<std::size_t>(15, input.find('\n')));
    game.player.className = "Ranger";
    workFolder().write(scoreFileName, input.substr(std::min<std::size_t>(input.size(), 1)));
    hold({bits}, [] {
        showTopTen();
        prepareScore();
        updateScores();
        showTopTen();
        require(game.scores.count >= 0 && game.scores.count <= 10);
        waitForKey();
    });
    for (const char byte : readWhole(plainBulletinName).value_or("")) {
        require(byte == '\n' || !odoors::isControl(byte));
    }
};

// Up to 31 keys, and the board's file.
extern const Target board = [](std::string_view input) {
    beginGame();
    game.player.name = "Arwen";
    const unsigned bits = takeNumber(input);
    const std::string_view keys = take(input, takeNumber(input) % 32);
    workFolder().write(scrollFileName, input);
    hold({bits, keys}, scrollBoard);
};

extern const Target news = [](std::string_view input) {
    beginGame();
    const unsigned bits = takeNumber(input);
    workFolder().write("111526.txt", input);
    hold({bits, "x"}, [] {
        newsJoined();
        showNews();
    });
};

// A tour of all that shows the characters of the file, and of what saves them.
extern const Target characterRecord = [](std::string_view input) {
    beginGame();
    const Call call{takeNumber(input), "Skyklkokp1\rnqkkQ"};
    std::string roster = characterFile();
    forge(roster, input, input.size());
    play(call, roster);
};

// Chance, the caller's name, up to 7 patches of the character file, or no such file; and his keys.
extern const Target wholeGame = [](std::string_view input) {
    beginGame();
    workFolder().write(scrollFileName, "");
    const unsigned bits = takeNumber(input);
    seed = takeNumber(input);
    Call call{bits};
    if ((bits & 32) != 0) {
        call.name = take(input, takeNumber(input) % 40);
    }
    std::string roster;
    if ((bits & 64) == 0) {
        roster = characterFile();
        forge(roster, input, takeNumber(input) % 8);
    }
    call.keys = input;
    play(call, roster);
};

} // namespace fuzz
