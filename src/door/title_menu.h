#pragma once

namespace morvek {

// The title: the version screen and its menu, for ever; quitting ends the program.
[[noreturn]] void titleMenu();

// Loads or creates the caller's character, shows its status and tells the news that he joined.
void enterGame();

} // namespace morvek
