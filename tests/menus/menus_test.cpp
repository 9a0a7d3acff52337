// The display files of every menu. A whole menu lists each of its keys once, as the letter before
// a closing bracket, and ends with a prompt line that the cursor stays on. The others are shown
// below a list that the game prints itself: they are that prompt line alone.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <sstream>
#include <string>

namespace {

// Empty when there is no such file.
std::string readMenu(const std::string& name) {
    std::ifstream file(MORVEK_MENUS_DIR "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
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

} // namespace

TEST(Menus, FitTheScreenListTheirKeysAndSayTheSameInColour) {
    // Sorted; none where the game prints the list itself.
    const std::map<std::string, std::string> keysOfMenus{
        {"intmenu", "hqs"}, {"clasmenu", "12345678"}, {"townmenu", "abfhlopqtwy"},
        {"heal", "aghr"},   {"weapons", "brsy"},      {"armours", "brsy"},
        {"command", ""},    {"areaone", ""},          {"tavern", ""},
        {"drink", ""},      {"training", ""}};
    for (const auto& [name, keys] : keysOfMenus) {
        SCOPED_TRACE(name);
        const std::string plain = readMenu(name + ".asc");
        const std::string coloured = readMenu(name + ".ans");
        ASSERT_NE(plain, "");
        EXPECT_NE(coloured, plain);
        EXPECT_EQ(std::regex_replace(coloured, std::regex("\x1b\\[[0-9;]*m"), ""), plain);
        EXPECT_EQ(keysListed(plain), keys);

        std::istringstream lines(plain + "\r");
        int count = 0;
        for (std::string line; std::getline(lines, line); ++count) {
            const auto end = std::find_if(line.begin(), line.end(),
                                          [](unsigned char c) { return std::iscntrl(c); });
            EXPECT_EQ(std::string(end, line.end()), "\r") << line;
            EXPECT_LE(line.size(), 80u) << line;
        }
        EXPECT_LE(count, 22);
        EXPECT_EQ(count == 1, keys.empty());
        EXPECT_NE(plain.back(), '\n') << "no prompt";
    }
}
