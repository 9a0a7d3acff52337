// What every target's executable holds besides the target: its entry, and its directory.
#include "fuzz.h"

#include <cstdio>
#include <filesystem>

#include <unistd.h>

namespace fuzz {

void FUZZED(std::string_view input);

void workInMemory() {
    struct Folder {
        Folder() { require(mkdtemp(self.data()) != nullptr && chdir(self.c_str()) == 0); }
        ~Folder() { std::filesystem::remove_all(self); }
        std::string self =
            std::string(access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp") + "/morvek.XXXXXX";
    };
    static const Folder folder;
}

void writeFile(const char* name, std::string_view bytes) {
    std::FILE* file = std::fopen(name, "wb");
    require(file != nullptr && std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size());
    std::fclose(file);
}

} // namespace fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::FUZZED({reinterpret_cast<const char*>(data), size});
    return 0;
}
