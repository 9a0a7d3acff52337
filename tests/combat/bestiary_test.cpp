#include "combat/bestiary.h"

#include "combat/fighters.h"

using enum MonsterKind;

TEST(Bestiary, DrawsExperienceThenDamageThenGold) {
    newCall();
    chance.script({149, 11, 4, 40 + 2});
    setUpMonster(zombie);
    const Monster& monster = game.encounter.monster;
    EXPECT_EQ(monster.experience, 150);
    EXPECT_EQ(monster.damage, 2 + 6 + 5);
    EXPECT_EQ(monster.gold, 3 * 150);
    EXPECT_EQ(monster.initiative, 5);
    EXPECT_EQ(monster.hitPoints, 40);
    EXPECT_EQ(monster.maxHitPoints, 40);
    EXPECT_THAT(chance.seededBefore, ElementsAre(1)) << "for the damage alone";
}

TEST(Bestiary, BlackbladeTakesTheLastRollAsDamage) {
    newCall();
    game.encounter.lastRoll = 9;
    setUpMonster(goblinBlackblade);
    EXPECT_EQ(game.encounter.monster.damage, 11);
}

TEST(Bestiary, SomeKeepThePreviousGoldDie) {
    newCall();
    game.encounter.goldDie = 6;
    chance.script({0, 5});
    setUpMonster(halflingStout); // his damage is not drawn
    EXPECT_EQ(game.encounter.monster.damage, 4);
    EXPECT_EQ(game.encounter.monster.gold, 6);
}
