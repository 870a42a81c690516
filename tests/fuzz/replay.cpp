// Runs a fuzz target over the inputs of a folder, once each.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <vector>

// NOLINTNEXTLINE(readability-redundant-declaration): the target may be compiled as one with this
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: replay FOLDER\n";
        return 2;
    }
    int inputs = 0;
    for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
        std::cout << entry.path().filename() << '\n'
                  << std::flush;  // the last one named is the one that failed
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
        ++inputs;
    }
    return inputs > 0 ? 0 : 1;
}
