#include "towne/news.h"

#include "support/temporary_directory.h"

using News = InTemporaryDirectory;

TEST_F(News, ShowLineEndsAndNoOtherControlByte) {
    writeFile("111526.txt", "\aA\r\033[2J\xff`\n\rB");
    EXPECT_EQ(caller.visit(showNews, "x"),
              "[clear]{|`r`News for today`R`:||}{`W`}<A[2J\xff`\n>{|}<\rB>{|}[any key]");
}

TEST_F(News, UnreadableFileKeepsItsLines) {
    writeFile("111526.txt", "kept\n\r", 0222);
    {
        const AsNobody nobody;
        newsJoined();
    }
    ::chmod("111526.txt", 0644);
    EXPECT_EQ(readFile("111526.txt"), "kept\n\rAlice joined the game.\n\r");
}
