// The program as boards start it: by its name, in a directory of its own, on a caller's streams.
#include "support/process.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>

#include <gmock/gmock.h>
#include <unistd.h>

using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

namespace {

constexpr std::size_t recordSize = 1500;
// Where the texts of two of its slots begin.
constexpr std::size_t ownerNameAt = 68;
constexpr std::size_t nameAt = 92;

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// A game directory as an operator leaves it, and the program in it.
struct ProgramJourney : testing::Test {
    Folder folder;
    std::set<std::string> filesBefore;

    ProgramJourney() {
        std::filesystem::copy(MORVEK_MENUS_DIR, folder.path());
        write("morvek.cfg", "Morvek\nThe Test Board\n.\n");
    }

    void write(const std::string& name, const std::string& bytes) {
        folder.write(name, bytes);
        filesBefore = files();
    }

    Child program(const std::vector<std::string>& arguments) const {
        return [arguments, directory = folder.path()] {
            std::vector<char*> words{const_cast<char*>("morvek")};
            for (const std::string& argument : arguments) {
                words.push_back(const_cast<char*>(argument.c_str()));
            }
            words.push_back(nullptr);
            if (chdir(directory.c_str()) == 0) {
                execv(MORVEK_PROGRAM, words.data());
            }
            std::abort();
        };
    }

    std::set<std::string> files() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
            names.insert(entry.path().filename());
        }
        return names;
    }

    // The files that have come since the operator wrote the last of his.
    std::set<std::string> newFiles() const {
        std::set<std::string> names = files();
        for (const std::string& name : filesBefore) {
            names.erase(name);
        }
        return names;
    }

    std::string text(const std::string& name) const { return contentOf(folder.path(name)); }

    // The news of the day that the call began on.
    std::string news() const {
        for (const std::string& name : newFiles()) {
            if (name.ends_with(".txt")) {
                return text(name);
            }
        }
        return "";
    }

    // How the display file of that name ends on the screen.
    std::string endOf(const std::string& menu) const {
        std::string bytes = text(menu);
        bytes.resize(std::min(bytes.size(), bytes.find('\x1a')));
        return bytes.substr(bytes.size() - std::min<std::size_t>(bytes.size(), 20));
    }
};

std::string door32(const std::string& alias) {
    return "2\r\n-1\r\n38400\r\nTest BBS 1.0\r\n1\r\nAlice Doe\r\n" + alias +
           "\r\n50\r\n45\r\n1\r\n1\r\n";
}

} // namespace

// A caller's first game and his return, at the terminal that his board gives the door.
TEST_F(ProgramJourney, AFirstGameAndAReturn) {
    const std::string dropFile = door32("Ace");
    write("DOOR32.SYS", dropFile);
    {
        const TerminalCall call(program({"-D", "."}));
        const std::string title = call.until(endOf("intmenu.ans"));
        EXPECT_THAT(title, HasSubstr("\033[2J"));
        EXPECT_THAT(title, HasSubstr("The Test Board"));
        call.type("s");
        call.until("Character Name");
        call.type("Aldur\r");
        EXPECT_THAT(call.until("correct? "), HasSubstr("Aldur"));
        call.type("y");
        call.until(endOf("clasmenu.ans"));
        call.type("2");
        const std::string status = call.until("Press any key!");
        EXPECT_THAT(status, HasSubstr("Fighter"));
        EXPECT_THAT(status, HasSubstr("45 minutes"));
        call.type(" ");
        call.until(endOf("townmenu.ans"));
        call.type("l");
        EXPECT_THAT(call.until("Press any key!"), HasSubstr("Aldur"));
        call.type(" o");
        EXPECT_THAT(call.until("Press any key!"), HasSubstr("Users currently on-line"));
        call.type(" q");
        call.until("Press any key!");
        call.type(" ");
        EXPECT_THAT(call.until("Press any key!"), HasSubstr("Top 10 Scores List is empty."));
        call.type(" ");
        call.until(endOf("intmenu.ans"));
        call.type("q");
        EXPECT_THAT(call.until("\033[0m\r\n"), HasSubstr("Quit Game"));
        EXPECT_EQ(call.status(), 0);
        EXPECT_TRUE(call.isRestored());
    }
    EXPECT_THAT(newFiles(), UnorderedElementsAre("morchars.dat", EndsWith(".txt")));
    EXPECT_EQ(text("DOOR32.SYS"), dropFile);
    EXPECT_EQ(news(), "It's a new day!\n\rAce joined the game.\n\r");
    const std::string roster = text("morchars.dat");
    ASSERT_THAT(roster, SizeIs(50 * recordSize));
    EXPECT_STREQ(&roster[ownerNameAt], "Ace");
    EXPECT_STREQ(&roster[nameAt], "Aldur");

    const TerminalCall again(program({"-D", "."}), false);
    again.until(endOf("intmenu.ans"));
    again.type("s");
    EXPECT_THAT(again.until("Press any key!"), HasSubstr("Aldur"));
    again.type(" q  q");
    EXPECT_EQ(again.status(), 0);
    EXPECT_EQ(text("morchars.dat").size(), roster.size());
}

// A script plays through pipes: all keys are there before the program, and then no more.
TEST_F(ProgramJourney, EveryKeyAtOnceThroughAPipe) {
    const Outcome whole = runWithKeys(program({"-LOCAL", "-USERNAME", "Bea"}), "hxsBee\ry8xl q  q");
    EXPECT_EQ(whole.status, 0);
    EXPECT_THAT(whole.complaints, IsEmpty());
    EXPECT_THAT(whole.shown, HasSubstr("Bee #1\n\r"));
    EXPECT_THAT(whole.shown, EndsWith("Quit Game\n\r\n\r"));
    EXPECT_THAT(whole.shown, testing::Not(HasSubstr("\033")));
    const Outcome cut = runWithKeys(program({"-LOCAL", "-USERNAME", "Bea"}), "sxy");
    EXPECT_EQ(cut.status, 2);
    EXPECT_THAT(cut.complaints, IsEmpty());
    EXPECT_THAT(cut.shown, EndsWith("Remaining Time : 60 minutes\n\r\n\rPress any key!"));
    EXPECT_THAT(newFiles(), UnorderedElementsAre("morchars.dat", EndsWith(".txt")));
}
