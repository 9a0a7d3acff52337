// The hub's keys and its three ways out.
#include "towne/towne_menu.h"

#include "state/roster.h"
#include "support/temporary_directory.h"

struct Towne : InTemporaryDirectory {
    Towne() {
        game.session.inGame = 1;
        game.player = {.name = "Arwen", .experience = 40, .hitPoints = 10, .maxHitPoints = 20};
        game.session.sessionStartExperience = 40;
    }
    static PlayerRecord& slot(std::size_t number) { return game.roster.slots()[number]; }

    const std::string hub = "[clear][menu townmenu fhwambtlyoqp]";
};

TEST_F(Towne, QuittingSavesAndEmptiesThePlayer) {
    EXPECT_EQ(caller.visit(towneMenu, "qk"), hub + "{`W`Quit!|}{|}[any key]");
    EXPECT_EQ(slot(0).name.view(), "Arwen");
    EXPECT_EQ(slot(0).onlineFlag, 0U);
    EXPECT_FALSE(fs::exists("scores.dat")) << "he has no new experience";
    EXPECT_EQ(game.player.name, "");
    EXPECT_EQ(game.player.hitPoints, 0);
}

TEST_F(Towne, NewExperienceIsAScore) {
    slot(0).ownerName.assign("Other");
    slot(1).ownerName.assign("Alice");
    game.session.sessionStartExperience = 39;
    caller.visit(towneMenu, "qk");
    EXPECT_EQ(readFile("scores.dat"), "Arwen#40\n");
    EXPECT_EQ(slot(1).lastPlayedDay, 111526);
}

TEST_F(Towne, DeadAreStoredHealedAndSentAway) {
    game.player.hitPoints = 0;
    game.world.playerDead = 1;
    towneMenu();
    EXPECT_EQ(slot(0).hitPoints, 20);
    EXPECT_EQ(caller.screen, "");
    EXPECT_EQ(slot(0).onlineFlag, 1U) << "only quitting takes him off the list";
}

TEST_F(Towne, EveryKeyLeadsToItsPlaceAndBack) {
    caller.visit(towneMenu, "mxf hrwrarbrtrl y o p0\r qk");
    EXPECT_THAT(caller.screen, StartsWith(hub + "{|}" + hub + "{||`W`You are out of turns"));
    for (const char* place : {"{`r`Health Shrine|}", "[menu weapons bsyr]", "[menu armours bsyr]",
                              "{`r`Bank|}", "{`r`Tavern|}", "{`r`Your Status`bright red:}"}) {
        EXPECT_TRUE(caller.saw(hub + "{|}[clear]" + place)) << place;
    }
    EXPECT_TRUE(caller.saw(hub + "[clear][clear]{`r`Player List|}"));
    EXPECT_TRUE(caller.saw("[any key]{|}" + hub + "[clear]{`r`Users currently on-line`R`:|}"));
    EXPECT_TRUE(caller.saw("{|`r`Enter player # to attack"));
}

TEST_F(Towne, RentedRoomClosesTheTavern) {
    game.session.roomRented = 1;
    EXPECT_THAT(caller.visit(towneMenu, "tqk"), StartsWith(hub + "{|}" + hub));
}
