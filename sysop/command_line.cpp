#include "sysop/command_line.h"

#include "sysop/backup.h"
#include "sysop/bulletins.h"
#include "sysop/check.h"
#include "sysop/edit.h"
#include "sysop/failure.h"
#include "sysop/fields.h"
#include "sysop/game_directory.h"
#include "sysop/new_game.h"
#include "sysop/players.h"

#include <CLI/CLI.hpp>
#include <functional>
#include <optional>
#include <utility>

namespace morvek {
namespace {

constexpr const char* statuses =
    "Status: 0 done; 1 failed, or `check` found something; 2 wrong usage.\n"
    "Help on a verb: morvek-sysop VERB --help";

// Everything that may be typed.
struct Arguments {
    std::string directory = ".";
    std::size_t number = 0;
    bool json = false;
    bool all = false;
    bool force = false;
    bool list = false;
    Format format = Format::text;
    std::string day;
    std::string file;
    Change change;
    NewGame wanted;
};

class CommandLine {
public:
    CommandLine(std::ostream& shown, std::ostream& complaints) : out(shown), err(complaints) {
        app.require_subcommand(0, 1);
        app.fallthrough();
        app.footer(statuses);
        app.set_version_flag("--version", MORVEK_VERSION);
        app.add_option("--game", given.directory,
                       "The game's directory, or the one that holds its morvek.cfg")
            ->type_name("DIR")
            ->capture_default_str();
        addInit();
        addReadingVerbs();
        addChangingVerbs();
        addBackupVerbs();
        addBulletins();
    }

    int run(const std::vector<std::string>& arguments) {
        try {
            app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
            return verb ? verb() : explain();
        } catch (const CLI::ParseError& error) {
            return app.exit(error, out, err) == 0 ? done : wrongUsage;
        } catch (const Misuse& error) {
            err << "morvek-sysop: " << error.what() << '\n';
            return wrongUsage;
        } catch (const std::exception& error) {
            err << "morvek-sysop: " << error.what() << '\n';
            return notDone;
        }
    }

private:
    std::ostream& out;
    std::ostream& err;
    Arguments given;
    std::function<int()> verb;
    CLI::App app{"Maintains the files of a game of Morvek.", "morvek-sysop"};

    // Without a verb there is nothing to do but to name them all.
    int explain() {
        err << app.help();
        return wrongUsage;
    }

    GameDirectory home() { return openGame(given.directory); }

    CLI::App* addVerb(const char* name, const char* purpose, std::function<void()> work) {
        CLI::App* added = app.add_subcommand(name, purpose);
        added->callback([this, work = std::move(work)] {
            verb = [work] {
                work();
                return done;
            };
        });
        return added;
    }

    CLI::Option* addNumber(CLI::App* to) {
        return to->add_option("N", given.number, "The player's number in the player list")
            ->check(CLI::Range(1, 50));
    }

    void addForce(CLI::App* to) {
        to->add_flag("--force", given.force, "Even while somebody is marked on-line");
    }

    void addInit() {
        CLI::App* init = addVerb("init", "Create a game directory that is ready to run",
                                 [this] { makeGame(given.wanted, out); });
        init->add_option("DIR", given.wanted.directory, "The directory, new or empty")->required();
        init->add_option("--board", given.wanted.board, "The board's name, as callers see it")
            ->type_name("NAME")
            ->required();
        init->add_option("--menus", given.wanted.menus,
                         "Where to copy the display files from (default: where they are installed)")
            ->type_name("DIR");
    }

    void addReadingVerbs() {
        CLI::App* players = addVerb("players", "List all characters",
                                    [this] { listPlayers(home(), given.json, out); });
        players->add_flag("--json", given.json, "As JSON");
        CLI::App* show = addVerb("show", "Show all fields of a character",
                                 [this] { showPlayer(home(), given.number, given.json, out); });
        addNumber(show)->required();
        show->add_flag("--json", given.json, "As JSON");
        app.add_subcommand("check", "Check every file of the game")
            ->footer("Status 1 when there is an error or a warning. An error is what the game "
                     "misreads\nor plays wrong with; a warning was not written by the game, but "
                     "does no harm.")
            ->callback(
                [this] { verb = [this] { return checkGame(home(), out) ? done : notDone; }; });
    }

    void addChangingVerbs() {
        CLI::App* set = addVerb("set", "Change a field of a character", [this] {
            given.change.number = given.number;
            refuseWhilePlayed(home(), given.force);
            setPlayer(home(), given.change, out);
        });
        addNumber(set)->required();
        set->add_option("FIELD", given.change.field,
                        "A field as `show` names it, or a flag of the world: searched.12, "
                        "cleared.12,\ncastle1.3, castle2.3, mortuary1.3, cavern1.3")
            ->required();
        set->add_option("VALUE", given.change.value,
                        "Its new value, within the range that the game can reach")
            ->required();
        addForce(set);
        CLI::App* remove = addVerb("remove", "Remove a character", [this] {
            refuseWhilePlayed(home(), given.force);
            removePlayer(home(), given.number, out);
        });
        addNumber(remove)->required();
        remove->footer("The last character of the file moves into the free slot.");
        addForce(remove);
        CLI::App* offline = addVerb("offline", "Clear the on-line mark that a dropped call left",
                                    [this] { clearMarks(); });
        CLI::Option* number = addNumber(offline);
        offline->add_flag("--all", given.all, "Of all characters")->excludes(number);
    }

    void clearMarks() {
        if (!given.all && given.number == 0) {
            throw Misuse("offline needs a player's number or --all");
        }
        markOffline(home(), given.all ? std::nullopt : std::optional(given.number), out);
    }

    void addBackupVerbs() {
        CLI::App* backup = addVerb("backup", "Back up the data files", [this] { backUpOrList(); });
        backup->add_option("DIRECTORY", given.file,
                           "The directory to make (default: one in backup/)");
        backup->add_flag("--list", given.list, "List the backups in backup/ instead");
        backup->footer("Backups in backup/ are named by date and time; the newest 50 are kept. "
                       "Every verb that\nchanges anything makes one first.");
        CLI::App* restore = addVerb("restore", "Restore the data files from a backup", [this] {
            refuseWhilePlayed(home(), given.force);
            restoreBackup(home(), given.file, out);
        });
        restore->add_option("DIRECTORY", given.file, "The backup, or its name in backup/")
            ->required();
        addForce(restore);
        CLI::App* reset = addVerb(
            "reset", "Start a new season: remove characters, board, scores and news", [this] {
                refuseWhilePlayed(home(), given.force);
                beginSeason(home(), out);
            });
        reset->footer("The display files and morvek.cfg stay.");
        addForce(reset);
    }

    void backUpOrList() {
        if (given.list) {
            listBackups(home(), out);
        } else {
            backUp(home(), out, given.file);
        }
    }

    void addFormats(CLI::App* to) {
        CLI::Option_group* formats = to->add_option_group("Format");
        formats->require_option(0, 1);
        addFormat(formats, "--text", Format::text, "Plain text, CP437 (default)");
        addFormat(formats, "--ansi", Format::ansi, "Coloured by ANSI sequences, CP437");
        addFormat(formats, "--html", Format::html, "A web page, UTF-8");
        addFormat(formats, "--json", Format::json, "JSON, UTF-8");
    }

    void addFormat(CLI::App* to, const char* flag, Format format, const char* meaning) {
        to->add_flag_callback(
            flag, [this, format] { given.format = format; }, meaning);
    }

    void addBulletins() {
        addFormats(addVerb("scores", "Write the ten best scores",
                           [this] { writeScores(home(), given.format, out); }));
        CLI::App* news = addVerb("news", "Write the news of a day", [this] {
            writeNews(home(), given.day.empty() ? localTime("%m%d%y") : given.day, given.format,
                      out);
        });
        news->add_option("--date", given.day, "The day (default: today)")
            ->type_name("MMDDYY")
            ->check([](const std::string& typed) {
                return sortableDay(typed).empty() ? typed + " is not a date (MMDDYY)"
                                                  : std::string();
            });
        addFormats(news);
        addFormats(addVerb("board", "Write the message board",
                           [this] { writeBoard(home(), given.format, out); }));
    }
};

} // namespace

int runSysop(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
    return CommandLine(out, err).run(arguments);
}

} // namespace morvek
