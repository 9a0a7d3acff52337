#include "support/process.h"

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>

#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utmp.h>

namespace {

constexpr int patience = 1400; // milliseconds

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

std::string readToEnd(int descriptor) {
    std::string all;
    std::vector<char> buffer(1 << 18);
    ssize_t count = 0;
    while ((count = read(descriptor, buffer.data(), buffer.size())) > 0) {
        all.append(buffer.data(), static_cast<std::size_t>(count));
    }
    close(descriptor);
    return all;
}

} // namespace

pid_t startChild(const Child& child, int input, int output, int errors, bool controlling) {
    std::fflush(nullptr);
    const pid_t process = fork();
    if (process == 0) {
        require(!controlling || login_tty(dup(input)) == 0);
        const std::array<int, 3> streams{input, output, errors};
        for (int i = 0; i < 3; ++i) {
            const int stream = streams[static_cast<std::size_t>(i)];
            require((stream < 0 ? close(i) : dup2(stream, i)) >= 0);
        }
        closefrom(3);
        child();
        _exit(0);
    }
    return process;
}

int waitForEnd(pid_t child) {
    int status = 0;
    for (int waited = 0; waitpid(child, &status, WNOHANG) == 0; ++waited) {
        if (waited == patience) {
            kill(child, SIGKILL);
            waitpid(child, &status, 0);
            return -1;
        }
        usleep(1000);
    }
    return WIFSIGNALED(status) ? 1000 + WTERMSIG(status) : WEXITSTATUS(status);
}

Outcome runWithKeys(const Child& child, const std::string& keys) {
    std::array<int, 2> input{};
    std::array<int, 2> output{};
    std::array<int, 2> errors{};
    require(pipe(input.data()) == 0 && pipe(errors.data()) == 0 && pipe(output.data()) == 0 &&
            write(input[1], keys.data(), keys.size()) == static_cast<ssize_t>(keys.size()));
    close(input[1]);
    const pid_t process = startChild(child, input[0], output[1], errors[1]);
    for (const int descriptor : {input[0], output[1], errors[1]}) {
        close(descriptor);
    }
    Outcome outcome;
    outcome.shown = readToEnd(output[0]);
    outcome.complaints = readToEnd(errors[0]);
    outcome.status = waitForEnd(process);
    return outcome;
}

TerminalCall::TerminalCall(const Child& doing, bool controlling) {
    int slave = -1;
    require(openpty(&master, &slave, nullptr, nullptr, nullptr) == 0);
    // What is typed before the child starts must not be echoed among what it shows.
    tcgetattr(slave, &before);
    before.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    tcsetattr(slave, TCSANOW, &before);
    child = startChild(doing, slave, slave, -1, controlling);
    close(slave);
}

void TerminalCall::type(const std::string& keys) const {
    require(write(master, keys.data(), keys.size()) == static_cast<ssize_t>(keys.size()));
}

std::string TerminalCall::until(const std::string& text) const {
    std::string shown;
    std::array<char, 4096> buffer;
    pollfd end{master, POLLIN, 0};
    ssize_t count = 1;
    while (shown.find(text) == std::string::npos && count > 0 && poll(&end, 1, 5 * patience) == 1) {
        count = read(master, buffer.data(), buffer.size());
        shown.append(buffer.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
    }
    return shown;
}

void TerminalCall::hangUp() {
    if (master >= 0) {
        close(master);
    }
    master = -1;
}

bool TerminalCall::isRestored() const {
    termios now{};
    return tcgetattr(master, &now) == 0 && now.c_lflag == before.c_lflag &&
           now.c_iflag == before.c_iflag && now.c_oflag == before.c_oflag;
}
