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
    "  -PAUSE MILLISECONDS       how long to show a text before a clear; 0: no pause\n"
    "  -ONECALLER LOCKFILE       one caller at a time, by a lock on that file\n"
    "  -LOG FILE                 log a line a call in that file\n"
    "  -VERSION                  the program's version\n"
    "  -HELP, -?                 this text\n";

namespace {

// The value of an option, with the option as it was written.
struct Value {
    std::string option;
    std::string text;
};

[[noreturn]] void refuse(const Value& value, const std::string& allowed) {
    throw StartupError{"option " + value.option + ": \"" + value.text + "\" is not " + allowed};
}

void assign(bool& field, const Value&, int) { field = true; }

void assign(std::optional<std::string>& field, const Value& value, int) { field = value.text; }

void assign(std::optional<std::int64_t>& field, const Value& value, int least) {
    field = readNumber(value.text);
    if (!field || *field < least) {
        refuse(value, "a whole number of " + std::to_string(least) + " or more");
    }
}

void assign(std::optional<int>& field, const Value& value, int least) {
    constexpr int most = std::numeric_limits<int>::max();
    const std::optional<std::int64_t> number = readNumber(value.text);
    if (!number || *number < least || *number > most) {
        refuse(value,
               "a whole number from " + std::to_string(least) + " to " + std::to_string(most));
    }
    field = static_cast<int>(*number);
}

void assign(std::optional<Charset>& field, const Value& value, int) {
    if (sameLetters(value.text, "auto")) {
        field.reset();
    } else if (sameLetters(value.text, "cp437")) {
        field = Charset::cp437;
    } else if (sameLetters(value.text, "utf8") || sameLetters(value.text, "utf-8")) {
        field = Charset::utf8;
    } else {
        refuse(value, "cp437, utf8 or auto");
    }
}

template <auto field, int least = 0>
void set(Options& options, const Value& value) {
    assign(options.*field, value, least);
}

template <bool on>
void setAnsi(Options& options, const Value&) {
    options.ansi = on;
}

// A value may be glued to a name of one letter.
struct Row {
    std::array<std::string_view, 3> names; // the unused ones are empty
    bool hasValue;
    void (*apply)(Options& options, const Value& value);
};

constexpr std::array rows{
    Row{{"DROPFILE", "D"}, true, set<&Options::dropFile>},
    Row{{"LOCAL", "L"}, false, set<&Options::local>},
    Row{{"USERNAME"}, true, set<&Options::userName>},
    Row{{"REALNAME"}, false, set<&Options::realName>},
    Row{{"TIMELEFT"}, true, set<&Options::minutesLeft>},
    Row{{"NODE", "N"}, true, set<&Options::node>},
    Row{{"HANDLE", "H", "SOCKET"}, true, set<&Options::handle, -1>},
    Row{{"STDIO"}, false, set<&Options::standardStreams>},
    Row{{"GRAPHICS"}, false, setAnsi<true>},
    Row{{"ASCII"}, false, setAnsi<false>},
    Row{{"CHARSET"}, true, set<&Options::charset>},
    Row{{"INACTIVITY"}, true, set<&Options::inactivitySeconds>},
    Row{{"PAUSE"}, true, set<&Options::pauseMilliseconds>},
    Row{{"ONECALLER"}, true, set<&Options::lockFile>},
    Row{{"LOG"}, true, set<&Options::logFile>},
    Row{{"VERSION"}, false, set<&Options::version>},
    Row{{"HELP", "?"}, false, set<&Options::help>},
};

// An argument taken apart: the option it names and the value that came with it.
struct Argument {
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

bool isName(const Row& row, std::string_view name) {
    return !name.empty() && std::any_of(row.names.begin(), row.names.end(),
                                        [name](auto known) { return sameLetters(known, name); });
}

// Whole names come before glued values: -NODE is not -N with the value ODE.
Argument parseArgument(std::string_view argument) {
    const std::string_view body = withoutMark(argument);
    const std::size_t equals = body.find('=');
    for (const Row& row : rows) {
        if (isName(row, body)) {
            return {&row, std::nullopt};
        }
        if (row.hasValue && isName(row, body.substr(0, equals))) {
            return {&row, std::string(body.substr(equals + 1))};
        }
    }
    for (const Row& row : rows) {
        if (row.hasValue && isName(row, body.substr(0, 1))) {
            return {&row, std::string(body.substr(1))};
        }
    }
    throw StartupError{"unknown option " + std::string(argument)};
}

} // namespace

void readOptions(std::span<const char* const> arguments, Options& options) {
    for (std::size_t i = 0; i < arguments.size() && !options.help && !options.version; ++i) {
        const std::string argument = arguments[i];
        Argument named = parseArgument(argument);
        if (named.row->hasValue && !named.value) {
            if (++i == arguments.size()) {
                throw StartupError{"option " + argument + " needs a value"};
            }
            named.value = arguments[i];
        }
        named.row->apply(options,
                         {argument.substr(0, argument.find('=')), named.value.value_or("")});
    }
}

} // namespace odoors
