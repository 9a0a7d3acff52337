// Callers who are gone: at every wait for a key on a way through all the screens, on every kind of
// line, in every manner.
#include "stage.h"

#include <csignal>

namespace {

const std::vector<Play> plays{
    // A new character, with nothing anywhere; the board; a fight, an ambush, a flight.
    {{},
     "hxsAl\bdur\rnBo\r8x lxoxymp7\rx wb1xlxsnxsyxsxyxr ab1xlxr hhxaxgxr bd5\rxw\rxr "
     "tolxtqnqyxtxrlwHi\rywno\rncgnyxr faxsxaxhr4yxf qxxq"},
    // A veteran robs, heals, rises, drinks, trades, finds the last room, and sleeps at the inn.
    {{{"morchars.dat", rosterOf(true)}, {"scores.dat", "Cid#900Wizard\nDora#100Rogue\n"}},
     "sxp2\ryaxp2\rn hh3\rxg5xaxr tttttaxaxaxaxaxaxaxaxaxaxrrro1y1nxlxr wb3yx2nxlxsyxr "
     "fsx696966e868868787 2d262422661422xhryxf tgyxx sxqxxq"},
    // Death.
    {{{"morchars.dat", rosterOf(false)}}, "sxfaxq"},
};

const std::vector<std::pair<Line, Arguments>> lines{
    {Line::pipe, {"-LOCAL"}},
    {Line::terminal, {"-LOCAL", "-GRAPHICS"}},
    {Line::socket, {"-HANDLE", std::to_string(handedSocket), "-GRAPHICS"}}};
constexpr std::array manners{0, SIGHUP, SIGTERM}; // 0: the line is cut

} // namespace

// Each prompt on every line, in another manner on each: three prompts see all nine.
TEST(HangUp, AtEveryPrompt) {
    const Stage stage;
    for (const Play& play : plays) {
        const std::vector<Files> states = stage.states(play);
        for (std::size_t typed = 0; typed < play.keys.size(); typed += MORVEK_STRIDE) {
            std::size_t turn = typed;
            for (const auto& [line, arguments] : lines) {
                const int manner = manners.at(turn++ % manners.size());
                SCOPED_TRACE(play.keys.substr(0, typed) + ", " + arguments.front() + ", signal " +
                             std::to_string(manner));
                stage.prepare(play.files);
                const bool controlling = typed / MORVEK_STRIDE % 2 == 0;
                Call call(stage.program("", arguments), line, controlling);
                ASSERT_TRUE(stage.waitsForKey(call, line));
                if (typed > 0) {
                    call.type(play.keys.substr(0, typed));
                    ASSERT_TRUE(stage.waitsForKey(call, line));
                }
                if (manner == 0) {
                    call.hangUp();
                } else {
                    kill(call.child, manner);
                }
                ASSERT_EQ(call.status(), 2);
                ASSERT_TRUE(stage.data() == states[typed]);
                ASSERT_TRUE(line != Line::terminal || manner == 0 || call.isRestored());
            }
        }
    }
}
