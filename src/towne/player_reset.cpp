#include "towne/player_reset.h"

#include "state/game_state.h"

namespace morvek {

void clearPlayer() {
    Player& player = game.player;
    player.name.clear();
    player.className.clear();
    player.level = 0;
    player.gold = 0.0;
    player.experience = 0;
    player.hitPoints = 0;
    player.strength = 0;
    player.constitution = 0;
    player.dexterity = 0;
    player.intelligence = 0;
    player.wisdom = 0;
    player.charisma = 0;
    player.bankGold = 0.0;
    player.weapon.clear();
    player.armour.clear();
}

} // namespace morvek
