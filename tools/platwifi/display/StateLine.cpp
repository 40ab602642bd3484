#include "display/StateLine.h"

#include "display/Text.h"

#include <iostream>

namespace cli {
namespace {

const std::string INDENT = "   ";

} // namespace

StateLine::StateLine(const Console& console, const std::string& beginning)
    : m_width(console.width), m_column(0) {
    const std::string shown = cutTo(beginning, m_width);
    std::cout << shown << std::flush;
    m_column = cellsOf(shown);
}

StateLine::~StateLine() {
    std::cout << std::endl;
}

void StateLine::add(const std::string& word) {
    if (word == m_last)
        return;
    const unsigned int cells = 1 + cellsOf(word);
    if (m_column + cells > m_width) {
        std::cout << '\n' << INDENT;
        m_column = cellsOf(INDENT);
    }
    std::cout << ' ' << word << std::flush;
    m_column += cells;
    m_last = word;
}

} // namespace cli
