#include "display/Wrap.h"

#include "display/Text.h"

#include <sstream>

namespace cli {
namespace {

bool continuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

// The count of bytes of a word that fit into the cells: whole characters, and one at least.
std::size_t fitting(const std::string& word, unsigned int cells) {
    std::size_t fits = 0;
    for (std::size_t end = 1; end <= word.size(); ++end) {
        if (end < word.size() && continuesCharacter(word[end]))
            continue;
        if (fits > 0 && cellsOf(word.substr(0, end)) > cells)
            return fits;
        fits = end;
    }
    return fits;
}

/// Adds words to lines.
class Paragraph {
public:
    explicit Paragraph(unsigned int cells) : m_cells(cells) {}

    void add(std::string word) {
        if (m_lines.back().empty() || !append(" " + word))
            begin(std::move(word));
    }

    std::vector<std::string> lines() && { return std::move(m_lines); }

private:
    bool append(const std::string& more) {
        if (cellsOf(m_lines.back() + more) > m_cells)
            return false;
        m_lines.back() += more;
        return true;
    }

    void begin(std::string word) {
        while (!word.empty()) {
            if (!m_lines.back().empty())
                m_lines.emplace_back();
            const std::size_t size = fitting(word, m_cells);
            m_lines.back() = word.substr(0, size);
            word.erase(0, size);
        }
    }

    const unsigned int m_cells;
    std::vector<std::string> m_lines{""};
};

} // namespace

std::vector<std::string> wrapped(const std::string& text, unsigned int cells) {
    Paragraph paragraph(cells);
    std::istringstream words(text);
    for (std::string word; words >> word;)
        paragraph.add(std::move(word));
    return std::move(paragraph).lines();
}

} // namespace cli
