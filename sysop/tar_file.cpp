#include "sysop/tar_file.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <cstring>

namespace morvek {
namespace {

constexpr std::size_t blockSize = 512;

struct Header {
    std::array<char, 100> name{};
    std::array<char, 8> mode{};
    std::array<char, 8> user{};
    std::array<char, 8> group{};
    std::array<char, 12> size{};
    std::array<char, 12> time{};
    std::array<char, 8> checksum{};
    char kind = '0';
    std::array<char, 100> linkName{};
    std::array<char, 8> magic{'u', 's', 't', 'a', 'r', '\0', '0', '0'};
    std::array<char, 247> rest{};
};

static_assert(sizeof(Header) == blockSize);

template <std::size_t width>
void setOctal(std::array<char, width>& digits, unsigned long long value) {
    std::snprintf(digits.data(), width, "%0*llo", static_cast<int>(width - 1), value);
}

template <std::size_t width>
std::optional<std::size_t> octalIn(const std::array<char, width>& digits) {
    const char* begin = digits.data();
    const char* end = begin + width;
    begin = std::find_if(begin, end, [](char one) { return one != ' '; });
    std::size_t value = 0;
    const auto [stopped, error] = std::from_chars(begin, end, value, 8);
    const bool ended = stopped == end || *stopped == ' ' || *stopped == '\0';
    return error == std::errc() && ended ? std::optional(value) : std::nullopt;
}

unsigned sumOf(Header header) {
    header.checksum.fill(' ');
    std::array<unsigned char, blockSize> bytes{};
    std::memcpy(bytes.data(), &header, blockSize);
    unsigned sum = 0;
    for (const unsigned char byte : bytes) {
        sum += byte;
    }
    return sum;
}

Header headerOf(const ArchivedFile& file, std::time_t when) {
    Header header;
    file.name.copy(header.name.data(), header.name.size() - 1);
    setOctal(header.mode, 0644);
    setOctal(header.user, 0);
    setOctal(header.group, 0);
    setOctal(header.size, file.content.size());
    setOctal(header.time, static_cast<unsigned long long>(when));
    std::snprintf(header.checksum.data(), header.checksum.size() - 1, "%06o", sumOf(header));
    header.checksum.back() = ' ';
    return header;
}

std::size_t wholeBlocks(std::size_t size) {
    return (size + blockSize - 1) / blockSize * blockSize;
}

bool isPlain(const Header& header) {
    return (header.kind == '0' || header.kind == '\0') && octalIn(header.checksum) == sumOf(header);
}

} // namespace

std::string tarOf(const std::vector<ArchivedFile>& files, std::time_t when) {
    std::string bytes;
    for (const ArchivedFile& file : files) {
        const Header header = headerOf(file, when);
        bytes.append(reinterpret_cast<const char*>(&header), blockSize);
        bytes.append(file.content);
        bytes.resize(wholeBlocks(bytes.size()));
    }
    bytes.resize(bytes.size() + 2 * blockSize);
    return bytes;
}

std::optional<std::vector<ArchivedFile>> readTar(std::string_view bytes) {
    std::vector<ArchivedFile> files;
    while (bytes.size() >= blockSize) {
        if (bytes.substr(0, blockSize).find_first_not_of('\0') == std::string_view::npos) {
            return files;
        }
        Header header;
        std::memcpy(&header, bytes.data(), blockSize);
        bytes.remove_prefix(blockSize);
        const std::optional<std::size_t> size = octalIn(header.size);
        if (!isPlain(header) || !size || *size > bytes.size()) {
            return std::nullopt;
        }
        const char* name = header.name.data();
        files.push_back({std::string(name, strnlen(name, header.name.size())),
                         std::string(bytes.substr(0, *size))});
        bytes.remove_prefix(std::min(wholeBlocks(*size), bytes.size()));
    }
    return std::nullopt;
}

} // namespace morvek
