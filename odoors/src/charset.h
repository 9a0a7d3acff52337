#pragma once

namespace odoors {

// What a caller's terminal shows. The game's own texts are always CP437.
enum class Charset { cp437, utf8 };

} // namespace odoors
