// What boards hand to a door: drop files of one and the same call, and the caller's socket.
#pragma once

#include "support/process.h"

#include <array>
#include <ctime>
#include <sstream>

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

// A drop file as its boards write it: for Jörg Ace, in truth Alice Doe, who has ANSI graphics and
// 45 minutes left, on node 3.
struct BoardFile {
    std::string name;
    std::size_t linesNeeded;
    std::vector<std::size_t> numbers; // the lines that must hold one
    std::string lines;                // a bar ends each but the last

    // The file's bytes, with other texts in some of its lines.
    std::string with(const std::vector<std::pair<std::size_t, std::string>>& others = {}) const {
        std::istringstream rest(lines);
        std::string bytes;
        std::string line;
        for (std::size_t number = 1; std::getline(rest, line, '|'); ++number) {
            for (const auto& [where, text] : others) {
                line = where == number ? text : line;
            }
            bytes += line + "\r\n";
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

inline const BoardFile door32{
    "DOOR32.SYS", 11, {1, 2, 9, 10, 11}, "2|-1|38400|Board 1|7|Alice Doe|J\x94rg Ace \t|50|45|1|3"};

inline const std::string doorSys31 =
    "COM1:|38400|8|3|38400|Y|N|N|N|Alice Doe|Bree|555-1|555-2|secret|50|7|01/01/26|2700|45|GR|25|"
    "N|1,2|1|12/31/99|7|Z|0|0|0|0";

inline const BoardFile doorSys{"DOOR.SYS",
                               31,
                               {4, 19},
                               doorSys31 + "|01/01/80|C:\\BBS|C:\\GEN|Bob|J\x94rg Ace|00:00|Y|N|Y|"
                                           "7|0|01/01/26|12:00|11:00|99|0|0|0|None|0|0"};

inline const BoardFile dorinfo{
    "DORINFO3.DEF",
    12,
    {10, 12},
    "Board|Bob|Op|COM1|38400 BAUD,N,8,1|0|J\x94rg|Ace|Bree, Shire|1|50|45|-1"};

inline const BoardFile chain{
    "CHAIN.TXT",
    32,
    {14, 16},
    "7|J\x94rg Ace|Alice Doe||30|F|0.00|01/01/26|80|25|50|0|0|1|1|2700.50|gfiles|data|log|38400|1|"
    "Board|Bob|43200|12|0|0|0|0|8N1|38400|3"};

inline const BoardFile bbsdev{"BBSDEV.DRP",
                              19,
                              {18},
                              "1.0|stdio||J\xc3\xb6rg Ace|7|80|25|Y|50|en|" + momentIn(2758) +
                                  "|IBM437|Board|Bob||||3|-"};

inline const std::vector<BoardFile> boardFiles{door32, doorSys, dorinfo, chain, bbsdev};

// Starts a child whose board gives it the caller's socket as an inherited descriptor, and nothing
// at standard input and output.
constexpr int handedSocket = 2;

inline pid_t startOnSocket(const Child& child, int socket) {
    const int nothing = open("/dev/null", O_RDWR | O_CLOEXEC);
    const pid_t process = startChild(child, nothing, nothing, socket);
    close(nothing);
    close(socket);
    return process;
}

// Runs a child whose caller is on a socket, has sent these bytes beforehand, and is then gone.
inline Outcome runOnSocket(const Child& child, const std::string& bytes) {
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()) != 0) {
        return {};
    }
    send(ends[0], bytes.data(), bytes.size(), 0);
    shutdown(ends[0], SHUT_WR);
    const pid_t process = startOnSocket(child, ends[1]);
    Outcome outcome;
    std::array<char, 4096> buffer;
    ssize_t count = 0;
    while ((count = recv(ends[0], buffer.data(), buffer.size(), 0)) > 0) {
        outcome.shown.append(buffer.data(), static_cast<std::size_t>(count));
    }
    outcome.status = waitForEnd(process);
    close(ends[0]);
    return outcome;
}
