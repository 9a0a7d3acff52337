// The display files. A menu lists each of its keys once, as the letter before a closing bracket,
// except where the game prints the list itself, and ends with the same prompt, which the cursor
// stays behind. The plain file fits 40 columns. The coloured file says the words of the plain one,
// in any order, among art of bytes above 127; after byte 26 a record of 128 bytes describes it to
// viewers. The guide for callers shows Towne's menu, and is a bulletin of 79 columns.
#include "support/folder.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <vector>

namespace {

// Leaves blinking and bright backgrounds, which some terminals take for blinking.
std::string withoutColours(const std::string& text) {
    return std::regex_replace(text, std::regex("\x1b\\[(0|1|[34][0-7])(;(0|1|[34][0-7]))*m"), "");
}

// Without the art, and the rules drawn with hyphens.
std::multiset<std::string> words(const std::string& text) {
    std::istringstream in(std::regex_replace(text, std::regex("[^ -,.-~\r\n]"), " "));
    return {std::istream_iterator<std::string>(in), {}};
}

// In their order, without marks and blanks.
std::vector<std::string> wordsInOrder(const std::string& text) {
    const std::regex word("[[:alnum:]]+");
    return {std::sregex_token_iterator(text.begin(), text.end(), word), {}};
}

// Returns how many lines of at most so many columns there are, which end in a carriage return.
int countLines(const std::string& text, int columns) {
    const std::regex fits("[^\\x00-\\x1f\\x7f]{0," + std::to_string(columns) + "}\r");
    std::istringstream in(text);
    int lines = 0;
    for (std::string line; std::getline(in, line); ++lines) {
        EXPECT_TRUE(std::regex_match(line, fits)) << line;
    }
    return lines;
}

// The keys are sorted.
void expectMenu(const std::string& text, const std::string& keys, int lines, int columns) {
    std::multiset<char> listed;
    for (std::size_t at = 0; (at = text.find(')', at + 1)) != std::string::npos;) {
        listed.insert(static_cast<char>(std::tolower(static_cast<unsigned char>(text[at - 1]))));
    }
    EXPECT_EQ(std::string(listed.begin(), listed.end()), keys);
    EXPECT_THAT(text, testing::EndsWith("Your choice: "));
    EXPECT_LE(countLines(text + "\r", columns), lines);
}

} // namespace

// The lines of a menu leave room for what the game prints above, and for its answers below.
TEST(Menus, FitTheScreenAndListTheirKeys) {
    const std::map<std::string, std::pair<std::string, int>> menus{
        {"intmenu", {"hqs", 15}},
        {"clasmenu", {"12345678", 22}},
        {"townmenu", {"abfhlopqtwy", 22}},
        {"heal", {"aghr", 14}},
        {"weapons", {"brsy", 22}},
        {"armours", {"brsy", 22}},
        {"drink", {"", 10}},
        {"training", {"", 12}},
        {"command", {"", 1}},
        {"areaone", {"", 1}},
        {"tavern", {"", 1}}};
    for (const auto& [name, menu] : menus) {
        SCOPED_TRACE(name);
        const auto& [keys, lines] = menu;
        const std::string plain = readFile(MORVEK_MENUS_DIR "/" + name + ".asc");
        const std::string file = readFile(MORVEK_MENUS_DIR "/" + name + ".ans");
        const std::string coloured = withoutColours(file.substr(0, file.find('\x1a')));
        expectMenu(plain, keys, lines, 39);
        expectMenu(coloured, keys, lines, 79);
        EXPECT_EQ(words(coloured), words(plain));
        EXPECT_EQ(file.find("\x1aSAUCE00"), file.size() - 129);
    }
}

TEST(CallersGuide, ShowsTheMenuOfTowne) {
    const std::string guide = readFile(MORVEK_DOCS_DIR "/guide-caller.md");
    std::string menu = readFile(MORVEK_MENUS_DIR "/townmenu.asc");
    menu = menu.substr(0, menu.find("\r\n\r\nYour choice"));
    menu = std::regex_replace(menu, std::regex("\r\n(?!\r)"), "\n    ");
    EXPECT_THAT(guide, testing::HasSubstr(std::regex_replace(menu, std::regex("\r"), "")));
}

TEST(CallersGuide, IsABulletin) {
    const std::string guide = readFile(MORVEK_DOCS_DIR "/guide-caller.md");
    const std::string plain = readFile(MORVEK_BULLETINS_DIR "/guide-caller.asc");
    const std::string coloured = readFile(MORVEK_BULLETINS_DIR "/guide-caller.ans");
    EXPECT_NE(withoutColours(coloured), coloured);
    for (const std::string& text : {plain, withoutColours(coloured)}) {
        EXPECT_EQ(wordsInOrder(text), wordsInOrder(guide));
        EXPECT_GT(countLines(text, 79), 100);
        EXPECT_TRUE(std::all_of(text.begin(), text.end(), [](char c) { return (c & 0x80) == 0; }));
    }
}
