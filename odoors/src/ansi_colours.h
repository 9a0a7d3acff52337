// Colours as ANSI sequences. CP437 terminals are those of boards, where bold is bright. UTF-8
// terminals may show bold as bold only and have any colour as their background, so they get bright
// colours by their own numbers (90 to 97), and each colour with its background.
#pragma once

#include <string>
#include <string_view>

#include "charset.h"
#include "colour_codes.h"

namespace odoors {

// The one sequence that sets the whole attribute, whatever was set before.
std::string ansiSequence(const Attribute& attribute, Charset charset);

// The bytes of a display file with the colours in it rewritten for a UTF-8 terminal, which has this
// attribute at their beginning. Nothing else in them is changed.
std::string coloursForUtf8(std::string_view bytes, Attribute attribute);

} // namespace odoors
