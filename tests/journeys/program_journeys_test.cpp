// The program as boards start it: by its name, in a directory of its own, on a caller's streams.
#include "odoors/board.h"
#include "support/program.h"

#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <sys/socket.h>

using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

// A caller's first game and his return, at the terminal that his board gives the door.
TEST(ProgramJourney, AFirstGameAndAReturn) {
    Game game;
    const std::string dropFile = door32.with({{7, "Ace"}});
    game.write("DOOR32.SYS", dropFile);
    {
        const TerminalCall call(game.program({"-D", "."}));
        const std::string title = call.until(game.endOf("intmenu.ans"));
        EXPECT_THAT(title, HasSubstr("\033[2J"));
        EXPECT_THAT(title, HasSubstr("The Test Board"));
        call.type("s");
        call.until("Character Name");
        call.type("Aldur\r");
        EXPECT_THAT(call.until("correct? "), HasSubstr("Aldur"));
        call.type("y");
        call.until(game.endOf("clasmenu.ans"));
        call.type("2");
        const std::string status = call.until("Press any key!");
        EXPECT_THAT(status, HasSubstr("Fighter"));
        EXPECT_THAT(status, HasSubstr("45 minutes"));
        call.type(" ");
        call.until(game.endOf("townmenu.ans"));
        call.type("l");
        EXPECT_THAT(call.until("Press any key!"), HasSubstr("Aldur"));
        call.type(" o");
        EXPECT_THAT(call.until("Press any key!"), HasSubstr("Users currently on-line"));
        call.type(" q");
        call.until("Press any key!");
        call.type(" ");
        EXPECT_THAT(call.until("Press any key!"), HasSubstr("Top 10 Scores List is empty."));
        call.type(" ");
        call.until(game.endOf("intmenu.ans"));
        call.type("q");
        EXPECT_THAT(call.until("\033[0m\r\n"), HasSubstr("Quit Game"));
        EXPECT_EQ(call.status(), 0);
        EXPECT_TRUE(call.isRestored());
    }
    EXPECT_THAT(game.newFiles(), UnorderedElementsAre("morchars.dat", EndsWith(".txt")));
    EXPECT_EQ(game.text("DOOR32.SYS"), dropFile);
    EXPECT_EQ(game.news(), "It's a new day!\n\rAce joined the game.\n\r");
    const std::string roster = game.text("morchars.dat");
    ASSERT_THAT(roster, SizeIs(50 * recordSize));
    EXPECT_STREQ(&roster[ownerNameAt], "Ace");
    EXPECT_STREQ(&roster[nameAt], "Aldur");

    const TerminalCall again(game.program({"-D", "."}), false);
    again.until(game.endOf("intmenu.ans"));
    again.type("s");
    EXPECT_THAT(again.until("Press any key!"), HasSubstr("Aldur"));
    again.type(" q  q");
    EXPECT_EQ(again.status(), 0);
    EXPECT_EQ(game.text("morchars.dat").size(), roster.size());
}

// Every kind of drop file, and what boards write in them that is not what one would expect. Each
// caller creates a character, whose status tells his minutes, and is then gone.
TEST(ProgramJourney, FromEveryBoard) {
    struct Row {
        const BoardFile& file;
        std::vector<std::pair<std::size_t, std::string>> others;
        const char* name = "J\x94rg Ace";
        int minutes = 45;
        bool ansi = true;
    };
    const BoardFile shortDoorSys{"door.sys", 31, {}, doorSys31};
    const std::string longName(40, 'x');
    for (const Row& row : {
             Row{door32, {}},
             {door32, {{2, "0"}}},
             {door32, {{2, "1000"}}},
             {door32, {{1, "0"}, {2, "9"}}},
             {door32, {{4, "WWIV v5"}, {9, "2700"}}},
             {door32, {{9, "99999999999999999999"}, {10, "0"}}, "J\x94rg Ace", 32767, false},
             {door32, {{7, " "}, {10, "4"}}, "Alice Doe"},
             {doorSys, {}},
             {doorSys, {{1, "COM0:"}, {20, "NG"}}, "J\x94rg Ace", 45, false},
             {doorSys, {{36, ""}, {20, "7e"}}, "Alice Doe", 45, false},
             {shortDoorSys, {{10, "J\x94rg Ace"}}},
             {dorinfo, {}},
             {dorinfo, {{7, "J\x94rg Ace"}, {8, "NLN"}}},
             {dorinfo, {{8, ""}, {10, "0"}}, "J\x94rg", 45, false},
             {chain, {}},
             {chain, {{2, ""}, {14, "0"}, {15, "0"}, {16, "59.9"}}, "Alice Doe", 0, false},
             {chain, {{16, "2700"}}},
             {bbsdev, {}},
             {bbsdev, {{1, "1.7"}, {2, "LOCAL"}, {8, "n"}, {11, ""}}, "J\x94rg Ace", 32767, false},
             {bbsdev, {{2, "socket"}, {3, "-1"}, {12, "UTF-8"}}},
         }) {
        Game game;
        const std::string bytes = row.file.with(row.others);
        game.write(row.file.name, bytes);
        const Outcome call = runWithKeys(game.program({"-D", row.file.name}), "sxJo\ry1x");
        EXPECT_EQ(call.status, 2) << bytes << call.complaints;
        EXPECT_THAT(call.shown, HasSubstr(std::to_string(row.minutes) + " minutes")) << bytes;
        EXPECT_EQ(call.shown.find("\033[") != std::string::npos, row.ansi) << bytes;
        EXPECT_THAT(game.news(), HasSubstr(std::string("\r") + row.name + " joined")) << bytes;
        EXPECT_EQ(game.text(row.file.name), bytes);
    }
}

// Nobody can be served here; the operator reads why, and nothing that is secret.
TEST(ProgramJourney, ToNobody) {
    for (const auto& [file, others] :
         std::vector<std::pair<BoardFile, std::vector<std::pair<std::size_t, std::string>>>>{
             {door32, {{1, "1"}}}, {bbsdev, {{2, "fossil"}}}, {doorSys, {{19, "secret"}}}}) {
        Game game;
        game.write(file.name, file.with(others));
        const Outcome call = runWithKeys(game.program({"-D", file.name}), "sxJo\ry1x");
        EXPECT_EQ(call.status, 1);
        EXPECT_EQ(call.shown, "");
        EXPECT_EQ(std::count(call.complaints.begin(), call.complaints.end(), '\n'), 1);
        EXPECT_THAT(call.complaints, testing::Not(HasSubstr("secret")));
        EXPECT_THAT(game.newFiles(), IsEmpty());
    }
}

// A caller with a telnet program, whose connection the board hands to the door.
TEST(ProgramJourney, ThroughATelnetProgram) {
    if (std::system("command -v telnet >/dev/null") != 0) {
        GTEST_SKIP() << "telnet is not installed";
    }
    Game game;
    game.write("DOOR32.SYS", door32.with({{2, std::to_string(handedSocket)}}));
    sockaddr_in address{};
    socklen_t size = sizeof address;
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const int listener = socket(AF_INET, SOCK_STREAM, 0);
    ASSERT_EQ(bind(listener, reinterpret_cast<sockaddr*>(&address), size), 0);
    ASSERT_EQ(getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size), 0);
    ASSERT_EQ(listen(listener, 1), 0);
    const std::string port = std::to_string(ntohs(address.sin_port));
    const TerminalCall telnet(
        [port] { execlp("telnet", "telnet", "-E", "127.0.0.1", port.c_str(), nullptr); });
    const int connection = accept(listener, nullptr, nullptr);
    close(listener);
    const pid_t program = startOnSocket(game.program({"-D", "."}), connection);

    telnet.until(game.endOf("intmenu.ans"));
    telnet.type("s");
    telnet.until("Character Name");
    telnet.type("Alx\x7f"
                "dur\r");
    EXPECT_THAT(telnet.until("correct? "), HasSubstr("Alx\b \bdur\n\r"));
    telnet.type("y");
    telnet.until(game.endOf("clasmenu.ans"));
    telnet.type("3");
    EXPECT_THAT(telnet.until("Press any key!"), HasSubstr("Aldur"));
    telnet.type("\033[A");
    telnet.until(game.endOf("townmenu.ans"));
    telnet.type("q");
    telnet.until("Press any key!");
    telnet.type("\r");
    telnet.until("Press any key!");
    telnet.type("\r");
    telnet.until(game.endOf("intmenu.ans"));
    telnet.type("q");
    EXPECT_THAT(telnet.until("closed by foreign host"), HasSubstr("Quit Game"));
    EXPECT_EQ(waitForEnd(program), 0);
    EXPECT_GE(telnet.status(), 0);
    EXPECT_THAT(game.news(), HasSubstr("J\x94rg Ace joined"));
}
