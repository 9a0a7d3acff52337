#pragma once

namespace morvek {

// The title: the version screen and its menu, for ever; quitting ends the program.
[[noreturn]] void titleMenu();

// Sets the name to display: the caller's, or "Default" when it is empty.
void setDisplayName();

// Loads or creates the caller's character, shows its status and tells the news that he joined.
void enterGame();

} // namespace morvek
