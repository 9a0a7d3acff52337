#include "combat/bestiary.h"

#include "combat/fighters.h"

// With a draw that falls on the highest face of every die but that of 32, and there on 16; after a
// last roll of 9 and a gold die of 6.
TEST(Bestiary, EveryKindHasItsNumbers) {
    constexpr int highestFace = 16 * 27 * 125 * 7 * 11 * 13 * 29 - 1;
    // Hit points, damage, initiative, experience, gold.
    std::istringstream kinds(
        "1 4 19 30 90|27 8 19 125 3375|1 4 20 35 105|25 11 20 145 3625|1 4 20 50 150|"
        "45 10 21 300 900|53 8 24 400 1200|77 9 21 400 4800|1 3 20 30 90|1 5 4 75 225|"
        "40 14 5 150 6000|32 10 13 125 2000|54 9 15 200 10800|1 4 18 50 300|22 8 22 50 1100|"
        "1 8 10 65 390|37 9 21 150 900|47 11 17 200 1200|66 13 15 250 1500|");
    for (std::size_t at = 0; at < monsterKindCount; ++at) {
        newCall();
        game.encounter.lastRoll = 9;
        game.encounter.goldDie = 6;
        chance.script(std::deque<int>(4, highestFace));
        setUpMonster(static_cast<MonsterKind>(at));
        const Monster& monster = game.encounter.monster;
        std::string numbers;
        std::getline(kinds, numbers, '|');
        EXPECT_EQ(inARow(monster.maxHitPoints, monster.damage, monster.initiative,
                         monster.experience, monster.gold),
                  numbers)
            << monster.name;
        EXPECT_EQ(monster.hitPoints, monster.maxHitPoints);
    }
}
