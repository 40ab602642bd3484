#include "supplicant/Reply.h"

#include <cstring>

namespace platwifi {

bool isAccepted(const char* line) {
    return line[0] != '\0' && !std::strstr(line, "FAIL") && !std::strstr(line, "Invalid");
}

void stripQuotes(char* text) {
    char* const last = std::strrchr(text, '"');
    if (!last)
        return;
    *last = '\0';
    std::memmove(text, text + 1, std::strlen(text)); // with the NUL
}

} // namespace platwifi
