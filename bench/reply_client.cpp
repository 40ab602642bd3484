// A client that prints the file with the name of its command, from the boot directory. A command with arguments
// fails.

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

int print(const std::string& path) {
    char piece[4096];
    std::FILE* const file = std::fopen(path.c_str(), "r");
    if (!file)
        return 1;
    for (std::size_t size = 0; (size = std::fread(piece, 1, sizeof(piece), file)) > 0;)
        std::fwrite(piece, 1, size, stdout);
    std::fclose(file);
    return 0;
}

} // namespace

int main(int count, char** arguments) {
    const bool hasInterface = count > 1 && arguments[1][0] == '-';
    const int word = hasInterface ? 2 : 1;
    if (count > word + 1)
        std::puts("FAIL");
    const char* const folder = std::getenv("PLATFORM_BOOT_DIR");
    return count == word + 1 && folder ? print(std::string(folder) + "/" + arguments[word]) : 0;
}
