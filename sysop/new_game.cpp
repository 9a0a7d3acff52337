#include "sysop/new_game.h"

#include "files/data_file.h"
#include "sysop/charset.h"
#include "sysop/failure.h"
#include "sysop/game_directory.h"
#include "text/cp437.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <vector>

namespace morvek {
namespace {

namespace fs = std::filesystem;

// Where the display files may lie: beside the program in the tree that it was installed into, in
// an archive that was unpacked, or where it was built to be installed.
std::vector<fs::path> menuPlaces(const NewGame& wanted) {
    if (!wanted.menus.empty()) {
        return {wanted.menus};
    }
    std::error_code ignored;
    const fs::path program = fs::read_symlink("/proc/self/exe", ignored).parent_path();
    return {program.parent_path() / "share/morvek/menus", program / "menus",
            MORVEK_INSTALLED_MENUS};
}

bool holdsMenus(const fs::path& place) {
    return std::all_of(menuNames.begin(), menuNames.end(), [&](const std::string& name) {
        return canRead((place / (name + ".asc")).string());
    });
}

fs::path findMenus(const NewGame& wanted) {
    const std::vector<fs::path> places = menuPlaces(wanted);
    const auto found = std::find_if(places.begin(), places.end(), holdsMenus);
    if (found != places.end()) {
        return *found;
    }
    throw Failure(wanted.menus.empty()
                      ? "the display files are not installed; name their directory with --menus"
                      : wanted.menus + ": some display files are missing");
}

std::string configurationOf(const NewGame& wanted) {
    const std::optional<std::string> board = text::toCp437(wanted.board);
    if (!board || std::any_of(board->begin(), board->end(), isControl)) {
        throw Misuse("the board's name has a character that is not in CP437");
    }
    if (board->empty() || board->size() > longestConfigurationLine) {
        throw Misuse("the board's name must be 1 to 253 characters long");
    }
    return "Morvek\n" + *board + "\n.\n";
}

void refuseWhatIsThere(const fs::path& directory) {
    std::error_code ignored;
    if (fs::exists(directory, ignored) &&
        (!fs::is_directory(directory, ignored) || !fs::is_empty(directory, ignored))) {
        throw Failure(directory.string() + " already exists and is not empty");
    }
}

void write(const fs::path& path, const std::string& content) {
    if (const int error = replaceFile(path.string(), content)) {
        throw Failure(path.string() + " cannot be written: " + std::strerror(error));
    }
}

} // namespace

void makeGame(const NewGame& wanted, std::ostream& out) {
    const fs::path directory = wanted.directory;
    const std::string configuration = configurationOf(wanted);
    refuseWhatIsThere(directory);
    const fs::path menus = findMenus(wanted);
    std::error_code failed;
    fs::create_directories(directory, failed);
    if (failed) {
        throw Failure(directory.string() + " cannot be created: " + failed.message());
    }
    std::size_t copied = 0;
    for (const std::string& name : menuNames) {
        for (const char* ending : {".asc", ".ans"}) {
            if (const auto content = readWhole((menus / (name + ending)).string())) {
                write(directory / (name + ending), *content);
                ++copied;
            }
        }
    }
    write(directory / configurationFileName, configuration);
    out << directory.string() << " is ready: " << configurationFileName << " and " << copied
        << " display files. Start the game in this directory, with the caller's drop file.\n";
}

} // namespace morvek
