#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "charset.h"
#include "colour_codes.h"

namespace odoors {

// What the caller is to be shown next: collects bytes for his terminal until they are sent.
//
// A colour change costs nothing until text follows it; then the whole attribute goes out as one
// ANSI sequence, unless the terminal has it already. Without ANSI graphics the attribute is kept
// all the same, since ANSI graphics may come on during the session.
class Output {
public:
    // The flag is looked at whenever it matters: 1 means that the caller has ANSI graphics.
    explicit Output(const char& ansiFlag) : ansiFlag_(ansiFlag) {}

    void setCharset(Charset charset) { charset_ = charset; }

    // Sets the colour of what follows.
    void setAttribute(const Attribute& attribute) { attribute_ = attribute; }

    // Shows a text as it is, but for control bytes other than CR and LF, which are dropped.
    void show(std::string_view text);

    // Shows a text and obeys the colour codes in it; a code that is left open ends with the text.
    void showCoded(std::string_view text);

    // Shows the bytes of a display file as they are, escape sequences and all; only the colours are
    // rewritten for a terminal that shows UTF-8.
    void showFile(std::string_view bytes);

    // Erases the last characters on the screen.
    void erase(int characters);

    // Clears the screen and moves home.
    void clear();

    // Moves to a row and a column, both from 1; without ANSI graphics it pads to the column.
    void moveTo(int row, int column);

    // Appends a control sequence that neither moves the cursor nor changes the colour.
    void control(std::string_view sequence);

    // Gives the terminal its own colour back.
    void resetColour();

    // Whether the cursor is behind the start of its line.
    bool isInLine() const { return column_ > 0; }

    // Shows a text, bells and all, on a line of its own; with continued also the line that it
    // interrupts again.
    void showLine(std::string_view text, bool continued);

    // How many characters have been shown in lines that were completed since markRead(); blanks at
    // the ends of lines do not count.
    int unread();

    // The caller has read all that is shown.
    void markRead();

    // Removes and returns what has been collected.
    std::string drain();

private:
    bool ansi() const { return ansiFlag_ == 1; }
    void sendAttribute();
    void beginLine();
    void keepLine();
    void put(std::string_view bytes);
    void followControl(char byte);
    const std::string& rewritten(std::string_view bytes);

    const char& ansiFlag_;
    Charset charset_ = Charset::cp437;
    Attribute attribute_;
    std::optional<Attribute> terminalAttribute_; // none: unknown
    int column_ = 0;
    bool inSequence_ = false;
    std::string bytes_;

    // The display files that were rewritten last, since callers go to and fro between a few.
    struct RewrittenFile {
        std::string before;
        Attribute attribute;
        std::string after;
    };
    std::array<RewrittenFile, 4> rewrittenFiles_;
    std::size_t nextPlace_ = 0;

    // The cursor's line as it is sent: the part of it that is drained, and where it goes on in
    // bytes_.
    std::string line_;
    std::size_t lineStart_ = 0;
    std::optional<Attribute> lineAttribute_; // the terminal's at its start

    // Of what unread() has looked at.
    struct Reading {
        std::size_t end = 0; // in bytes_
        bool inSequence = false;
        int lines = 0;     // characters in completed lines
        int line = 0;      // in the line that is not completed
        int lineShown = 0; // without the blanks at its end
    };
    Reading reading_;
};

} // namespace odoors
