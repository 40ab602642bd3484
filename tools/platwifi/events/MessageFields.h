#pragma once

#include <optional>
#include <string>

namespace cli {

// Pieces of a message of the supplicant. What is missing or malformed is "" or nothing.

/// The decimal number at the beginning of a text, if an int can hold it.
std::optional<int> numberAt(const std::string& text);

/// The value of `key` ("reason=" for example) up to the next blank. The key begins the text or follows a
/// blank or a "[".
std::string valueOf(const std::string& fields, const std::string& key);

/// The same for a number.
std::optional<int> numberOf(const std::string& fields, const std::string& key);

/// The MAC address at the beginning of a text; "" also if all its bytes are 0, which stands for none.
std::string macAt(const std::string& text);

/// The text behind the first occurrence of `mark`.
std::string behind(const std::string& text, const std::string& mark);

/// The text before the last occurrence of `mark`; all of it if there is none.
std::string beforeLast(const std::string& text, const std::string& mark);

} // namespace cli
