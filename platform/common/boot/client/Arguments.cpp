#include "Arguments.h"

#include "common/Wipe.h"

#include <stdlib.h>
#include <string.h>

namespace client {
namespace {

// Without memory for its arguments, the program cannot do anything.
template <typename Pointer>
Pointer present(Pointer memory) noexcept {
    if (!memory)
        abort();
    return memory;
}

} // namespace

Arguments::Arguments(int count, char* originals[]) noexcept
    : m_count(count), m_copies(static_cast<char**>(
                          present(calloc(static_cast<size_t>(count) + 1, sizeof(char*))))) {
    for (int i = 0; i < count; ++i) {
        m_copies[i] = present(strdup(originals[i]));
        if (i > 0) // the name of the program may stay
            platform::wipe(originals[i], strlen(originals[i]));
    }
}

Arguments::~Arguments() {
    for (int i = 0; i < m_count; ++i)
        free(m_copies[i]);
    free(m_copies);
}

} // namespace client
