#include "text.h"

#include <algorithm>

namespace odoors {

namespace {

// Large enough for a caller without limits, small enough to be counted in milliseconds.
constexpr std::int64_t largestNumber = 10'000'000'000'000;

} // namespace

std::string_view withoutTrailingBlanks(std::string_view text) {
    while (!text.empty() && static_cast<unsigned char>(text.back()) <= ' ') {
        text.remove_suffix(1);
    }
    return text;
}

std::optional<std::int64_t> readNumber(std::string_view text) {
    text = withoutTrailingBlanks(text);
    while (!text.empty() && text.front() == ' ') {
        text.remove_prefix(1);
    }
    const bool negative = !text.empty() && text.front() == '-';
    if (!text.empty() && (negative || text.front() == '+')) {
        text.remove_prefix(1);
    }
    if (text.empty()) {
        return std::nullopt;
    }
    std::int64_t number = 0;
    for (const char c : text) {
        if (!isDigit(c)) {
            return std::nullopt;
        }
        number = std::min(largestNumber, number * 10 + (c - '0'));
    }
    return negative ? -number : number;
}

} // namespace odoors
