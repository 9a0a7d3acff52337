// The interface in C, over the one session of this process.
#include "OpenDoor.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

#include "display_file.h"
#include "key_decoder.h"
#include "options.h"
#include "restart.h"
#include "session.h"
#include "startup_error.h"
#include "terminal.h"
#include "text.h"

using odoors::StartupError;

tODControl od_control;

namespace {

odoors::Options options;
std::optional<odoors::Session> theSession;
bool opened = false;

odoors::Session& session() {
    return theSession ? *theSession : theSession.emplace(od_control.user_ansi);
}

// Comes before all else: from here on a signal ends the call properly, also one that was held back,
// and no file that is opened takes the place of a standard stream.
void prepareProcess() {
    static bool prepared = false;
    if (!prepared) {
        prepared = true;
        odoors::watchSignals();
        odoors::standardStreams();
    }
}

// A reason may quote an option, into which a board may have put a caller's text.
void complain(std::string_view reason, const char* more = "") {
    std::fprintf(stderr, "%s\n%s", text::withoutControls(reason).c_str(), more);
}

[[noreturn]] void failToStart(const StartupError& error, bool byBoard, const char* more = "") {
    session().endIfSignalled();
    complain(error.reason, more);
    odoors::logStartupError(error.reason);
    session().endAtStart(byBoard);
}

// A log that cannot be written keeps nobody from playing.
void openLog() {
    try {
        if (options.logFile) {
            odoors::openCallLog(*options.logFile);
        }
    } catch (const StartupError& error) {
        complain(error.reason);
    }
}

void openSession() {
    const odoors::Caller caller = odoors::findCaller(options, odoors::standardStreams());
    odoors::setLoggedCaller(caller.node, caller.name);
    std::snprintf(od_control.user_name, sizeof od_control.user_name, "%s", caller.name.c_str());
    od_control.od_node = caller.node;
    session().open(caller, options.lockFile);
    od_control.user_timelimit = session().minutesLeft();
}

std::string_view orEmpty(const char* text) { return text != nullptr ? text : ""; }

// The key as it stands among the keys, in either case; 0 when it is none of them. With directions
// an arrow is its digit.
char choose(std::string_view keys, odoors::Key key, bool directions) {
    const char typed = directions && key.digit != 0 ? key.digit : key.code;
    for (const char choice : keys) {
        if (typed != 0 && odoors::sameLetter(choice, typed)) {
            return choice;
        }
    }
    return 0;
}

// Whether arrows stand for digits in a menu with these keys: it has letters, too, and its digits do
// not number a list (1, 2, 3 and so on, but not up to 8 and 9, as all keys of a keypad do).
bool hasDirections(std::string_view keys) {
    const auto digits = std::count_if(keys.begin(), keys.end(), odoors::isDigit);
    const bool list = keys.starts_with("123") && keys.find('8') == std::string_view::npos;
    return digits > 0 && static_cast<std::size_t>(digits) < keys.size() && !list;
}

// The next key, none when none is there and none is waited for.
odoors::Key nextKey(bool wait) {
    const odoors::Key key = session().nextKey(wait);
    od_control.user_timelimit = session().minutesLeft();
    return key;
}

// The next key that is one of the choices, 0 as for nextKey().
char nextChoice(std::string_view choices, bool wait, bool directions) {
    odoors::Key key;
    char choice = 0;
    while (choice == 0 && (key = nextKey(wait)).code != 0) {
        choice = choose(choices, key, directions);
    }
    return choice;
}

bool isPrintable(char key) {
    return static_cast<unsigned char>(key) >= ' ' && key != odoors::otherKey;
}

} // namespace

void od_parse_cmd_line(int argc, char* argv[]) {
    prepareProcess();
    try {
        odoors::readOptions({argv + 1, static_cast<std::size_t>(argc > 0 ? argc - 1 : 0)}, options);
    } catch (const StartupError& error) {
        openLog();
        const bool byBoard = !options.local && (options.dropFile || options.handle);
        failToStart(error, byBoard, odoors::usage);
    }
    if (options.help) {
        std::fputs(odoors::usage, stdout);
        std::exit(0);
    }
    if (options.version) {
        std::printf("%s %s\n", od_control.od_prog_name, od_control.od_prog_version);
        std::exit(0);
    }
    openLog();
}

void od_init() {
    if (opened) {
        return;
    }
    prepareProcess();
    try {
        openSession();
        opened = true;
    } catch (const StartupError& error) {
        failToStart(error, !options.local);
    }
}

void od_exit(int errorlevel, int) { session().finish(errorlevel); }

void od_set_color(int foreground, int background) {
    session().output.setAttribute({foreground & 15, background & 7, false});
}

void od_autodetect(int) { session().detectTerminal(); }

void od_clr_scr() { session().clearScreen(); }

void od_printf(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    if (std::string_view(format) == "%s") { // nothing to be formatted
        session().output.showCoded(orEmpty(va_arg(arguments, const char*)));
    } else {
        char* text = nullptr;
        // The analyzer loses sight of va_start when it looks at several files in one run.
        // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized)
        const int length = vasprintf(&text, format, arguments);
        session().output.showCoded({text, static_cast<std::size_t>(std::max(length, 0))});
        std::free(text);
    }
    va_end(arguments);
}

void od_disp(const char* text, int size, int) {
    if (text != nullptr && size > 0) {
        session().output.show({text, static_cast<std::size_t>(size)});
    }
}

void od_disp_str(const char* text) { session().output.show(orEmpty(text)); }

void od_set_cursor(int row, int column) { session().output.moveTo(row, column); }

char od_get_key(int wait) { return nextKey(wait != 0).code; }

char od_get_answer(const char* answers) { return nextChoice(orEmpty(answers), true, false); }

void od_input_str(char* text, int maxLength, unsigned char min, unsigned char max) {
    const auto longest = static_cast<std::size_t>(std::max(maxLength, 0));
    std::size_t length = strnlen(text, longest);
    odoors::Output& output = session().output;
    // The program's own text may contain control bytes, which are not on the screen.
    const auto removeLast = [&] {
        if (length > 0) {
            output.erase(isPrintable(text[--length]) ? 1 : 0);
        }
    };
    output.show({text, length});
    session().setTypingLine(true);
    char key = 0;
    for (bool untouched = true; (key = nextKey(true).code) != odoors::returnKey;) {
        const auto code = static_cast<unsigned char>(key);
        if (key == odoors::backspaceKey) {
            removeLast();
            untouched = false;
        } else if (isPrintable(key) && code >= min && code <= max) {
            while (untouched && length > 0) {
                removeLast();
            }
            untouched = false;
            if (length < longest) {
                text[length++] = key;
                output.show({&key, 1});
            }
        }
    }
    session().setTypingLine(false);
    text[length] = 0;
    output.show("\n\r");
}

char od_hotkey_menu(const char* name, const char* hotkeys, int wait) {
    const std::string_view keys = orEmpty(hotkeys);
    const bool directions = hasDirections(keys);
    if (choose(keys, session().typedAhead(), directions) == 0) {
        const bool ansi = od_control.user_ansi == 1 && !session().isNarrow();
        session().output.showFile(odoors::readDisplayFile(std::string(orEmpty(name)), ansi));
    }
    return nextChoice(keys, wait != 0, directions);
}

void odoors::restart(const Options& next) {
    options = next;
    od_control = {};
    theSession.reset();
    opened = false;
}
