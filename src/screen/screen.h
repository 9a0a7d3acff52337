// The game's whole vocabulary for talking to the caller. Nothing else in the game speaks to the
// door toolkit. Texts end their lines with "\n\r"; colours stand in them between backquotes, and
// a colour left open ends with its own text, so texts are said one by one and never joined.
//
// What stands in a data file or a caller's name may have been forged: no control byte in it, a line
// end included, may steer the terminal of another caller.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace morvek {

// Whether the caller has ANSI graphics now.
bool hasAnsi();

// Gives the caller ANSI graphics for the rest of the call.
void turnAnsiOn();

// The caller's name as the toolkit has it; may be empty.
std::string_view userName();

// Removes the control bytes from the toolkit's own user name and cuts it to so many bytes.
void sanitizeUserName(std::size_t longest);

// The whole minutes that the caller has left.
int remainingMinutes();

// Says a text: formatted as printf does, colour codes obeyed, also those that an argument brings.
[[gnu::format(printf, 1, 2)]] void say(const char* format, ...);

// Shows a value as it is, but for control bytes: a backquote is a backquote.
void show(std::string_view value);
void show(std::int32_t value);

// Shows a value, says the separator, and shows the limit.
void showPair(std::int32_t value, const char* separator, std::int32_t limit);

// Shows a piece of a stored line, which may begin with the return that ends the line before it and
// end in a line feed.
void showPiece(std::string_view piece);

// Shows an amount of money without decimals.
void showMoney(double amount);

// An amount of money as it is shown: "%.0f".
std::string moneyText(double amount);

// Begins a screen: clears it, or says "\n\r\n\r" to a caller without ANSI graphics.
void clearScreen();

// Clears the screen where another clear follows before any text: says nothing without ANSI
// graphics.
void clearAnsiOnly();

// Moves the cursor, 1-based.
void moveCursor(int row, int column);

// Waits for any key.
char waitForKey();

// Says "Press any key!" in red and waits for one.
void pressAnyKey();

// Shows the display file of that name and waits for one of the keys, in either case.
char menu(const char* name, const char* keys);

// Waits for one of the options, in either case; the answer is as it stands in the options.
char answer(const char* options);

// Asks for a line of at most `longest` characters between `lowest` and `highest`, offering
// `initial`, which the first character typed replaces.
std::string askLine(int longest, unsigned char lowest, unsigned char highest,
                    std::string_view initial = {});

// A typed number as strtol reads it in base 10, held within the limits of an int.
std::int32_t typedNumber(const std::string& text);

// Session start, colour and end. Only `door` calls these.
void readCommandLine(int argc, char* argv[]);
void openSession();
void detectTerminal();
void setColour(int foreground, int background);
[[noreturn]] void leave(int status);

} // namespace morvek
