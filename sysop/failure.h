// Errors that end a verb with one line on standard error and a status.
#pragma once

#include <stdexcept>

namespace morvek {

// The statuses that the tool ends with.
constexpr int done = 0;
constexpr int notDone = 1; // or `check` has found something
constexpr int wrongUsage = 2;

// Ends the tool with status 1; the text is one line for the operator.
struct Failure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The same, for what was typed wrong: status 2.
struct Misuse : std::runtime_error {
    using std::runtime_error::runtime_error;
};

} // namespace morvek
