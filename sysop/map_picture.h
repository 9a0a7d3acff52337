// The world drawn from the table of rooms that the game plays: as a picture for a browser, and as a
// graph for Graphviz.
#pragma once

#include <ostream>

namespace morvek {

void writeSvg(std::ostream& out);
void writeDot(std::ostream& out);

} // namespace morvek
