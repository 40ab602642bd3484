#pragma once

#include "values/Values.h"

#include <string>
#include <vector>

namespace cli {

// Each function prints JSON and a line feed to standard output. Bytes that are no UTF-8 become U+FFFD.

void printJson(const Record& record);
void printJson(const std::vector<Record>& records);
void printJson(const std::vector<std::string>& texts);

/// Prints a record in one line.
void printJsonLine(const Record& record);

} // namespace cli
