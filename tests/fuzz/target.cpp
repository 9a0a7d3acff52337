// What every target's executable holds besides the target: its entry, and its directory.
#include "fuzz.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

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

#ifdef MORVEK_REPLAY
// Where there is no fuzzer each file of a corpus goes through the target once.
int main(int argc, char* argv[]) {
    std::vector<std::string> inputs;
    for (const auto& entry : std::filesystem::directory_iterator(argc > 1 ? argv[1] : ".")) {
        std::ifstream file(entry.path(), std::ios::binary);
        inputs.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    for (const std::string& input : inputs) {
        fuzz::FUZZED(input);
    }
    std::printf("%zu inputs\n", inputs.size());
    return inputs.empty() ? 1 : 0;
}
#else
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::FUZZED({reinterpret_cast<const char*>(data), size});
    return 0;
}
#endif
