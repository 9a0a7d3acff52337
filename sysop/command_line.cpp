#include "sysop/command_line.h"

#include "sysop/bulletins.h"
#include "sysop/change.h"
#include "sysop/charset.h"
#include "sysop/check.h"
#include "sysop/edit.h"
#include "sysop/failure.h"
#include "sysop/fields.h"
#include "sysop/new_game.h"
#include "sysop/players.h"

#include <CLI/CLI.hpp>
#include <cerrno>
#include <functional>
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
    bool traces = false;
    bool dryRun = false;
    std::vector<Format> formats;
    std::string day;
    std::string file;
    std::vector<std::string> pairs;
    NewGame wanted;
};

// The stamp of a day that was typed as MMDDYY or as 2026-11-15; empty when it is none.
std::string stampOf(const std::string& typed) {
    const bool isLong = typed.size() == 10;
    const std::string stamp =
        isLong ? typed.substr(5, 2) + typed.substr(8) + typed.substr(2, 2) : typed;
    const std::string day = dayOf(stamp);
    return day.empty() || (isLong && day != typed) ? std::string() : stamp;
}

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
        int status = done;
        try {
            app_.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
            status = verb_ ? verb_() : explain();
        } catch (const CLI::Success& asked) {
            app_.exit(asked, out_, err_);
        } catch (const CLI::ParseError& error) {
            status = end(wrongUsage, error.what());
        } catch (const Misuse& error) {
            status = end(wrongUsage, error.what());
        } catch (const std::exception& error) {
            status = end(notDone, reasonOf(error));
        }
        if (!out_.flush()) {
            status = end(notDone, cannot("standard output", "written", errno).what());
        }
        return status;
    }

private:
    std::ostream& out_;
    std::ostream& err_;
    CLI::App app_{"Looks after the files of a game of Morvek.", "morvek-sysop"};
    Arguments given_;
    std::function<int()> verb_;

    int end(int status, const std::string& line) {
        err_ << "morvek-sysop: " << withoutControls(line) << '\n';
        return status;
    }

    int explain() {
        err_ << app_.help();
        return wrongUsage;
    }

    GameDirectory home() const { return openGame(given_.directory); }

    // A verb whose work is done unless it throws.
    CLI::App* addVerb(const std::string& name, const std::string& meaning,
                      std::function<void()> work) {
        CLI::App* added = app_.add_subcommand(name, meaning);
        added->callback([this, work = std::move(work)] {
            verb_ = [work] {
                work();
                return done;
            };
        });
        return added;
    }

    CLI::Option* addNumber(CLI::App* to, const std::string& option, std::size_t most,
                           const std::string& meaning) {
        return to
            ->add_option_function<std::string>(
                option,
                [this, most](const std::string& typed) {
                    const auto number = wholeNumber(typed);
                    if (!number || *number < 1 || *number > static_cast<std::int64_t>(most)) {
                        throw Misuse("\"" + typed + "\" is not a number from 1 to " +
                                     std::to_string(most));
                    }
                    given_.number = static_cast<std::size_t>(*number);
                },
                meaning)
            ->type_name("N");
    }

    CLI::Option* addPlayer(CLI::App* to) {
        return addNumber(to, "N", 50, "The player's number in the player list");
    }

    void addForce(CLI::App* to) {
        to->add_flag("--force", given_.force, "Even while the player is in the game");
    }

    void addJson(CLI::App* to) { to->add_flag("--json", given_.json, "As JSON"); }

    CLI::Option* addDay(CLI::App* to, const std::string& option, const std::string& meaning) {
        return to
            ->add_option_function<std::string>(
                option,
                [this](const std::string& typed) {
                    given_.day = stampOf(typed);
                    if (given_.day.empty()) {
                        throw Misuse("\"" + typed + "\" is not a day (MMDDYY or YYYY-MM-DD)");
                    }
                },
                meaning)
            ->type_name("DAY");
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
        init->add_option("--keeper", given_.wanted.keeper,
                         "Player 1, whom robbers overwrite: a name that no caller has")
            ->type_name("NAME");
    }

    void addReadingVerbs() {
        addJson(addVerb("players", "List all characters",
                        [this] { listPlayers(home(), given_.json, out_); }));
        CLI::App* show = addVerb("show", "Show all fields of a character",
                                 [this] { showPlayer(home(), given_.number, given_.json, out_); });
        addPlayer(show)->required();
        addJson(show);
        CLI::App* check = app_.add_subcommand("check", "Check every file of the game");
        check->footer("Status 1 when there is an error or a warning. An error is what the game "
                      "misreads\nor plays wrong with; a warning was not written by the game, but "
                      "does no harm.");
        check->callback([this] {
            verb_ = [this] { return checkGame(home(), given_.json, out_) ? done : notDone; };
        });
        addJson(check);
    }

    void addChangingVerbs() {
        CLI::App* set = addVerb("set", "Change fields of a character", [this] {
            if (given_.pairs.size() % 2 != 0) {
                throw Misuse(given_.pairs.back() + ": a value is missing");
            }
            setPlayer(home(), given_.number, given_.pairs, given_.force, out_);
        });
        addPlayer(set)->required();
        set->add_option("FIELD VALUE", given_.pairs,
                        "A field as `show` names it, or a flag of the world: searched.12, "
                        "cleared.12,\ncastle1.3, castle2.3, mortuary1.3, cavern1.3; and its new "
                        "value, within\nthe range that the game can reach")
            ->required();
        addForce(set);
        CLI::App* remove = addVerb("remove", "Remove a character", [this] {
            removePlayer(home(), given_.number, given_.traces, given_.force, out_);
        });
        addPlayer(remove)->required();
        remove->add_flag("--traces", given_.traces,
                         "Also his messages, his scores and his lines in the news");
        remove->footer("The last character of the file moves into the free slot.");
        addForce(remove);
        CLI::App* purged = addVerb("purge", "Remove what is old", [this] {
            purge(home(), dayOf(given_.day), given_.dryRun, out_);
        });
        addDay(purged, "--before",
               "Remove the characters that nobody has played since, and older news")
            ->required();
        purged->add_flag("--dry-run", given_.dryRun, "Only say what would go");
        purged->footer("Player 1 stays.");
        CLI::App* offline = addVerb("offline", "Clear the on-line mark that a dropped call left",
                                    [this] { clearMarks(); });
        CLI::Option* number = addPlayer(offline);
        offline->add_flag("--all", given_.all, "Of all who are not in the game")->excludes(number);
    }

    void clearMarks() {
        if (!given_.all && given_.number == 0) {
            throw Misuse("offline needs a player's number or --all");
        }
        markOffline(home(), given_.number, out_);
    }

    void addBackupVerbs() {
        CLI::App* backup = addVerb("backup", "Back up the data files", [this] { backUpOrList(); });
        backup->add_option("DIRECTORY", given_.file,
                           "The directory to make (default: one in backup/)");
        CLI::Option* list =
            backup->add_flag("--list", given_.list, "List the backups in backup/ instead");
        backup->add_flag("--json", given_.json, "The list as JSON")->needs(list);
        backup->footer("Backups in backup/ are named by date and time; the newest 50 are kept. "
                       "Every verb that\nchanges anything makes one in backup/auto/ first, where "
                       "the newest 50 are kept too.");
        CLI::App* restore = addVerb("restore", "Restore the data files from a backup", [this] {
            restoreBackup(home(), given_.file, given_.force, out_);
        });
        restore->add_option("DIRECTORY", given_.file, "The backup, or its name in backup/")
            ->required();
        addForce(restore);
        CLI::App* reset =
            addVerb("reset", "Start a new season: remove characters, board, scores and news",
                    [this] { beginSeason(home(), given_.force, out_); });
        reset->footer("The display files and morvek.cfg stay.");
        addForce(reset);
    }

    void backUpOrList() {
        const GameDirectory game = home();
        if (given_.list) {
            listBackups(game, given_.json, out_);
            return;
        }
        const Change change(game);
        const fs::path made =
            given_.file.empty() ? makeBackup(game, ownBackups) : makeBackupIn(game, given_.file);
        out_ << "Backup: " << made.string() << '\n';
    }

    void addFormats(CLI::App* to) {
        const auto add = [&](const char* flag, Format format, const char* meaning) {
            to->add_flag_callback(
                flag, [this, format] { given_.formats.push_back(format); }, meaning);
        };
        add("--text", Format::text, "Plain text, CP437 (default)");
        add("--ansi", Format::ansi, "Coloured by ANSI sequences, CP437");
        add("--html", Format::html, "A web page, UTF-8");
        add("--json", Format::json, "JSON, UTF-8");
    }

    Format format() const {
        if (given_.formats.size() > 1) {
            throw Misuse("choose one of --text, --ansi, --html and --json");
        }
        return given_.formats.empty() ? Format::text : given_.formats.front();
    }

    void addBulletins() {
        CLI::App* scores = addVerb("scores", "Write the ten best scores", [this] {
            if (given_.number > 0) {
                removeScore(home(), given_.number, out_);
            } else {
                writeScores(home(), format(), out_);
            }
        });
        addFormats(scores);
        addNumber(scores, "--remove", 10, "Remove this line instead, from the bulletins too");
        CLI::App* news = addVerb("news", "Write the news of a day", [this] {
            writeNews(home(), given_.day.empty() ? localTime("%m%d%y") : given_.day, format(),
                      out_);
        });
        addDay(news, "--date", "The day (default: today)");
        addFormats(news);
        CLI::App* board = addVerb("board", "Write the message board", [this] {
            if (given_.number > 0) {
                removeMessage(home(), given_.number, out_);
            } else {
                writeBoard(home(), format(), out_);
            }
        });
        addFormats(board);
        addNumber(board, "--remove", 10, "Remove this message instead, counted from the top");
    }
};

} // namespace

int runSysop(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
    return CommandLine(out, err).run(arguments);
}

} // namespace morvek
