#pragma once

#include <istream>
#include <string>
#include <string_view>

namespace cli {

inline bool beginsWith(std::string_view text, std::string_view beginning) {
    return text.substr(0, beginning.size()) == beginning;
}

/// Of a text in lines, the rest of the first line that begins with "KEY="; "" for none.
std::string lineValue(const std::string& key, const std::string& lines);
std::string lineValue(const std::string& key, std::istream& lines);

} // namespace cli
