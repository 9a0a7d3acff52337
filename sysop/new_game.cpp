#include "sysop/new_game.h"

#include "files/data_file.h"
#include "sysop/charset.h"
#include "sysop/failure.h"
#include "sysop/fields.h"
#include "sysop/game_directory.h"
#include "text/cp437.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <vector>

namespace morvek {
namespace {

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

// The character file with one character who belongs to no caller.
std::string charactersWith(const std::string& keeper) {
    Characters characters = charactersIn("");
    PlayerRecord& slot = characters.front();
    for (const char* name : {"bbsName", "ownerName", "name"}) {
        setField(slot, name, keeper);
    }
    for (const char* name : {"strength", "constitution", "dexterity", "intelligence", "wisdom",
                             "charisma", "maxHitPoints", "hitPoints"}) {
        setField(slot, name, "18");
    }
    for (const char* name : {"turnsLeft", "turnsPerDay"}) {
        setField(slot, name, "30");
    }
    setField(slot, "className", "Fighter");
    setField(slot, "level", "1");
    setField(slot, "experienceNeeded", "1000");
    setField(slot, "weaponNumber", "0");
    setField(slot, "armourNumber", "0");
    setField(slot, "inUse", "1");
    for (const Field& field : recordFields()) {
        if (const auto fault = complaintAbout(field, slot, 0)) {
            throw Misuse("--keeper: the " + field.name + " " + *fault);
        }
    }
    return bytesOf(characters);
}

// All files of the new game.
std::map<std::string, std::string> filesOf(const NewGame& wanted) {
    std::map<std::string, std::string> files{{configurationFileName, configurationOf(wanted)}};
    if (!wanted.keeper.empty()) {
        files[characterFileName] = charactersWith(wanted.keeper);
    }
    const fs::path menus = findMenus(wanted);
    for (const std::string& name : menuNames) {
        for (const std::string& file : {name + ".asc", name + ".ans"}) {
            if (const auto content = readWhole((menus / file).string())) {
                files[file] = *content;
            }
        }
    }
    return files;
}

void writeFiles(const fs::path& directory, const std::map<std::string, std::string>& files) {
    for (const auto& [name, content] : files) {
        const std::string path = (directory / name).string();
        if (const int error = replaceFile(path, content)) {
            throw cannot(path, "written", error);
        }
    }
}

} // namespace

void makeGame(const NewGame& wanted, std::ostream& out) {
    const fs::path directory = wanted.directory;
    refuseWhatIsThere(directory);
    const std::map<std::string, std::string> files = filesOf(wanted);
    const fs::path created = createDirectories(directory);
    try {
        writeFiles(directory, files);
    } catch (...) {
        for (const auto& [name, content] : files) {
            fs::remove(directory / name);
        }
        fs::remove_all(created);
        throw;
    }
    out << directory.string() << " is ready: " << counted(files.size(), "file")
        << ". Start the game in this directory, with the caller's drop file.\n";
}

} // namespace morvek
