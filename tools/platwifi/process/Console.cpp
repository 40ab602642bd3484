#include "process/Console.h"

#include <cstdlib>
#include <cstring>
#include <sys/ioctl.h>
#include <unistd.h>

namespace cli {
namespace {

constexpr unsigned int DEFAULT_WIDTH = 80;

bool isSet(const char* variable) {
    const char* const value = std::getenv(variable);
    return value && value[0] != '\0';
}

bool isDumbTerminal() {
    const char* const type = std::getenv("TERM");
    return !type || std::strcmp(type, "dumb") == 0;
}

unsigned int widthOf(int descriptor) {
    winsize size{};
    const bool isKnown = ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return isKnown ? size.ws_col : DEFAULT_WIDTH;
}

} // namespace

Console Console::of(int descriptor) {
    Console console;
    if (isatty(descriptor) == 0)
        return console;
    console.isTerminal = true;
    console.hasColours = !isSet("NO_COLOR") && !isDumbTerminal();
    console.width = widthOf(descriptor);
    return console;
}

} // namespace cli
