// The game's texts are CP437; the operator's terminal, web pages and JSON are UTF-8.
#pragma once

#include "text/characters.h"

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace morvek {

using Json = nlohmann::ordered_json;

using text::isControl;
using text::withoutControls;

bool holdsControls(std::string_view text);

// The text in UTF-8, without its control bytes.
std::string toUtf8(std::string_view cp437);

// The same between quotes.
std::string inQuotes(std::string_view cp437);

// How many columns a text in UTF-8 takes.
std::size_t lengthOf(std::string_view utf8);

// The text filled up with blanks to that many columns, and never cut.
std::string padded(const std::string& utf8, std::size_t width, bool toTheRight = false);

// The text in UTF-8; what HTML would take for markup is written so that it shows it.
std::string toHtml(std::string_view cp437);

// "1 file", "2 files".
std::string counted(std::size_t count, const std::string& what);

} // namespace morvek
