#include "towne/news.h"

#include "support/temporary_directory.h"

using News = InTemporaryDirectory;

TEST_F(News, ShowNoControlBytesButLineEnds) {
    writeFile("111526.txt", "\aA\r\033[2J\xff`\n\rB");
    EXPECT_EQ(caller.visit(showNews, "x"),
              "[clear]{|`r`News for today`R`:||}{`W`}<A[2J\xff`\n>{|}<\rB>{|}[any key]");
}
