#include "HostCommand.h"

#include <array>
#include <cstdio>
#include <fstream>
#include <istream>
#include <sstream>
#include <stdexcept>

namespace test {
namespace {

std::string readAll(std::FILE* pipe) {
    std::string text;
    std::array<char, 4096> piece{};
    while (const std::size_t size = std::fread(piece.data(), 1, piece.size(), pipe))
        text.append(piece.data(), size);
    return text;
}

Lines linesOf(std::istream& stream) {
    Lines lines;
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

} // namespace

HostCommand::HostCommand(const std::string& commandLine) {
    std::FILE* const pipe = popen((commandLine + " 2>&1").c_str(), "re");
    if (!pipe)
        throw std::runtime_error("cannot run: " + commandLine);
    std::istringstream text(readAll(pipe));
    status = pclose(pipe);
    lines = linesOf(text);
}

Lines linesOfFile(const std::string& path) {
    std::ifstream file(path);
    return linesOf(file);
}

} // namespace test
