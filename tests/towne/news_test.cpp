#include "towne/news.h"

#include "support/temporary_directory.h"

class News : public InTemporaryDirectory {
protected:
    News() { game.session.dateStamp = "111526"; }
};

TEST_F(News, IsSilentWhereItsFileCannotBeUsed) {
    fs::create_directory("111526.txt");
    newsJoined();
    showNews();
    EXPECT_EQ(caller.screen, "");
    game.session.dateStamp = "111626"; // there, but not to be read
    writeFile("111626.txt", "kept\n\r", 0222);
    {
        const AsNobody nobody;
        newsJoined();
    }
    EXPECT_EQ(readFile("111626.txt"), "kept\n\rAlice joined the game.\n\r");
}

TEST_F(News, AreShownWithTheirLineEndsAndNoOtherControlByte) {
    writeFile("111526.txt", "\aA\r\033[2J\xff`\n\rB");
    EXPECT_EQ(caller.visit(showNews, "x"),
              "[clear]{|`r`News for today`R`:||}{`W`}<A[2J\xff`\n>{|}<\rB>{|}[any key]");
}
