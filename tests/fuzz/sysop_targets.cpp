// What the operator's tool reads: the game's files, as a check looks at them, and backups.
#include "fuzz.h"
#include "text.h"

#include "sysop/check.h"
#include "sysop/tar_file.h"

#include <array>
#include <sstream>

using namespace morvek;

namespace fuzz {
namespace {

void readArchive(std::string_view bytes) {
    const auto files = readTar(bytes);
    std::size_t size = 0;
    for (const ArchivedFile& file : files.value_or(std::vector<ArchivedFile>())) {
        size += file.content.size();
    }
    require(size <= bytes.size());
    if (files) {
        require(readTar(tarOf(*files, 0)).has_value());
    }
}

} // namespace

// The first byte says which file the others are; 5 is a backup.
extern const Target sysop = [](std::string_view input) {
    static constexpr std::array files{configurationFileName, "morchars.dat", "scroll.dat",
                                      "scores.dat", "111526.txt"};
    static constexpr std::array checks{checkConfiguration, checkCharacters, checkBoard, checkScores,
                                       checkNews};
    const unsigned kind = takeNumber(input) % 6;
    if (kind == files.size()) {
        readArchive(input);
        return;
    }
    workFolder().write(files[kind], input);
    Findings findings;
    checks[kind]({".", ".", {}}, findings);
    for (const Finding& finding : findings) {
        require(std::none_of(finding.text.begin(), finding.text.end(), odoors::isControl));
    }
};

} // namespace fuzz
