#include "output.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "ansi_colours.h"
#include "text.h"
#include "text/cp437.h"

namespace odoors {

namespace {

constexpr char escape = 27;
constexpr char codeMark = '`';
constexpr int tabWidth = 8;
constexpr int widestScreen = 255;
constexpr std::size_t longestLineKept = 4096;

// How much of the text goes out as it is: up to a control byte other than the ends of lines.
std::size_t shownLength(std::string_view text) {
    std::size_t length = 0;
    while (length < text.size() &&
           (!isControl(text[length]) || text[length] == '\r' || text[length] == '\n')) {
        ++length;
    }
    return length;
}

// Whether the byte goes on with an escape sequence rather than ending it.
bool continuesSequence(char byte) { return byte == '[' || byte == ';' || isDigit(byte); }

} // namespace

void Output::show(std::string_view text) {
    while (!text.empty()) {
        const std::size_t shown = shownLength(text);
        if (shown > 0) {
            sendAttribute();
            put(text.substr(0, shown));
        }
        text.remove_prefix(std::min(text.size(), shown + 1));
    }
}

void Output::showCoded(std::string_view text) {
    while (!text.empty()) {
        const std::size_t open = std::min(text.size(), text.find(codeMark));
        show(text.substr(0, open));
        text.remove_prefix(std::min(text.size(), open + 1));
        const std::size_t close = std::min(text.size(), text.find(codeMark));
        attribute_ = readColourCode(text.substr(0, close)).value_or(attribute_);
        text.remove_prefix(std::min(text.size(), close + 1));
    }
}

void Output::showFile(std::string_view bytes) {
    if (bytes.empty()) {
        return;
    }
    sendAttribute();
    if (ansi() && charset_ == Charset::utf8) {
        put(rewritten(bytes));
    } else {
        put(bytes);
    }
    inSequence_ = false;
    if (bytes.find(escape) != std::string_view::npos) {
        terminalAttribute_.reset();
        lineAttribute_.reset();
    }
}

const std::string& Output::rewritten(std::string_view bytes) {
    for (const RewrittenFile& file : rewrittenFiles_) {
        if (file.before == bytes && file.attribute == attribute_) {
            return file.after;
        }
    }
    RewrittenFile& place = rewrittenFiles_[nextPlace_++ % rewrittenFiles_.size()];
    place = {std::string(bytes), attribute_, coloursForUtf8(bytes, attribute_)};
    return place.after;
}

void Output::erase(int characters) {
    for (; characters > 0; --characters) {
        sendAttribute();
        put("\b \b");
    }
}

void Output::clear() {
    if (charset_ == Charset::utf8) {
        sendAttribute(); // the terminal clears with its background
    }
    bytes_ += ansi() ? "\033[2J\033[H" : "\f";
    beginLine();
    markRead();
}

void Output::control(std::string_view sequence) {
    keepLine();
    bytes_ += sequence;
    lineStart_ = bytes_.size();
}

void Output::moveTo(int row, int column) {
    row = std::clamp(row, 1, widestScreen);
    column = std::clamp(column, 1, widestScreen);
    if (ansi()) {
        bytes_ += "\033[" + std::to_string(row) + ';' + std::to_string(column) + 'H';
        beginLine();
        column_ = column - 1;
        return;
    }
    if (column_ < column - 1) {
        show(std::string(static_cast<std::size_t>(column - 1 - column_), ' '));
    }
}

void Output::showLine(std::string_view text, bool continued) {
    keepLine();
    const std::string line = line_;
    const auto attributes = std::pair(lineAttribute_, terminalAttribute_);
    const int column = column_;
    show(column > 0 ? "\n\r" : "");
    sendAttribute();
    put(text);
    put("\n\r");
    if (continued) {
        bytes_ += ansi() && attributes.first ? ansiSequence(*attributes.first, charset_) : "";
        bytes_ += line;
        std::tie(lineAttribute_, terminalAttribute_) = attributes;
        column_ = column;
    }
}

void Output::resetColour() {
    if (ansi()) {
        bytes_ += "\033[0m";
        terminalAttribute_.reset();
    }
}

int Output::unread() {
    for (; reading_.end < bytes_.size(); ++reading_.end) {
        const char byte = bytes_[reading_.end];
        if (reading_.inSequence) {
            reading_.inSequence = continuesSequence(byte);
        } else if (byte == '\n') {
            reading_.lines += reading_.lineShown;
            reading_.line = reading_.lineShown = 0;
        } else if (isControl(byte)) {
            reading_.inSequence = byte == escape;
        } else if (charset_ == Charset::cp437 || !isContinuation(byte)) {
            ++reading_.line;
            reading_.lineShown = byte != ' ' ? reading_.line : reading_.lineShown;
        }
    }
    return reading_.lines;
}

void Output::markRead() { reading_ = {bytes_.size()}; }

std::string Output::drain() {
    keepLine();
    lineStart_ = 0;
    reading_.end = 0;
    return std::exchange(bytes_, {});
}

void Output::keepLine() {
    line_.append(bytes_, lineStart_);
    if (line_.size() > longestLineKept) {
        line_.clear();
    }
    lineStart_ = bytes_.size();
}

void Output::beginLine() {
    line_.clear();
    lineStart_ = bytes_.size();
    lineAttribute_ = terminalAttribute_;
    column_ = 0;
}

void Output::sendAttribute() {
    if (ansi() && terminalAttribute_ != attribute_) {
        bytes_ += ansiSequence(attribute_, charset_);
        terminalAttribute_ = attribute_;
    }
}

void Output::put(std::string_view bytes) {
    if (charset_ == Charset::utf8) {
        text::appendAsUtf8(bytes_, bytes);
    } else {
        bytes_ += bytes;
    }
    // Only what follows the last CR decides where the cursor is.
    if (const std::size_t lastReturn = bytes.rfind('\r'); lastReturn != std::string_view::npos) {
        beginLine();
        lineStart_ = bytes_.find_last_of("\r\n") + 1;
        inSequence_ = false;
        bytes.remove_prefix(lastReturn + 1);
    }
    for (const char byte : bytes) {
        if (inSequence_ || isControl(byte)) {
            followControl(byte);
        } else {
            ++column_;
        }
    }
}

void Output::followControl(char byte) {
    if (inSequence_) {
        inSequence_ = continuesSequence(byte);
    } else if (byte == escape) {
        inSequence_ = true;
    } else if (byte == '\f') {
        column_ = 0;
    } else if (byte == '\b') {
        column_ = std::max(0, column_ - 1);
    } else if (byte == '\t') {
        column_ += tabWidth - column_ % tabWidth;
    }
}

} // namespace odoors
