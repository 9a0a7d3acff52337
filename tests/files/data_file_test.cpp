// Replacing a file whole, in every place where a file can stand.
#include "files/data_file.h"

#include "support/temporary_directory.h"

using DataFile = InTemporaryDirectory;

TEST_F(DataFile, KeepsItsMode) {
    writeFile("data", "first", 0640);
    EXPECT_EQ(replaceFile("data", "second"), 0);
    EXPECT_EQ(readFile("data"), "second");
    EXPECT_EQ(fs::status("data").permissions(), fs::perms{0640});
}

TEST_F(DataFile, FollowsSymbolicLinks) {
    fs::create_directories("store/deep");
    fs::create_symlink("deep/two", "store/one");
    fs::create_symlink("store/one", "data");
    for (const char* content : {"through both", "again"}) {
        EXPECT_EQ(replaceFile("data", content), 0);
        EXPECT_EQ(readFile("store/deep/two"), content);
    }
    EXPECT_TRUE(fs::is_symlink("data"));
    fs::create_symlink("circle", "circle");
    EXPECT_EQ(replaceFile("circle", "never"), ELOOP);
}

TEST_F(DataFile, IsWrittenInPlaceIfNecessary) {
    writeFile("data", "a longer content", 0666);
    ASSERT_EQ(::chmod(".", 0555), 0);
    const AsNobody nobody;
    EXPECT_EQ(replaceFile("data", "short"), 0);
    EXPECT_EQ(readFile("data"), "short");
    EXPECT_EQ(replaceFile("other", "nothing"), EACCES);
}

TEST_F(DataFile, LeavesWhatCannotBeWritten) {
    fs::create_directory("directory");
    ASSERT_EQ(::mkfifo("pipe", 0666), 0);
    EXPECT_TRUE(readWhole("pipe")->empty());
    EXPECT_EQ(replaceFile("directory", "nothing"), EISDIR);
    EXPECT_EQ(replaceFile("nowhere/data", "nothing"), ENOENT);
    EXPECT_EQ(replaceFile("pipe", "nothing"), ENXIO) << "does not wait for a reader";
    writeFile("readonly", "kept", 0444);
    const AsNobody nobody;
    EXPECT_EQ(replaceFile("readonly", "nothing"), EACCES) << "the directory could be written";
    EXPECT_EQ(readFile("readonly"), "kept");
}

TEST_F(DataFile, PlantedLinksAreNotFollowed) {
    writeFile("private", "kept", 0666);
    fs::create_symlink("private", "data");
    fs::create_hard_link("private", "other.new");
    EXPECT_EQ(replaceFile("other", "content"), 0);
    EXPECT_EQ(readFile("private"), "kept") << "not written through the temporary file's name";
    if (::getuid() != 0 || ::lchown("data", 12345, 12345) != 0) {
        GTEST_SKIP() << "only root can give a link away";
    }
    EXPECT_EQ(replaceFile("data", "content"), ELOOP);
    EXPECT_FALSE(appendTo("data", "content"));
    EXPECT_EQ(readWhole("data"), std::nullopt);
    EXPECT_EQ(readFile("private"), "kept");
}
