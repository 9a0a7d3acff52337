#include "files/configuration_file.h"

#include <algorithm>

namespace morvek {

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

} // namespace morvek
