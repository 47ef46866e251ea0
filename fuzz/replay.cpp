// Gives each input of a corpus to its fuzzer once: what the fuzzers found stays found where they
// do not run. The argument is the corpus's folder.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int count, char** arguments)
{
    int inputs = 0;
    for (const auto& file : std::filesystem::directory_iterator(count == 2 ? arguments[1] : "")) {
        std::ifstream stream(file.path(), std::ios::binary);
        const std::string input(std::istreambuf_iterator<char>(stream), {});
        // The last one told is the one that failed.
        std::fprintf(stderr, "%s\n", file.path().string().c_str());
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
        ++inputs;
    }
    return inputs > 0 ? 0 : 1;
}
