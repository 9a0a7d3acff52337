#include "towne/player_attack.h"

#include "files/game_lock.h"
#include "screen/screen.h"
#include "state/encounter.h"
#include "state/roster.h"
#include "support/stored.h"

namespace {

// The player, who is Bors, attacks one of the list: himself is 2, 3 a free slot, and Cuthbert 4.
bool attack(const std::string& keys) {
    newCall(false);
    game.player.name = "Bors";
    game.roster.playerCount = 5;
    own(1, "Bob", "Bors");
    own(3, "Cid", "`Cuthbert");
    game.roster.slots()[3].hitPoints = 40;
    chance.script({100, 15});
    caller.type(keys);
    return attackAnotherPlayer();
}

using PlayerAttack = InTemporaryDirectory;

} // namespace

TEST_F(PlayerAttack, MakesAConfirmedTargetTheOpponent) {
    EXPECT_FALSE(attack("4\rn"));
    EXPECT_EQ(game.encounter.monster.name, "");
    EXPECT_TRUE(attack("4\ry"));
    const Monster& opponent = game.encounter.monster;
    EXPECT_EQ(opponent.name, "`Cuthbert");
    EXPECT_EQ(opponent.hitPoints, 40);
    EXPECT_EQ(opponent.initiative, 4);
    EXPECT_EQ(opponent.damage, 8) << "by the second draw";
    EXPECT_EQ(game.session.targetSlot, 3);
    EXPECT_TRUE(hasAnsi());
}

TEST_F(PlayerAttack, RefusesBadNumbersAndOneself) {
    for (const std::string typed : {"0", "-1", "5", "4294967300", "Arwen", "2"}) {
        EXPECT_FALSE(attack(typed + "\r "));
        EXPECT_TRUE(caller.saw("{`r`Invalid player number!}{||`r`Press any key!}[key]")) << typed;
    }
    EXPECT_TRUE(attack(" 3x\ry")) << "others may attack nobody";
}

TEST_F(PlayerAttack, RefusesAPlayerWhoIsInside) {
    GameLock hisCall(lockFileName);
    hisCall.enter("Cid");
    EXPECT_FALSE(attack("4\r "));
    EXPECT_TRUE(caller.saw("{|}<`Cuthbert>{ `r`is in the game right now and cannot be attacked.}"
                           "{||`r`Press any key!}[key]"));
    hisCall.leave();
    EXPECT_TRUE(attack("4\ry"));
}
