#include "support/scripted_caller.h"

#include "state/game_state.h"
#include "support/scripted_chance.h"

#include "OpenDoor.h"

#include <array>
#include <cctype>
#include <cstdarg>
#include <cstdio>
#include <cstring>

tODControl od_control;

namespace morvek::test {

ScriptedCaller caller;

void ScriptedCaller::type(std::string_view newKeys) {
    keys = newKeys;
    seen.clear();
    calls.clear();
}

std::string ScriptedCaller::screen() const {
    std::string lines;
    for (const std::string& call : calls) {
        lines += call;
        lines += '\n';
    }
    for (std::size_t at = 0; (at = lines.find("\n\r", at)) != std::string::npos;) {
        lines.replace(at, 2, "|");
    }
    return lines;
}

bool ScriptedCaller::saw(std::string_view text) const {
    return seen.find(text) != std::string::npos;
}

void newCall(bool ansi, std::string_view name) {
    game = GameState{};
    caller = ScriptedCaller{};
    chance = ScriptedChance{};
    od_control = tODControl{};
    od_control.user_ansi = ansi ? 1 : 0;
    od_control.user_timelimit = 60;
    name.copy(od_control.user_name, sizeof od_control.user_name - 1);
}

namespace {

void note(const std::string& kind, std::string_view text) {
    caller.calls.push_back(kind + " " + std::string(text));
    caller.seen += text;
}

char nextKey(const std::string& where) {
    if (caller.keys.empty()) {
        throw OutOfKeys("no key left at " + where + " after: " + caller.seen);
    }
    const char key = caller.keys.front();
    caller.keys.erase(0, 1);
    return key;
}

char oneOf(const char* options, const std::string& where) {
    while (true) {
        const int typed = std::tolower(static_cast<unsigned char>(nextKey(where)));
        for (const char* option = options; *option != '\0'; ++option) {
            if (std::tolower(static_cast<unsigned char>(*option)) == typed) {
                return *option;
            }
        }
    }
}

} // namespace
} // namespace morvek::test

using namespace morvek::test;

extern "C" {

void od_parse_cmd_line(int argc, char* argv[]) {
    caller.calls.push_back("options " + std::string(argc > 0 ? argv[argc - 1] : ""));
}

void od_init(void) {
    caller.calls.emplace_back("init");
}

void od_exit(int errorlevel, int) {
    throw CallEnded{errorlevel};
}

void od_set_color(int foreground, int background) {
    caller.calls.push_back("colour " + std::to_string(foreground) + " " +
                           std::to_string(background));
}

void od_autodetect(int flags) {
    caller.calls.push_back("autodetect " + std::to_string(flags));
}

void od_clr_scr(void) {
    caller.calls.emplace_back("clear");
}

void od_printf(const char* format, ...) {
    std::array<char, 4096> text{};
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text.data(), text.size(), format, arguments);
    va_end(arguments);
    note("say", text.data());
}

void od_disp(const char* text, int size, int) {
    note("show", std::string_view(text, static_cast<std::size_t>(size)));
}

void od_disp_str(const char* text) {
    note("show", text);
}

void od_set_cursor(int row, int column) {
    caller.calls.push_back("cursor " + std::to_string(row) + " " + std::to_string(column));
}

char od_get_key(int) {
    caller.calls.emplace_back("key");
    return nextKey("a pause");
}

char od_get_answer(const char* options) {
    caller.calls.push_back("answer " + std::string(options));
    return oneOf(options, "the answer");
}

void od_input_str(char* text, int max_length, unsigned char min, unsigned char max) {
    caller.calls.push_back("line " + std::to_string(max_length) + " " + std::to_string(min) + " " +
                           std::to_string(max) + " " + text);
    std::string line = text;
    bool fresh = true;
    while (true) {
        const char key = nextKey("the line");
        const auto code = static_cast<unsigned char>(key);
        if (key == '\r') {
            break;
        }
        if (key == '\b') {
            line.resize(line.empty() ? 0 : line.size() - 1);
        } else if (code >= 32 && code != 127 && code >= min && code <= max) {
            line = fresh ? std::string() : line;
            line.append(line.size() < static_cast<std::size_t>(max_length) ? 1 : 0, key);
        }
        fresh = false;
    }
    std::memcpy(text, line.c_str(), line.size() + 1);
}

char od_hotkey_menu(const char* name, const char* hotkeys, int) {
    caller.calls.push_back("menu " + std::string(name) + " " + hotkeys);
    return oneOf(hotkeys, "the menu " + std::string(name));
}

} // extern "C"
