#include "options.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>

#include "startup_error.h"
#include "text.h"

namespace odoors {

const char* const usage =
    "Options, each also with -- or /, values also after =:\n"
    "  -DROPFILE PATH, -D PATH   the board's drop file, or the directory it lies in\n"
    "  -LOCAL, -L                no board: the caller is at this terminal\n"
    "  -USERNAME NAME            the caller's name\n"
    "  -REALNAME                 use the caller's real name, not the alias\n"
    "  -TIMELEFT MINUTES         the minutes that the caller has left\n"
    "  -NODE N, -N N             the board's node number\n"
    "  -HANDLE FD, -H FD, -SOCKET FD\n"
    "                            the caller's socket, inherited from the board\n"
    "  -STDIO                    the caller is at standard input and output\n"
    "  -GRAPHICS, -ASCII         ANSI graphics on, off\n"
    "  -CHARSET NAME             the caller's character set: cp437, utf8 or auto\n"
    "  -INACTIVITY SECONDS       how long to wait for a key; 0: for ever\n"
    "  -ONECALLER LOCKFILE       one caller at a time, by a lock on that file\n"
    "  -LOG FILE                 log a line a call in that file\n"
    "  -VERSION                  the program's version\n"
    "  -HELP, -?                 this text\n";

namespace {

using Value = const std::string&;

[[noreturn]] void refuse(Value value, const std::string& reason) {
    throw StartupError{"\"" + value + "\" is not " + reason};
}

// Amounts of minutes and seconds.
std::int64_t amount(Value value) {
    const std::optional<std::int64_t> number = readNumber(value);
    if (!number || *number < 0) {
        refuse(value, "a whole number of 0 or more");
    }
    return *number;
}

int smallNumber(Value value, int least) {
    constexpr int most = std::numeric_limits<int>::max();
    const std::optional<std::int64_t> number = readNumber(value);
    if (!number || *number < least || *number > most) {
        refuse(value,
               "a whole number from " + std::to_string(least) + " to " + std::to_string(most));
    }
    return static_cast<int>(*number);
}

std::optional<Charset> charset(Value value) {
    if (sameLetters(value, "cp437")) {
        return Charset::cp437;
    }
    if (sameLetters(value, "utf8") || sameLetters(value, "utf-8")) {
        return Charset::utf8;
    }
    if (sameLetters(value, "auto")) {
        return std::nullopt;
    }
    refuse(value, "cp437, utf8 or auto");
}

enum class Form { alone, withValue, withValueOrGlued };

struct Row {
    std::string_view name;
    Form form;
    void (*apply)(Options& options, Value value);
};

void setDropFile(Options& options, Value value) {
    options.dropFile = value;
}
void setLocal(Options& options, Value) {
    options.local = true;
}
void setNode(Options& options, Value value) {
    options.node = smallNumber(value, 0);
}
void setHandle(Options& options, Value value) {
    options.handle = smallNumber(value, -1);
}
void setHelp(Options& options, Value) {
    options.help = true;
}

constexpr std::array rows{
    Row{"DROPFILE", Form::withValue, setDropFile},
    Row{"D", Form::withValueOrGlued, setDropFile},
    Row{"LOCAL", Form::alone, setLocal},
    Row{"L", Form::alone, setLocal},
    Row{"USERNAME", Form::withValue, [](Options& o, Value v) { o.userName = v; }},
    Row{"REALNAME", Form::alone, [](Options& o, Value) { o.realName = true; }},
    Row{"TIMELEFT", Form::withValue, [](Options& o, Value v) { o.minutesLeft = amount(v); }},
    Row{"NODE", Form::withValue, setNode},
    Row{"N", Form::withValueOrGlued, setNode},
    Row{"HANDLE", Form::withValue, setHandle},
    Row{"H", Form::withValueOrGlued, setHandle},
    Row{"SOCKET", Form::withValue, setHandle},
    Row{"STDIO", Form::alone, [](Options& o, Value) { o.standardStreams = true; }},
    Row{"GRAPHICS", Form::alone, [](Options& o, Value) { o.ansi = true; }},
    Row{"ASCII", Form::alone, [](Options& o, Value) { o.ansi = false; }},
    Row{"CHARSET", Form::withValue, [](Options& o, Value v) { o.charset = charset(v); }},
    Row{"INACTIVITY", Form::withValue,
        [](Options& o, Value v) { o.inactivitySeconds = amount(v); }},
    Row{"ONECALLER", Form::withValue, [](Options& o, Value v) { o.lockFile = v; }},
    Row{"LOG", Form::withValue, [](Options& o, Value v) { o.logFile = v; }},
    Row{"VERSION", Form::alone, [](Options& o, Value) { o.version = true; }},
    Row{"HELP", Form::alone, setHelp},
    Row{"?", Form::alone, setHelp},
};

// An argument taken apart: the option it names and the value that came with it.
struct Named {
    const Row* row;
    std::optional<std::string> value;
};

std::string_view withoutMark(std::string_view argument) {
    for (const std::string_view mark : {"--", "-", "/"}) {
        if (argument.starts_with(mark)) {
            return argument.substr(mark.size());
        }
    }
    return {};
}

// Names are told from glued values by looking for the whole name first.
Named takeApart(std::string_view argument) {
    const std::string_view body = withoutMark(argument);
    const std::size_t equals = body.find('=');
    for (const Row& row : rows) {
        if (sameLetters(row.name, body)) {
            return {&row, std::nullopt};
        }
        if (row.form != Form::alone && sameLetters(row.name, body.substr(0, equals))) {
            return {&row, std::string(body.substr(equals + 1))};
        }
    }
    for (const Row& row : rows) {
        if (row.form == Form::withValueOrGlued && sameLetters(row.name, body.substr(0, 1))) {
            return {&row, std::string(body.substr(1))};
        }
    }
    throw StartupError{"unknown option " + std::string(argument)};
}

} // namespace

void readOptions(std::span<const char* const> arguments, Options& options) {
    for (std::size_t i = 0; i < arguments.size() && !options.help && !options.version; ++i) {
        const std::string argument = arguments[i];
        Named named = takeApart(argument);
        if (named.row->form != Form::alone && !named.value) {
            if (++i == arguments.size()) {
                throw StartupError{"option " + argument + " needs a value"};
            }
            named.value = arguments[i];
        }
        try {
            named.row->apply(options, named.value.value_or(""));
        } catch (const StartupError& error) {
            throw StartupError{"option " + argument.substr(0, argument.find('=')) + ": " +
                               error.reason};
        }
    }
}

} // namespace odoors
