// The program behind the shim, in a directory whose files a test knows at every key.
#pragma once

#include "state/game_state.h"
#include "support/program.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/stat.h>

// A call that begins with these files and ends by itself with the last key.
struct Play {
    Play(Files begin, std::string words) : files(std::move(begin)), keys(std::move(words)) {
        std::erase(keys, ' '); // blanks only part what is done from what is done next
    }

    Files files;
    std::string keys;
};

// Ace's character, who has been everywhere, or whom the first blow kills; and one to rob.
inline std::string rosterOf(bool strong) {
    auto slots = morvek::emptySlots();
    morvek::PlayerRecord& own = slots[0];
    own.ownerName.assign("Ace");
    own.name.assign("Aldur");
    own.className.assign("Fighter");
    own.level = own.weaponNumber = own.armourNumber = 1;
    own.experience = own.experienceNeeded = 1000;
    own.gold = 100000;
    own.hitPoints = strong ? 5 : 1;
    own.maxHitPoints = 20;
    own.dexterity = strong ? 10 : 1;
    own.worldState.fill(strong ? 1 : 0);
    slots[1].ownerName.assign("Other");
    slots[1].name.assign("Bors");
    slots[1].gold = 70;
    slots[1].hitPoints = 1;
    return {reinterpret_cast<const char*>(slots.data()), sizeof slots};
}

class Stage : public Game {
public:
    Stage() {
        mkfifo(pipeName.c_str(), 0600);
        waits = open(pipeName.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
    }
    ~Stage() { close(waits); }

    // Leaves these data files and no others.
    void prepare(const Files& files) const {
        for (const auto& [name, bytes] : data()) {
            std::filesystem::remove(folder.path(name));
        }
        for (const auto& [name, bytes] : files) {
            folder.write(name, bytes);
        }
        told();
    }

    // The program behind the shim; with no more arguments its caller is at its streams.
    Child program(const std::string& fault = "", Arguments more = {"-LOCAL"},
                  const std::string& user = "Ace") const {
        more.insert(more.end(), {"-USERNAME", user});
        return [this, fault, run = Game::program(more)] {
            setenv("TZ", "UTC", 1);
            setenv("ASAN_OPTIONS", "verify_asan_link_order=0:detect_leaks=0", 1);
            setenv("LD_PRELOAD", MORVEK_SHIM, 1);
            setenv("MORVEK_WAITS", pipeName.c_str(), 1);
            setenv("MORVEK_FAULT", fault.c_str(), 1);
            run();
        };
    }

    // Waits until the program waits for a key, and takes in what it shows; false when it does not.
    bool waitsForKey(const Call& call, Line line) const {
        std::array<pollfd, 2> ends{
            {{waits, POLLIN, 0}, {line == Line::pipe ? -1 : call.end, POLLIN, 0}}};
        std::array<char, 4096> shown;
        while (::poll(ends.data(), ends.size(), 5000) > 0 && ends[0].revents == 0 &&
               read(call.end, shown.data(), shown.size()) > 0) {
        }
        return told() == ".";
    }

    // What the shim has told since the last time.
    std::string told() const {
        std::array<char, 4096> bytes;
        const ssize_t count = read(waits, bytes.data(), bytes.size());
        return {bytes.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0))};
    }

    // The files at each wait for a key, and after the end.
    std::vector<Files> states(const Play& play) const {
        std::vector<Files> all;
        prepare(play.files);
        const Call call(program(), Line::pipe);
        for (const char key : play.keys) {
            EXPECT_TRUE(waitsForKey(call, Line::pipe)) << all.size();
            all.push_back(data());
            call.type({key});
        }
        EXPECT_EQ(call.status(), 0);
        all.push_back(data());
        return all;
    }

private:
    Folder apart;
    std::string pipeName = apart.path("waits");
    int waits = -1;
};
