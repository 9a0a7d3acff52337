#include "towne/news.h"

#include "state/game_state.h"
#include "support/temporary_directory.h"

#include <sys/stat.h>

using namespace morvek;
using namespace morvek::test;

class News : public InTemporaryDirectory {
protected:
    News() { game.session.dateStamp = "111526"; }
};

TEST_F(News, ADaysFileBeginsWithTheDayAndGrowsByALineACall) {
    newsJoined();
    newsJoined();
    EXPECT_EQ(readFile("111526.txt"), "It's a new day!\n\r"
                                      "Alice joined the game.\n\r"
                                      "Alice joined the game.\n\r");
}

TEST_F(News, ShowsPiecesOfALineOrOf49Characters) {
    writeFile("111526.txt", "short\n\r" + std::string(60, 'x') + "\n");
    caller.type("k");
    showNews();
    EXPECT_EQ(caller.screen(), "clear\n"
                               "say |`red`News for today`bright red`:||\n"
                               "say `bright white`\n"
                               "show short\n\nsay |\n"
                               "show \r" +
                                   std::string(48, 'x') +
                                   "\nsay |\n"
                                   "show " +
                                   std::string(12, 'x') +
                                   "\n\nsay |\n"
                                   "say `red`Press any key!\nkey\n");
}

TEST_F(News, IsSilentWhereItsFileCannotBeUsed) {
    std::filesystem::create_directory("111526.txt");
    newsJoined();
    showNews();
    EXPECT_TRUE(caller.calls.empty());
    game.session.dateStamp = "111626"; // there, but not to be read
    writeFile("111626.txt", "kept\n\r");
    ASSERT_EQ(::chmod("111626.txt", 0222), 0);
    ASSERT_EQ(::chmod(".", 0755), 0);
    {
        const AsNobody nobody;
        newsJoined();
    }
    EXPECT_EQ(readFile("111626.txt"), "kept\n\rAlice joined the game.\n\r");
}
