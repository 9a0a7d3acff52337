#include "screen/screen.h"

#include "OpenDoor.h"
#include "text/characters.h"

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace morvek {
namespace {

void display(std::string_view text) { od_disp(text.data(), static_cast<int>(text.size()), 1); }

} // namespace

bool hasAnsi() { return od_control.user_ansi == 1; }

void turnAnsiOn() { od_control.user_ansi = 1; }

std::string_view userName() { return od_control.user_name; }

void sanitizeUserName(std::size_t longest) {
    const std::string tidy = text::withoutControls(userName()).substr(0, longest);
    od_control.user_name[tidy.copy(od_control.user_name, sizeof od_control.user_name - 1)] = '\0';
}

int remainingMinutes() { return od_control.user_timelimit; }

void say(const char* format, ...) {
    if (std::strchr(format, '%') == nullptr) {
        od_printf("%s", format);
        return;
    }
    std::array<char, 512> buffer;
    std::va_list arguments;
    va_start(arguments, format);
    const int length = std::vsnprintf(buffer.data(), buffer.size(), format, arguments);
    va_end(arguments);
    if (length < static_cast<int>(buffer.size())) {
        od_printf("%s", buffer.data());
        return;
    }
    std::string whole(static_cast<std::size_t>(length), '\0');
    va_start(arguments, format);
    std::vsnprintf(whole.data(), whole.size() + 1, format, arguments);
    va_end(arguments);
    od_printf("%s", whole.c_str());
}

void show(std::string_view value) { display(text::withoutControls(value)); }

void show(std::int32_t value) { show(std::to_string(value)); }

void showPair(std::int32_t value, const char* separator, std::int32_t limit) {
    show(value);
    say("%s", separator);
    show(limit);
}

void showPiece(std::string_view piece) {
    std::string shown(piece.starts_with('\r') ? "\r" : "");
    shown.append(text::withoutControls(piece)).append(piece.ends_with('\n') ? "\n" : "");
    display(shown);
}

std::string moneyText(double amount) {
    std::array<char, 320> text{};
    const int length = std::snprintf(text.data(), text.size(), "%.0f", amount);
    return {text.data(), static_cast<std::size_t>(length)};
}

void showMoney(double amount) { show(moneyText(amount)); }

void clearScreen() {
    if (hasAnsi()) {
        od_clr_scr();
    } else {
        od_printf("\n\r\n\r");
    }
}

void clearAnsiOnly() {
    if (hasAnsi()) {
        od_clr_scr();
    }
}

void moveCursor(int row, int column) { od_set_cursor(row, column); }

char waitForKey() { return od_get_key(1); }

void pressAnyKey() {
    od_printf("`red`Press any key!");
    waitForKey();
}

char menu(const char* name, const char* keys) { return od_hotkey_menu(name, keys, 1); }

char answer(const char* options) { return od_get_answer(options); }

std::string askLine(int longest, unsigned char lowest, unsigned char highest,
                    std::string_view initial) {
    std::string line(static_cast<std::size_t>(longest) + 1, '\0');
    initial.substr(0, static_cast<std::size_t>(longest)).copy(line.data(), line.size());
    od_input_str(line.data(), longest, lowest, highest);
    line.resize(std::strlen(line.c_str()));
    return line;
}

std::int32_t typedNumber(const std::string& text) {
    using Limits = std::numeric_limits<std::int32_t>;
    const long number = std::strtol(text.c_str(), nullptr, 10);
    return static_cast<std::int32_t>(std::clamp<long>(number, Limits::min(), Limits::max()));
}

void readCommandLine(int argc, char* argv[]) {
    std::snprintf(od_control.od_prog_name, sizeof od_control.od_prog_name, "Morvek");
    std::snprintf(od_control.od_prog_version, sizeof od_control.od_prog_version, MORVEK_VERSION);
    od_parse_cmd_line(argc, argv);
}

void openSession() { od_init(); }

void detectTerminal() { od_autodetect(1); }

void setColour(int foreground, int background) { od_set_color(foreground, background); }

void leave(int status) { od_exit(status, 0); }

} // namespace morvek
