// What the door toolkit reads: drop files, options, display files, the caller's bytes.
#include "caller.h"
#include "clock.h"
#include "drop_file.h"
#include "fuzz.h"
#include "startup_error.h"
#include "text.h"

#include <array>
#include <sstream>
#include <vector>

#include "OpenDoor.h"

namespace fuzz {
namespace {

void resolve(const odoors::Options& options, const std::optional<odoors::DropFile>& file) {
    const odoors::Caller caller = odoors::resolveCaller(options, file, odoors::Streams{});
    require(caller.name.size() < sizeof od_control.user_name);
    odoors::TimeLimit limit(0, caller.secondsLeft, caller.timed);
    require(limit.end() >= 0 && limit.minutesLeft(0) >= 0 && limit.popWarning(0) == 0);
    require(caller.inactivitySeconds >= 0 && caller.inactivitySeconds < odoors::never / 1000);
}

// The caller of a drop file, or one line that says why there is none.
void dropFile(const std::string& name, std::string_view input) {
    try {
        const odoors::DropFile file = odoors::parseDropFile(name, input);
        odoors::Options options;
        options.standardStreams = true;
        resolve(options, file);
    } catch (const odoors::StartupError& error) {
        require(error.reason.starts_with(name + ": line "));
        require(error.reason.find('\n') == std::string::npos);
    }
}

} // namespace

extern const Target door32Sys = [](std::string_view input) { dropFile("DOOR32.SYS", input); };
extern const Target doorSys = [](std::string_view input) { dropFile("DOOR.SYS", input); };
extern const Target dorinfoDef = [](std::string_view input) { dropFile("DORINFO1.DEF", input); };
extern const Target chainTxt = [](std::string_view input) { dropFile("CHAIN.TXT", input); };
extern const Target bbsdevDrp = [](std::string_view input) { dropFile("BBSDEV.DRP", input); };

// The command line, a line of the input a word.
extern const Target options = [](std::string_view input) {
    std::istringstream lines{std::string(input)};
    std::vector<std::string> words;
    for (std::string line; std::getline(lines, line);) {
        words.push_back(line);
    }
    std::vector<const char*> arguments;
    for (const std::string& word : words) {
        arguments.push_back(word.c_str());
    }
    try {
        odoors::Options read;
        odoors::readOptions(arguments, read);
        resolve(read, std::nullopt);
    } catch (const odoors::StartupError& error) {
        require(!error.reason.empty());
    }
};

// A menu's display file, which is also said as a text with colour codes.
extern const Target displayFile = [](std::string_view input) {
    Call call{takeNumber(input), "x"};
    workFolder().write("menu.asc", input);
    call.trusted = false;
    hold(call, [] { od_hotkey_menu("MENU", "x", 1); });
    call.trusted = true;
    hold(call, [=] {
        od_printf("%s", std::string(input).c_str());
        od_disp(input.data(), static_cast<int>(input.size()), 1);
        od_get_key(1);
    });
};

// Every way in which the caller is asked, in turn.
extern const Target terminal = [](std::string_view input) {
    const unsigned bits = takeNumber(input);
    hold({bits, input}, [] {
        od_autodetect(0);
        while (true) {
            std::array<char, 21> line{"abc"};
            od_input_str(line.data(), 20, 32, 255);
            const std::string_view typed = line.data();
            require(typed.size() <= 20);
            require(std::none_of(typed.begin(), typed.end(), odoors::isControl));
            od_set_cursor(3, 40);
            od_disp_str(line.data());
            require(std::string_view("YNx").find(od_get_answer("YNx")) != std::string_view::npos);
            od_clr_scr();
            od_get_key(0);
            require(od_get_key(1) != 0);
        }
    });
};

} // namespace fuzz
