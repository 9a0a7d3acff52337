#include "sysop/new_game.h"

#include "files/data_file.h"
#include "sysop/charset.h"
#include "sysop/failure.h"
#include "sysop/fields.h"
#include "sysop/game_directory.h"
#include "text/cp437.h"

#include <algorithm>
#include <map>
#include <sstream>
#include <vector>

namespace morvek {
namespace {

// Where the display files may lie: beside the program in the tree that it was installed into, in
// an archive that was unpacked, or where it was built to be installed.
fs::path findMenus(const NewGame& wanted) {
    std::vector<fs::path> places{wanted.menus};
    if (wanted.menus.empty()) {
        const fs::path program = fs::read_symlink("/proc/self/exe").parent_path();
        places = {program.parent_path() / "share/morvek/menus", program / "menus",
                  MORVEK_INSTALLED_MENUS};
    }
    const auto isWhole = [](const fs::path& place) {
        return std::all_of(menuNames.begin(), menuNames.end(), [&](const std::string& name) {
            return canRead((place / (name + ".asc")).string());
        });
    };
    const auto found = std::find_if(places.begin(), places.end(), isWhole);
    failIf(found == places.end(),
           wanted.menus.empty()
               ? "the display files are not installed; name their directory with --menus"
               : wanted.menus + ": some display files are missing");
    return *found;
}

std::string configurationOf(const NewGame& wanted) {
    const std::optional<std::string> board = text::toCp437(wanted.board);
    refuseIf(!board || holdsControls(*board),
             "the board's name has a character that is not in CP437");
    refuseIf(board->empty() || board->size() > longestConfigurationLine,
             "the board's name must be 1 to 253 characters long");
    return "Morvek\n" + *board + "\n.\n";
}

// The character file with one character who belongs to no caller.
std::string charactersWith(const std::string& keeper) {
    Characters characters = charactersIn("");
    PlayerRecord& slot = characters.front();
    for (const char* name : {"bbsName", "ownerName", "name"}) {
        setField(slot, name, keeper);
    }
    std::istringstream others(
        "className Fighter level 1 experienceNeeded 1000 maxHitPoints 18 hitPoints 18 strength 18 "
        "constitution 18 dexterity 18 intelligence 18 wisdom 18 charisma 18 weapon Fists armour "
        "T-Shirt turnsLeft 30 turnsPerDay 30 inUse 1");
    for (std::string name, value; others >> name >> value;) {
        setField(slot, name, value);
    }
    for (const Field& field : allFields()) {
        const auto fault = complaintAbout(field, slot, 0);
        refuseIf(fault.has_value(), "--keeper: the " + field.name + " " + fault.value_or(""));
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

} // namespace

void makeGame(const NewGame& wanted, std::ostream& out) {
    const fs::path directory = wanted.directory;
    failIf(fs::exists(directory) && (!fs::is_directory(directory) || !fs::is_empty(directory)),
           directory.string() + " already exists and is not empty");
    const std::map<std::string, std::string> files = filesOf(wanted);
    const fs::path created = createDirectories(directory);
    try {
        for (const auto& [name, content] : files) {
            const std::string path = (directory / name).string();
            failWith(replaceFile(path, content), path, "written");
        }
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
