#include "ansi_colours.h"

#include <algorithm>
#include <array>

#include "text.h"

namespace odoors {

namespace {

constexpr std::string_view sequenceStart = "\033[";
constexpr int largestParameter = 1000;

// The ANSI digit of each PC colour, and the other way round.
constexpr std::string_view ansiDigits = "04261537";

char digitOf(int colour) { return ansiDigits[static_cast<unsigned>(colour % brightBit)]; }

int colourOf(int parameter) { return ansiDigits[static_cast<std::size_t>(parameter % 10)] - '0'; }

// Appends "97;40m", what a UTF-8 terminal gets for the colours of an attribute.
void appendBothColours(std::string& bytes, const Attribute& attribute) {
    const std::array parameters{attribute.foreground >= brightBit ? '9' : '3',
                                digitOf(attribute.foreground),
                                ';',
                                '4',
                                digitOf(attribute.background),
                                'm'};
    bytes.append(parameters.data(), parameters.size());
}

bool isBetween(int number, int first, int last) { return number >= first && number <= last; }

// Whether it asks for a colour that is not one of the 16 and 8.
bool isOtherColour(int parameter) {
    return parameter == 38 || parameter == 48 || isBetween(parameter, 100, 107);
}

// Does what a parameter of a sequence says of the colours; whether that is all that it says.
bool apply(int parameter, Attribute& attribute) {
    const int brightness = attribute.foreground & brightBit;
    if (parameter == 0) {
        attribute = {};
        return false;
    }
    if (parameter == 1 || parameter == 22) {
        attribute.foreground += (parameter == 1 ? brightBit : 0) - brightness;
    } else if (isBetween(parameter, 30, 37)) {
        attribute.foreground = brightness + colourOf(parameter);
    } else if (parameter == 39) {
        attribute.foreground = brightness + Attribute().foreground;
    } else if (isBetween(parameter, 40, 47)) {
        attribute.background = colourOf(parameter);
    } else if (parameter == 49) {
        attribute.background = Attribute().background;
    } else if (isBetween(parameter, 90, 97)) {
        attribute.foreground = brightBit + colourOf(parameter);
    } else {
        return false;
    }
    return true;
}

// Appends the sequence with these parameters to the bytes, rewritten.
void appendRewritten(std::string& bytes, std::string_view parameters, Attribute& attribute) {
    const std::size_t start = bytes.size();
    bytes += sequenceStart;
    std::size_t begin = 0;
    int parameter = 0;
    for (std::size_t i = 0; i <= parameters.size(); ++i) {
        if (i < parameters.size() && parameters[i] != ';') {
            parameter = std::min(parameter * 10 + (parameters[i] - '0'), largestParameter);
            continue;
        }
        if (isOtherColour(parameter)) {
            bytes.resize(start);
            bytes.append(sequenceStart).append(parameters) += 'm';
            return;
        }
        if (!apply(parameter, attribute)) {
            bytes.append(parameters, begin, i - begin) += ';';
        }
        begin = i + 1;
        parameter = 0;
    }
    appendBothColours(bytes, attribute);
}

} // namespace

std::string ansiSequence(const Attribute& attribute, Charset charset) {
    std::string sequence = "\033[0";
    if (charset == Charset::utf8) {
        sequence += attribute.flashing ? ";5;" : ";";
        appendBothColours(sequence, attribute);
        return sequence;
    }
    if (attribute.foreground >= brightBit) {
        sequence += ";1";
    }
    if (attribute.flashing) {
        sequence += ";5";
    }
    sequence.append(";3") += digitOf(attribute.foreground);
    if (attribute.background != 0) {
        sequence.append(";4") += digitOf(attribute.background);
    }
    return sequence + 'm';
}

std::string coloursForUtf8(std::string_view bytes, Attribute attribute) {
    std::string rewritten;
    rewritten.reserve(bytes.size() + bytes.size() / 2);
    while (!bytes.empty()) {
        const std::size_t start = std::min(bytes.size(), bytes.find(sequenceStart));
        rewritten += bytes.substr(0, start);
        bytes.remove_prefix(start);
        std::size_t end = std::min(bytes.size(), sequenceStart.size());
        while (end < bytes.size() && (isDigit(bytes[end]) || bytes[end] == ';')) {
            ++end;
        }
        if (end < bytes.size() && bytes[end] == 'm') {
            appendRewritten(rewritten, bytes.substr(0, end).substr(sequenceStart.size()),
                            attribute);
            bytes.remove_prefix(end + 1);
        } else {
            rewritten += bytes.substr(0, end);
            bytes.remove_prefix(end);
        }
    }
    return rewritten;
}

} // namespace odoors
