// The process lister. The library searches its list for the supplicant.

#include "Output.h"
#include "Processes.h"

#include <string.h>

namespace {

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

} // namespace

int main(int count, char* arguments[]) {
    if (!areKnown(count, arguments)) {
        boot::complain("usage: pidin [-iINTERFACE] [arg]\n");
        return 2;
    }
    return boot::printProcesses() ? 0 : 1;
}
