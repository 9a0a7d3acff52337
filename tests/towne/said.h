// What the caller saw, short enough to be read in a test.
#pragma once

#include "support/scripted_caller.h"

#include <string>

namespace morvek::test {

inline const std::string anyKey = "`red`Press any key!";
inline const std::string yesNo =
    " [`bright red`y`red`/`bright red`n`red`]`bright red`: `bright white`";

// What was said behind one text, up to another one that follows or to the end, with "\n\r" written
// as "|".
inline std::string said(const std::string& from = "", const std::string& to = "(end)") {
    std::string text = caller.seen;
    for (std::size_t at = 0; (at = text.find("\n\r", at)) != std::string::npos;) {
        text.replace(at, 2, "|");
    }
    const std::size_t begin = text.find(from) + from.size();
    return text.substr(begin, text.find(to, begin) - begin);
}

} // namespace morvek::test
