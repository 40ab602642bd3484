#include "common/boot/Processes.h"

#include "common/boot/Output.h"

#include <dirent.h>
#include <fcntl.h>
#include <stdio.h>
#include <string.h>
#include <unistd.h>

namespace {

using boot::output;

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

} // namespace

// The system lists processes in ascending order.
bool boot::printProcesses() noexcept {
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
    if (!isAnyThere)
        complain("pidin: no process to be seen: is /proc mounted?\n");
    return isAnyThere && output.flush();
}
