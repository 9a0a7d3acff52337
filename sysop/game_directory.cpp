#include "sysop/game_directory.h"

#include "files/data_file.h"
#include "files/score_file.h"
#include "files/scroll_file.h"
#include "state/roster.h"
#include "sysop/failure.h"
#include "text/characters.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <ctime>
#include <iomanip>
#include <numeric>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

namespace morvek {
namespace {

constexpr std::array<std::string_view, 5> namedDataFiles{
    characterFileName, scrollFileName, scoreFileName, plainBulletinName, ansiBulletinName};

constexpr std::string_view newsEnding = ".txt";
constexpr std::size_t stampLength = 6;

const std::string emptyEntry(scrollEntrySize, '\0');

bool isStamp(std::string_view text) {
    return text.size() == stampLength && std::all_of(text.begin(), text.end(), text::isDigit);
}

bool holdsGame(const GameDirectory& home) {
    const bool menu = std::any_of(menuNames.begin(), menuNames.end(), [&](const auto& name) {
        return !(nameInAnyCase(home, name + ".asc") + nameInAnyCase(home, name + ".ans")).empty();
    });
    return menu || fs::exists(home.start / configurationFileName) || !dataFiles(home).empty();
}

} // namespace

const std::vector<std::string> menuNames{"intmenu", "clasmenu", "townmenu", "weapons",
                                         "armours", "command",  "heal",     "tavern",
                                         "drink",   "training", "areaone"};

GameDirectory openGame(const std::string& directory) {
    failIf(!fs::is_directory(directory), directory + ": not a directory");
    const std::string path = (fs::path(directory) / configurationFileName).string();
    const auto configuration =
        parseConfiguration(readWhole(path).value_or("")).value_or(Configuration{});
    fs::path data = directory;
    if (!configuration.gameDirectory.empty() &&
        fs::is_directory(data / configuration.gameDirectory)) {
        data = (data / configuration.gameDirectory).lexically_normal();
    }
    GameDirectory home(directory, data);
    home.configuration = configuration;
    failIf(!holdsGame(home), directory + ": no game found, neither " + configurationFileName +
                                 " nor any file of a game; name its directory with --game");
    return home;
}

std::vector<std::string> namesIn(const fs::path& directory) {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(directory)) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string nameInAnyCase(const GameDirectory& home, const std::string& name) {
    const std::vector<std::string> names = namesIn(home.data);
    const auto found = std::find_if(names.begin(), names.end(), [&](const std::string& one) {
        return text::sameLetters(one, name);
    });
    return found == names.end() ? std::string() : *found;
}

fs::path createDirectories(const fs::path& path) {
    const fs::path above = path.has_parent_path() ? path.parent_path() : fs::path(".");
    if (fs::is_directory(path)) {
        return {};
    }
    const fs::path created = path.has_parent_path() ? createDirectories(above) : fs::path();
    struct stat owner {};
    const bool isCreated =
        ::mkdir(path.c_str(), 0777) == 0 && ::stat(above.c_str(), &owner) == 0 &&
        (::geteuid() != 0 || ::chown(path.c_str(), owner.st_uid, owner.st_gid) == 0);
    failWith(isCreated ? 0 : errno, path.string(), "created");
    return created.empty() ? path : created;
}

std::string localTime(const char* format) {
    const std::time_t now = std::time(nullptr);
    std::ostringstream text;
    text << std::put_time(std::localtime(&now), format);
    return text.str();
}

bool isNewsFileName(std::string_view name) {
    return name.ends_with(newsEnding) && isStamp(name.substr(0, name.size() - newsEnding.size()));
}

std::string dayOf(std::string_view stamp) {
    if (!isStamp(stamp)) {
        return {};
    }
    const auto number = [&](std::size_t at) {
        return (stamp[at] - '0') * 10 + stamp[at + 1] - '0';
    };
    const std::chrono::year_month_day day{std::chrono::year(2000 + number(4)),
                                          std::chrono::month(static_cast<unsigned>(number(0))),
                                          std::chrono::day(static_cast<unsigned>(number(2)))};
    const std::string text(stamp);
    return day.ok() ? "20" + text.substr(4) + "-" + text.substr(0, 2) + "-" + text.substr(2, 2)
                    : "";
}

std::string dayOf(std::int32_t stamp) {
    return dayOf(std::to_string(std::int64_t{1000000} + stamp).substr(1));
}

std::vector<std::string> dataFiles(const GameDirectory& home) {
    std::vector<std::string> names = namesIn(home.data);
    std::erase_if(names, [](const std::string& name) { return !isDataFileName(name); });
    return names;
}

bool isDataFileName(std::string_view name) {
    return isNewsFileName(name) ||
           std::find(namedDataFiles.begin(), namedDataFiles.end(), name) != namedDataFiles.end();
}

std::string readData(const GameDirectory& home, const std::string& name) {
    const std::optional<std::string> content = readWhole(home.file(name));
    failWith(content || errno == ENOENT ? 0 : errno, home.file(name), "read");
    return content.value_or(std::string());
}

std::string readBoard(const GameDirectory& home) {
    std::string now = readData(home, scrollFileName);
    const std::string taken =
        home.lock->isBoardTaken() ? readData(home, oldScrollFileName) : std::string();
    if (taken.empty()) {
        return now;
    }
    std::vector<std::string> entries = boardEntries(taken);
    const std::vector<std::string> confirmed = boardEntries(now);
    entries.insert(entries.end(), confirmed.begin(), confirmed.end());
    std::erase(entries, emptyEntry);
    entries.insert(entries.begin(), std::tuple_size_v<Scroll>, emptyEntry);
    return std::accumulate(entries.end() - std::tuple_size_v<Scroll>, entries.end(), std::string());
}

std::vector<std::string> boardEntries(const std::string& content) {
    std::string whole = content;
    whole.resize(scrollSize);
    std::vector<std::string> entries;
    for (std::size_t at = 0; at < scrollSize; at += scrollEntrySize) {
        entries.push_back(whole.substr(at, scrollEntrySize));
    }
    return entries;
}

ScrollEntry textsOf(const std::string& entry) {
    Scroll board;
    overlayScroll(entry, board);
    return board.front();
}

Characters readCharacters(const GameDirectory& home) {
    return charactersIn(readData(home, characterFileName));
}

Characters charactersIn(std::string_view content) {
    Characters characters(slotCount, emptySlot());
    content.copy(reinterpret_cast<char*>(characters.data()), slotCount * sizeof(PlayerRecord));
    return characters;
}

std::string bytesOf(const Characters& characters) {
    return {reinterpret_cast<const char*>(characters.data()),
            characters.size() * sizeof(PlayerRecord)};
}

bool isFree(const PlayerRecord& slot) { return slot.ownerName.view().empty(); }

std::size_t takenPlaces(const Characters& characters) {
    const auto end = characters.begin() + searchedSlots;
    return searchedSlots - static_cast<std::size_t>(std::count_if(characters.begin(), end, isFree));
}

} // namespace morvek
