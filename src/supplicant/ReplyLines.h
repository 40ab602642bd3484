#pragma once

#include <vector>

namespace platwifi {

// The number of lines of a reply that the settings read.

constexpr unsigned char ADAPTER_LINES = 2;
constexpr unsigned char NETWORK_LINES = 32; ///< of the configured networks, and of a scan
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

    /// The number of entries filled; the query sets it.
    unsigned char count = 0;

private:
    std::vector<char*> m_lines;
};

} // namespace platwifi
