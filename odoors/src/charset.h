#pragma once

namespace odoors {

// What a caller's terminal shows. The game's own texts are always CP437.
enum class Charset { cp437, utf8 };

// What the environment says of the terminal that this process was started from.
Charset charsetOfEnvironment();

} // namespace odoors
