#include "support/process.h"

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utmp.h>

namespace {

constexpr int timeout = 2500; // milliseconds; a last line would stay for 3000

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

} // namespace

std::vector<char*> commandLine(const Arguments& arguments) {
    std::vector<char*> words{const_cast<char*>("door")};
    for (const std::string& argument : arguments) {
        words.push_back(const_cast<char*>(argument.c_str()));
    }
    words.push_back(nullptr);
    return words;
}

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
        if (waited == timeout) {
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
    // Packets keep the child's writes apart.
    require(pipe(input.data()) == 0 && pipe(errors.data()) == 0 &&
            socketpair(AF_UNIX, SOCK_SEQPACKET, 0, output.data()) == 0 &&
            write(input[1], keys.data(), keys.size()) == static_cast<ssize_t>(keys.size()));
    close(input[1]);
    const pid_t process = startChild(child, input[0], output[1], errors[1]);
    for (const int descriptor : {input[0], output[1], errors[1]}) {
        close(descriptor);
    }
    Outcome outcome;
    std::vector<char> buffer(1 << 18);
    for (ssize_t count = 0; (count = read(output[0], buffer.data(), buffer.size())) > 0;) {
        outcome.writes.emplace_back(buffer.data(), static_cast<std::size_t>(count));
        outcome.shown += outcome.writes.back();
    }
    outcome.complaints = readFile("/dev/fd/" + std::to_string(errors[0]));
    close(output[0]);
    close(errors[0]);
    outcome.status = waitForEnd(process);
    return outcome;
}

Call::Call(const Child& doing, Line line, bool controlling) {
    std::array<int, 2> ends{-1, -1}; // the child's, the caller's
    const int nothing = open("/dev/null", O_RDWR | O_CLOEXEC);
    if (line == Line::terminal) {
        require(openpty(&ends[1], &ends[0], nullptr, nullptr, nullptr) == 0);
        // What is typed before the child starts must not be echoed among what it shows.
        tcgetattr(ends[0], &before);
        before.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        tcsetattr(ends[0], TCSANOW, &before);
        child = startChild(doing, ends[0], ends[0], -1, controlling);
    } else if (line == Line::pipe) {
        require(pipe(ends.data()) == 0);
        child = startChild(doing, ends[0], nothing, nothing);
    } else {
        require(socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()) == 0);
        child = startChild(doing, nothing, nothing, ends[0]);
    }
    close(nothing);
    close(ends[0]);
    end = ends[1];
}

void Call::type(const std::string& keys) const {
    require(write(end, keys.data(), keys.size()) == static_cast<ssize_t>(keys.size()));
}

std::string Call::until(const std::string& text) const {
    std::string shown;
    std::array<char, 4096> buffer;
    pollfd line{end, POLLIN, 0};
    ssize_t count = 1;
    while (shown.find(text) == std::string::npos && count > 0 && poll(&line, 1, 4 * timeout) == 1) {
        count = read(end, buffer.data(), buffer.size());
        shown.append(buffer.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
    }
    return shown;
}

void Call::hangUp() {
    close(end);
    end = -1;
}

bool Call::isRestored() const {
    termios now{};
    return tcgetattr(end, &now) == 0 && now.c_lflag == before.c_lflag &&
           now.c_iflag == before.c_iflag && now.c_oflag == before.c_oflag;
}
