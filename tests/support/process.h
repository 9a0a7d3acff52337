// Whole calls in a process of their own: the caller's end of one.
#pragma once

#include "support/folder.h"

#include <functional>
#include <string>
#include <vector>

#include <sys/types.h>
#include <termios.h>

// What a child does; it never comes back.
using Child = std::function<void()>;
using Arguments = std::vector<std::string>;

// The arguments as a program gets them, behind its name and before a null; they must outlive it.
std::vector<char*> commandLine(const Arguments& arguments);

// How a call went: the exit status (1000 and more: the signal that ended it) and what came out.
struct Outcome {
    int status = -1;
    std::string shown;
    std::string complaints;
    std::vector<std::string> writes;
};

// Runs a child whose caller typed all his keys beforehand and is then gone.
Outcome runWithKeys(const Child& child, const std::string& keys);

// Starts a child on these streams, -1 for a closed one; a terminal may become its own.
pid_t startChild(const Child& child, int input, int output, int errors = -1,
                 bool controlling = false);

// The exit status of a child; -1 when it does not end within 2.5 seconds and has to be killed.
int waitForEnd(pid_t child);

// How a board lets a caller reach the door: what he types comes through a pipe, he sits at a
// pseudo-terminal, or the child inherits his socket as this descriptor.
enum class Line { pipe, terminal, socket };
constexpr int handedSocket = 2;

// A child and the end of the line where its caller is. With a controlling terminal a hang-up comes
// as a signal, without one as the end of the input.
struct Call {
    explicit Call(const Child& doing, Line line = Line::terminal, bool controlling = true);
    ~Call() { hangUp(); }
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

    void type(const std::string& keys) const;

    // Waits until the text has been shown, or all; all that was shown since the last time.
    std::string until(const std::string& text) const;

    void hangUp();
    int status() const { return waitForEnd(child); }

    // Whether the terminal is as it was before the call.
    bool isRestored() const;

    int end = -1;
    pid_t child = -1;
    termios before{};
};
