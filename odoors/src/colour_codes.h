// Colour codes: the words between two backquotes by which a text sets its own colour.
//
//     `flashing bright red on blue`
//
// The words are separated by blanks, in any letter case, and come in this order: any of "bright",
// "dark" and "flashing", then the foreground, then perhaps "on" and the background. A code sets
// the whole attribute: without "on" the background is black, without "bright" the foreground is
// dark. Words in any other form set nothing.
#pragma once

#include <optional>
#include <string_view>

namespace odoors {

constexpr int brightBit = 8; // of a foreground

// What a character looks like, in PC colour numbers.
struct Attribute {
    int foreground = 7; // 0 to 15
    int background = 0; // 0 to 7
    bool flashing = false;

    bool operator==(const Attribute&) const = default;
};

// The attribute that the words between two backquotes set; none when they are of another form.
std::optional<Attribute> readColourCode(std::string_view words);

} // namespace odoors
