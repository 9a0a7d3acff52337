// Replacing a file whole, in every place where a file can stand.
#include "files/data_file.h"

#include "support/temporary_directory.h"

using DataFile = InTemporaryDirectory;

TEST_F(DataFile, IsReplacedByAnotherFileAndKeepsItsMode) {
    EXPECT_TRUE(replaceFile("data", "first"));
    fs::create_hard_link("data", "kept"); // the old content lives on under its other name
    ASSERT_EQ(::chmod("data", 0640), 0);
    EXPECT_TRUE(replaceFile("data", "second"));
    EXPECT_EQ(readFile("data"), "second");
    EXPECT_EQ(readFile("kept"), "first");
    EXPECT_EQ(fs::status("data").permissions(), fs::perms{0640});
}

TEST_F(DataFile, ALinkIsFollowedAlsoToAFileNotThereYet) {
    fs::create_directories("store/deep");
    fs::create_symlink("deep/two", "store/one");
    fs::create_symlink("store/one", "data");
    for (const char* content : {"through both", "again"}) {
        EXPECT_TRUE(replaceFile("data", content));
        EXPECT_EQ(readFile("store/deep/two"), content);
    }
    EXPECT_TRUE(fs::is_symlink("data"));
    fs::create_symlink("circle", "circle");
    EXPECT_FALSE(replaceFile("circle", "never"));
}

TEST_F(DataFile, WhereNoTemporaryFileCanBeTheFileIsWrittenInPlace) {
    writeFile("data", "a longer content", 0666);
    ASSERT_EQ(::chmod(".", 0555), 0);
    const AsNobody nobody;
    EXPECT_TRUE(replaceFile("data", "short"));
    EXPECT_EQ(readFile("data"), "short");
    EXPECT_FALSE(replaceFile("other", "nothing"));
}

TEST_F(DataFile, WhatCannotBeWrittenIsLeftAlone) {
    fs::create_directory("directory");
    ASSERT_EQ(::mkfifo("pipe", 0666), 0);
    EXPECT_TRUE(readWhole("pipe")->empty());
    for (const char* path : {"directory", "nowhere/data", "pipe"}) {
        EXPECT_FALSE(replaceFile(path, "nothing")) << path; // nor waits for a reader of the pipe
    }
    writeFile("readonly", "kept", 0444);
    const AsNobody nobody;
    EXPECT_FALSE(replaceFile("readonly", "nothing")) << "though the directory could be written";
    EXPECT_EQ(readFile("readonly"), "kept");
}
