#include "towne/news.h"

#include "support/temporary_directory.h"

using News = InTemporaryDirectory;

TEST_F(News, AreShownWithTheirLineEndsAndNoOtherControlByteWhereTheirFileCanBeUsed) {
    fs::create_directory("111526.txt");
    newsJoined();
    showNews();
    EXPECT_EQ(caller.screen, "");
    game.session.dateStamp = "111626";
    writeFile("111626.txt", "\aA\r\033[2J\xff`\n\rB");
    EXPECT_EQ(caller.visit(showNews, "x"),
              "[clear]{|`r`News for today`R`:||}{`W`}<A[2J\xff`\n>{|}<\rB>{|}[any key]");
    writeFile("111626.txt", "kept\n\r", 0222); // but not to be read
    {
        const AsNobody nobody;
        newsJoined();
    }
    ::chmod("111626.txt", 0644);
    EXPECT_EQ(readFile("111626.txt"), "kept\n\rAlice joined the game.\n\r");
}
