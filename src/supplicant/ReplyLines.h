#pragma once

#include <vector>

namespace platwifi {

// How many lines of a reply the settings take.

constexpr unsigned char ADAPTER_LINES = 2;
constexpr unsigned char NETWORK_LINES = 32; ///< of the configured networks, and of those in range
constexpr unsigned char STATUS_LINES = 16;

/// The array that a query fills with lines, and the owner of those lines.
class ReplyLines {
public:
    explicit ReplyLines(unsigned char capacity) : m_lines(capacity, nullptr) {}
    ~ReplyLines() {
        for (const char* line : m_lines)
            delete[] line;
    }

    ReplyLines(const ReplyLines&) = delete;
    ReplyLines& operator=(const ReplyLines&) = delete;

    char** data() noexcept { return m_lines.data(); }
    const char* const* data() const noexcept { return m_lines.data(); }
    unsigned char capacity() const noexcept { return static_cast<unsigned char>(m_lines.size()); }

    /// How many entries the query filled; it sets this itself.
    unsigned char count = 0;

private:
    std::vector<char*> m_lines;
};

} // namespace platwifi
