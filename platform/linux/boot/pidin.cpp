// The process lister. Prints the processes of this system with their arguments, one a line: "pid
// argument argument ...". The library searches the list for the supplicant.

#include "Output.h"

#include <dirent.h>
#include <fcntl.h>
#include <stdio.h>
#include <string.h>
#include <unistd.h>

namespace {

using boot::output;

bool isKnown(const char* argument) {
    return strcmp(argument, "arg") == 0 || strncmp(argument, "-i", 2) == 0;
}

bool areKnown(int count, char* arguments[]) {
    for (int i = 1; i < count; ++i) {
        if (!isKnown(arguments[i]))
            return false;
    }
    return true;
}

// Prints the arguments in one line. Each ends with a NUL and may contain line feeds; both become blanks, but
// for the NULs at the end.
class ArgumentLine {
public:
    void add(const char* text, size_t length) {
        for (size_t i = 0; i < length; ++i) {
            if (text[i] == '\0')
                ++m_heldBack;
            else
                print(text[i] == '\n' ? ' ' : text[i]);
        }
    }

private:
    void print(char byte) {
        for (; m_heldBack > 0; --m_heldBack)
            output.add(" ", 1);
        output.add(&byte, 1);
    }

    size_t m_heldBack = 0; // NULs that may be the last ones
};

// Prints nothing when the process has ended meanwhile.
void printArguments(const char* process) {
    char path[64];
    snprintf(path, sizeof(path), "/proc/%s/cmdline", process);
    const int file = open(path, O_RDONLY | O_CLOEXEC);
    ArgumentLine line;
    char part[4096];
    ssize_t size = 0;
    while ((size = read(file, part, sizeof(part))) > 0)
        line.add(part, static_cast<size_t>(size));
    close(file);
}

bool isProcess(const dirent& entry) {
    return entry.d_name[0] >= '0' && entry.d_name[0] <= '9';
}

// The system lists processes in ascending order.
bool printProcesses() {
    DIR* const folder = opendir("/proc");
    bool isAnyThere = false;
    while (const dirent* const entry = folder ? readdir(folder) : nullptr) {
        if (!isProcess(*entry))
            continue;
        isAnyThere = true;
        output.add(entry->d_name);
        output.add(" ");
        printArguments(entry->d_name);
        output.add("\n");
    }
    if (folder)
        closedir(folder);
    return isAnyThere;
}

} // namespace

int main(int count, char* arguments[]) {
    if (!areKnown(count, arguments)) {
        boot::complain("usage: pidin [-iINTERFACE] [arg]\n");
        return 2;
    }
    if (!printProcesses()) {
        boot::complain("pidin: no process to be seen: is /proc mounted?\n");
        return 1;
    }
    return output.flush() ? 0 : 1;
}
