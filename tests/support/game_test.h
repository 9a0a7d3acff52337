// What every test of the game includes: its state, the scripted caller, chance, and matchers.
#pragma once

#include "state/game_state.h"
#include "support/scripted_caller.h"

#include <gmock/gmock.h>

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

// The keys, repeated.
inline std::string times(int count, const std::string& keys) {
    return count > 0 ? keys + times(count - 1, keys) : "";
}
