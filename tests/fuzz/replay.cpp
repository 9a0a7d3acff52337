// Stands in for the fuzzer where there is none: each file of a corpus goes through the target once.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char* argv[]) {
    std::vector<std::string> inputs;
    for (const auto& entry : std::filesystem::directory_iterator(argc > 1 ? argv[1] : ".")) {
        std::ifstream file(entry.path(), std::ios::binary);
        inputs.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    for (const std::string& input : inputs) {
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
    }
    std::printf("%zu inputs\n", inputs.size());
    return inputs.empty() ? 1 : 0;
}
