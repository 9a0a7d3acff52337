#pragma once

#include <cstddef>

#include "session.h"

namespace odoors {

// Lets the caller edit one line in text, which has room for longest bytes and a NUL. The text that
// is in it is shown: the first printable key replaces it, a backspace keeps the rest of it, Return
// takes it as it is. Only printable keys from least to most enter the text.
void editLine(Session& session, char* text, std::size_t longest, unsigned char least,
              unsigned char most);

} // namespace odoors
