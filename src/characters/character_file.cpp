#include "characters/character_file.h"

#include "characters/creation.h"
#include "door/screen.h"
#include "files/data_file.h"
#include "state/game_state.h"

#include <span>

namespace morvek {
namespace {

constexpr std::int32_t turnsOfADay = 30;

// What a save leaves in `exhaustedShown`: to a place in the world this is not yet shown.
constexpr std::int32_t exhaustedShownBySave = 50;

std::span<char> rosterBytes() {
    return {reinterpret_cast<char*>(game.roster.slots().data()), sizeof game.roster.slots()};
}

// A file that cannot be read is not written either: the roster in memory is not what it holds.
Replacement openToSave() {
    return Replacement(game.session.characterFileName, Needs::readingAndWriting);
}

void writeRoster(Replacement& file) {
    const std::span<char> bytes = rosterBytes();
    file.replace({bytes.data(), bytes.size()});
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
    return readInto(game.session.characterFileName, rosterBytes()).has_value();
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
    if (readRoster()) {
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
    Replacement file = openToSave();
    if (!file.isOpen()) {
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
    Replacement file = openToSave();
    if (!file.isOpen()) {
        return;
    }
    if (PlayerRecord* slot = slotToSaveInto(game.roster.slots())) {
        if (isCallers(*slot)) {
            game.session.currentSlot = static_cast<std::int32_t>(slot - game.roster.slots().data());
            slot->slotIndex = game.session.currentSlot;
        } else if (PlayerRecord* dated = slotOfCurrentNumber()) {
            dated->lastPlayedDay = game.session.today;
        }
        storePlayer(*slot, StoreKind::healed);
        game.world.exhaustedShown = exhaustedShownBySave;
    }
    writeRoster(file);
}

void saveQuick() {
    Replacement file = openToSave();
    if (!file.isOpen()) {
        return;
    }
    storePossessions(game.roster.slots().front());
    game.world.exhaustedShown = exhaustedShownBySave;
    writeRoster(file);
}

} // namespace morvek
