#pragma once

#include <string>

namespace cli {

/// `bytes` fit for a terminal: UTF-8 as it is; a byte that is no UTF-8, and a character that cannot
/// be printed or would move the cursor, as \xNN.
std::string printable(const std::string& bytes);

/// Whether all of it is UTF-8.
bool isUtf8(const std::string& bytes);

/// How many cells of a terminal a printable text takes.
unsigned int cellsOf(const std::string& text);

/// The beginning of a printable text that takes `cells` at most, "…" at its end where something is
/// missing.
std::string cutTo(const std::string& text, unsigned int cells);

} // namespace cli
