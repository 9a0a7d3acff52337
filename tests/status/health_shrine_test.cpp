#include "status/health_shrine.h"

#include "support/game_test.h"

namespace {

// Visits the shrine with so many hit points of 20; its first answer, or what is behind `from`.
std::string atTheShrine(int hitPoints, double gold, int guesses, const std::string& keys,
                        const std::string& from = "[menu heal hagr]") {
    newCall();
    game.player = {.gold = gold, .hitPoints = hitPoints, .maxHitPoints = 20};
    game.session.guessesLeft = guesses;
    chance.script({17});
    caller.visit(healthShrine, keys);
    return caller.between(from, "[clear]");
}

const std::string amount = "[line 8 32 127 ]";
const std::string outOfGuesses = "{||}{`r`You are out of guesses!}{||}[any key]";
const std::string notNeeded = "{||}{`r`You don't need healing.|}{|}[any key]";
const std::string recovered = "{||}{`W`}<10>{`r` hits points recovered.||}[any key]";
const std::string noneRecovered = "{||}{`r`No points were recovered.|}{|}[any key]";

} // namespace

TEST(Shrine, HealsForFiveGoldAPoint) {
    EXPECT_EQ(atTheShrine(17, 15, 3, "h3\r r", amount),
              "{|}{`r`Healed `W`}<3>{`r` points.|}{|}[any key]");
    EXPECT_EQ(game.player.hitPoints, 20);
    EXPECT_EQ(game.player.gold, 0);
    EXPECT_EQ(atTheShrine(10, 14, 3, "h3\r r", amount),
              "{||}{`r`You don't have enough gold.||}[any key]");
    EXPECT_EQ(atTheShrine(20, 50, 3, "h r"), notNeeded);
}

TEST(Shrine, RefusalTellsWhoIsOutOfGuesses) {
    const std::string tooMuch = "{`r`You don't need that much healing.|}";
    EXPECT_EQ(atTheShrine(10, 900, 0, "h11\r r", amount), tooMuch + outOfGuesses);
}

TEST(Shrine, HealsAllAlsoForNothingTyped) {
    EXPECT_EQ(atTheShrine(10, 55, 0, "a r"), recovered);
    EXPECT_EQ(game.player.gold, 5);
    EXPECT_EQ(atTheShrine(10, 50, 3, "h\r r", amount), recovered);
    EXPECT_EQ(atTheShrine(10, 49, 3, "h-4\r r", amount), noneRecovered);
}

TEST(Shrine, GuessCostsOneOrTwo) {
    for (const std::string guess : {"5", "6", "7", "8", "9"}) {
        const std::string line = "{`r`You guessed`R`: `W`" + guess + "`r`.|}";
        EXPECT_EQ(atTheShrine(3, 40, 1, "g" + guess + " g r", "[menu command 123456789]"),
                  (guess == "6" ? line + "{||}" : "{||}" + line) +
                      "{`r`The correct answer was`R`: `W`}<9>{`r`.|}{|}[any key]");
        EXPECT_EQ(game.session.guessesLeft, guess == "7" || guess == "8" ? -1 : 0);
        EXPECT_TRUE(caller.saw("[menu heal hagr]" + outOfGuesses)) << "the second g";
    }
}

TEST(Shrine, GuessIsForTheWounded) {
    EXPECT_EQ(atTheShrine(20, 0, 3, "g r"), notNeeded);
    EXPECT_EQ(chance.drawn, 0);
}
