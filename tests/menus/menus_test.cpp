// The display files of every menu. A whole menu lists each of its keys once, as the letter before
// a closing bracket, and ends with a prompt line that the cursor stays on. The others are shown
// below a list that the game prints itself: they are that prompt line alone. The coloured file
// says the words of the plain one, in any order, among art of bytes above 127; after byte 26 a
// record of 128 bytes describes it to viewers.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <iterator>
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

struct Menu {
    const char* name;
    std::string_view keys;  // sorted; none when the game prints the list itself
    std::size_t lines = 22; // at most: what the game prints above it must stay on the screen
};

std::ostream& operator<<(std::ostream& out, const Menu& menu) {
    return out << menu.name;
}

constexpr Menu menus[] = {
    {"intmenu", "hqs", 15}, {"clasmenu", "12345678"}, {"townmenu", "abfhlopqtwy"},
    {"heal", "aghr", 14},   {"weapons", "brsy"},      {"armours", "brsy"},
    {"command", "", 1},     {"areaone", "", 1},       {"tavern", "", 1},
    {"drink", "", 1},       {"training", "", 1},
};

// Empty when there is no such file.
std::string readMenu(const Menu& menu, const char* extension) {
    std::ifstream file(std::string(MORVEK_MENUS_DIR "/") + menu.name + extension, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

bool isColour(const std::string& code) {
    return code == "0" || code == "1" ||
           (code.size() == 2 && (code[0] == '3' || code[0] == '4') && code[1] >= '0' &&
            code[1] <= '7');
}

// Takes out the colour sequences, and nothing else: any other escape stays in the text, and so
// does one that blinks, which some terminals show as a bright background.
std::string withoutColours(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); i++) {
        const std::size_t end = text.find_first_not_of("0123456789;", i + 2);
        bool colours = text.substr(i, 2) == "\x1b[" && end != text.npos && text[end] == 'm';
        if (colours) {
            std::istringstream codes{std::string(text.substr(i + 2, end - i - 2))};
            for (std::string code; std::getline(codes, code, ';');) {
                colours = colours && isColour(code);
            }
        }
        if (colours) {
            i = end;
        } else {
            plain += text[i];
        }
    }
    return plain;
}

std::string withoutArt(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return c > 127; }, ' ');
    return text;
}

// Sorted, without the rules drawn with hyphens.
std::vector<std::string> words(const std::string& text) {
    std::istringstream in(text);
    std::vector<std::string> found(std::istream_iterator<std::string>(in), {});
    found.erase(std::remove_if(found.begin(), found.end(),
                               [](const std::string& word) {
                                   return word.find_first_not_of('-') == word.npos;
                               }),
                found.end());
    std::sort(found.begin(), found.end());
    return found;
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

// The lines of the text, which must fit the screen and hold nothing that moves the cursor.
std::vector<std::string> linesThatFit(const Menu& menu, const std::string& text) {
    auto lines = splitLines(text);
    EXPECT_LE(lines.size(), menu.lines);
    for (const auto& line : lines) {
        EXPECT_LE(line.size(), 79u) << line;
        EXPECT_TRUE(std::none_of(line.begin(), line.end(), [](unsigned char c) {
            return c < ' ' || c == 127;
        })) << line;
    }
    return lines;
}

unsigned number(std::string_view bytes) {
    unsigned value = 0;
    for (std::size_t i = bytes.size(); i-- > 0;) {
        value = value * 256 + static_cast<unsigned char>(bytes[i]);
    }
    return value;
}

class MenuFiles : public testing::TestWithParam<Menu> {};

TEST_P(MenuFiles, FitTheScreenListTheirKeysAndSayTheSameInColour) {
    const std::string plain = readMenu(GetParam(), ".asc");
    const std::string file = readMenu(GetParam(), ".ans");
    const std::string coloured = withoutColours(file.substr(0, file.find('\x1a')));
    ASSERT_NE(plain, "");

    const auto lines = linesThatFit(GetParam(), plain);
    const auto artLines = linesThatFit(GetParam(), coloured);
    EXPECT_EQ(words(withoutArt(coloured)), words(plain));
    EXPECT_EQ(keysListed(coloured), GetParam().keys);
    EXPECT_EQ(keysListed(plain), GetParam().keys);

    const std::string prompt = GetParam().keys.empty() ? "> " : "Your choice: ";
    EXPECT_EQ(lines.back(), prompt);
    EXPECT_THAT(artLines.back(), testing::EndsWith(prompt));
}

TEST_P(MenuFiles, DescribeTheArtToViewers) {
    const std::string file = readMenu(GetParam(), ".ans");
    const std::size_t end = file.find('\x1a');
    ASSERT_NE(end, file.npos);
    const std::string record = file.substr(end + 1);
    ASSERT_EQ(record.size(), 128u);

    EXPECT_EQ(record.substr(0, 7), "SAUCE00");
    EXPECT_NE(record.substr(7, 35), std::string(35, ' ')) << "no title";
    EXPECT_EQ(record.substr(42, 20), "Morvek developers   ");
    EXPECT_EQ(number(record.substr(90, 4)), end) << "the size of the text";
    EXPECT_EQ(record.substr(94, 2), "\x01\x01") << "characters, with ANSI sequences";
    EXPECT_EQ(number(record.substr(96, 2)), 80u);
    EXPECT_EQ(number(record.substr(98, 2)), splitLines(file.substr(0, end)).size());
    EXPECT_EQ(number(record.substr(104, 2)), 0u) << "neither a comment nor bright backgrounds";
    EXPECT_EQ(record.substr(106), "IBM VGA" + std::string(15, '\0'));
}

INSTANTIATE_TEST_SUITE_P(AllMenus, MenuFiles, testing::ValuesIn(menus),
                         [](const auto& menu) { return menu.param.name; });

} // namespace
