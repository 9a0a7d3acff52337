#include "door/configuration.h"

#include "support/temporary_directory.h"

using Configuration = InTemporaryDirectory;

TEST_F(Configuration, LinesAreTakenAsTheyAreUpTo253CharactersAndMayBeMissing) {
    const std::string longest(253, 'x');
    const std::string line = longest + "\n";
    const Cases<std::string, std::string> cases{
        {"free\nThe Board\n/games\n", "The Board|/games"},
        {"free\n The Board \r\n/games", " The Board \r|/games"},
        {"free\nThe Board\n", "The Board|"},
        {"", "|"},
        {"\n\n# no comment", "|# no comment"},
        {line + line + longest, longest + "|" + longest},
        {longest + "x", "too long"},
        {line + longest + "x\nc\n", "too long"},
        {line + line + longest + "x", "too long"},
        {"a\nb\nc\n" + longest + longest, "b|c"}}; // the fourth line is nobody's
    for (const auto& [content, read] : cases) {
        newCall();
        writeFile("morvek.cfg", content);
        const Session& session = game.session;
        EXPECT_EQ(readConfiguration() ? session.hostName + "|" + session.gameDirectory : "too long",
                  read);
    }
    fs::remove("morvek.cfg");
    EXPECT_TRUE(readConfiguration());
}
