// What every target's executable holds besides the target: its entry, and its directory.
#include "fuzz.h"

#include <cstdio>
#include <vector>

#include <unistd.h>

namespace fuzz {

extern const Target FUZZED;

const Folder& workFolder() {
    static const Folder folder(access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp");
    require(chdir(folder.self.c_str()) == 0);
    return folder;
}

} // namespace fuzz

#ifdef MORVEK_REPLAY
// Where there is no fuzzer each file of the given directories goes through the target once.
int main(int argc, char* argv[]) {
    std::vector<std::string> inputs; // before a target changes the directory
    for (int i = 1; i < argc; ++i) {
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            inputs.push_back(readFile(entry.path()));
        }
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
