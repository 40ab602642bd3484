#pragma once

#include <utility>
#include <vector>

namespace platwifi {

/// The number of lines of a status that are read.
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

    /// Removes the entries for which the function returns true; the others move up.
    void removeIf(bool (*isUnwanted)(const char*)) noexcept {
        unsigned char kept = 0;
        for (unsigned char i = 0; i < count; ++i) {
            if (isUnwanted(m_lines[i]))
                delete[] std::exchange(m_lines[i], nullptr);
            else
                std::swap(m_lines[kept++], m_lines[i]);
        }
        count = kept;
    }

    /// The number of entries filled; the query sets it.
    unsigned char count = 0;

private:
    std::vector<char*> m_lines;
};

} // namespace platwifi
