#pragma once

#include "display/Console.h"

#include <ostream>
#include <string>
#include <vector>

namespace cli {

/// Rows under a heading, in columns as wide as they need to be, and never wider than the console.
/// Where that is narrow the widest columns are cut. Cells are printable texts.
class Table {
public:
    enum class Align { left, right };

    struct Column {
        std::string heading;
        Align align = Align::left;
    };

    explicit Table(std::vector<Column> columns);

    /// @param cells  one for each column
    void add(std::vector<std::string> cells);

    void print(std::ostream& out, const Console& console) const;

private:
    using Row = std::vector<std::string>;
    using Widths = std::vector<unsigned int>;

    Widths widthsFor(const Console& console) const;
    std::string line(const Row& row, const Widths& widths) const;

    std::vector<Column> m_columns;
    Row m_headings;
    std::vector<Row> m_rows;
};

} // namespace cli
