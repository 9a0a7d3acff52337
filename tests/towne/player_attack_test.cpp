#include "towne/player_attack.h"

#include "door/screen.h"
#include "state/game_state.h"
#include "support/scripted_chance.h"
#include "towne/said.h"

#include <gmock/gmock.h>

using namespace morvek;
using namespace morvek::test;

namespace {

// The player, who is Bors, attacks one of Arwen, himself, a free slot and Cuthbert: 1 to 4.
bool attack(const std::string& keys, const char* player = "Bors") {
    newCall(false);
    game.player.name = player;
    game.roster.playerCount = 5;
    game.roster.slots[0].name.assign("Arwen");
    game.roster.slots[1].name.assign("Bors");
    game.roster.slots[3].name.assign("`Cuthbert");
    game.roster.slots[3].hitPoints = 40;
    game.roster.slots[3].maxHitPoints = 45;
    game.encounter.monster.name = "Kobold";
    chance.script({100, 15});
    caller.type(keys);
    return attackAnotherPlayer();
}

const std::string question = "|`red`Enter player # to attack`bright red`: `bright white`";

} // namespace

TEST(PlayerAttack, TurnsAConfirmedTargetIntoTheOpponent) {
    EXPECT_TRUE(attack("4\ry"));
    EXPECT_EQ(said(), question + "|`red`Attacking player`bright red`: `bright white``Cuthbert"
                                 "`red`? `bright white``bright white`YES`bright white`!");
    EXPECT_THAT(caller.calls, testing::Contains("show `Cuthbert")) << "no colour";
    const Monster& opponent = game.encounter.monster;
    EXPECT_EQ(opponent.name, "`Cuthbert");
    EXPECT_EQ(opponent.hitPoints, 40);
    EXPECT_EQ(opponent.maxHitPoints, 45);
    EXPECT_EQ(opponent.initiative, 4);
    EXPECT_EQ(opponent.damage, 8) << "the second of two draws";
    EXPECT_EQ(chance.drawn, 2);
    EXPECT_EQ(game.session.chosenNumber, 4);
    EXPECT_EQ(game.session.targetSlot, 3);
    EXPECT_TRUE(hasAnsi());
}

TEST(PlayerAttack, RefusesBadNumbersAndOneself) {
    for (const char* typed : {"0", "-1", "5", "99999999999", "Arwen", "", "2"}) {
        EXPECT_FALSE(attack(typed + std::string("\r ")));
        EXPECT_EQ(said(), question + "|`red`Invalid player number!||" + anyKey) << typed;
        EXPECT_EQ(game.session.chosenNumber, 0);
    }
    EXPECT_FALSE(attack("3\r ", "")) << "a nameless player is nobody himself";
    EXPECT_TRUE(attack("3\ry")) << "others may attack nobody";
    EXPECT_EQ(game.encounter.monster.name, "");
}

TEST(PlayerAttack, ANoLeavesTheOpponentAsHeWas) {
    EXPECT_FALSE(attack("4\rn"));
    EXPECT_EQ(game.session.chosenNumber, 4);
    EXPECT_EQ(game.session.targetSlot, 0);
    EXPECT_EQ(game.encounter.monster.name, "Kobold");
    EXPECT_EQ(chance.drawn, 0);
    EXPECT_FALSE(hasAnsi());
}
