// The display files of every menu. A whole menu lists each of its keys once, as the letter before
// a closing bracket, and ends with a prompt line that the cursor stays on. The others are shown
// below a list that the game prints itself: they are that prompt line alone.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <iterator>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace {

struct Menu {
    const char* name;
    std::string_view keys; // sorted; none when the game prints the list itself
};

std::ostream& operator<<(std::ostream& out, const Menu& menu) {
    return out << menu.name;
}

constexpr Menu menus[] = {
    {"intmenu", "hqs"}, {"clasmenu", "12345678"}, {"townmenu", "abfhlopqtwy"},
    {"heal", "aghr"},   {"weapons", "brsy"},      {"armours", "brsy"},
    {"command", ""},    {"areaone", ""},          {"tavern", ""},
    {"drink", ""},      {"training", ""},
};

// Empty when there is no such file.
std::string readMenu(const Menu& menu, const char* extension) {
    std::ifstream file(std::string(MORVEK_MENUS_DIR "/") + menu.name + extension, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// Takes out the colour sequences, and nothing else: any other escape stays in the text.
std::string withoutColours(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); i++) {
        const std::size_t end = text.find_first_not_of("0123456789;", i + 2);
        if (text.substr(i, 2) == "\x1b[" && end != text.npos && text[end] == 'm') {
            i = end;
        } else {
            plain += text[i];
        }
    }
    return plain;
}

std::vector<std::string> splitLines(const std::string& text) {
    std::vector<std::string> lines(1);
    for (std::size_t i = 0; i < text.size(); i++) {
        if (text.compare(i, 2, "\r\n") == 0) {
            lines.emplace_back();
            i++;
        } else {
            lines.back() += text[i];
        }
    }
    return lines;
}

std::string keysListed(std::string_view text) {
    std::string keys;
    for (std::size_t i = 1; i < text.size(); i++) {
        if (text[i] == ')') {
            keys += static_cast<char>(std::tolower(static_cast<unsigned char>(text[i - 1])));
        }
    }
    std::sort(keys.begin(), keys.end());
    return keys;
}

class MenuFiles : public testing::TestWithParam<Menu> {};

TEST_P(MenuFiles, FitTheScreenListTheirKeysAndSayTheSameInColour) {
    const std::string plain = readMenu(GetParam(), ".asc");
    const std::string coloured = readMenu(GetParam(), ".ans");
    ASSERT_NE(plain, "");

    EXPECT_EQ(withoutColours(coloured), plain);
    EXPECT_NE(coloured, plain);
    EXPECT_EQ(keysListed(plain), GetParam().keys);

    const auto lines = splitLines(plain);
    EXPECT_LE(lines.size(), 22u);
    EXPECT_EQ(lines.size() == 1, GetParam().keys.empty());
    EXPECT_NE(lines.back(), "") << "no prompt";
    for (const auto& line : lines) {
        EXPECT_LE(line.size(), 79u) << line;
        EXPECT_TRUE(std::none_of(line.begin(), line.end(), [](unsigned char c) {
            return c < ' ' || c == 127;
        })) << line;
    }
}

INSTANTIATE_TEST_SUITE_P(AllMenus, MenuFiles, testing::ValuesIn(menus),
                         [](const auto& menu) { return menu.param.name; });

} // namespace
