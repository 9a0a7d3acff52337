#include "sysop/command_line.h"

#include "sysop/backup.h"
#include "sysop/bulletins.h"
#include "sysop/check.h"
#include "sysop/edit.h"
#include "sysop/failure.h"
#include "sysop/fields.h"
#include "sysop/new_game.h"
#include "sysop/players.h"

#include <CLI/CLI.hpp>
#include <cerrno>
#include <functional>
#include <map>

namespace morvek {
namespace {

enum Status { done, notDone, wrongUsage };

// By their names, the type of their values (empty for a flag) and their meanings.
const std::map<std::string, std::pair<std::string, std::string>> options{
    {"--game", {"DIR", "The game's directory, or the one with its morvek.cfg (default: .)"}},
    {"DIR", {"DIR", "The directory, new or empty"}},
    {"--board", {"NAME", "The board's name, as callers see it"}},
    {"--menus", {"DIR", "Where to copy the display files from (default: the installed ones)"}},
    {"--keeper", {"NAME", "Player 1, whom robbers overwrite: a name that no caller has"}},
    {"N", {"N", "The player's number in the player list"}},
    {"--force", {"", "Even while players are in the game"}},
    {"--traces", {"", "Also the player's messages, scores and lines in the news"}},
    {"--before", {"DAY", "Remove who has not played since that day, and older news"}},
    {"--dry-run", {"", "Only say what would go"}},
    {"--all", {"", "Of all who are not in the game"}},
    {"DIRECTORY", {"DIR", "The directory to make (default: one in backup/)"}},
    {"BACKUP", {"DIR", "The backup, or its name in backup/ or backup/auto/"}},
    {"--list", {"", "List the backups instead"}},
    {"--date", {"DAY", "The day (default: today)"}},
    {"--remove", {"N", "Remove that line instead, counted from the top"}},
    {"--text", {"", "Plain text, CP437 (default)"}},
    {"--ansi", {"", "Coloured by ANSI sequences, CP437"}},
    {"--html", {"", "A web page, UTF-8"}},
    {"--json", {"", "JSON, UTF-8"}},
};

const std::vector<std::string> formats{"--text", "--ansi", "--html", "--json"};

class CommandLine {
public:
    CommandLine(std::ostream& out, std::ostream& err) : out_(out), err_(err) {
        app_.require_subcommand(0, 1)->fallthrough()->footer(
            "Status: 0 done; 1 failed, or `check` found something; 2 wrong usage.\n"
            "Help on a verb: morvek-sysop VERB --help");
        app_.set_version_flag("--version", MORVEK_VERSION);
        addOption(app_, "--game");
        addVerbs();
        addBulletins();
    }

    int run(const std::vector<std::string>& arguments) {
        try {
            app_.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
            if (app_.get_subcommands().empty()) {
                status_ = wrongUsage;
                err_ << app_.help();
            }
        } catch (const CLI::Success& asked) {
            app_.exit(asked, out_, err_);
        } catch (const CLI::ArgumentMismatch& error) {
            const std::string text = error.what();
            fail(wrongUsage, text.substr(0, text.find(':')) + ": a value is missing");
        } catch (const CLI::ParseError& error) {
            fail(wrongUsage, error.what());
        } catch (const Misuse& error) {
            fail(wrongUsage, error.what());
        } catch (const std::exception& error) {
            fail(notDone, reasonOf(error));
        }
        if (!out_.flush()) {
            fail(notDone,
                 std::string("standard output cannot be written: ") + std::strerror(errno));
        }
        return status_;
    }

private:
    std::ostream& out_;
    std::ostream& err_;
    CLI::App app_{"Looks after the files of a game of Morvek.", "morvek-sysop"};
    int status_ = done;
    std::map<std::string, std::string> given_; // by the options' names
    std::vector<std::string> pairs_;           // of a field and its value

    void fail(int status, const std::string& line) {
        status_ = status;
        err_ << "morvek-sysop: " << withoutControls(line) << '\n';
    }

    // A name that ends in "!" is that of an option that must be given.
    void addOption(CLI::App& to, std::string name) {
        const bool isRequired = name.ends_with('!');
        name.resize(name.size() - (isRequired ? 1 : 0));
        const auto& [type, meaning] = options.at(name);
        if (type.empty()) {
            to.add_flag_callback(
                name, [this, name] { given_[name] = "yes"; }, meaning);
            return;
        }
        const auto keep = [this, name](const std::string& typed) { given_[name] = typed; };
        to.add_option_function<std::string>(name, keep, meaning)
            ->type_name(type)
            ->required(isRequired);
    }

    CLI::App& add(const char* verb, const char* meaning, const std::vector<std::string>& taken,
                  const std::function<void()>& work) {
        CLI::App* added = app_.add_subcommand(verb, meaning);
        for (const std::string& name : taken) {
            addOption(*added, name);
        }
        added->callback(work);
        return *added;
    }

    bool has(const std::string& option) const { return given_.count(option) > 0; }

    std::string text(const std::string& option) const {
        return has(option) ? given_.at(option) : std::string();
    }

    std::size_t number(const std::string& option, std::int64_t most = 50) const {
        const auto typed = wholeNumber(text(option));
        refuseIf(!typed || *typed < 1 || *typed > most,
                 "\"" + text(option) + "\" is not a number from 1 to " + std::to_string(most));
        return static_cast<std::size_t>(*typed);
    }

    // The stamp of the day, which was typed as MMDDYY or as 2026-11-15.
    std::string stamp(const std::string& option) const {
        const std::string typed = text(option);
        const bool isLong = typed.size() == 10;
        std::string stamp =
            isLong ? typed.substr(5, 2) + typed.substr(8) + typed.substr(2, 2) : typed;
        refuseIf(dayOf(stamp).empty() || (isLong && dayOf(stamp) != typed),
                 "\"" + typed + "\" is not a day (MMDDYY or YYYY-MM-DD)");
        return stamp;
    }

    Format format() const {
        const auto isGiven = [this](const std::string& option) { return has(option); };
        refuseIf(std::count_if(formats.begin(), formats.end(), isGiven) > 1,
                 "choose one of --text, --ansi, --html and --json");
        const auto chosen = std::find_if(formats.begin(), formats.end(), isGiven);
        return chosen == formats.end() ? Format::text
                                       : static_cast<Format>(chosen - formats.begin());
    }

    GameDirectory home() const { return openGame(has("--game") ? text("--game") : "."); }

    void addVerbs() {
        add("init", "Create a game directory that is ready to run",
            {"DIR!", "--board!", "--menus", "--keeper"}, [this] {
                makeGame({text("DIR"), text("--board"), text("--menus"), text("--keeper")}, out_);
            });
        add("players", "List all characters", {"--json"},
            [this] { listPlayers(home(), has("--json"), out_); });
        add("show", "Show all fields of a character", {"N!", "--json"},
            [this] { showPlayer(home(), number("N"), has("--json"), out_); });
        add("check", "Check every file of the game", {"--json"},
            [this] { status_ = checkGame(home(), has("--json"), out_) ? done : notDone; })
            .footer(
                "Status 1 when there is an error or a warning. An error is what the game misreads"
                "\nor plays wrong with; a warning was not written by the game, or needs you.");
        add("set", "Change fields of a character", {"N!", "--force"},
            [this] {
                refuseIf(pairs_.size() % 2 != 0, pairs_.back() + ": a value is missing");
                setPlayer(home(), number("N"), pairs_, has("--force"), out_);
            })
            .add_option("FIELD VALUE", pairs_,
                        "A field as `show` names it, or a flag of the world: searched.12, "
                        "cleared.12,\ncastle1.3, castle2.3, mortuary1.3, cavern1.3; and its new "
                        "value, within\nthe range that the game can reach")
            ->required();
        add("remove", "Remove a character", {"N!", "--traces", "--force"}, [this] {
            removePlayer(home(), number("N"), has("--traces"), has("--force"), out_);
        }).footer("The last character of the file moves into the free slot.");
        add("purge", "Remove characters and news that are old", {"--before!", "--dry-run"}, [this] {
            purge(home(), dayOf(stamp("--before")), has("--dry-run"), out_);
        }).footer("Player 1 and those who are in the game stay.");
        add("offline", "Clear the on-line mark that a dropped call left", {"N", "--all"}, [this] {
            refuseIf(has("--all") == has("N"), "offline needs a player's number or --all");
            markOffline(home(), has("N") ? number("N") : 0, out_);
        });
        add("backup", "Back up the data files", {"DIRECTORY", "--list", "--json"},
            [this] {
                if (has("--list")) {
                    listBackups(home(), has("--json"), out_);
                } else {
                    Change(home()).backUp(text("DIRECTORY"), out_);
                }
            })
            .footer("Backups are named by date and time. Yours are in backup/, those that changes "
                    "make first\nare in backup/auto/; the newest 50 of each are kept.");
        add("restore", "Restore the data files from a backup", {"BACKUP!", "--force"},
            [this] { restoreBackup(home(), text("BACKUP"), has("--force"), out_); });
        add("reset", "Start a new season: remove characters, board, scores and news", {"--force"},
            [this] { beginSeason(home(), has("--force"), out_); })
            .footer("The display files and morvek.cfg stay.");
    }

    void addBulletins() {
        const auto addBulletin = [this](const char* verb, const char* meaning, const char* option,
                                        const std::function<void()>& work) {
            addOption(add(verb, meaning, formats, work), option);
        };
        addBulletin("scores", "Write the ten best scores", "--remove", [this] {
            if (has("--remove")) {
                removeScore(home(), number("--remove", 10), out_);
            } else {
                writeScores(home(), format(), out_);
            }
        });
        addBulletin("news", "Write the news of a day", "--date", [this] {
            writeNews(home(), has("--date") ? stamp("--date") : localTime("%m%d%y"), format(),
                      out_);
        });
        addBulletin("board", "Write the message board", "--remove", [this] {
            if (has("--remove")) {
                removeMessage(home(), number("--remove", 10), out_);
            } else {
                writeBoard(home(), format(), out_);
            }
        });
    }
};

} // namespace

int runSysop(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
    return CommandLine(out, err).run(arguments);
}

} // namespace morvek
