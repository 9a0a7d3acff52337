// A caller who shows nothing and costs next to nothing: his od_... functions take the place of the
// door toolkit's where a walk is to be measured and not its screens.
#pragma once

namespace morvek::bench {

// Answers every menu; set before the game is played.
extern char (*quietKey)();

} // namespace morvek::bench
