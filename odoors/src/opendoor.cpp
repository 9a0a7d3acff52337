// The interface in C, over the one session of this process.
#include "OpenDoor.h"

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "display_file.h"
#include "line_input.h"
#include "options.h"
#include "session.h"
#include "terminal.h"
#include "text.h"

using odoors::Attribute;
using odoors::Session;

tODControl od_control;

namespace {

odoors::Options options;
bool opened = false;

Session& session() {
    static Session theSession;
    return theSession;
}

// What comes before all else. A signal ends the call properly from here on, also one that came
// before and was held back.
void prepareProcess() {
    static bool prepared = false;
    if (!prepared) {
        prepared = true;
        odoors::watchSignals(odoors::connectionLost);
        odoors::standardStreams();
    }
}

// A reason may quote an option, into which a board may have put a caller's text.
void complain(std::string reason, const char* more) {
    std::erase_if(reason, odoors::isControl);
    std::fprintf(stderr, "%s\n%s", reason.c_str(), more);
}

// A call is not refused for want of a log.
void openLog() {
    try {
        if (options.logFile) {
            odoors::openCallLog(*options.logFile);
        }
    } catch (const odoors::Refusal& refusal) {
        complain(refusal.reason, "");
    }
}

[[noreturn]] void refuse(const odoors::Refusal& refusal, const char* more) {
    session().endIfSignalled();
    complain(refusal.reason, more);
    odoors::logStartupError(refusal.reason);
    session().endAtStart(!options.local && (options.dropFile || options.handle));
}

std::string_view orEmpty(const char* text) {
    return text != nullptr ? text : "";
}

// The key as it stands among the keys, in either case; 0 when it is none of them.
char choose(std::string_view keys, char key) {
    for (const char choice : keys) {
        if (key != 0 && odoors::sameLetter(choice, key)) {
            return choice;
        }
    }
    return 0;
}

char waitForChoice(std::string_view keys) {
    char choice = 0;
    while (choice == 0) {
        choice = choose(keys, session().waitForKey());
    }
    return choice;
}

char choiceIfThere(std::string_view keys) {
    char key = 0;
    char choice = 0;
    while (choice == 0 && (key = session().keyIfThere()) != 0) {
        choice = choose(keys, key);
    }
    return choice;
}

} // namespace

void od_parse_cmd_line(int argc, char* argv[]) {
    prepareProcess();
    try {
        odoors::readOptions({argv + 1, static_cast<std::size_t>(argc > 0 ? argc - 1 : 0)}, options);
    } catch (const odoors::Refusal& refusal) {
        openLog();
        refuse(refusal, odoors::usage);
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
        session().open(options);
        opened = true;
    } catch (const odoors::Refusal& refusal) {
        refuse(refusal, "");
    }
}

void od_exit(int errorlevel, int) {
    session().finish(errorlevel);
}

void od_set_color(int foreground, int background) {
    session().output.setAttribute({foreground & 15, background & 7, false});
}

void od_autodetect(int) {
    session().detectAnsi();
}

void od_clr_scr() {
    session().output.clear();
}

void od_printf(const char* format, ...) {
    std::array<char, 1024> text;
    va_list arguments;
    va_start(arguments, format);
    if (std::string_view(format) == "%s") { // nothing to be formatted
        session().output.showCoded(orEmpty(va_arg(arguments, const char*)));
        va_end(arguments);
        return;
    }
    // The analyzer loses sight of va_start when it looks at several files in one run.
    // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized)
    const int length = std::vsnprintf(text.data(), text.size(), format, arguments);
    va_end(arguments);
    const auto size = static_cast<std::size_t>(std::max(length, 0));
    if (size < text.size()) {
        session().output.showCoded({text.data(), size});
        return;
    }
    std::string whole(size, '\0');
    va_start(arguments, format);
    std::vsnprintf(whole.data(), size + 1, format, arguments);
    va_end(arguments);
    session().output.showCoded(whole);
}

void od_disp(const char* text, int size, int) {
    if (text != nullptr && size > 0) {
        session().output.show({text, static_cast<std::size_t>(size)});
    }
}

void od_disp_str(const char* text) {
    session().output.show(orEmpty(text));
}

void od_set_cursor(int row, int column) {
    session().output.moveTo(row, column);
}

char od_get_key(int wait) {
    return wait != 0 ? session().waitForKey() : session().keyIfThere();
}

char od_get_answer(const char* answers) {
    return waitForChoice(orEmpty(answers));
}

void od_input_str(char* text, int maxLength, unsigned char min, unsigned char max) {
    odoors::editLine(session(), text, static_cast<std::size_t>(maxLength > 0 ? maxLength : 0), min,
                     max);
}

char od_hotkey_menu(const char* name, const char* hotkeys, int wait) {
    const std::string_view keys = orEmpty(hotkeys);
    if (choose(keys, session().typedAhead()) == 0) {
        session().output.showFile(
            odoors::readDisplayFile(std::string(orEmpty(name)), session().ansi()));
    }
    return wait != 0 ? waitForChoice(keys) : choiceIfThere(keys);
}
