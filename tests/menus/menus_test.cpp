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

bool isControl(unsigned char byte) {
    return std::iscntrl(byte) != 0;
}

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

// The keys are sorted; there are none where the game prints the list itself. There are so many
// lines at most: what the game prints above must stay on the screen.
void expectMenu(const std::string& text, const std::string& keys, std::ptrdiff_t lines) {
    std::multiset<char> listed;
    for (std::size_t at = 0; (at = text.find(')', at + 1)) != std::string::npos;) {
        listed.insert(static_cast<char>(std::tolower(static_cast<unsigned char>(text[at - 1]))));
    }
    EXPECT_EQ(std::string(listed.begin(), listed.end()), keys);
    EXPECT_LE(std::count(text.begin(), text.end(), '\n') + 1, lines);
    EXPECT_THAT(text, EndsWith(keys.empty() ? "> " : "Your choice: "));
    std::istringstream in(text + "\r");
    for (std::string line; std::getline(in, line);) {
        EXPECT_TRUE(line.ends_with('\r') && line.size() <= 80) << line;
        EXPECT_EQ(std::count_if(line.begin(), line.end(), isControl), 1) << line;
    }
}

} // namespace

TEST(Menus, FitTheScreenListTheirKeysAndSayTheSameInColour) {
    const std::vector<std::tuple<std::string, std::string, std::ptrdiff_t>> menus{
        {"intmenu", "hqs", 15}, {"clasmenu", "12345678", 22}, {"townmenu", "abfhlopqtwy", 22},
        {"heal", "aghr", 14},   {"weapons", "brsy", 22},      {"armours", "brsy", 22},
        {"command", "", 1},     {"areaone", "", 1},           {"tavern", "", 1},
        {"drink", "", 1},       {"training", "", 1}};
    for (const auto& [name, keys, lines] : menus) {
        SCOPED_TRACE(name);
        const std::string plain = readMenu(name + ".asc");
        const std::string file = readMenu(name + ".ans");
        const std::string text = file.substr(0, file.find('\x1a'));
        expectMenu(plain, keys, lines);
        expectMenu(withoutColours(text), keys, lines);
        EXPECT_EQ(words(withoutColours(text)), words(plain));
        EXPECT_EQ(file.size(), text.size() + 1 + 128);
        EXPECT_EQ(file.substr(text.size() + 1, 7), "SAUCE00");
    }
}
