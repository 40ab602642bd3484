#include "display/Table.h"

#include "display/Text.h"

#include <algorithm>
#include <numeric>

namespace cli {
namespace {

constexpr unsigned int GAP = 2;

std::string aligned(const std::string& cell, unsigned int width, Table::Align align) {
    const std::string text = cutTo(cell, width);
    const std::string blanks(width - cellsOf(text), ' ');
    return align == Table::Align::LEFT ? text + blanks : blanks + text;
}

unsigned int sum(const std::vector<unsigned int>& widths) {
    return std::accumulate(widths.begin(), widths.end(), 0U);
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

Table::Widths Table::widthsFor(const Console& console) const {
    Widths widths(m_columns.size());
    for (std::size_t i = 0; i < widths.size(); ++i) {
        widths[i] = cellsOf(m_headings[i]);
        for (const Row& row : m_rows)
            widths[i] = std::max(widths[i], cellsOf(row[i]));
    }
    const unsigned int gaps = GAP * static_cast<unsigned int>(widths.size() - 1);
    while (sum(widths) > widths.size() && sum(widths) + gaps > console.width)
        --*std::max_element(widths.begin(), widths.end());
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
