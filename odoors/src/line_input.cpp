#include "line_input.h"

#include <cstring>

namespace odoors {

namespace {

bool isPrintable(char key) {
    return static_cast<unsigned char>(key) >= ' ' && key != otherKey;
}

} // namespace

void editLine(Session& session, char* text, std::size_t longest, unsigned char least,
              unsigned char most) {
    std::size_t length = strnlen(text, longest);
    // The program's own text may contain control bytes, which are not on the screen.
    const auto removeLast = [&] {
        if (length > 0) {
            session.output.erase(isPrintable(text[--length]) ? 1 : 0);
        }
    };
    session.output.show({text, length});
    char key = 0;
    for (bool untouched = true; (key = session.nextKey(true)) != returnKey;) {
        const auto code = static_cast<unsigned char>(key);
        if (key == backspaceKey) {
            removeLast();
            untouched = false;
        } else if (isPrintable(key) && code >= least && code <= most) {
            while (untouched && length > 0) {
                removeLast();
            }
            untouched = false;
            if (length < longest) {
                text[length++] = key;
                session.output.show({&key, 1});
            }
        }
    }
    text[length] = 0;
    session.output.show("\n\r");
}

} // namespace odoors
