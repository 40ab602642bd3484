#pragma once

#include <string>

namespace cli {

/// A text for a terminal: printable UTF-8 characters as they are; as \xNN the bytes that are no UTF-8
/// and those of characters that move the cursor, change the direction of writing, or cannot be printed.
std::string printable(const std::string& bytes);

/// Whether all of it is UTF-8.
bool isUtf8(const std::string& bytes);

/// The width of a printable text in cells of a terminal.
unsigned int cellsOf(const std::string& text);

/// A printable text, with blanks up to a width of `cells`.
std::string padded(const std::string& text, unsigned int cells);

/// Cuts a printable text to `cells` at most. A cut text ends with "…".
std::string cutTo(const std::string& text, unsigned int cells);

} // namespace cli
