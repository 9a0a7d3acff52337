// The hub's keys and its three ways out.
#include "towne/towne_menu.h"

#include "state/game_state.h"
#include "support/temporary_directory.h"

using namespace morvek;
using namespace morvek::test;

namespace {

constexpr const char* hub = "clear\nmenu townmenu fhwambtlyoqp\n";

} // namespace

class Towne : public InTemporaryDirectory {
protected:
    Towne() {
        game.session.dateStamp = "111526";
        game.session.inGame = 1;
        game.player.name = "Arwen";
        game.player.className = "Ranger";
        game.player.experience = 40;
        game.player.hitPoints = 10;
        game.player.maxHitPoints = 20;
        game.session.sessionStartExperience = 40;
    }
    static PlayerRecord& slot(std::size_t number) { return game.roster.slots[number]; }
};

TEST_F(Towne, QuittingWithoutNewExperienceTouchesNoScore) {
    game.encounter.monster.hitPoints = 5;
    game.scores.table[3].name = "Old";
    caller.type("qk");
    towneMenu();
    EXPECT_EQ(caller.screen(), std::string(hub) + "say `bright white`Quit!|\nsay |\n"
                                                  "say `red`Press any key!\nkey\n");
    EXPECT_EQ(slot(0).onlineFlag, 0U);
    EXPECT_EQ(slot(0).name.view(), "Arwen");
    EXPECT_EQ(game.session.inGame, 0);
    EXPECT_FALSE(std::filesystem::exists("scores.dat"));
    EXPECT_TRUE(game.player.name.empty());
    EXPECT_EQ(game.player.hitPoints, 0);
    EXPECT_EQ(game.player.maxHitPoints, 20) << "not among what is emptied";
    EXPECT_TRUE(game.scores.table[3].name.empty());
    EXPECT_EQ(game.encounter.monster.hitPoints, 0);
}

TEST_F(Towne, QuittingWithNewExperienceEntersTheScoreAndDatesTheCallersSlot) {
    slot(0).ownerName.assign("Other");
    game.session.currentSlot = 0; // the caller's own slot counts, not this number
    game.session.sessionStartExperience = 39;
    caller.type("qk");
    towneMenu();
    EXPECT_EQ(readFile("scores.dat"), "Arwen#40Ranger\n");
    EXPECT_EQ(game.session.today, 111526);
    EXPECT_EQ(slot(1).lastPlayedDay, 111526);
    EXPECT_EQ(slot(0).lastPlayedDay, 0);
}

TEST_F(Towne, TheDeadLeaveAtOnceAndAreStoredHealed) {
    game.world.playerDead = 1;
    game.player.hitPoints = 0;
    towneMenu();
    EXPECT_EQ(slot(0).hitPoints, 20);
    EXPECT_EQ(game.player.hitPoints, 0);
    game.player.hitPoints = 3; // dead, but with hit points: only the first save
    towneMenu();
    EXPECT_EQ(slot(0).hitPoints, 3);
    EXPECT_TRUE(caller.calls.empty());
    EXPECT_EQ(slot(0).onlineFlag, 1U) << "only quitting takes him off the list";
}

TEST_F(Towne, WhoeverLosesHisLastHitPointLeavesWithoutAWord) {
    game.player.hitPoints = 0;
    towneMenu();
    EXPECT_TRUE(caller.calls.empty());
    EXPECT_EQ(slot(0).name.view(), "Arwen");
}

TEST_F(Towne, KeysWithoutAPlaceShowTheMenuAgain) {
    caller.type("mMx9");
    EXPECT_THROW(towneMenu(), OutOfKeys);
    EXPECT_EQ(caller.screen(), std::string(hub) + "say |\n" + hub + "say |\n" + hub)
        << "a key that is no hot key is refused by the menu itself";
}

TEST_F(Towne, ShowsStatusListAndUsersOnline) {
    caller.type("lkyyo");
    EXPECT_THROW(towneMenu(), OutOfKeys);
    const std::string screen = caller.screen();
    EXPECT_NE(screen.find(std::string(hub) + "clear\nclear\nsay `red`Player List|\n"),
              std::string::npos);
    EXPECT_NE(screen.find("show 1\nsay |\nsay |\nsay `red`Press any key!\nkey\n" +
                          std::string(hub) + "say |\nclear\nsay `red`Your Status`bright red:\n"),
              std::string::npos);
    EXPECT_NE(screen.find("key\nsay |\n" + std::string(hub) +
                          "clear\nsay `red`Users currently on-line`bright red`:|\n"),
              std::string::npos);
}
