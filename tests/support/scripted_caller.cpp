#include "support/scripted_caller.h"

#include "state/game_state.h"

#include "OpenDoor.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <map>

tODControl od_control;

namespace morvek::test {

ScriptedCaller caller;
ScriptedChance chance;

int ScriptedCaller::times(std::string_view what) const {
    int count = 0;
    for (std::size_t at = 0; (at = screen.find(what, at)) != std::string::npos; ++at) {
        ++count;
    }
    return count;
}

std::string ScriptedCaller::between(std::string_view from, std::string_view to) const {
    const std::size_t begin = screen.find(from);
    if (begin == std::string::npos) {
        return "nowhere";
    }
    const std::string rest = screen.substr(begin + from.size());
    return rest.substr(0, rest.find(to));
}

void newCall(bool ansi, std::string_view name) {
    resetGame();
    caller = ScriptedCaller{};
    chance = ScriptedChance{};
    game.session.dateStamp = "111526";
    od_control = tODControl{};
    od_control.user_ansi = ansi ? 1 : 0;
    od_control.user_timelimit = 60;
    name.copy(od_control.user_name, sizeof od_control.user_name - 1);
}

namespace {

void note(const std::string& event) { caller.screen += '[' + event + ']'; }

void noteText(std::string text) {
    static const std::map<std::string, const char*> briefly{
        {"\n\r", "|"}, {"`red`", "`r`"}, {"`bright red`", "`R`"}, {"`bright white`", "`W`"}};
    for (const auto& [full, brief] : briefly) {
        for (std::size_t at = 0; (at = text.find(full, at)) != std::string::npos;) {
            text.replace(at, full.size(), brief);
        }
    }
    caller.screen += '{' + text + '}';
}

char nextKey() {
    if (caller.keys.empty()) {
        throw OutOfKeys("no key left after " + caller.screen);
    }
    const char key = caller.keys.front();
    caller.keys.erase(0, 1);
    return key;
}

char oneOf(std::string_view options) {
    while (true) {
        const int typed = std::tolower(nextKey());
        for (const char option : options) {
            if (std::tolower(option) == typed) {
                return option;
            }
        }
    }
}

} // namespace
} // namespace morvek::test

using namespace morvek::test;

extern "C" {

int rand() noexcept {
    const auto before = static_cast<std::size_t>(chance.drawn++);
    return before < chance.draws.size() ? chance.draws[before] : 0;
}

void srand(unsigned) noexcept { chance.seededBefore.push_back(chance.drawn); }

std::time_t time(std::time_t* result) noexcept {
    const std::time_t now = 1794744000;
    return result != nullptr ? *result = now : now;
}

void od_parse_cmd_line(int argc, char* argv[]) {
    note("options " + std::string(argc > 0 ? argv[argc - 1] : ""));
}

void od_init(void) { note("init"); }

void od_exit(int errorlevel, int) { throw CallEnded{errorlevel}; }

void od_set_color(int foreground, int background) {
    note("colour " + std::to_string(foreground) + " " + std::to_string(background));
}

void od_autodetect(int flags) { note("autodetect " + std::to_string(flags)); }

void od_clr_scr(void) { note("clear"); }

void od_printf(const char* format, ...) {
    std::array<char, 4096> text{};
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text.data(), text.size(), format, arguments);
    va_end(arguments);
    noteText(text.data());
}

void od_disp(const char* text, int size, int) {
    caller.screen += '<' + std::string(text, static_cast<std::size_t>(size)) + '>';
}

void od_set_cursor(int row, int column) {
    note("cursor " + std::to_string(row) + " " + std::to_string(column));
}

char od_get_key(int) {
    const std::string pause = "{`r`Press any key!}";
    if (caller.screen.ends_with(pause)) {
        caller.screen.resize(caller.screen.size() - pause.size());
        note("any key");
    } else {
        note("key");
    }
    return nextKey();
}

char od_get_answer(const char* options) {
    note("answer " + std::string(options));
    return oneOf(options);
}

void od_input_str(char* text, int max_length, unsigned char min, unsigned char max) {
    note("line " + std::to_string(max_length) + " " + std::to_string(min) + " " +
         std::to_string(max) + " " + text);
    std::string line; // what is typed replaces what stood there
    for (char key = nextKey(); key != '\r'; key = nextKey()) {
        line += key;
    }
    line.resize(std::min(line.size(), static_cast<std::size_t>(max_length)));
    if (!line.empty()) {
        std::strcpy(text, line.c_str());
    }
}

char od_hotkey_menu(const char* name, const char* hotkeys, int) {
    note("menu " + std::string(name) + " " + hotkeys);
    return oneOf(hotkeys);
}

} // extern "C"
