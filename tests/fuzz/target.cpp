// What every target's executable holds besides the target: its entry, and its directory.
#include "fuzz.h"

#include <cstdio>

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
// Where there is no fuzzer each file of a corpus goes through the target once.
int main(int, char* argv[]) {
    int count = 0;
    for (const auto& entry :
         std::filesystem::directory_iterator(std::filesystem::canonical(argv[1]))) {
        fuzz::FUZZED(readFile(entry.path()));
        ++count;
    }
    std::printf("%d inputs\n", count);
    return count > 0 ? 0 : 1;
}
#else
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::FUZZED({reinterpret_cast<const char*>(data), size});
    return 0;
}
#endif
