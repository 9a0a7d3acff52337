// How the game touches the disk. A data file is read whole, or replaced whole: the new content is
// written to a temporary file beside it, flushed to the disk and renamed over it, so that the file
// under its own name is at every instant a whole one, old or new. A link is followed and stays a
// link; the file keeps its mode. Only where the directory admits no temporary file, or no renaming
// over the file, is a file that can be written overwritten in place; so is a device.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace morvek {

class Transaction;

// Reads at most buffer.size() bytes from the file's start over the buffer, leaves the rest of the
// buffer alone, and returns how many were read; nothing when the file cannot be opened, or when
// reading fails on the way.
std::optional<std::size_t> readInto(const std::string& path, std::span<char> buffer);

// The file's whole content; nothing when it cannot be opened, or when reading fails on the way.
std::optional<std::string> readWhole(const std::string& path);

// Whether the file can be opened for reading.
bool canRead(const std::string& path);

// Whether there is certainly no such file; one that only cannot be opened is not missing.
bool isMissing(const std::string& path);

// Creates the file with this content, or fills an empty one; does nothing when the file has
// content.
void createWith(const std::string& path, std::string_view content);

// Appends the text in one write, creating the file. Nothing of it stays when not all of it can be
// written; then, and when the file cannot be opened, returns false.
bool appendTo(const std::string& path, std::string_view text);

// A file held open for being replaced. Opening tells whether the file can be written at all and
// changes nothing yet; replace() then puts the new content in the file's place. Who replaces
// several files stages all of them first, so that a full disk is found before any of them is
// replaced.
class Replacement {
public:
    // Opens a file that others may replace too; does not when the transaction may not write.
    Replacement(const Transaction& transaction, const std::string& path);

    // Opens a file that nobody else replaces meanwhile.
    explicit Replacement(const std::string& path);
    ~Replacement();
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    // Whether the file can be written.
    [[nodiscard]] bool isOpen() const { return temporary_ >= 0 || inPlace_ >= 0; }

    // Replaces the content. Returns 0, or the errno of what failed: then the old content stands as
    // it was, unless it had to be written in place.
    int replace(std::string_view content);

    // The two steps of replace(): writes the new content beside the file, and puts it in the file's
    // place. The content must live until then.
    int stage(std::string_view content);
    int commit();

private:
    std::string target_;        // what the path leads to, links followed
    std::string temporaryName_; // beside it
    int temporary_ = -1;        // the temporary file, once it is open
    int inPlace_ = -1;          // the file itself, if there is one
    int openError_ = 0;
    std::string_view staged_;

    void open(const std::string& path);
    void openTemporary();
    void closeInPlace();
    int finishTemporary(std::string_view content);
    int writeInPlace(std::string_view content);
};

// Open and replace in one step. Return 0, or the errno of what failed.
int replaceFile(const Transaction& transaction, const std::string& path, std::string_view content);
int replaceFile(const std::string& path, std::string_view content);

} // namespace morvek
