// The game's texts are CP437; the operator's terminal, web pages and JSON are UTF-8.
#pragma once

#include "text/characters.h"

#include <string>
#include <string_view>

namespace morvek {

using text::isControl;
using text::withoutControls;

// The text in UTF-8, without its control bytes.
std::string toUtf8(std::string_view cp437);

// The same between quotes.
std::string inQuotes(std::string_view cp437);

// The text in UTF-8, filled up with blanks to that many columns and never cut.
std::string column(std::string_view cp437, std::size_t width);

// The same, with the blanks in front.
std::string rightColumn(std::string_view cp437, std::size_t width);

// What HTML and SVG would take for markup is written so that they show it.
std::string escaped(std::string_view utf8);

} // namespace morvek
