// The bank's reversed refusals, and every answer of the healing shrine.
#include "screen/screen.h"
#include "status/health_shrine.h"
#include "support/game_test.h"
#include "towne/bank.h"

namespace {

// The bank's answer to what is typed first, with so much on hand and five thousand million in it;
// and what is on hand and in the bank then.
std::string atTheBank(double gold, const std::string& keys) {
    newCall();
    game.player = {.gold = gold, .bankGold = 5e9};
    caller.visit(visitBank, keys);
    return caller.between("[line 8 32 127 0]", "[clear]") + ' ' + moneyText(game.player.gold) +
           ' ' + moneyText(game.player.bankGold);
}

// The shrine's answer to a player with so many hit points of 20; and his hit points, gold and
// guesses then.
std::string atTheShrine(int hitPoints, double gold, int guesses, const std::string& keys) {
    newCall();
    game.player = {.gold = gold, .hitPoints = hitPoints, .maxHitPoints = 20};
    game.session.guessesLeft = guesses;
    chance.script({17});
    caller.visit(healthShrine, keys);
    return caller.between("[menu heal hagr]", "[clear]") + ' ' +
           std::to_string(game.player.hitPoints) + ' ' + moneyText(game.player.gold) + ' ' +
           std::to_string(game.session.guessesLeft);
}

const std::string outOfGuesses = "{||}{`r`You are out of guesses!}{||}[any key]";
const std::string notNeeded = "{||}{`r`You don't need healing.|}{|}[any key]";

} // namespace

TEST(Bank, MovesWhatIsThereAndSaysTheReverseOfARefusal) {
    const std::string insufficient = "{|}{`r`You do not have sufficient funds.}{||}[any key]";
    EXPECT_EQ(atTheBank(7, "d007\r r"), "{|}<007>{`r` gold has been deposited to the bank.}{||}"
                                        "[any key] 0 5000000007");
    EXPECT_EQ(atTheBank(10, "d11\r r"), "[any key] 10 5000000000");
    EXPECT_EQ(atTheBank(0, "d0\r r"), "[any key] 0 5000000000");
    EXPECT_EQ(atTheBank(10, "dall\r r"), insufficient + " 10 5000000000");
    EXPECT_EQ(atTheBank(-6000, "d-7000\r r"), insufficient + " -6000 5000000000");
}

TEST(Bank, EachFieldKeepsItsTextForOneVisit) {
    EXPECT_THAT(atTheBank(1000, "d250\r w99\r d\r w\r r"), EndsWith(" 698 5000000302"))
        << "twice 250 in, twice 99 out";
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
    EXPECT_EQ(atTheShrine(17, 15, 3, "h3\r r"), healed + " 20 0 3");
    EXPECT_EQ(atTheShrine(10, 14, 3, "h3\r r"), poor + " 10 14 3");
    EXPECT_EQ(atTheShrine(10, 900, 0, "h11\r r"), tooMuch + outOfGuesses + " 10 900 0");
    EXPECT_EQ(atTheShrine(10, 50, 3, "h\r r"), points + all + " 20 0 3");
    EXPECT_EQ(atTheShrine(10, 49, 3, "h-4\r r"), points + none + " 10 49 3");
    EXPECT_EQ(atTheShrine(25, 50, 3, "h0\rr"), tooMuch + " 25 50 3");
    EXPECT_EQ(atTheShrine(20, 50, 3, "h r"), notNeeded + " 20 50 3");
    EXPECT_EQ(atTheShrine(10, 55, 0, "a r"), all + " 20 5 0");
    EXPECT_EQ(atTheShrine(25, 40, 3, "a r"), none + " 25 40 3");
}

TEST(Shrine, AGuessShowsTheAnswerGrantsNothingAndCostsOneOrTwo) {
    for (const std::string guess : {"1", "5", "6", "7", "8", "9"}) {
        const std::string line = "{`r`You guessed`R`: `W`" + guess + "`r`.|}";
        EXPECT_THAT(atTheShrine(3, 40, 1, "g" + guess + " g r"),
                    EndsWith("[menu command 123456789]" +
                             (guess == "6" ? line + "{||}" : "{||}" + line) +
                             "{`r`The correct answer was`R`: `W`}<9>{`r`.|}{|}[any key] 3 40 " +
                             (guess == "7" || guess == "8" ? "-1" : "0")));
        EXPECT_TRUE(caller.saw("[menu heal hagr]" + outOfGuesses)) << "the second g";
    }
    EXPECT_EQ(chance.drawn, 1);
    EXPECT_EQ(atTheShrine(20, 0, 3, "g r"), notNeeded + " 20 0 3");
    EXPECT_EQ(atTheShrine(21, 0, 3, "gr"), " 21 0 3");
    EXPECT_EQ(chance.drawn, 0);
}
