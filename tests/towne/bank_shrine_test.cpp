// The bank's reversed refusals, and every answer of the healing shrine.
#include "support/game_test.h"
#include "towne/bank.h"
#include "towne/health_shrine.h"

namespace {

// The bank's answer to what is typed first, with so much on hand and five thousand million in it.
std::string atTheBank(double gold, const std::string& keys) {
    newCall();
    game.player = {.gold = gold, .bankGold = 5e9};
    caller.visit(visitBank, keys);
    return caller.between("[line 8 32 127 0]", "[clear]");
}

// The shrine's answer to a player with so many hit points of 20.
std::string atTheShrine(int hitPoints, double gold, int guesses, const std::string& keys) {
    newCall();
    game.player = {.gold = gold, .hitPoints = hitPoints, .maxHitPoints = 20};
    game.session.guessesLeft = guesses;
    chance.script({17});
    caller.visit(healthShrine, keys);
    return caller.between("[menu heal hagr]", "[clear]");
}

const std::string outOfGuesses = "{||}{`r`You are out of guesses!}{||}[any key]";
const std::string notNeeded = "{||}{`r`You don't need healing.|}{|}[any key]";

} // namespace

TEST(Bank, MovesWhatIsThereAndSaysTheReverseOfARefusal) {
    const std::string moved = ">{`r` gold has been deposited to the bank.}{||}";
    const std::string insufficient = "{|}{`r`You do not have sufficient funds.}{||}";
    const Cases<std::string, double, double, std::string> cases{
        {"007", 7, 0, "{|}<007" + moved},
        {"11", 10, 10, ""},
        {"0", 0, 0, ""},
        {"all", 10, 10, insufficient},
        {"-7000", -6000, -6000, insufficient}};
    for (const auto& [typed, gold, left, answer] : cases) {
        EXPECT_EQ(atTheBank(gold, "d" + typed + "\r r"), answer + "[any key]");
        EXPECT_EQ(game.player.gold, left);
        EXPECT_EQ(game.player.bankGold, 5e9 + gold - left);
    }
}

TEST(Bank, EachFieldKeepsItsTextForOneVisit) {
    atTheBank(1000, "d250\r w99\r d\r w\r r");
    EXPECT_EQ(game.player.gold, 698) << "twice 250 in, twice 99 out";
    EXPECT_EQ(game.player.bankGold, 5e9 + 302);
    EXPECT_THAT(atTheBank(10, "d\r r"), HasSubstr("sufficient")) << "a new visit offers 0 again";
}

TEST(Shrine, HealsForFiveGoldAPoint) {
    const std::string points = "{||}{`W`5`r` gold per point.|}{`r`Points to Heal`R`: `W`}"
                               "[line 8 32 127 ]";
    const std::string healed = points + "{|}{`r`Healed `W`}<3>{`r` points.|}{|}[any key]";
    const std::string poor = points + "{||}{`r`You don't have enough gold.||}[any key]";
    const std::string tooMuch = points + "{`r`You don't need that much healing.|}";
    const std::string none = "{||}{`r`No points were recovered.|}{|}[any key]";
    const std::string all = "{||}{`W`}<10>{`r` hits points recovered.||}[any key]";
    const Cases<const char*, int, double, int, std::string, int, double> cases{
        {"h3\r r", 17, 15, 3, healed, 20, 0},
        {"h3\r r", 10, 14, 3, poor, 10, 14},
        {"h11\r r", 10, 900, 0, tooMuch + outOfGuesses, 10, 900},
        {"h\r r", 10, 50, 3, points + all, 20, 0},
        {"h-4\r r", 10, 49, 3, points + none, 10, 49},
        {"h0\rr", 25, 50, 3, tooMuch, 25, 50},
        {"h r", 20, 50, 3, notNeeded, 20, 50},
        {"a r", 10, 55, 0, all, 20, 5},
        {"a r", 25, 40, 3, none, 25, 40}};
    for (const auto& [keys, hitPoints, gold, guesses, answer, hitPointsAfter, goldAfter] : cases) {
        EXPECT_EQ(atTheShrine(hitPoints, gold, guesses, keys), answer) << keys;
        EXPECT_EQ(game.player.hitPoints, hitPointsAfter) << keys;
        EXPECT_EQ(game.player.gold, goldAfter) << keys;
        EXPECT_EQ(game.session.guessesLeft, guesses);
    }
}

TEST(Shrine, AGuessShowsTheAnswerGrantsNothingAndCostsOneOrTwo) {
    for (const std::string guess : {"1", "5", "6", "7", "8", "9"}) {
        const std::string line = "{`r`You guessed`R`: `W`" + guess + "`r`.|}";
        EXPECT_THAT(atTheShrine(3, 40, 1, "g" + guess + " g r"),
                    EndsWith("[menu command 123456789]" +
                             (guess == "6" ? line + "{||}" : "{||}" + line) +
                             "{`r`The correct answer was`R`: `W`}<9>{`r`.|}{|}[any key]"));
        EXPECT_TRUE(caller.saw("[menu heal hagr]" + outOfGuesses)) << "the second g";
        EXPECT_EQ(game.session.guessesLeft, guess == "7" || guess == "8" ? -1 : 0);
        EXPECT_EQ(game.player.hitPoints, 3);
        EXPECT_EQ(chance.drawn, 1);
    }
    EXPECT_EQ(atTheShrine(20, 0, 3, "g r"), notNeeded);
    EXPECT_EQ(atTheShrine(21, 0, 3, "gr"), "");
    EXPECT_EQ(chance.drawn, 0);
    EXPECT_EQ(game.session.guessesLeft, 3);
}
