#include "world/encounter.h"

#include "state/dice.h"
#include "state/encounter.h"
#include "state/game_state.h"

namespace morvek {
namespace {

bool isCleared(const Room& room) {
    return (room.level ? game.world.levelCleared(*room.level, room.position)
                       : game.world.cleared(room.number)) != 0;
}

MonsterKind kindThatComes(const Inhabitants& inhabitants) {
    if (inhabitants.other) {
        seedFromClock();
        if (draw(2) == 1) {
            return *inhabitants.other;
        }
    }
    return *inhabitants.kind;
}

} // namespace

bool monsterAlive() { return game.encounter.monster.hitPoints > 0; }

void rollGroup() {
    seedFromClock();
    game.encounter.monsterCount = draw(3) + 1;
}

void setUpInhabitant(const Room& room) {
    const bool groupLeft = !isCleared(room) && game.encounter.monsterCount >= 1;
    if (room.inhabitants.kind && (groupLeft || game.encounter.ambushPending == 1)) {
        setUpMonster(kindThatComes(room.inhabitants));
    }
}

} // namespace morvek
