// What the operator's tool reads: the game's files, as a check looks at them.
#include "fuzz.h"
#include "text.h"

#include "sysop/check.h"

#include <array>
#include <sstream>

using namespace morvek;

namespace fuzz {
// The first byte says which file the others are; 5 is none.
extern const Target sysop = [](std::string_view input) {
    static constexpr std::array files{configurationFileName, "morchars.dat", "scroll.dat",
                                      "scores.dat", "111526.txt"};
    static constexpr std::array checks{checkConfiguration, checkCharacters, checkBoard, checkScores,
                                       checkNews};
    const unsigned kind = takeNumber(input) % 6;
    if (kind == files.size()) {
        return;
    }
    workFolder().write(files[kind], input);
    Findings findings;
    checks[kind](GameDirectory(".", "."), findings);
    for (const Finding& finding : findings) {
        require(std::none_of(finding.text.begin(), finding.text.end(), odoors::isControl));
    }
};

} // namespace fuzz
