#include "door/configuration.h"

#include "files/configuration_file.h"
#include "files/data_file.h"
#include "state/game_state.h"

#include <array>
#include <optional>

namespace morvek {
namespace {

// No more can matter: three lines with their line feeds, or a line that is too long.
constexpr std::size_t mostBytesRead = configurationLines * (longestConfigurationLine + 1);

} // namespace

bool readConfiguration() {
    std::array<char, mostBytesRead> buffer{};
    const std::size_t length = readInto(configurationFileName, buffer).value_or(0);
    const std::optional<Configuration> read = parseConfiguration({buffer.data(), length});
    if (!read) {
        return false;
    }
    game.session.hostName = read->hostName;
    game.session.gameDirectory = read->gameDirectory;
    return true;
}

} // namespace morvek
