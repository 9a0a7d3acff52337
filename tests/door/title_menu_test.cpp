// From the start of the program to its end, as the scripted caller sees it.
#include "door/title_menu.h"

#include "door/door_session.h"
#include "files/game_lock.h"
#include "screen/screen.h"
#include "support/temporary_directory.h"

struct Title : InTemporaryDirectory {
    // Plays a whole call with these keys and returns the status it ended with.
    static int play(const std::string& keys) {
        caller.type(keys);
        char name[] = "morvek";
        char* arguments[] = {name, nullptr};
        try {
            return runDoor(1, arguments);
        } catch (const CallEnded& end) {
            return end.status;
        }
    }

    const std::string start = "[options morvek][init][colour 15 0][autodetect 1]";
    const std::string title =
        "{`r`Morvek v`R`0`r`.`R`6`r`.`R`9a|}{`r`By: `R`The Morvek developers|}{|}"
        "{`r`Hosted by`R`: `W`The `blue`Board}{|}{||}[menu intmenu SHQ]";
};

TEST_F(Title, IsShownInTheGameDirectory) {
    fs::create_directory("data");
    writeFile("morvek.cfg", "free\nThe `blue`Board\ndata\n");
    EXPECT_EQ(play("xQ"), 0);
    EXPECT_EQ(caller.screen, start + "[clear][clear]" + title + "{`W`Quit Game||}");
    EXPECT_TRUE(fs::equivalent(fs::current_path(), folder.path("data")));
}

TEST_F(Title, BeginsOnANewLineWithoutAnsi) {
    newCall(false);
    writeFile("morvek.cfg", "\nThe `blue`Board\n/no/such/place\n");
    EXPECT_EQ(play("q"), 0);
    EXPECT_THAT(caller.screen, StartsWith(start + "{||}" + title));
    EXPECT_TRUE(fs::equivalent(fs::current_path(), folder.self)) << "where it was";
}

TEST_F(Title, TooLongALineIsRefused) {
    writeFile("morvek.cfg", "a\nb\n" + std::string(254, 'x'));
    testing::internal::CaptureStderr();
    EXPECT_EQ(play(""), 1);
    EXPECT_THAT(testing::internal::GetCapturedStderr(), EndsWith("than 253 characters\n"));
    EXPECT_EQ(caller.screen, "[options morvek]");
}

TEST_F(Title, UserIsInsideOnce) {
    GameLock otherCall(lockFileName);
    otherCall.enter("Alice");
    EXPECT_EQ(play("S"), 5);
    EXPECT_TRUE(caller.saw("{||`r`You are already in the game on another node. "
                           "Please leave it there first.|}"));
    EXPECT_FALSE(fs::exists("morchars.dat"));
    otherCall.leave();
    EXPECT_EQ(play("STom\ry1kqkkQ"), 0);
    EXPECT_TRUE(otherCall.enter("Alice")) << "he has left";
}

TEST_F(Title, StartBeginsAGame) {
    game.session.roomRented = 1;
    game.world.playerDead = 1;
    EXPECT_THROW(play("STom\ry1k"), OutOfKeys); // in Towne
    EXPECT_EQ(game.session.roomRented, 0);
    EXPECT_EQ(game.world.playerDead, 0);
    EXPECT_EQ(game.session.guessesLeft, 3);
}
