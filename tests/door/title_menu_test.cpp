// From the start of the program to its end, as the scripted caller sees it.
#include "door/title_menu.h"

#include "door/door_session.h"
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
};

TEST_F(Title, StartsInOrderAndQuits) {
    const std::string start = "[options morvek][init][colour 15 0][autodetect 1]";
    const std::string rest =
        "{`r`Morvek v`R`0`r`.`R`6`r`.`R`9a|}{`r`By: `R`The Morvek developers|}{|}"
        "{`r`Hosted by`R`: `W`The `blue`Board}{|}{||}[menu intmenu SHQ]{`W`Quit Game||}";
    fs::create_directory("data");
    writeFile("morvek.cfg", "free\nThe `blue`Board\ndata\n");
    EXPECT_EQ(play("q"), 0);
    EXPECT_EQ(caller.screen, start + "[clear][clear]" + rest);
    EXPECT_TRUE(fs::equivalent(fs::current_path(), folder.path("data")));

    newCall(false); // without ANSI graphics only the title itself begins on a new line
    writeFile("morvek.cfg", "\nThe `blue`Board\n/no/such/place\n");
    EXPECT_EQ(play("xQ"), 0);
    EXPECT_EQ(caller.screen, start + "{||}" + rest);
    EXPECT_TRUE(fs::equivalent(fs::current_path(), folder.path("data"))) << "where it was";
}

TEST_F(Title, ConfiguredAreLinesOfUpTo253CharactersAsTheyAreOrTheCallerIsNotConnected) {
    const std::string longest(253, 'x');
    const std::string line = longest + "\n";
    const Cases<std::string, std::string> cases{
        {"free\n The Board \r\n/games", " The Board \r|/games"},
        {"", "|"},
        {"\n\n# no comment", "|# no comment"},
        {line + line + longest, longest + "|" + longest},
        {"a\nb\nc\n" + line + line, "b|c"}}; // what follows the third line is nobody's
    for (const auto& [content, read] : cases) {
        newCall();
        writeFile("morvek.cfg", content);
        EXPECT_EQ(play("q"), 0);
        EXPECT_EQ(game.session.hostName + "|" + game.session.gameDirectory, read);
    }
    newCall();
    writeFile("morvek.cfg", line + line + longest + "x");
    testing::internal::CaptureStderr();
    EXPECT_EQ(play(""), 1);
    const std::string complaint = testing::internal::GetCapturedStderr();
    EXPECT_EQ(std::count(complaint.begin(), complaint.end(), '\n'), 1);
    EXPECT_EQ(caller.screen, "[options morvek]");
}

TEST_F(Title, StartingAgainInOneCallAsksAndChecksANewNameLikeTheFirst) {
    newCall(true, "Thomas the Rhymer of Erceldoune");
    game.session.nameChecked = 1;
    EXPECT_EQ(play("STom\ry1kqkkSkqkkhkQ"), 0);
    EXPECT_EQ(game.session.displayUserName, "Thomas the Rhym");
    EXPECT_TRUE(caller.saw("correct?"));
    EXPECT_EQ(caller.times("[menu clasmenu 12345678]"), 1)
        << "his slot is found under the name as it was cut";
    EXPECT_TRUE(game.player.name.empty());
    const std::string news = readFile("111526.txt");
    EXPECT_TRUE(news.ends_with("Thomas the Rhym joined the game.\n\r"));

    newCall(true, ""); // whom nobody knows makes no news
    EXPECT_EQ(play("STom\ry1kqkkQ"), 0);
    EXPECT_EQ(game.session.displayUserName, "Default");
    EXPECT_EQ(readFile("111526.txt"), news);
}
