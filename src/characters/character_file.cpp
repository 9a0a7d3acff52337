#include "characters/character_file.h"

#include "characters/creation.h"
#include "files/data_file.h"
#include "screen/screen.h"
#include "state/game_state.h"
#include "state/roster.h"
#include "state/store_player.h"

#include <algorithm>
#include <span>
#include <vector>

namespace morvek {
namespace {

constexpr std::int32_t turnsOfADay = 30;

// What a save leaves in `exhaustedShown`: any value but 1 counts as not shown.
constexpr std::int32_t exhaustedShownBySave = 50;

constexpr std::size_t rosterSize = sizeof(Roster::Slots);

// A file that could not be read when the game began is not written either: the roster in memory is
// not what it holds.
bool canSave(const Replacement& file) { return file.isOpen() && game.session.rosterUnread == 0; }

void writeRoster(Replacement& file) {
    file.replace({reinterpret_cast<const char*>(game.roster.slots().data()), rosterSize});
}

bool isCallers(const PlayerRecord& slot) {
    return slot.ownerName.view() == game.session.doorUserName;
}

// The first slot that is the caller's own or free, so a free one before his own is taken; null
// when all of them belong to others.
PlayerRecord* slotToSaveInto(std::span<PlayerRecord> slots) {
    for (PlayerRecord& slot : slots) {
        if (isCallers(slot) || slot.ownerName.view().empty()) {
            return &slot;
        }
    }
    return nullptr;
}

void beginNewDay(PlayerRecord& slot) {
    game.session.today = dayNumber();
    if (game.session.today != slot.lastPlayedDay) {
        slot.lastPlayedDay = game.session.today;
        game.player.turnsLeft = turnsOfADay;
        game.player.turnsPerDay = turnsOfADay;
    }
}

void createCharacter() {
    say("`red`Welcome to the world of the Morvek Role Play Game!\n\r\n\r");
    say("`red`Creating a new player...\n\r");
    game.session.nameChecked = 0;
    enterName();
    chooseClass();
    savePlayer();
}

} // namespace

bool readRoster() {
    std::vector<char> bytes(rosterSize);
    const std::optional<std::size_t> length = readInto(game.session.characterFileName, bytes);
    std::copy_n(bytes.begin(), length.value_or(0),
                reinterpret_cast<char*>(game.roster.slots().data()));
    return length.has_value();
}

PlayerRecord* ownSlot() {
    for (PlayerRecord& slot : std::span(game.roster.slots()).first(searchedSlots)) {
        if (isCallers(slot)) {
            return &slot;
        }
    }
    return nullptr;
}

void loadPlayer() {
    game.session.newPlayer = 1;
    clearScreen();
    say("`red`Starting game`bright white`...\n\r\n\r");
    game.session.doorUserName = userName();
    const bool isRead = readRoster();
    game.session.rosterUnread = isRead || isMissing(game.session.characterFileName) ? 0 : 1;
    if (isRead) {
        if (PlayerRecord* slot = ownSlot()) {
            restorePlayer(*slot);
            beginNewDay(*slot);
            game.session.foundPlayer = 1;
            game.session.newPlayer = 0;
        }
    }
    if (game.session.newPlayer == 1) {
        createCharacter();
    }
}

void savePlayer() {
    game.session.doorUserName = userName();
    Replacement file(game.session.characterFileName);
    if (!canSave(file)) {
        return;
    }
    if (PlayerRecord* slot = slotToSaveInto(std::span(game.roster.slots()).first(searchedSlots))) {
        if (isCallers(*slot)) {
            slot->slotIndex = game.session.currentSlot;
        }
        storePlayer(*slot, StoreKind::whole);
        game.world.exhaustedShown = exhaustedShownBySave;
    }
    writeRoster(file);
}

void savePlayerHealed() {
    game.session.doorUserName = userName();
    Replacement file(game.session.characterFileName);
    if (!canSave(file)) {
        return;
    }
    if (PlayerRecord* slot = slotToSaveInto(game.roster.slots())) {
        if (isCallers(*slot)) {
            game.session.currentSlot = static_cast<std::int32_t>(slot - game.roster.slots().data());
            slot->slotIndex = game.session.currentSlot;
        } else if (PlayerRecord* dated = game.roster.slotAt(game.session.currentSlot)) {
            dated->lastPlayedDay = game.session.today;
        }
        storePlayer(*slot, StoreKind::healed);
        game.world.exhaustedShown = exhaustedShownBySave;
    }
    writeRoster(file);
}

void saveQuick() {
    Replacement file(game.session.characterFileName);
    if (!canSave(file)) {
        return;
    }
    storePossessions(game.roster.slots().front());
    game.world.exhaustedShown = exhaustedShownBySave;
    writeRoster(file);
}

} // namespace morvek
