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
    CommandLine(std::ostream& out, std::ostream& err) : out_(out), err_(err) {
        app_.require_subcommand(0, 1);
        app_.fallthrough();
        app_.footer(statuses);
        app_.set_version_flag("--version", MORVEK_VERSION);
        app_.add_option("--game", given_.directory,
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
            app_.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
            return verb_ ? verb_() : explain();
        } catch (const CLI::ParseError& error) {
            return app_.exit(error, out_, err_) == 0 ? done : wrongUsage;
        } catch (const Misuse& error) {
            err_ << "morvek-sysop: " << error.what() << '\n';
            return wrongUsage;
        } catch (const std::exception& error) {
            err_ << "morvek-sysop: " << error.what() << '\n';
            return notDone;
        }
    }

private:
    std::ostream& out_;
    std::ostream& err_;
    Arguments given_;
    std::function<int()> verb_;
    CLI::App app_{"Maintains the files of a game of Morvek.", "morvek-sysop"};

    // Without a verb there is nothing to do but to name them all.
    int explain() {
        err_ << app_.help();
        return wrongUsage;
    }

    GameDirectory home() { return openGame(given_.directory); }

    CLI::App* addVerb(const char* name, const char* purpose, std::function<void()> work) {
        CLI::App* added = app_.add_subcommand(name, purpose);
        added->callback([this, work = std::move(work)] {
            verb_ = [work] {
                work();
                return done;
            };
        });
        return added;
    }

    CLI::Option* addNumber(CLI::App* to) {
        return to->add_option("N", given_.number, "The player's number in the player list")
            ->check(CLI::Range(1, 50));
    }

    void addForce(CLI::App* to) {
        to->add_flag("--force", given_.force, "Even while somebody is marked on-line");
    }

    void addInit() {
        CLI::App* init = addVerb("init", "Create a game directory that is ready to run",
                                 [this] { makeGame(given_.wanted, out_); });
        init->add_option("DIR", given_.wanted.directory, "The directory, new or empty")->required();
        init->add_option("--board", given_.wanted.board, "The board's name, as callers see it")
            ->type_name("NAME")
            ->required();
        init->add_option("--menus", given_.wanted.menus,
                         "Where to copy the display files from (default: where they are installed)")
            ->type_name("DIR");
    }

    void addReadingVerbs() {
        CLI::App* players = addVerb("players", "List all characters",
                                    [this] { listPlayers(home(), given_.json, out_); });
        players->add_flag("--json", given_.json, "As JSON");
        CLI::App* show = addVerb("show", "Show all fields of a character",
                                 [this] { showPlayer(home(), given_.number, given_.json, out_); });
        addNumber(show)->required();
        show->add_flag("--json", given_.json, "As JSON");
        app_.add_subcommand("check", "Check every file of the game")
            ->footer("Status 1 when there is an error or a warning. An error is what the game "
                     "misreads\nor plays wrong with; a warning was not written by the game, but "
                     "does no harm.")
            ->callback(
                [this] { verb_ = [this] { return checkGame(home(), out_) ? done : notDone; }; });
    }

    void addChangingVerbs() {
        CLI::App* set = addVerb("set", "Change a field of a character", [this] {
            given_.change.number = given_.number;
            refuseWhilePlayed(home(), given_.force);
            setPlayer(home(), given_.change, out_);
        });
        addNumber(set)->required();
        set->add_option("FIELD", given_.change.field,
                        "A field as `show` names it, or a flag of the world: searched.12, "
                        "cleared.12,\ncastle1.3, castle2.3, mortuary1.3, cavern1.3")
            ->required();
        set->add_option("VALUE", given_.change.value,
                        "Its new value, within the range that the game can reach")
            ->required();
        addForce(set);
        CLI::App* remove = addVerb("remove", "Remove a character", [this] {
            refuseWhilePlayed(home(), given_.force);
            removePlayer(home(), given_.number, out_);
        });
        addNumber(remove)->required();
        remove->footer("The last character of the file moves into the free slot.");
        addForce(remove);
        CLI::App* offline = addVerb("offline", "Clear the on-line mark that a dropped call left",
                                    [this] { clearMarks(); });
        CLI::Option* number = addNumber(offline);
        offline->add_flag("--all", given_.all, "Of all characters")->excludes(number);
    }

    void clearMarks() {
        if (!given_.all && given_.number == 0) {
            throw Misuse("offline needs a player's number or --all");
        }
        markOffline(home(), given_.all ? std::nullopt : std::optional(given_.number), out_);
    }

    void addBackupVerbs() {
        CLI::App* backup = addVerb("backup", "Back up the data files", [this] { backUpOrList(); });
        backup->add_option("DIRECTORY", given_.file,
                           "The directory to make (default: one in backup/)");
        backup->add_flag("--list", given_.list, "List the backups in backup/ instead");
        backup->footer("Backups in backup/ are named by date and time; the newest 50 are kept. "
                       "Every verb that\nchanges anything makes one first.");
        CLI::App* restore = addVerb("restore", "Restore the data files from a backup", [this] {
            refuseWhilePlayed(home(), given_.force);
            restoreBackup(home(), given_.file, out_);
        });
        restore->add_option("DIRECTORY", given_.file, "The backup, or its name in backup/")
            ->required();
        addForce(restore);
        CLI::App* reset = addVerb(
            "reset", "Start a new season: remove characters, board, scores and news", [this] {
                refuseWhilePlayed(home(), given_.force);
                beginSeason(home(), out_);
            });
        reset->footer("The display files and morvek.cfg stay.");
        addForce(reset);
    }

    void backUpOrList() {
        if (given_.list) {
            listBackups(home(), out_);
        } else {
            backUp(home(), out_, given_.file);
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
            flag, [this, format] { given_.format = format; }, meaning);
    }

    void addBulletins() {
        addFormats(addVerb("scores", "Write the ten best scores",
                           [this] { writeScores(home(), given_.format, out_); }));
        CLI::App* news = addVerb("news", "Write the news of a day", [this] {
            writeNews(home(), given_.day.empty() ? localTime("%m%d%y") : given_.day, given_.format,
                      out_);
        });
        news->add_option("--date", given_.day, "The day (default: today)")
            ->type_name("MMDDYY")
            ->check([](const std::string& typed) {
                return sortableDay(typed).empty() ? typed + " is not a date (MMDDYY)"
                                                  : std::string();
            });
        addFormats(news);
        addFormats(addVerb("board", "Write the message board",
                           [this] { writeBoard(home(), given_.format, out_); }));
    }
};

} // namespace

int runSysop(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
    return CommandLine(out, err).run(arguments);
}

} // namespace morvek
