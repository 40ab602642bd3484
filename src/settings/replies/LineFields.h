#pragma once

#include <cstddef>
#include <cstring>

namespace platwifi {

/// The fields of a line, one after the other. There are no empty ones: separators that follow each
/// other are one, and those at the ends are none.
class LineFields {
public:
    /// Copies the first 256 characters of the line; the separators stay the caller's.
    LineFields(const char* line, const char* separators) : m_separators(separators) {
        std::strncpy(m_line, line, LIMIT);
    }

    LineFields(const LineFields&) = delete;
    LineFields& operator=(const LineFields&) = delete;

    /// The next field, which lives as long as this object; null when there is none left.
    const char* next() {
        m_rest += std::strspn(m_rest, m_separators);
        if (*m_rest == '\0')
            return nullptr;
        const char* const field = m_rest;
        m_rest += std::strcspn(m_rest, m_separators);
        if (*m_rest != '\0')
            *m_rest++ = '\0';
        return field;
    }

private:
    static constexpr std::size_t LIMIT = 256;

    char m_line[LIMIT + 1] = {};
    char* m_rest = m_line;
    const char* m_separators;
};

} // namespace platwifi
