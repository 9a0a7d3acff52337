// The program as a board starts it: by its name, in a directory of its own, at a terminal.
#include "odoors/board.h"
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

const std::string position = "\033[6n";

// The title, at a terminal that answers so when it is asked where the cursor is, and then where it
// is behind an ö and in the far corner.
std::string titleAt(const std::string& first, const std::string& second) {
    setenv("LC_ALL", "C", 1);
    setenv("TERM", "xterm", 1);
    Game game;
    const Call call(game.program({"-LOCAL"}));
    EXPECT_EQ(call.until(position), position);
    call.type(first);
    const std::string back = '\033' + first.substr(1, first.size() - 2) + 'H';
    EXPECT_EQ(call.until("  " + back),
              "\xc3\xb6" + position + "\033[255;255H" + position + back + "  " + back);
    call.type(second);
    return call.until("hoice");
}

TEST(ProgramJourney, FitsTheTerminal) {
    const auto isUtf8 = HasSubstr("\xe2\x96\x91");
    const auto isPlain = HasSubstr("S)tart the Game");
    const auto isAnsi = HasSubstr("\033[2J");
    EXPECT_THAT(titleAt("\033[3;6R", "\033[3;7R\033[24;80R"), isUtf8);
    EXPECT_THAT(titleAt("\033[3;6R", "\033[3;8R\033[24;80R"), Not(isUtf8));
    EXPECT_THAT(titleAt("\033[3;79R", "\033[3;80R\033[24;80R"), Not(isUtf8)) << "no room for two";
    EXPECT_THAT(titleAt("\033[1;1R", "\033[1;1R\033[1;1R"), Not(AnyOf(isUtf8, isPlain)));
    EXPECT_THAT(titleAt("\033[1;1R", "\033[1;2R\033[20;79R"), AllOf(isAnsi, isPlain));
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
