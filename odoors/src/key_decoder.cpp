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
        keys_.push_back(escapeKey);
        state_ = State::text;
    }
}

char KeyDecoder::pop() {
    const char key = peek();
    if (key != 0) {
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
        keys_.push_back(otherKey);
    }
    if (byte == '\r' || byte == '\n') {
        keys_.push_back(returnKey);
        state_ = byte == '\r' ? State::afterReturn : State::text;
    } else if (byte == escapeKey) {
        state_ = State::escape;
    } else if (byte == backspaceKey || byte == 127) {
        keys_.push_back(backspaceKey);
    } else if (byte != 0 && charset_ == Charset::utf8) {
        feedUtf8(byte);
    } else if (byte != 0) {
        keys_.push_back(byte);
    }
}

void KeyDecoder::feedUtf8(char byte) {
    using Step = text::Utf8Reader::Step;
    const Step step = utf8_.read(byte);
    if (step == Step::more) {
        return;
    }
    const char key = step == Step::character ? text::cp437Byte(utf8_.character()) : '\0';
    keys_.push_back(key != 0 ? key : otherKey);
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
    if (reportExpected_ && isCursorReport(sequence_)) {
        reportExpected_ = false;
        reportSeen_ = true;
    } else {
        keys_.push_back(otherKey);
    }
}

} // namespace odoors
