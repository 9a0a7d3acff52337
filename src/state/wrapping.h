// Arithmetic on the 32-bit numbers of a character. Records may be forged, so overflow must wrap and
// not be undefined.
#pragma once

#include <cstdint>

namespace morvek {

constexpr std::int32_t wrappingAdd(std::int32_t left, std::int32_t right) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(left) +
                                     static_cast<std::uint32_t>(right));
}

constexpr std::int32_t wrappingSubtract(std::int32_t left, std::int32_t right) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(left) -
                                     static_cast<std::uint32_t>(right));
}

constexpr std::int32_t wrappingMultiply(std::int32_t left, std::int32_t right) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(left) *
                                     static_cast<std::uint32_t>(right));
}

} // namespace morvek
