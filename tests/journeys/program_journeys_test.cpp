// The program as a board starts it: by its name, in a directory of its own, at a terminal.
#include "odoors/board.h"
#include "support/ace.h"
#include "support/program.h"

#include <csignal>

#include <gmock/gmock.h>

using namespace testing;

// He waits for each text, or the end of a display file, and then types what is next to it.
TEST(ProgramJourney, FirstGameAndReturn) {
    Game game;
    game.write(door32.name, door32.with());
    const Call call(game.program({"-D", ".", "-CHARSET=cp437"}));
    std::string shown;
    for (const std::string step :
         {"intmenu.ans=s", "Character Name=Alx\bdur\r", "correct? =y", "clasmenu.ans=2",
          "any key!= ", "townmenu.ans=l", "any key!=\033[Ao", "any key!=\rq",
          "any key!= ", "any key!=\r", "intmenu.ans=q"}) {
        const std::size_t middle = step.find('=');
        std::string awaited = step.substr(0, middle);
        if (awaited.ends_with(".ans")) {
            const std::string bytes = game.text(awaited);
            awaited = bytes.substr(std::min(bytes.size(), bytes.find('\x1a')) - 20, 20);
        }
        shown += call.until(awaited);
        EXPECT_THAT(shown, HasSubstr(awaited));
        call.type(step.substr(middle + 1));
    }
    EXPECT_THAT(call.until("\033[0m\r\n"), HasSubstr("Quit Game"));
    for (const char* text :
         {"\033[2J", "The Test Board", "Alx\b \bdur\n\r", "Fighter", "45 minutes",
          "Users currently on-line", "Top 10 Scores List is empty."}) {
        EXPECT_THAT(shown, HasSubstr(text));
    }
    EXPECT_THAT(game.data(),
                UnorderedElementsAre(
                    Pair("morchars.dat", SizeIs(50 * recordSize)),
                    Pair(EndsWith(".txt"), "It's a new day!\n\rJ\x94rg Ace joined the game.\n\r")));
    EXPECT_EQ(call.status(), 0);
    EXPECT_TRUE(call.isRestored());

    const Call again(game.program({"-D", ".", "-CHARSET=cp437"}), Line::terminal, false);
    again.type("s");
    EXPECT_THAT(again.until("any key!"), HasSubstr("Aldur"));
    again.type(" q  q");
    EXPECT_EQ(again.status(), 0);
    EXPECT_EQ(game.text("morchars.dat").size(), 50 * recordSize);
}

// On the way home from a room without monsters.
TEST(ProgramJourney, ShowsAMessageBeforeItClears) {
    Game game;
    game.write("morchars.dat", rosterOf(true));
    const Call call(game.program({"-LOCAL", "-USERNAME=Ace", "-GRAPHICS", "-CHARSET=cp437"}));
    call.type("sxf");
    call.until("Forest 1");
    call.type("f");
    EXPECT_THAT(call.until("...\n\r"), EndsWith("...\n\r\n\r"));
    EXPECT_THAT(call.until("\033[2J"), StartsWith("\033[2J"));
}

// From a dead end of the forest only one arrow leads back, to which others are no answer.
TEST(ProgramJourney, WalksWithTheArrows) {
    Game game;
    game.write("morchars.dat", rosterOf(true));
    const Call call(game.program({"-LOCAL", "-USERNAME=Ace", "-GRAPHICS", "-CHARSET=cp437"}));
    call.type("sxf\033OA");
    EXPECT_THAT(call.until("Forest 2"), HasSubstr("Forest 2"));
    call.type("\033[A\033[4~\033[B");
    EXPECT_THAT(call.until("Forest 1"), HasSubstr("Forest 1"));
    call.type("\033[D");
    EXPECT_THAT(call.until("Forest 14"), HasSubstr("Forest 14"));
    call.type("\033[4~");
    EXPECT_THAT(call.until("Forest 15"), HasSubstr("Forest 15"));
}

// Each sequence that colours names both colours, and none is bold.
TEST(ProgramJourney, ColoursTerminalsOfToday) {
    Game game;
    const Call call(game.program({"-LOCAL", "-GRAPHICS", "-CHARSET=utf8"}));
    call.type("s");
    std::string shown = call.until("Character Name");
    EXPECT_THAT(shown, HasSubstr("\033[2J"));
    for (std::size_t end = 0; (end = shown.find('m', end + 1)) != std::string::npos;) {
        const std::size_t begin = shown.rfind("\033[", end);
        const std::string sequence = shown.substr(begin, end + 1 - begin);
        if (sequence.find_first_not_of("0123456789;m", 2) == std::string::npos) {
            EXPECT_THAT(sequence, MatchesRegex(".*[39][0-7];4[0-7]m"));
            EXPECT_THAT(sequence, Not(ContainsRegex("[[;]1[;m]")));
        }
    }
}

// The title, on a terminal of this kind that says that the cursor is here, and then there.
std::string titleAt(const char* kind, const std::string& here, const std::string& there) {
    setenv("LC_ALL", "C", 1);
    setenv("TERM", kind, 1);
    Game game;
    const Call call(game.program({"-LOCAL"}));
    if (!here.empty()) {
        call.until("\033[6n");
        call.type(here);
        call.until("\033[1;1H  \033[1;1H");
        call.type(there);
    }
    return call.until("hoice");
}

TEST(ProgramJourney, FitsTheTerminal) {
    const std::string here = "\033[1;1R";
    const std::string shade = "\xe2\x96\x91";
    EXPECT_THAT(titleAt("xterm", here, "\033[1;2R\033[24;80R"), HasSubstr(shade));
    EXPECT_THAT(titleAt("xterm", here, "\033[1;3R\033[24;80R"),
                AllOf(HasSubstr("\033["), HasSubstr("\xb0"), Not(HasSubstr(shade))));
    EXPECT_THAT(titleAt("xterm", here, "\033[1;2R\033[20;40R"),
                AllOf(HasSubstr("\033["), HasSubstr("S)tart the Game")));
    EXPECT_THAT(titleAt("dumb", "", ""),
                AllOf(Not(HasSubstr("\033")), HasSubstr("S)tart the Game")));
}

TEST(ProgramJourney, LeavesTheTerminalToTheShell) {
    Game game;
    const Call call(game.program({"-LOCAL", "-GRAPHICS", "-CHARSET=cp437"}));
    call.until("Your choice");
    kill(call.child, SIGTERM);
    EXPECT_THAT(call.until("the end"), EndsWith("\033[0m\r\n"));
}

// He has five minutes and a second.
TEST(ProgramJourney, WarnsWhileANameIsTyped) {
    Game game;
    game.write(chain.name, chain.with({{16, "301"}}));
    const Call call(game.program({"-D", ".", "-CHARSET=cp437"}));
    call.type("sAl");
    call.until("mAl");
    EXPECT_EQ(call.until("Al"), "\n\rYou have at most 5 minutes left.\n\r\033[0;31mCharacter Name"
                                "\033[0;1;31m: \033[0;1;37mAl");
}

// Each caller creates a character, whose status tells his minutes, and is then gone.
TEST(ProgramJourney, ServesCallersOfEveryBoard) {
    bool asInUnix = false;
    for (auto [file, others, name, minutes, ansi, arguments] : boardCallers) {
        Game game;
        std::string bytes = file.with(others);
        if ((asInUnix = !asInUnix)) { // lines end in LF, the last in nothing
            std::erase(bytes, '\r');
            bytes.pop_back();
        }
        game.write(file.name, bytes);
        arguments.insert(arguments.end(), {"-D", file.name});
        const Outcome call = runWithKeys(game.program(arguments), "sxJo\ry1x");
        EXPECT_EQ(game.text(file.name), bytes);
        EXPECT_EQ(call.status, minutes < 0 ? 3 : 2) << bytes << call.complaints;
        if (minutes >= 0) {
            EXPECT_THAT(call.shown, ContainsRegex("[^0-9]" + std::to_string(minutes) + " minutes"));
            EXPECT_EQ(call.shown.find("\033[") != std::string::npos, ansi) << bytes;
            EXPECT_THAT(game.data().begin()->second, HasSubstr('\r' + name + " joined")) << bytes;
        }
    }
}
