// The bank's reversed refusals, and every answer of the healing shrine.
#include "state/game_state.h"
#include "support/scripted_chance.h"
#include "towne/bank.h"
#include "towne/health_shrine.h"
#include "towne/said.h"

#include <gmock/gmock.h>

using namespace morvek;
using namespace morvek::test;
using testing::HasSubstr;

namespace {

void atTheBank(double gold, double bankGold, const std::string& keys) {
    newCall();
    game.player.gold = gold;
    game.player.bankGold = bankGold;
    caller.type(keys);
    visitBank();
}

void atTheShrine(std::int32_t hitPoints, double gold, std::int32_t guesses,
                 const std::string& keys) {
    newCall();
    game.player.hitPoints = hitPoints;
    game.player.maxHitPoints = 20;
    game.player.gold = gold;
    game.session.guessesLeft = guesses;
    chance.script({17});
    caller.type(keys);
    healthShrine();
}

const std::string outOfGuesses = "||`red`You are out of guesses!||" + anyKey;
const std::string notNeeded = "||`red`You don't need healing.||" + anyKey;

} // namespace

TEST(Bank, MovesWhatIsThereAndSaysTheReverseOfARefusal) {
    const std::string moved = "`red` gold has been deposited to the bank.||";
    const std::string insufficient = "|`red`You do not have sufficient funds.||";
    struct Case {
        std::string typed;
        double gold, left;
        std::string answer;
    };
    for (const auto& [typed, gold, left, answer] :
         {Case{"10", 10, 0, "|10" + moved}, Case{"007", 10, 3, "|007" + moved},
          Case{"11", 10, 10, ""}, Case{"0", 10, 10, insufficient},
          Case{"all", 10, 10, insufficient}, Case{"0", 0, 0, ""},
          Case{"-7000", -6000, -6000, insufficient}}) {
        atTheBank(gold, 5e9, "d" + typed + "\r r");
        EXPECT_EQ(said("deposit`bright red`: `bright white`", "`red`Bank|"), answer + anyKey);
        EXPECT_EQ(game.player.gold, left);
        EXPECT_EQ(game.player.bankGold, 5e9 + gold - left);
    }
    atTheBank(3, 5e9, "w4\r r");
    EXPECT_EQ(said("", "`red`Press"),
              "`red`Bank|`bright white`----------------------------------------||"
              "`red`D`bright red`)`bright white`eposit|"
              "`red`W`bright red`)`bright white`ithdraw|"
              "`red`R`bright red`)`bright white`eturn to Towne||"
              "`red`Money on Hand `bright red`: `bright white`3`bright red` gold`red`.|"
              "`red`Money in Bank `bright red`: `bright white`5000000000`bright red`"
              " gold`red`.||||"
              "`red`How much to gold to withdraw`bright red`: `bright white`|4"
              "`red` gold has been withdrawn from bank.||");
    EXPECT_EQ(game.player.gold, 7);
    EXPECT_EQ(game.player.bankGold, 5e9 - 4);
}

TEST(Bank, EachFieldKeepsItsTextForOneVisit) {
    atTheBank(1000, 0, "d250\r d\r w99\r w\r r");
    EXPECT_EQ(game.player.gold, 698) << "twice 250 in, twice 99 out";
    EXPECT_THAT(caller.calls, testing::IsSupersetOf({"line 8 32 127 0", "line 8 32 127 250",
                                                     "line 8 32 127 0", "line 8 32 127 99"}));
    caller.type("d\r r");
    visitBank();
    EXPECT_THAT(caller.calls, testing::Contains("line 8 32 127 0"));
}

TEST(Shrine, HealsForFiveGoldAPoint) {
    const std::string points = "||`bright white`5`red` gold per point.|"
                               "`red`Points to Heal`bright red`: `bright white`";
    const std::string healed = points + "|`red`Healed `bright white`3`red` points.||" + anyKey;
    const std::string poor = points + "||`red`You don't have enough gold.||" + anyKey;
    const std::string tooMuch = points + "`red`You don't need that much healing.|";
    const std::string none = "||`red`No points were recovered.||" + anyKey;
    const std::string all = "||`bright white`10`red` hits points recovered.||" + anyKey;
    struct Case {
        const char* keys;
        std::int32_t hitPoints; // of 20
        double gold;
        std::int32_t guesses;
        std::string answer;
        std::int32_t hitPointsAfter;
        double goldAfter;
    };
    for (const auto& [keys, hitPoints, gold, guesses, answer, hitPointsAfter, goldAfter] :
         {Case{"h3\r r", 10, 15, 3, healed, 13, 0}, Case{"h3\r r", 10, 14, 3, poor, 10, 14},
          Case{"h3\r  r", 10, 14, 0, poor + outOfGuesses, 10, 14},
          Case{"h11\rr", 10, 900, 3, tooMuch, 10, 900},
          Case{"h11\r r", 10, 900, 0, tooMuch + outOfGuesses, 10, 900},
          Case{"h\r r", 10, 50, 3, points + all, 20, 0},
          Case{"h-4\r r", 10, 49, 3, points + none, 10, 49},
          Case{"h r", 20, 50, 3, notNeeded, 20, 50}, Case{"a r", 10, 55, 0, all, 20, 5},
          Case{"a r", 20, 40, 3, none, 20, 40}, Case{"a r", 25, 40, 3, none, 25, 40}}) {
        atTheShrine(hitPoints, gold, guesses, keys);
        EXPECT_EQ(said("`red` gold`red`.||", "`red`Health Shrine|"), answer) << keys;
        EXPECT_EQ(game.player.hitPoints, hitPointsAfter) << keys;
        EXPECT_EQ(game.player.gold, goldAfter) << keys;
        EXPECT_EQ(game.session.guessesLeft, guesses);
    }
}

TEST(Shrine, AGuessShowsTheAnswerGrantsNothingAndCostsOneOrTwo) {
    for (const char guess : std::string("123456789")) {
        atTheShrine(3, 40, 1, "g" + std::string(1, guess) + " g r");
        const std::string line =
            "`red`You guessed`bright red`: `bright white`" + std::string(1, guess) + "`red`.|";
        EXPECT_EQ(said("`red`Hit Points`bright red`: `bright white`", "`red`Health Shrine|"),
                  "3`red`\\`bright white`20|`red`Money on Hand `bright red`: `bright white`40"
                  "`red` gold`red`.||"
                  "||`bright red`#`red` of Guesses left`bright red`: `bright white`1||"
                  "`red`Guess a number between `bright red`(`bright white`1`bright red`-"
                  "`bright white`9`bright red`)`red`: `bright white`" +
                      (guess == '6' ? line + "||" : "||" + line) +
                      "`red`The correct answer was`bright red`: `bright white`9`red`.||" + anyKey);
        EXPECT_THAT(said(), HasSubstr(outOfGuesses)) << "the second g";
        EXPECT_EQ(game.session.guessesLeft, guess == '7' || guess == '8' ? -1 : 0);
        EXPECT_EQ(game.player.hitPoints, 3);
        EXPECT_EQ(chance.drawn, 1);
    }
    atTheShrine(20, 0, 3, "g r");
    EXPECT_THAT(said(), HasSubstr(notNeeded));
    atTheShrine(21, 0, 3, "gr");
    EXPECT_EQ(chance.drawn, 0);
    EXPECT_EQ(game.session.guessesLeft, 3);
}
