#include "sysop/command_line.h"

#include <csignal>
#include <fcntl.h>
#include <iostream>
#include <unistd.h>

int main(int argc, char* argv[]) {
    std::signal(SIGPIPE, SIG_IGN);
    // A game's file must not become the standard output that the caller of this program has closed.
    int descriptor = 0;
    while (descriptor >= 0 && descriptor <= STDERR_FILENO) {
        descriptor = ::open("/dev/null", O_RDONLY);
    }
    ::close(descriptor);
    return morvek::runSysop({argv + 1, argv + argc}, std::cout, std::cerr);
}
