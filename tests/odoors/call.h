// Whole calls of the library in a process of their own: what a door does, and the caller's end.
#pragma once

#include "support/process.h"

#include <gtest/gtest.h>

#include "OpenDoor.h"
#include "clock.h"

using Door = std::function<void()>;

// How far the clock of the library is ahead of the system's.
inline long secondsAhead = 0;

inline int readClockAhead(clockid_t clock, timespec* now) {
    const int result = clock_gettime(clock, now);
    now->tv_sec += secondsAhead;
    return result;
}

const Arguments plain{"-LOCAL", "-ASCII"};
const Arguments coloured{"-LOCAL", "-GRAPHICS"};

// A child that opens a session with these arguments and runs the door. A door that comes to its
// end leaves with status 0.
inline Child doorChild(const Arguments& arguments, const Door& door) {
    return [=] {
        odoors::readClock = readClockAhead;
        setenv("LC_ALL", "C", 1);
        setenv("LOGNAME", "newcomer", 1);
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
