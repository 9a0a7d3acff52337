#include "colour_codes.h"

#include <array>

#include "text.h"

namespace odoors {

namespace {

struct ColourName {
    std::string_view word;
    int number;
};

constexpr std::array<ColourName, 10> colourNames{{{"black", 0},
                                                  {"blue", 1},
                                                  {"green", 2},
                                                  {"cyan", 3},
                                                  {"red", 4},
                                                  {"magenta", 5},
                                                  {"brown", 6},
                                                  {"yellow", 6},
                                                  {"white", 7},
                                                  {"grey", 7}}};

std::optional<int> colourNumber(std::string_view word) {
    const char first = word.empty() ? '\0' : toLower(word.front());
    for (const ColourName& name : colourNames) {
        if (name.word.front() == first && sameLetters(name.word, word)) {
            return name.number;
        }
    }
    return std::nullopt;
}

// Removes the next word from the front of the text; empty at its end.
std::string_view popWord(std::string_view& text) {
    text.remove_prefix(std::min(text.size(), text.find_first_not_of(' ')));
    const std::string_view word = text.substr(0, text.find(' '));
    text.remove_prefix(word.size());
    return word;
}

// Whether the word is one that stands before the foreground; notes what it says.
bool readModifier(std::string_view word, Attribute& attribute, int& brightness) {
    if (sameLetters(word, "bright")) {
        brightness = brightBit;
    } else if (sameLetters(word, "dark")) {
        brightness = 0;
    } else if (sameLetters(word, "flashing")) {
        attribute.flashing = true;
    } else {
        return false;
    }
    return true;
}

} // namespace

std::optional<Attribute> readColourCode(std::string_view words) {
    Attribute attribute;
    int brightness = 0;
    std::string_view word = popWord(words);
    while (readModifier(word, attribute, brightness)) {
        word = popWord(words);
    }
    const std::optional<int> foreground = colourNumber(word);
    if (!foreground) {
        return std::nullopt;
    }
    attribute.foreground = *foreground + brightness;
    word = popWord(words);
    if (word.empty()) {
        return attribute;
    }
    const std::optional<int> background = colourNumber(popWord(words));
    if (!sameLetters(word, "on") || !background || !popWord(words).empty()) {
        return std::nullopt;
    }
    attribute.background = *background;
    return attribute;
}

} // namespace odoors
