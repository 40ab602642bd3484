#include "platform/OnceWarning.h"

#include "common/FileSizeLimit.h"

#include <cstdio>

// One call prints the whole line, so that lines of several threads and processes do not mix. The
// size of the log file is checked because a file above its limit would end the process.
void platform::OnceWarning::print(const std::string& text) noexcept {
    constexpr std::size_t FRAME = sizeof("platwifi: \n");
    if (!m_printed.exchange(true) && mayWrite(STDERR_FILENO, FRAME + text.size()))
        std::fprintf(stderr, "platwifi: %s\n", text.c_str());
}
