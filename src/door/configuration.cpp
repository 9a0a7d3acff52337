#include "door/configuration.h"

#include "files/data_file.h"
#include "state/game_state.h"

#include <algorithm>
#include <array>

namespace morvek {
namespace {

constexpr std::size_t lineCount = 3;
constexpr std::size_t longestLine = 253;

// No more can matter: three lines with their line feeds, or a line that is too long.
constexpr std::size_t mostBytesRead = lineCount * (longestLine + 1);

} // namespace

bool readConfiguration() {
    std::array<char, mostBytesRead> buffer{};
    const std::size_t length = readInto(configurationFileName, buffer).value_or(0);
    std::string_view rest(buffer.data(), length);
    std::array<std::string_view, lineCount> lines;
    for (std::string_view& line : lines) {
        line = rest.substr(0, rest.find('\n'));
        if (line.size() > longestLine) {
            return false;
        }
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    }
    game.session.hostName = lines[1];
    game.session.gameDirectory = lines[2];
    return true;
}

} // namespace morvek
