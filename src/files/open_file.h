// Opening files in a game's directory.
#pragma once

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

// Opens a file as open() does, one that it creates with mode 0666. What root creates belongs to the
// owner of its directory. A pipe in the file's place does not hold up the program.
int openFile(const std::string& path, int flags);

// Opens a file for reading and writing that everybody may write who may write in its directory,
// creating it if there is none. Does not follow a link.
int openShared(const std::string& path);

// Whether the name leads to this open file, and not by a link.
bool isStillThere(int descriptor, const std::string& name);

} // namespace morvek
