#include "key_decoder.h"

#include <algorithm>

#include "text.h"

namespace odoors {

namespace {

constexpr std::size_t longestSequenceKept = 16;

// Whether the sequence is "[ row ; column R".
bool isCursorReport(std::string_view sequence) {
    const std::size_t middle = sequence.find(';');
    if (middle == std::string_view::npos || sequence.front() != '[' || sequence.back() != 'R') {
        return false;
    }
    const std::string_view row = sequence.substr(1, middle - 1);
    const std::string_view column = sequence.substr(middle + 1, sequence.size() - middle - 2);
    return !row.empty() && !column.empty() && std::all_of(row.begin(), row.end(), isDigit) &&
           std::all_of(column.begin(), column.end(), isDigit);
}

// Final bytes, each with its digit. Cursor keys come behind "[", or behind "O" where the terminal
// is in application mode; terminals of boards have more of them, and a keypad has letters of its
// own.
constexpr std::string_view cursorKeys = "A8B2C6D4H7F1";
constexpr std::string_view boardKeys = "K1V9U3";
constexpr std::string_view keypadKeys = "q1r2s3t4v6w7x8y9";
// The first parameter of a sequence that ends in "~", with its digit.
constexpr std::string_view numberedKeys = "174159637781";

// The digit behind the name in pairs of them; 0 when it is not there.
char digitOf(char name, std::string_view pairs) {
    for (std::size_t i = 0; i < pairs.size(); i += 2) {
        if (pairs[i] == name) {
            return pairs[i + 1];
        }
    }
    return 0;
}

// The digit of the key that sends the sequence, with or without Shift and its like ("[1;2A").
char keypadDigit(std::string_view sequence) {
    const char final = sequence.back();
    const bool application = sequence.front() == 'O';
    const std::string_view parameters = sequence.substr(1, sequence.size() - 2);
    const bool modified = parameters.size() == 3 && parameters[1] == ';';
    if (final == '~') {
        const bool one = parameters.size() == 1 || modified;
        return one && !application ? digitOf(parameters.front(), numberedKeys) : '\0';
    }
    if (!parameters.empty() && !(modified && parameters.front() == '1')) {
        return 0;
    }
    const char digit = digitOf(final, cursorKeys);
    return digit != 0 ? digit : digitOf(final, application ? keypadKeys : boardKeys);
}

} // namespace

void KeyDecoder::feed(std::string_view bytes) {
    for (const char byte : bytes) {
        if (state_ == State::escape && (byte == '[' || byte == 'O')) {
            state_ = State::sequence;
            sequence_ = byte;
        } else if (state_ == State::sequence || state_ == State::consoleSequence) {
            feedSequence(byte);
        } else {
            settleEscape();
            feedText(byte);
        }
    }
}

void KeyDecoder::settleEscape() {
    if (state_ == State::escape) {
        add(escapeKey);
        state_ = State::text;
    }
}

Key KeyDecoder::pop() {
    const Key key = peek();
    if (key.code != 0) {
        keys_.pop_front();
    }
    return key;
}

void KeyDecoder::feedText(char byte) {
    const bool completesReturn = state_ == State::afterReturn && (byte == '\n' || byte == 0);
    state_ = State::text;
    if (completesReturn) {
        return;
    }
    if (utf8_.midway() && !isContinuation(byte)) {
        utf8_.reset();
        add(otherKey);
    }
    if (byte == '\r' || byte == '\n') {
        add(returnKey);
        state_ = byte == '\r' ? State::afterReturn : State::text;
    } else if (byte == escapeKey) {
        state_ = State::escape;
    } else if (byte == backspaceKey || byte == 127) {
        add(backspaceKey);
    } else if (byte != 0 && charset_ == Charset::utf8) {
        feedUtf8(byte);
    } else if (byte != 0) {
        add(byte);
    }
}

void KeyDecoder::feedUtf8(char byte) {
    using Step = text::Utf8Reader::Step;
    const Step step = utf8_.read(byte);
    if (step == Step::more) {
        return;
    }
    const char key = step == Step::character ? text::cp437Byte(utf8_.character()) : '\0';
    add(key != 0 ? key : otherKey);
}

void KeyDecoder::feedSequence(char byte) {
    if (isControl(byte)) {
        endSequence();
        feedText(byte);
        return;
    }
    if (sequence_.size() < longestSequenceKept) {
        sequence_ += byte;
    }
    const auto code = static_cast<unsigned char>(byte);
    if (state_ == State::sequence && sequence_ == "[[") {
        state_ = State::consoleSequence;
    } else if (state_ == State::consoleSequence || (code >= 64 && code < 127)) {
        endSequence();
    }
}

void KeyDecoder::endSequence() {
    state_ = State::text;
    if (reports_.size() < reportsExpected_ && isCursorReport(sequence_)) {
        reports_.push_back(sequence_);
    } else {
        keys_.push_back({otherKey, keypadDigit(sequence_)});
    }
}

} // namespace odoors
