#pragma once

#include <stddef.h>

namespace boot {

/// Standard output. A text stays in memory until flush(), or until there is no room for the next one.
class Output {
public:
    void add(const char* text) noexcept;
    void add(const char* text, size_t length) noexcept;

    /// Writes what was added. A signal handler may call it.
    /// @return whether everything so far could be written
    bool flush() noexcept;

private:
    char m_text[16384];
    size_t m_length = 0;
    bool m_isWritten = true;
};

extern Output output;

/// Writes a text to standard error.
void complain(const char* text) noexcept;

} // namespace boot
