// The display files of every menu. A whole menu lists each of its keys once, as the letter before
// a closing bracket, and ends with a prompt line that the cursor stays on. The others are shown
// below a list that the game prints itself: they are that prompt line alone. The coloured file
// says the words of the plain one, in any order, among art of bytes above 127; after byte 26 a
// record of 128 bytes describes it to viewers.

#include <gmock/gmock.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>

using testing::EndsWith;

namespace {

struct Menu {
    std::string name;
    std::string keys;     // sorted; none where the game prints the list itself
    std::ptrdiff_t lines; // at most: what the game prints above must stay on the screen
};

// Empty when there is no such file.
std::string readMenu(const std::string& name) {
    std::ifstream file(MORVEK_MENUS_DIR "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// Colours that neither blink nor have a bright background, which some terminals take for blinking.
std::string withoutColours(const std::string& text) {
    return std::regex_replace(text, std::regex("\x1b\\[(0|1|[34][0-7])(;(0|1|[34][0-7]))*m"), "");
}

// Without the art, and the rules drawn with hyphens.
std::multiset<std::string> words(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return c > 127 || c == '-'; }, ' ');
    std::istringstream in(text);
    return {std::istream_iterator<std::string>(in), {}};
}

std::string keysListed(const std::string& text) {
    std::string keys;
    for (std::size_t i = 1; i < text.size(); i++) {
        if (text[i] == ')') {
            keys += static_cast<char>(std::tolower(static_cast<unsigned char>(text[i - 1])));
        }
    }
    std::sort(keys.begin(), keys.end());
    return keys;
}

void expectMenu(const Menu& menu, const std::string& text) {
    EXPECT_EQ(keysListed(text), menu.keys);
    EXPECT_LE(std::count(text.begin(), text.end(), '\n') + 1, menu.lines);
    EXPECT_THAT(text, EndsWith(menu.keys.empty() ? "> " : "Your choice: "));
    std::istringstream lines(text + "\r");
    for (std::string line; std::getline(lines, line);) {
        const auto end =
            std::find_if(line.begin(), line.end(), [](unsigned char c) { return std::iscntrl(c); });
        EXPECT_EQ(std::string(end, line.end()), "\r") << line;
        EXPECT_LE(line.size(), 80u) << line;
    }
}

} // namespace

TEST(Menus, FitTheScreenListTheirKeysAndSayTheSameInColour) {
    const std::vector<Menu> menus{
        {"intmenu", "hqs", 15}, {"clasmenu", "12345678", 22}, {"townmenu", "abfhlopqtwy", 22},
        {"heal", "aghr", 14},   {"weapons", "brsy", 22},      {"armours", "brsy", 22},
        {"command", "", 1},     {"areaone", "", 1},           {"tavern", "", 1},
        {"drink", "", 1},       {"training", "", 1}};
    for (const Menu& menu : menus) {
        SCOPED_TRACE(menu.name);
        const std::string plain = readMenu(menu.name + ".asc");
        const std::string file = readMenu(menu.name + ".ans");
        const std::string text = file.substr(0, file.find('\x1a'));
        expectMenu(menu, plain);
        expectMenu(menu, withoutColours(text));
        EXPECT_EQ(words(withoutColours(text)), words(plain));
        EXPECT_EQ(file.size(), text.size() + 1 + 128);
        EXPECT_EQ(file.substr(text.size() + 1, 7), "SAUCE00");
    }
}
