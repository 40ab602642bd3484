#include "common/boot/client/OwnProgram.h"

#include <stdlib.h>
#include <string.h>

namespace client {
namespace {

constexpr const char* TRIED =
    "PLATWIFI_CLIENT_TRIED"; // the path that this program has last tried to start

} // namespace

// A program cannot ask POSIX from which file it was started. It notes in the environment what it tries: if it finds a
// note, that path was a copy of it, and so may all paths be that it had tried before.
bool mayBeThisProgram(const char* path) noexcept {
    static bool isBehindNote = false;
    const char* const note = getenv(TRIED);
    if (note && !isBehindNote) {
        isBehindNote = strcmp(note, path) == 0;
        return true;
    }
    isBehindNote = true;
    return setenv(TRIED, path, 1) != 0;
}

} // namespace client
