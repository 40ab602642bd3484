// Lists the processes of this system, each with its arguments: what the library asks when it wants
// to know whether the supplicant runs. One process a line, "pid argument argument ...".

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

// What can be read of a file. Reading fails where the process ends meanwhile: a stream would throw then.
std::string contentOf(const std::string& path) {
    const platform::FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    std::string text;
    char part[4096];
    ssize_t size = 0;
    while ((size = read(file.number(), part, sizeof(part))) > 0)
        text.append(part, static_cast<std::size_t>(size));
    return text;
}

// Arguments end in NULs and may hold line feeds; a line of the list holds one process.
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
