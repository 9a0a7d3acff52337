// What every test of the game begins with: its state, its caller, its chance, and the words to
// talk about them.
#pragma once

#include "state/game_state.h"
#include "support/scripted_caller.h"

#include <gmock/gmock.h>

#include <sstream>
#include <tuple>

using namespace morvek;
using namespace morvek::test;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

// A table that a test runs over: a row for each case.
template <typename... Columns>
using Cases = std::vector<std::tuple<Columns...>>;

// The same keys so often.
inline std::string times(int count, const std::string& keys) {
    return count > 0 ? keys + times(count - 1, keys) : "";
}

// The values as one text, with blanks between them.
template <typename First, typename... More>
std::string inARow(First first, More... more) {
    std::ostringstream row;
    row << first;
    ((row << ' ' << more), ...);
    return row.str();
}
