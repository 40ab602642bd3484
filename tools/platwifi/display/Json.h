#pragma once

#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace cli {

/// What a program is told: nothing, a text, a number, or whether something is so.
using Value = std::variant<std::monostate, std::string, int, bool>;

/// Values with their names, in the order in which they are printed.
using Record = std::vector<std::pair<std::string, Value>>;

// Printing JSON to standard output, with a line feed at the end. What is no UTF-8 becomes U+FFFD.

void printJson(const Record& record);
void printJson(const std::vector<Record>& records);
void printJson(const std::vector<std::string>& texts);

} // namespace cli
