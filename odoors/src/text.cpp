#include "text.h"

#include <algorithm>
#include <charconv>

namespace odoors {

namespace {

// Large enough for a caller without limits, small enough to be counted in milliseconds.
constexpr std::uint64_t largestNumber = 10'000'000'000'000;

} // namespace

std::string_view withoutTrailingBlanks(std::string_view text) {
    while (!text.empty() && static_cast<unsigned char>(text.back()) <= ' ') {
        text.remove_suffix(1);
    }
    return text;
}

std::optional<std::int64_t> readNumber(std::string_view text) {
    text = withoutTrailingBlanks(text);
    text.remove_prefix(std::min(text.size(), text.find_first_not_of(' ')));
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) {
        text.remove_prefix(1);
    }
    std::uint64_t number = 0;
    const char* const textEnd = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), textEnd, number);
    if (error == std::errc::invalid_argument || end != textEnd) {
        return std::nullopt;
    }
    const bool tooLarge = error == std::errc::result_out_of_range || number > largestNumber;
    const auto held = static_cast<std::int64_t>(tooLarge ? largestNumber : number);
    return negative ? -held : held;
}

} // namespace odoors
