// Calls of the library: what it reads before one begins, and whole ones in a process of their own.
#pragma once

#include "support/process.h"

#include <gmock/gmock.h>

#include "OpenDoor.h"
#include "clock.h"
#include "options.h"
#include "startup_error.h"

using Door = std::function<void()>;

const Arguments plain{"-LOCAL", "-ASCII"};
const Arguments coloured{"-LOCAL", "-GRAPHICS"};

inline odoors::Options optionsOf(const Arguments& arguments) {
    odoors::Options options;
    odoors::readOptions({commandLine(arguments).data() + 1, arguments.size()}, options);
    return options;
}

// What a start throws that fails for this reason.
inline auto failsWith(const std::string& reason) {
    return testing::Throws<odoors::StartupError>(
        testing::Field(&odoors::StartupError::reason, reason));
}

// How far the clock of the library is ahead of the system's.
inline long secondsAhead = 0;

// A child that opens a session with these arguments and runs the door. A door that comes to its
// end leaves with status 0.
inline Child doorChild(const Arguments& arguments, const Door& door) {
    return [=] {
        odoors::readClock = [](clockid_t clock, timespec* now) {
            const int result = clock_gettime(clock, now);
            now->tv_sec += secondsAhead;
            return result;
        };
        setenv("LC_ALL", "C", 1);
        setenv("TERM", "xterm", 1);
        std::vector<char*> argv = commandLine(arguments);
        od_parse_cmd_line(static_cast<int>(argv.size()) - 1, argv.data());
        od_init();
        door();
        od_exit(0, 0);
    };
}

inline Outcome callWithKeys(const Arguments& arguments, const std::string& keys, const Door& door) {
    return runWithKeys(doorChild(arguments, door), keys);
}

// A door that shows each key until a q.
inline const Door tellKeys = [] {
    od_printf("ready");
    while (const int key = static_cast<unsigned char>(od_get_key(1))) {
        if (key == 'q') {
            break;
        }
        od_printf("<%d>", key);
    }
};
