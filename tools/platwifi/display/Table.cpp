#include "display/Table.h"

#include "display/Text.h"

#include <algorithm>
#include <numeric>

namespace cli {
namespace {

constexpr unsigned int GAP = 2;
constexpr unsigned int MIN_CUT = 8; // cells that a column keeps while others can be cut

std::string aligned(const std::string& cell, unsigned int width, Table::Align align) {
    const std::string text = cutTo(cell, width);
    const std::string blanks(width - cellsOf(text), ' ');
    return align == Table::Align::LEFT ? text + blanks : blanks + text;
}

unsigned int sum(const std::vector<unsigned int>& widths) {
    return std::accumulate(widths.begin(), widths.end(), 0U);
}

// Takes cells from the widest column that may be cut until there are as many as wanted.
template <typename MayCut>
void narrow(std::vector<unsigned int>& widths, unsigned int wanted, MayCut mayCut) {
    while (sum(widths) > wanted) {
        unsigned int* widest = nullptr;
        for (std::size_t i = 0; i < widths.size(); ++i) {
            if (mayCut(i) && (!widest || widths[i] > *widest))
                widest = &widths[i];
        }
        if (!widest)
            return;
        --*widest;
    }
}

} // namespace

Table::Table(std::vector<Column> columns) : m_columns(std::move(columns)) {
    for (const Column& column : m_columns)
        m_headings.push_back(column.heading);
}

void Table::add(std::vector<std::string> cells) {
    cells.resize(m_columns.size());
    m_rows.push_back(std::move(cells));
}

Table::Widths Table::widestCells() const {
    Widths widths(m_columns.size());
    for (std::size_t i = 0; i < widths.size(); ++i) {
        widths[i] = cellsOf(m_headings[i]);
        for (const Row& row : m_rows)
            widths[i] = std::max(widths[i], cellsOf(row[i]));
    }
    return widths;
}

Table::Widths Table::widthsFor(const Console& console) const {
    Widths widths = widestCells();
    const unsigned int gaps = GAP * static_cast<unsigned int>(widths.size() - 1);
    const unsigned int wanted = console.width - std::min(console.width, gaps);
    narrow(widths, wanted, [&](std::size_t column) {
        return !m_columns[column].staysWhole && widths[column] > MIN_CUT;
    });
    narrow(widths, wanted, [&](std::size_t column) { return widths[column] > 1; });
    return widths;
}

std::string Table::line(const Row& row, const Widths& widths) const {
    std::string text;
    for (std::size_t i = 0; i < widths.size(); ++i) {
        if (i > 0)
            text += std::string(GAP, ' ');
        text += aligned(row[i], widths[i], m_columns[i].align);
    }
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

void Table::print(std::ostream& out, const Console& console) const {
    const Widths widths = widthsFor(console);
    const auto show = [&](const Row& row) { return cutTo(line(row, widths), console.width); };
    out << console.bold() << show(m_headings) << console.plain() << '\n';
    for (const Row& row : m_rows)
        out << show(row) << '\n';
}

} // namespace cli
