// Callers on several nodes of one game, each with a terminal of his own.
#include "support/program.h"

#include <gmock/gmock.h>

using namespace testing;

namespace {

// Somebody new, who has come to the message board.
struct Reader : Call {
    Reader(const Game& game, const std::string& name)
        : Call(game.program({"-LOCAL", "-ASCII", "-USERNAME", name})) {
        type("s" + name + "\ry8xtl");
        board();
    }

    // What is shown until the board's menu.
    std::string board() const { return until("lose Scroll\n\r\n\r"); }
};

} // namespace

TEST(TwoCallers, ReadTheBoardWhileOneWrites) {
    const Game game;
    const Reader ace(game, "Ace");
    ace.type("wOne\ryw");
    ace.until("Message: ");
    ace.until("Message: ");
    EXPECT_THAT(game.text("scroll.dat"), IsEmpty());
    EXPECT_THAT(game.text("scroll.old"), HasSubstr("One")) << "for backups";
    const Reader bea(game, "Bea");
    bea.type("ct"); // closes the board, which writes a copy of it
    bea.until("avern");
    ace.type("Two\ry");
    EXPECT_THAT(ace.board(), HasSubstr("Ace: One\n\rAce: Two\n\r"));
    EXPECT_EQ(game.data().count("scroll.old"), 0);
}

TEST(TwoCallers, DeclinedMessageKeepsWhatOthersHaveConfirmed) {
    const Game game;
    const Reader ace(game, "Ace");
    ace.type("wOne\ry");
    ace.board();
    const Reader bea(game, "Bea");
    ace.type("wTwo\ry");
    ace.board();
    bea.type("wNo\rn");
    EXPECT_THAT(bea.board(), AllOf(HasSubstr("Ace: Two"), Not(HasSubstr("One"))));
}
