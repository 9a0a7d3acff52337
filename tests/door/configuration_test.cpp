#include "door/configuration.h"

#include "support/temporary_directory.h"

class Configuration : public InTemporaryDirectory {
protected:
    static std::string read(const std::string& content) {
        game = GameState{};
        writeFile("morvek.cfg", content);
        if (!readConfiguration()) {
            return "too long";
        }
        return game.session.hostName + "|" + game.session.gameDirectory;
    }
};

TEST_F(Configuration, LinesAreTakenAsTheyAreAndMayBeMissing) {
    EXPECT_EQ(read("free\nThe Board\n/games\n"), "The Board|/games");
    EXPECT_EQ(read("free\n The Board \r\n/games"), " The Board \r|/games");
    EXPECT_EQ(read("free\nThe Board\n"), "The Board|");
    EXPECT_EQ(read("free"), "|");
    EXPECT_EQ(read(""), "|");
    EXPECT_EQ(read("\n\n# no comment"), "|# no comment");
    fs::remove("morvek.cfg");
    EXPECT_TRUE(readConfiguration());
}

TEST_F(Configuration, ALineOf254CharactersIsTooLongInEveryPlace) {
    const std::string longest(253, 'x');
    const std::string line = longest + "\n";
    EXPECT_EQ(read(line + line + longest), longest + "|" + longest);
    for (const std::string& before : {std::string(), line, line + line}) {
        EXPECT_EQ(read(before + longest + "x"), "too long") << before.size();
        EXPECT_EQ(read(before + longest + "x\nb\nc\n"), "too long") << before.size();
    }
    EXPECT_EQ(read("a\nb\nc\n" + longest + longest), "b|c") << "the fourth line is nobody's";
}
