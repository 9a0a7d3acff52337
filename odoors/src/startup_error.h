#pragma once

#include <string>

namespace odoors {

// Why the session cannot begin, as one line for the operator; ends the program with status 1.
struct StartupError {
    std::string reason;
};

} // namespace odoors
