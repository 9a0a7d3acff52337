// A target's executable: libFuzzer's entry, or a replay of its corpus where there is no fuzzer.
#include "fuzz.h"

#include <cstdio>

namespace fuzz {
extern const Target FUZZED;
}

#ifdef MORVEK_REPLAY
// Each file of the given directories, which are absolute paths, goes through the target once.
int main(int argc, char* argv[]) {
    int inputs = 0;
    for (int i = 1; i < argc; ++i) {
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            fuzz::FUZZED(readFile(entry.path()));
            ++inputs;
        }
    }
    std::printf("%d inputs\n", inputs);
    return inputs == 0 ? 1 : 0;
}
#else
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::FUZZED({reinterpret_cast<const char*>(data), size});
    return 0;
}
#endif
