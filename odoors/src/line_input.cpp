#include "line_input.h"

#include <cstring>

namespace odoors {

namespace {

bool isPrintable(char key) {
    return static_cast<unsigned char>(key) >= ' ' && key != otherKey;
}

bool isBetween(char key, unsigned char least, unsigned char most) {
    const auto code = static_cast<unsigned char>(key);
    return code >= least && code <= most;
}

// A line being edited, on the screen and in the buffer alike.
class LineEditor {
public:
    LineEditor(Output& output, char* text, std::size_t longest)
        : output_(output), text_(text), longest_(longest), length_(strnlen(text, longest)) {
        text_[length_] = 0;
        output_.show({text_, length_});
    }

    void add(char key) {
        if (untouched_) {
            while (length_ > 0) {
                removeLast();
            }
            untouched_ = false;
        }
        if (length_ < longest_) {
            text_[length_++] = key;
            text_[length_] = 0;
            output_.show({&key, 1});
        }
    }

    // The program's own text may hold control bytes, which are not on the screen.
    void removeLast() {
        untouched_ = false;
        if (length_ > 0) {
            output_.erase(isPrintable(text_[--length_]) ? 1 : 0);
            text_[length_] = 0;
        }
    }

private:
    Output& output_;
    char* text_;
    std::size_t longest_;
    std::size_t length_;
    bool untouched_ = true;
};

} // namespace

void editLine(Session& session, char* text, std::size_t longest, unsigned char least,
              unsigned char most) {
    LineEditor line(session.output, text, longest);
    char key = 0;
    while ((key = session.waitForKey()) != returnKey) {
        if (key == backspaceKey) {
            line.removeLast();
        } else if (isPrintable(key) && isBetween(key, least, most)) {
            line.add(key);
        }
    }
    session.output.show("\n\r");
}

} // namespace odoors
