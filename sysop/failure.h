// Errors that end a verb with one line on standard error and a status.
#pragma once

#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace morvek {

// Ends the tool with status 1; the text is one line for the operator.
struct Failure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The same, for what was typed wrong: status 2.
struct Misuse : std::runtime_error {
    using std::runtime_error::runtime_error;
};

inline void failIf(bool hasFailed, const std::string& text) {
    if (hasFailed) {
        throw Failure(text);
    }
}

inline void refuseIf(bool isWrong, const std::string& text) {
    if (isWrong) {
        throw Misuse(text);
    }
}

// Fails when a system call's error is not 0: "PATH cannot be read: Permission denied".
inline void failWith(int error, const std::string& path, const char* what) {
    failIf(error != 0, path + " cannot be " + what + ": " + std::strerror(error));
}

// What happened, in the words that an operator reads.
inline std::string reasonOf(const std::exception& error) {
    const auto* file = dynamic_cast<const std::filesystem::filesystem_error*>(&error);
    return file != nullptr ? file->path1().string() + ": " + file->code().message() : error.what();
}

} // namespace morvek
