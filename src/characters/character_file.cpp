#include "characters/character_file.h"

#include "characters/creation.h"
#include "files/data_file.h"
#include "files/game_lock.h"
#include "screen/screen.h"
#include "state/game_state.h"
#include "state/roster.h"
#include "state/store_player.h"

#include <algorithm>
#include <memory>
#include <span>

namespace morvek {
namespace {

constexpr std::int32_t turnsOfADay = 30;

// What a save leaves in `exhaustedShown`: any value but 1 counts as not shown.
constexpr std::int32_t exhaustedShownBySave = 50;

std::span<char> bytesOf(Roster::Slots& slots) {
    return {reinterpret_cast<char*>(slots.data()), sizeof slots};
}

bool isCallers(const PlayerRecord& slot) {
    return slot.ownerName.view() == game.session.doorUserName;
}

// Brings a slot up to date with what the file now holds. A slot that this call has changed too is
// kept if it is the caller's; of another's only the day's stamp is.
void takeChanges(PlayerRecord& slot, const PlayerRecord& before, const PlayerRecord& now) {
    const bool isOwn = isCallers(slot) && isCallers(now) && !sameBytes(slot, before);
    if (isOwn || sameBytes(now, before)) {
        return;
    }
    const std::int32_t day = slot.lastPlayedDay;
    const bool isStamped =
        day != before.lastPlayedDay && before.ownerName.view() == now.ownerName.view();
    slot = now;
    if (isStamped) {
        slot.lastPlayedDay = day;
    }
}

// Takes what others have saved since this call last read or wrote the file into the roster. False
// when the file cannot be read. Where there is none, or behind its early end, nothing has changed.
bool updateRoster() {
    Roster::Slots& stored = game.roster.stored();
    const auto now = std::make_unique<Roster::Slots>(stored);
    const std::string& name = game.session.characterFileName;
    if (!readInto(name, bytesOf(*now)) && !isMissing(name)) {
        return false;
    }
    for (std::size_t slot = 0; slot < slotCount; ++slot) {
        takeChanges(game.roster.slots()[slot], stored[slot], (*now)[slot]);
    }
    stored = *now;
    return true;
}

// One save. It is not possible when the file cannot be read and written, and also after a game that
// began with a file that could not be read: the roster in memory is not what it holds.
class Save {
public:
    Save()
        : file_(transaction_, game.session.characterFileName),
          isPossible_(file_.isOpen() && game.session.rosterUnread == 0 && updateRoster()) {}

    [[nodiscard]] bool isPossible() const { return isPossible_; }

    void write() {
        const std::span<char> bytes = bytesOf(game.roster.slots());
        if (file_.replace({bytes.data(), bytes.size()}) == 0) {
            game.roster.stored() = game.roster.slots();
        }
    }

private:
    Transaction transaction_{gameLock};
    Replacement file_;
    bool isPossible_;
};

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

enum class FileState { read, missing, unreadable };

// Reads the file over the roster, as far as it goes.
FileState readFile() {
    const Transaction transaction(gameLock);
    const std::string& name = game.session.characterFileName;
    const auto read = std::make_unique<Roster::Slots>();
    const std::optional<std::size_t> length = readInto(name, bytesOf(*read));
    if (!length) {
        return isMissing(name) ? FileState::missing : FileState::unreadable;
    }
    const std::span<char> bytes = bytesOf(*read).first(*length);
    for (Roster::Slots* slots : {&game.roster.slots(), &game.roster.stored()}) {
        std::copy(bytes.begin(), bytes.end(), bytesOf(*slots).begin());
    }
    return FileState::read;
}

void storeQuick(Save& save) {
    if (!save.isPossible()) {
        return;
    }
    storePossessions(game.roster.slots().front());
    game.world.exhaustedShown = exhaustedShownBySave;
    save.write();
}

} // namespace

bool readRoster() { return readFile() == FileState::read; }

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
    const FileState file = readFile();
    game.session.rosterUnread = file == FileState::unreadable ? 1 : 0;
    if (file == FileState::read) {
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
    Save save;
    if (!save.isPossible()) {
        return;
    }
    if (PlayerRecord* slot = slotToSaveInto(std::span(game.roster.slots()).first(searchedSlots))) {
        if (isCallers(*slot)) {
            slot->slotIndex = game.session.currentSlot;
        }
        storePlayer(*slot, StoreKind::whole);
        game.world.exhaustedShown = exhaustedShownBySave;
    }
    save.write();
}

void savePlayerHealed() {
    game.session.doorUserName = userName();
    Save save;
    if (!save.isPossible()) {
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
    save.write();
}

void saveQuick() {
    Save save;
    storeQuick(save);
}

Robbery robPlayer(std::int32_t number) {
    PlayerRecord* slot = game.roster.slotAt(number);
    if (slot == nullptr) {
        return {};
    }
    const TextSlot owner = slot->ownerName;
    Save save;
    if (isPlaying(*slot)) {
        return {0.0, true};
    }
    // The operator may have put another character there.
    if (slot->ownerName.view() != owner.view() || !(slot->gold > 0)) {
        return {};
    }
    const double gold = slot->gold;
    slot->gold = 0.0;
    game.player.gold += gold;
    storeQuick(save);
    return {gold, false};
}

bool isPlaying(const PlayerRecord& slot) { return gameLock.isInside(slot.ownerName.view()); }

} // namespace morvek
