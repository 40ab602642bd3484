// Runs a target over the files of a corpus, in a build without the fuzzer.

#include "Input.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace {

void runFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
    // A copy of exactly that size: the address sanitizer sees a read behind its end.
    const std::vector<std::uint8_t> input(bytes.begin(), bytes.end());
    static_cast<void>(LLVMFuzzerTestOneInput(input.data(), input.size()));
}

int runFolder(const char* folder) {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        std::printf("%s\n", entry.path().c_str());
        std::fflush(stdout); // after a crash the last name is that of the input
        runFile(entry.path());
        ++count;
    }
    return count;
}

} // namespace

int main(int argc, char* argv[]) {
    int count = 0;
    for (int i = 1; i < argc; ++i) {
        if (std::filesystem::is_directory(argv[i])) {
            count += runFolder(argv[i]);
        } else {
            runFile(argv[i]);
            ++count;
        }
    }
    std::printf("%d inputs\n", count);
    return count == 0 ? 1 : 0; // an empty corpus shows nothing
}
