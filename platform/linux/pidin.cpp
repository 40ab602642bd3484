// The process lister. Prints the processes of this system with their arguments, one a line: "pid
// argument argument ...". The library searches the list for the supplicant.

#include "platform/FileDescriptor.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <iostream>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

std::vector<long> processIds() {
    std::vector<long> ids;
    const std::unique_ptr<DIR, int (*)(DIR*)> directory(opendir("/proc"), closedir);
    if (!directory)
        return ids;
    while (const dirent* entry = readdir(directory.get())) {
        if (std::isdigit(static_cast<unsigned char>(entry->d_name[0])))
            ids.push_back(std::strtol(entry->d_name, nullptr, 10));
    }
    std::sort(ids.begin(), ids.end());
    return ids;
}

// The part of a file that can be read. Not by a stream: when the process ends meanwhile, reading
// fails and a stream would throw.
std::string contentOf(const std::string& path) {
    const platform::FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    std::string text;
    char part[4096];
    ssize_t size = 0;
    while ((size = read(file.number(), part, sizeof(part))) > 0)
        text.append(part, static_cast<std::size_t>(size));
    return text;
}

// The arguments in one line. Each ends with a NUL and may contain line feeds; both become blanks.
std::string argumentsOf(long id) {
    std::string text = contentOf("/proc/" + std::to_string(id) + "/cmdline");
    while (!text.empty() && text.back() == '\0')
        text.pop_back();
    std::replace(text.begin(), text.end(), '\0', ' ');
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

bool isKnown(const std::string& argument) {
    return argument == "arg" || argument.compare(0, 2, "-i") == 0;
}

} // namespace

int main(int count, char* arguments[]) {
    const std::vector<std::string> given(arguments + 1, arguments + count);
    if (!std::all_of(given.begin(), given.end(), isKnown)) {
        std::cerr << "usage: pidin [-iINTERFACE] [arg]\n";
        return 2;
    }
    const std::vector<long> ids = processIds();
    if (ids.empty()) {
        std::cerr << "pidin: no process to be seen: is /proc mounted?\n";
        return 1;
    }
    for (const long id : ids)
        std::cout << id << ' ' << argumentsOf(id) << '\n';
    return std::cout.flush() ? 0 : 1;
}
