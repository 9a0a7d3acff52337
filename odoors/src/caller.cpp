#include "caller.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include "clock.h"
#include "startup_error.h"
#include "text.h"
#include "text/cp437.h"

namespace odoors {

namespace {

// By this variable of the environment boards name the BBSDEV.DRP of the call.
constexpr const char* bbsdevVariable = "BBSDEV_DRP";

constexpr std::size_t longestName = 35;
constexpr std::int64_t defaultMinutes = 60;
constexpr std::int64_t defaultInactivity = 300;

Streams holdStreams() {
    Streams streams;
    for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
        if (fcntl(descriptor, F_GETFD) < 0) {
            streams.open = streams.open && descriptor == STDERR_FILENO;
            open("/dev/null", O_RDWR);
        }
    }
    streams.inputIsTerminal = isatty(STDIN_FILENO) == 1;
    return streams;
}

std::string loginName() {
    for (const char* variable : {"LOGNAME", "USER"}) {
        const char* name = std::getenv(variable);
        if (name != nullptr && *name != 0) {
            return name;
        }
    }
    const passwd* entry = getpwuid(getuid());
    return entry != nullptr ? entry->pw_name : "";
}

// What the environment says of the terminal that this process was started from.
Charset charsetOfEnvironment() {
    for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const char* value = std::getenv(name);
        if (value == nullptr || *value == 0) {
            continue;
        }
        std::string_view codeset(value);
        codeset.remove_prefix(std::min(codeset.size(), codeset.find('.') + 1));
        codeset = codeset.substr(0, codeset.find('@'));
        const bool utf8 = sameLetters(codeset, "UTF-8") || sameLetters(codeset, "UTF8");
        return utf8 ? Charset::utf8 : Charset::cp437;
    }
    return Charset::cp437;
}

// Whether the terminal that this process was started from says that it obeys no sequences.
bool isDumbTerminal() {
    const char* kind = std::getenv("TERM");
    return kind != nullptr && std::string_view(kind) == "dumb";
}

bool isOpenSocket(int descriptor) {
    struct stat status {};
    return descriptor > 0 && fstat(descriptor, &status) == 0 && S_ISSOCK(status.st_mode);
}

int socketOf(const Options& options, const std::optional<DropFile>& file) {
    return options.handle ? *options.handle : file->socket;
}

// Boards name sockets that are none, and, in drop files, sockets beside a terminal that they have
// set up for the door: then the caller is at standard input and output.
Route findRoute(const Options& options, const std::optional<DropFile>& file,
                const Streams& streams) {
    Route route = options.handle ? Route::socket : file ? file->route : Route::standardStreams;
    const bool setUpByBoard = streams.inputIsTerminal && !options.handle;
    if (options.standardStreams || options.local ||
        (route == Route::socket && (setUpByBoard || !isOpenSocket(socketOf(options, file))))) {
        route = Route::standardStreams;
    }
    if (route == Route::unreachable) {
        throw StartupError{"cannot reach the caller: serial lines are not supported; see -STDIO"};
    }
    if (route == Route::standardStreams && !streams.open) {
        throw StartupError{"cannot reach the caller: standard input or output is closed"};
    }
    return route;
}

// Names that come from the command line and the login are in the character set of the terminal.
std::string nameOf(const Options& options, const std::optional<DropFile>& file, Charset charset) {
    if (options.userName || !file) {
        const std::string name = options.userName ? *options.userName
                                 : options.handle ? std::string()
                                                  : loginName();
        return charset == Charset::utf8 ? text::toCp437(name).value_or(name) : name;
    }
    const std::string& first = options.realName ? file->realName : file->alias;
    const std::string& second = options.realName ? file->alias : file->realName;
    return first.empty() ? second : first;
}

std::optional<DropFile> findDropFile(const Options& options, const Streams& streams) {
    if (options.local) {
        return std::nullopt;
    }
    const int node = options.node.value_or(1);
    if (options.dropFile) {
        std::optional<DropFile> file = readDropFile(*options.dropFile, node);
        if (!file) {
            throw StartupError{*options.dropFile + ": no drop file in this directory"};
        }
        return file;
    }
    if (options.handle) {
        return std::nullopt;
    }
    const char* named = std::getenv(bbsdevVariable);
    if (named != nullptr && *named != 0) {
        return readBbsdevFile(named);
    }
    std::optional<DropFile> file = readDropFile(".", node);
    if (!file && !streams.inputIsTerminal) {
        throw StartupError{"no drop file found, and standard input is not a terminal; see -HELP"};
    }
    return file;
}

} // namespace

const Streams& standardStreams() {
    static const Streams streams = holdStreams();
    return streams;
}

Caller findCaller(const Options& options, const Streams& streams) {
    return resolveCaller(options, findDropFile(options, streams), streams);
}

Caller resolveCaller(const Options& options, const std::optional<DropFile>& file,
                     const Streams& streams) {
    const Route route = findRoute(options, file, streams);
    const bool local = !file && !options.handle;
    DropFile usual;
    usual.secondsLeft = defaultMinutes * secondsPerMinute;
    usual.charset = local ? charsetOfEnvironment() : Charset::cp437;
    const bool dumb = local && isDumbTerminal();
    if (dumb) {
        usual.ansi = false;
    }
    const DropFile& known = file ? *file : usual;
    Caller caller;
    if (route == Route::socket) {
        caller.socket = socketOf(options, file);
    }
    caller.startedByBoard = !local && !options.local;
    caller.charsetGuessed = !options.charset && !dumb;
    caller.charset = options.charset ? *options.charset : known.charset.value_or(*usual.charset);
    caller.name = nameOf(options, file, caller.charset).substr(0, longestName);
    caller.node = options.node.value_or(known.node);
    caller.timed = options.minutesLeft || file;
    caller.secondsLeft =
        options.minutesLeft ? *options.minutesLeft * secondsPerMinute : known.secondsLeft;
    caller.ansi = options.ansi ? options.ansi : known.ansi;
    caller.inactivitySeconds = options.inactivitySeconds.value_or(local ? 0 : defaultInactivity);
    caller.longestPause = options.pauseMilliseconds;
    return caller;
}

} // namespace odoors
