#pragma once

#include "process/Console.h"

#include <ostream>
#include <string>
#include <vector>

namespace cli {

/// Rows under a heading, in columns as wide as their widest cell. If the table is wider than the console,
/// its widest columns are cut, those that stay whole at last. Cells are printable texts.
class Table {
public:
    enum class Align { LEFT, RIGHT };

    struct Column {
        std::string heading;
        Align align = Align::LEFT;
        bool staysWhole = false; ///< as long as others can be cut
    };

    explicit Table(std::vector<Column> columns);

    /// @param cells  one for each column; missing ones are empty
    void add(std::vector<std::string> cells);

    void print(std::ostream& out, const Console& console) const;

private:
    using Row = std::vector<std::string>;
    using Widths = std::vector<unsigned int>;

    Widths widthsFor(const Console& console) const;
    Widths widestCells() const;
    std::string line(const Row& row, const Widths& widths) const;

    std::vector<Column> m_columns;
    Row m_headings;
    std::vector<Row> m_rows;
};

} // namespace cli
