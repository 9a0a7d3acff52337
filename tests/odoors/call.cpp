#include "call.h"

#include <cstdlib>
#include <ctime>

#include <sys/syscall.h>
#include <unistd.h>

#include "OpenDoor.h"

namespace {

long secondsAhead = 0;

} // namespace

// Stands in for the system's clock, in the library too.
extern "C" int clock_gettime(clockid_t clock, timespec* now) noexcept {
    const long result = syscall(SYS_clock_gettime, clock, now);
    now->tv_sec += secondsAhead;
    return static_cast<int>(result);
}

void passSeconds(long seconds) {
    secondsAhead += seconds;
}

Child doorChild(const Arguments& arguments, const Door& door) {
    return [=] {
        for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
            unsetenv(name);
        }
        setenv("LOGNAME", "newcomer", 1);
        std::vector<char*> argv{const_cast<char*>("door")};
        for (const std::string& argument : arguments) {
            argv.push_back(const_cast<char*>(argument.c_str()));
        }
        od_parse_cmd_line(static_cast<int>(argv.size()), argv.data());
        od_init();
        door();
        od_exit(0, 0);
    };
}
