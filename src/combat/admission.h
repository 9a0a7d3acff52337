// Who may train.
#pragma once

namespace morvek {

// Whether the player's level has a trainer: levels 1 to 29 do.
bool levelHasTrainer();

// Whether the player has the experience that his level needs to rise. One who has not is told what
// he lacks, or that there is nothing above level 30; one whose level is no level reads nothing.
// Only who lacks experience has his `inTraining` cleared.
bool admittedToTraining();

} // namespace morvek
