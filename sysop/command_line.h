// The operator's tool as a routine, so that the tests can run it.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace morvek {

// Runs the tool with the arguments that follow its name, and returns the status that it ends with:
// 0 when it is done, 1 when it is not or when a check has found something, 2 for a wrong usage.
int runSysop(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err);

} // namespace morvek
