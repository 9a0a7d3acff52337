#include "files/configuration_file.h"

#include "files/data_file.h"
#include "state/game_state.h"

#include <algorithm>

namespace morvek {
namespace {

// No more can matter: three lines with their line feeds, or a line that is too long.
constexpr std::size_t maxBytesRead = configurationLines * (longestConfigurationLine + 1);

} // namespace

std::optional<Configuration> parseConfiguration(std::string_view text) {
    std::array<std::string_view, configurationLines> lines;
    for (std::string_view& line : lines) {
        line = text.substr(0, text.find('\n'));
        if (line.size() > longestConfigurationLine) {
            return std::nullopt;
        }
        text.remove_prefix(std::min(line.size() + 1, text.size()));
    }
    return Configuration{std::string(lines[1]), std::string(lines[2])};
}

bool readConfiguration() {
    std::array<char, maxBytesRead> buffer{};
    const std::size_t length = readInto(configurationFileName, buffer).value_or(0);
    const std::optional<Configuration> read = parseConfiguration({buffer.data(), length});
    if (read) {
        game.session.hostName = read->hostName;
        game.session.gameDirectory = read->gameDirectory;
    }
    return read.has_value();
}

} // namespace morvek
