#pragma once

namespace morvek {

// Takes host name and game directory from the configuration file in the directory that the program
// was started in; false when one of its three lines is too long.
bool readConfiguration();

} // namespace morvek
