// What the library reads before a call begins, without a process of its own.
#pragma once

#include "support/process.h"

#include <functional>

#include <gtest/gtest.h>

#include "options.h"
#include "startup_error.h"

inline odoors::Options optionsOf(const Arguments& arguments) {
    odoors::Options options;
    odoors::readOptions({commandLine(arguments).data() + 1, arguments.size()}, options);
    return options;
}

// Why the call cannot start.
inline std::string reasonOf(const std::function<void()>& start) {
    try {
        start();
    } catch (const odoors::StartupError& error) {
        return error.reason;
    }
    return "it starts";
}
