// Whole calls of the library in a process of their own: what a door does, and the caller's end.
#ifndef ODOORS_TESTS_CALL_H
#define ODOORS_TESTS_CALL_H

#include <functional>
#include <string>
#include <vector>

#include <sys/types.h>
#include <termios.h>

using Arguments = std::vector<std::string>;
using Door = std::function<void()>;

// How a call went: the exit status (1000 and more: the signal that ended it) and what came out.
struct Outcome {
    int status = -1;
    std::string shown;
    std::string complaints;
    std::vector<std::string> writes;
};

// Runs a door whose caller typed all his keys beforehand and is then gone. A door that comes to
// its end leaves with status 0.
Outcome callWithKeys(const Arguments& arguments, const std::string& keys, const Door& door);

// Starts a door on these streams, -1 for a closed one; a terminal may become its own.
pid_t startDoor(const Arguments& arguments, const Door& door, int input, int output,
                int errors = -1, bool controlling = false);

// The exit status of a child; -1 when it does not end within about a second and has to be killed.
int waitForEnd(pid_t child);

// A door whose caller sits at a pseudo-terminal. With a controlling terminal a hang-up comes as a
// signal, without one as the end of the input.
struct TerminalCall {
    TerminalCall(const Arguments& arguments, const Door& door, bool controlling = true);
    ~TerminalCall() { hangUp(); }
    TerminalCall(const TerminalCall&) = delete;
    TerminalCall& operator=(const TerminalCall&) = delete;

    void type(const std::string& keys) const;

    // Waits until the text has been shown; all that was shown since the last time.
    std::string until(const std::string& text) const;

    void hangUp();
    int status() const { return waitForEnd(child); }

    // Whether the terminal is as it was before the call.
    bool isRestored() const;

    int master = -1;
    pid_t child = -1;
    termios before{};
};

// A directory of its own for one test, gone with it.
struct Folder {
    Folder();
    ~Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::string path(const std::string& name = "") const { return self + '/' + name; }
    std::string write(const std::string& name, const std::string& bytes) const;

    std::string self = "/tmp/odoors.XXXXXX";
};

// Puts the clock of this process forward.
void passSeconds(long seconds);

#endif
