// Drop files as boards write them, and who is to be told from them.
#pragma once

#include "support/process.h"

#include <array>
#include <ctime>
#include <map>
#include <sstream>

using Lines = std::map<std::size_t, std::string>; // by their numbers, from 1

// A drop file as its boards write it: for Jörg Ace, in truth Alice Doe, who has ANSI graphics and
// 45 minutes left, on node 3.
struct BoardFile {
    std::string name;
    std::string lines; // a bar ends each but the last

    // The file's bytes, with other texts in some of its lines.
    std::string with(const Lines& others = {}) const {
        std::istringstream rest(lines);
        std::string bytes;
        std::string line;
        for (std::size_t number = 1; std::getline(rest, line, '|'); ++number) {
            const auto other = others.find(number);
            bytes += (other == others.end() ? line : other->second) + "\r\n";
        }
        return bytes;
    }
};

// The moment so many seconds from now, as BBSDEV.DRP writes it.
inline std::string momentIn(long seconds) {
    const std::time_t moment = std::time(nullptr) + seconds;
    std::array<char, 32> text{};
    std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", std::gmtime(&moment));
    return text.data();
}

inline const BoardFile door32{"DOOR32.SYS",
                              "2|-1|38400|Board 1|7|Alice Doe|J\x94rg Ace \t|50|45|1|3"};
inline const BoardFile doorSys{
    "DOOR.SYS",
    "COM1:|38400|8|3|38400|Y|N|N|N|Alice Doe|Bree|555-1|555-2|secret|50|7|01/01/26|2700|45|GR|25|"
    "N|1,2|1|12/31/99|7|Z|0|0|0|0|01/01/80|C:\\BBS|C:\\GEN|Bob|J\x94rg Ace|00:00|Y|N|Y|7|0|"
    "01/01/26|12:00|11:00|99|0|0|0|None|0|0"};
inline const BoardFile shortDoorSys{"DOOR.SYS",
                                    doorSys.lines.substr(0, doorSys.lines.find("|01/01/80"))};
inline const BoardFile dorinfo{
    "DORINFO3.DEF", "Board|Bob|Op|COM1|38400 BAUD,N,8,1|0|J\x94rg|Ace|Bree, Shire|1|50|45|-1"};
inline const BoardFile chain{
    "CHAIN.TXT",
    "7|J\x94rg Ace|Alice Doe||30|F|0.00|01/01/26|80|25|50|0|0|1|1|2700.50|gfiles|data|log|38400|1|"
    "Board|Bob|43200|12|0|0|0|0|8N1|38400|3"};
inline const BoardFile bbsdev{"BBSDEV.DRP", "1.0|stdio||J\xc3\xb6rg Ace|7|80|25|Y|50|en|" +
                                                momentIn(2758) + "|IBM437|Board|Bob||||3|-"};

inline const std::string jorg = "J\x94rg Ace";

// A drop file with what boards write that one would not expect, options, and what they tell.
struct BoardCaller {
    const BoardFile& file;
    Lines others;
    std::string name = jorg;
    int minutes = 45; // -1: his time is used up
    bool ansi = true;
    Arguments options{};
};

inline const Arguments real{"-REALNAME", "-TIMELEFT=7", "-ASCII", "-STDIO"};

inline const std::vector<BoardCaller> boardCallers{
    {door32, {}},
    {door32, {{2, "1000"}, {4, "WWIV v5"}, {7, " "}, {9, "2700"}, {10, "4"}}, "Alice Doe"},
    {door32, {{1, "0"}, {2, "9"}, {9, "99999999999999999999"}, {10, "0"}}, jorg, 32767, false},
    {door32, {{7, std::string(40, 'x')}, {11, "99999999999"}}, std::string(15, 'x')},
    {door32, {}, "Alice Doe", 7, false, real},
    {doorSys, {}},
    {doorSys, {{36, ""}, {20, "NG"}}, "Alice Doe", 45, false},
    {shortDoorSys, {{20, "7e"}}, "Alice Doe", 45, false},
    {dorinfo, {}},
    {dorinfo, {{7, "J\x94rg Ace"}, {8, "NLN"}}},
    {dorinfo, {{8, ""}, {10, "0"}}, "J\x94rg", 45, false},
    {chain, {{2, ""}, {14, "0"}, {15, "0"}, {16, "59.9"}}, "Alice Doe", 0, false},
    {chain, {{16, "2700"}}},
    {bbsdev, {}},
    {bbsdev, {{1, "1.7"}, {2, "LOCAL"}, {8, "n"}, {11, ""}}, jorg, 32767, false},
    {bbsdev, {{2, "socket"}, {3, "-1"}, {11, "1999-12-31T23:59:60Z"}}, "", -1},
    {bbsdev, {{11, momentIn(90030)}, {12, "utf-8"}}, jorg, 1500},
    {bbsdev, {{2, "fossil"}}, jorg, 7, false, real},
};
