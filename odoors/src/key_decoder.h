// Keys out of the bytes that a terminal sends:
//
//     CR, LF, CR LF, CR NUL         one key, Return (13)
//     8, 127                        one key, backspace (8)
//     ESC [ ... final, ESC O ...    one key, otherKey: an arrow, a function key. Up to the final
//                                   byte (64 to 126); the Linux console's ESC [ [ A has one byte
//                                   more. A control byte breaks a sequence off and is a key after
//                                   it. An arrow, Home, End, PgUp and PgDn have the digit that is
//                                   on the same key of the keypad.
//     any other ESC                 a key of its own, 27
//     NUL                           no key
//
// From a terminal that shows UTF-8 a character comes as its CP437 byte, or as otherKey when CP437
// has none.
#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "charset.h"
#include "text/cp437.h"

namespace odoors {

constexpr char returnKey = 13;
constexpr char backspaceKey = 8;
constexpr char escapeKey = 27;
constexpr char otherKey = 127; // free, since a delete is a backspace

struct Key {
    char code = 0;  // 0: there is none
    char digit = 0; // of an arrow and its like: '1' to '9'
};

class KeyDecoder {
public:
    void setCharset(Charset charset) { charset_ = charset; }

    // Decodes what the terminal sent.
    void feed(std::string_view bytes);

    // Whether the last byte was an escape, so that what follows at once decides what it is.
    bool escapePending() const { return state_ == State::escape; }

    // Nothing followed the escape at once: it is a key of its own.
    void settleEscape();

    // Removes and returns the next key.
    Key pop();

    // The next key, left where it is.
    Key peek() const { return keys_.empty() ? Key() : keys_.front(); }

    // From now on so many more reports of the cursor's position are no keys.
    void expectCursorReports(std::size_t count) { reportsExpected_ += count; }

    // Those that have come, without the escapes: "[row;columnR".
    const std::vector<std::string>& cursorReports() const { return reports_; }

private:
    enum class State { text, afterReturn, escape, sequence, consoleSequence };

    void feedText(char byte);
    void feedSequence(char byte);
    void feedUtf8(char byte);
    void endSequence();
    void add(char code) { keys_.push_back({code}); }

    std::deque<Key> keys_;
    Charset charset_ = Charset::cp437;
    text::Utf8Reader utf8_;
    State state_ = State::text;
    std::string sequence_;            // the bytes after the escape
    std::size_t reportsExpected_ = 0; // and those that have come
    std::vector<std::string> reports_;
};

} // namespace odoors
