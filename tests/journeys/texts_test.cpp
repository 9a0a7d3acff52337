// Callers' texts are only texts: files forged with every byte there is in every text, and callers
// who look at all of it. What their terminals obey must be what they obey when each of those bytes
// is a harmless letter.
#include "support/program.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace {

constexpr int texts = 19; // of 14 of the bytes each

// One of the texts with all bytes: a letter of its own, and 14 bytes.
std::string forged(int text) {
    std::string bytes(1, static_cast<char>('A' + text));
    for (int i = 0; i < 14; ++i) {
        bytes += static_cast<char>(text * 14 + i);
    }
    return bytes;
}

// A text of that length that can do nothing but begin a colour code.
std::string harmless(std::string bytes) {
    std::replace_if(
        bytes.begin() + 1, bytes.end(), [](char byte) { return byte != '`'; }, 'x');
    return bytes;
}

std::string slot(const std::string& text) {
    return std::string(4, '\0') + static_cast<char>(text.size()) + std::string(3, '\0') + text +
           std::string(16 - text.size(), '\0');
}

std::string ownerOf(int text) {
    return "c" + std::to_string(text);
}

// Files in which other callers' texts stand.
void forgeFiles(Game& game, std::string (*form)(std::string)) {
    std::string roster;
    std::string board;
    std::string scores;
    for (int i = 0; i < texts; ++i) {
        const std::string text = slot(form(forged(i)));
        std::string record(recordSize, '\0');
        for (const std::size_t at : {0, 24, 84, 108, 196, 224}) {
            record.replace(at, text.size(), text);
        }
        record.replace(60, text.size(), slot(ownerOf(i)));
        for (const std::size_t at : {56, 132, 160, 164, 192, 220}) {
            record[at] = 1;
        }
        roster += record;
        // The board holds half of them, a text in either place.
        board += i < 10 ? text + slot(form(forged(texts - 1 - i))) : "";
        std::string name = form(forged(i));
        std::replace(name.begin(), name.end(), '#', 'x');
        scores += i % 2 == 0 ? name : name + "#1" + form("x\033\a\b\x7f\x9b\xff") + '\n';
    }
    roster.resize(50 * recordSize);
    game.write("morchars.dat", roster);
    game.write("scroll.dat", board);
    game.write("scores.dat", scores);
}

// What a terminal obeys of that which is shown: control bytes and escape sequences.
std::string obeyed(const std::string& shown) {
    std::string kept;
    bool sequence = false;
    for (const char byte : shown) {
        if (sequence || static_cast<unsigned char>(byte) < ' ' || byte == 127) {
            kept += byte;
        }
        sequence = byte == '\033' || (sequence && std::string_view("[;0123456789").find(byte) < 12);
    }
    return kept;
}

// All callers look at everything: the top ten, the list, who is on-line, their status, the board,
// and another whom they attack. What they saw, and the bulletins, which are the same for all.
std::string everythingShown(std::string (*form)(std::string), Arguments options) {
    Game game;
    forgeFiles(game, form);
    std::string shown;
    options.insert(options.end(), {"-LOCAL", "-USERNAME", ""});
    for (int i = 0; i < texts; ++i) {
        options.back() = ownerOf(i);
        const std::string other = std::to_string((i + 1) % texts + 1);
        const Child child = game.program(options);
        const Outcome call = runWithKeys(child, "hxsxlxoxyxtlcrp" + other + "\ryyxrqxxq");
        EXPECT_EQ(call.status, 0);
        shown += call.shown;
    }
    return shown + game.text("scores.asc") + game.text("scores.ans");
}

} // namespace

TEST(Texts, SteerNobodysTerminal) {
    for (const auto& [options, letters] : std::vector<std::pair<Arguments, std::string>>{
             {{"-ASCII"}, "\x9b\x9c"}, {{"-GRAPHICS", "-CHARSET", "utf8"}, "\u00a2\u00a3"}}) {
        const auto asTheyAre = [](std::string text) { return text; };
        const std::string shown = everythingShown(asTheyAre, options);
        EXPECT_EQ(obeyed(shown), obeyed(everythingShown(harmless, options)));
        EXPECT_NE(shown.find(letters), std::string::npos) << "the letters above 127 are shown";
    }
}

// What a board or its caller smuggles into his name reaches neither the news nor the characters.
TEST(Texts, ANameIsTakenWithoutItsControlBytes) {
    const std::string name = "x\033[2J\r\a\x9b\xff";
    const Game game;
    const Arguments options{"-LOCAL", "-USERNAME", name + '\n'};
    EXPECT_EQ(runWithKeys(game.program(options), "sxJo\ry1xqxxq").status, 0);
    const Files files = game.data();
    EXPECT_EQ(files.begin()->second.substr(17, 6), "x[2J\x9b\xff") << "in the news";
    EXPECT_EQ(files.at("morchars.dat").substr(ownerNameAt, 6), "x[2J\x9b\xff");
    EXPECT_EQ(runWithKeys(game.program({name}), "").complaints.substr(0, 22),
              "unknown option x[2J\x9b\xff\n");
}
