#include "platform/OnceWarning.h"

#include <cstdio>

// One call prints the whole line, so that lines of several threads and processes do not mix.
void platform::OnceWarning::print(const std::string& text) noexcept {
    if (!m_printed.exchange(true))
        std::fprintf(stderr, "platwifi: %s\n", text.c_str());
}
