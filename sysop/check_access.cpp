// What the game may write. It is silent about a file or directory that it cannot write to, and what
// its callers bring about is lost. Asked for is the user who runs the check: the board's own, as
// the game runs as him.

#include "sysop/check.h"

#include <fcntl.h>
#include <unistd.h>

namespace morvek {
namespace {

bool mayWrite(const std::string& path, int also) {
    return ::faccessat(AT_FDCWD, path.c_str(), W_OK | also, AT_EACCESS) == 0;
}

} // namespace

void checkAccess(const GameDirectory& home, Findings& findings) {
    if (!mayWrite(home.data.string(), X_OK)) {
        findings.push_back(
            {Severity::warning, home.data.string(), "", "",
             "is not writable by the user who runs this check; run it as the board's user"});
    }
    for (const std::string& name : dataFiles(home)) {
        if (!mayWrite(home.file(name), 0)) {
            findings.push_back({Severity::warning, name, "", "",
                                "is not writable by the user who runs this check: the game cannot "
                                "save to it"});
        }
    }
}

} // namespace morvek
