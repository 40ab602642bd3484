#pragma once

#include "platform/Spawn.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#ifndef TEST_EMULATOR
#define TEST_EMULATOR
#endif

namespace test {

struct Listing {
    int status;
    std::vector<std::string> lines;
};

inline std::vector<std::string> linesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);)
        lines.push_back(line);
    return lines;
}

inline Listing run(std::vector<const char*> command) {
    command.push_back(nullptr);
    const int output = open("/tmp/list", O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    const int child = Spawn::start("/usr/bin/env", command.data(), output);
    EXPECT_NE(child, -1) << std::strerror(errno);
    close(output);
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child) << std::strerror(errno);
    EXPECT_TRUE(WIFEXITED(status)) << status;
    return {WEXITSTATUS(status), linesOf("/tmp/list")};
}

inline Listing pidin(const std::vector<const char*>& arguments) {
    std::vector<const char*> command{"env", TEST_EMULATOR PIDIN};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return run(command);
}

// The line of the process with this id, without blanks before the id and without the id; "" where there is none.
inline std::string lineOf(const Listing& listing, int id) {
    const std::string start = std::to_string(id) + " ";
    for (const std::string& line : listing.lines) {
        const std::size_t blanks = std::min(line.find_first_not_of(' '), line.size());
        if (line.compare(blanks, start.size(), start) == 0)
            return line.substr(blanks + start.size());
    }
    return "";
}

} // namespace test
