#pragma once

#include <cstddef>

namespace cli {

/// A row of a table of numbers and what they mean.
struct CodeMeaning {
    int code;
    const char* meaning;
};

/// The meaning of a number in a table; "" if it is not there.
template <std::size_t size>
const char* meaningIn(const CodeMeaning (&table)[size], int code) {
    for (const CodeMeaning& row : table) {
        if (row.code == code)
            return row.meaning;
    }
    return "";
}

} // namespace cli
