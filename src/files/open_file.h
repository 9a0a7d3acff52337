// Opening files in a game's directory.
#pragma once

#include <optional>
#include <string>

namespace morvek {

// An open file, closed at the end; not open with a negative descriptor.
class OpenFile {
public:
    explicit OpenFile(int descriptor) : descriptor_(descriptor) {}
    ~OpenFile();
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    [[nodiscard]] bool isOpen() const { return descriptor_ >= 0; }
    [[nodiscard]] int get() const { return descriptor_; }

private:
    int descriptor_;
};

// The path's directory, with a slash at its end; empty when the path names none.
std::string directoryOf(const std::string& path);

// Where the path leads when the links at its end are followed, also to a file that is not there
// yet. Nothing, and errno is ELOOP, when they form a circle or one of them has been made by
// somebody else than its directory's owner, root and the user of this process.
std::optional<std::string> followLinks(std::string path);

// Opens a file as open() does, following links as followLinks() does; one that it creates has mode
// 0666. What root creates belongs to the owner of its directory. A pipe in the file's place does
// not hold up the program.
int openFile(const std::string& path, int flags);

// Opens a file for reading and writing that everybody may write who may write in its directory,
// creating it if there is none. Does not follow a link.
int openShared(const std::string& path);

// Whether the name leads to this open file, and not by a link.
bool isStillThere(int descriptor, const std::string& name);

} // namespace morvek
