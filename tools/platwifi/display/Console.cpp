#include "display/Console.h"

#include <cstdlib>
#include <cstring>
#include <sys/ioctl.h>
#include <unistd.h>

namespace cli {
namespace {

constexpr unsigned int USUAL_WIDTH = 80;

bool isSet(const char* variable) {
    const char* const value = std::getenv(variable);
    return value && value[0] != '\0';
}

bool isDumb() {
    const char* const kind = std::getenv("TERM");
    return !kind || std::strcmp(kind, "dumb") == 0;
}

unsigned int widthOf(int descriptor) {
    winsize size{};
    const bool isKnown = ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return isKnown ? size.ws_col : USUAL_WIDTH;
}

} // namespace

Console Console::of(int descriptor) {
    Console console;
    if (isatty(descriptor) == 0)
        return console;
    console.isTerminal = true;
    console.hasColours = !isSet("NO_COLOR") && !isDumb();
    console.width = widthOf(descriptor);
    return console;
}

} // namespace cli
