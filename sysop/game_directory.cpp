#include "sysop/game_directory.h"

#include "files/data_file.h"
#include "files/score_file.h"
#include "files/scroll_file.h"
#include "state/roster.h"
#include "sysop/charset.h"
#include "sysop/failure.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <span>

namespace morvek {
namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 5> namedDataFiles{
    characterFileName, scrollFileName, scoreFileName, plainBulletinName, ansiBulletinName};

constexpr std::string_view newsEnding = ".txt";
constexpr std::size_t stampLength = 6;

bool isThere(const fs::path& path) {
    std::error_code ignored;
    return fs::exists(path, ignored);
}

bool isDirectory(const fs::path& path) {
    std::error_code ignored;
    return fs::is_directory(path, ignored);
}

bool holdsGame(const GameDirectory& home) {
    const bool menu = std::any_of(menuNames.begin(), menuNames.end(), [&](const auto& name) {
        return isThere(home.data / (name + ".asc")) || isThere(home.data / (name + ".ans"));
    });
    return menu || isThere(home.start / configurationFileName) || !dataFiles(home).empty();
}

int numberAt(std::string_view digits, std::size_t position) {
    return (digits[position] - '0') * 10 + (digits[position + 1] - '0');
}

std::span<char> bytesOf(Characters& characters) {
    return {reinterpret_cast<char*>(characters.data()), characters.size() * sizeof(PlayerRecord)};
}

} // namespace

const std::vector<std::string> menuNames{"intmenu", "clasmenu", "townmenu", "weapons",
                                         "armours", "command",  "heal",     "tavern",
                                         "drink",   "training", "areaone"};

GameDirectory openGame(const std::string& directory) {
    if (!isDirectory(directory)) {
        throw Failure(directory + ": not a directory");
    }
    GameDirectory home{directory, directory, {}};
    const std::string text =
        readWhole((home.start / configurationFileName).string()).value_or(std::string());
    home.configuration = parseConfiguration(text).value_or(Configuration{});
    const std::string& led = home.configuration.gameDirectory;
    if (!led.empty() && isDirectory(home.start / led)) {
        home.data = (home.start / led).lexically_normal();
    }
    if (!holdsGame(home)) {
        throw Failure(directory + ": no game found, neither " + configurationFileName +
                      " nor any file of a game; name its directory with --game");
    }
    return home;
}

std::string localTime(const char* format) {
    const std::time_t now = std::time(nullptr);
    std::array<char, 64> text{};
    if (const std::tm* local = std::localtime(&now)) {
        std::strftime(text.data(), text.size(), format, local);
    }
    return text.data();
}

bool isNewsFileName(std::string_view name) {
    return name.size() == stampLength + newsEnding.size() && name.ends_with(newsEnding) &&
           name.substr(0, stampLength).find_first_not_of("0123456789") == std::string_view::npos;
}

std::string sortableDay(std::string_view stamp) {
    if (stamp.size() != stampLength ||
        stamp.find_first_not_of("0123456789") != std::string_view::npos) {
        return {};
    }
    const int month = numberAt(stamp, 0);
    const int day = numberAt(stamp, 2);
    if (month < 1 || month > 12 || day < 1 || day > 31) {
        return {};
    }
    return std::string(stamp.substr(4)).append(stamp.substr(0, 4));
}

std::vector<std::string> dataFiles(const GameDirectory& home) {
    std::vector<std::string> names;
    std::error_code ignored;
    for (const fs::directory_entry& entry : fs::directory_iterator(home.data, ignored)) {
        const std::string name = entry.path().filename().string();
        if (isDataFileName(name)) {
            names.push_back(name);
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

bool isDataFileName(std::string_view name) {
    return isNewsFileName(name) ||
           std::find(namedDataFiles.begin(), namedDataFiles.end(), name) != namedDataFiles.end();
}

std::string readData(const GameDirectory& home, const std::string& name) {
    const std::optional<std::string> content = readWhole(home.file(name));
    if (!content && errno != ENOENT) {
        throw Failure(home.file(name) + " cannot be read: " + std::strerror(errno));
    }
    return content.value_or(std::string());
}

void writeData(const GameDirectory& home, const std::string& name, std::string_view content) {
    if (const int error = replaceFile(home.file(name), content)) {
        throw Failure(home.file(name) + " cannot be written: " + std::strerror(error));
    }
}

Characters readCharacters(const GameDirectory& home) {
    return charactersIn(readData(home, characterFileName));
}

Characters charactersIn(std::string_view content) {
    Characters characters(slotCount, emptySlot());
    const std::span<char> bytes = bytesOf(characters);
    std::copy_n(content.begin(), std::min(content.size(), bytes.size()), bytes.begin());
    return characters;
}

void writeCharacters(const GameDirectory& home, const Characters& characters) {
    writeData(home, characterFileName,
              {reinterpret_cast<const char*>(characters.data()),
               characters.size() * sizeof(PlayerRecord)});
}

bool isFree(const PlayerRecord& slot) { return slot.ownerName.view().empty(); }

std::string namesOnline(const Characters& characters) {
    std::string names;
    for (const PlayerRecord& slot : characters) {
        if (!isFree(slot) && slot.onlineFlag != 0) {
            names.append(names.empty() ? "" : ", ").append(toUtf8(slot.name.view()));
        }
    }
    return names;
}

} // namespace morvek
