#include "values/Texts.h"

#include <sstream>

namespace cli {

std::string lineValue(const std::string& key, const std::string& lines) {
    std::istringstream stream(lines);
    return lineValue(key, stream);
}

std::string lineValue(const std::string& key, std::istream& lines) {
    const std::string beginning = key + "=";
    for (std::string line; std::getline(lines, line);) {
        if (beginsWith(line, beginning))
            return line.substr(beginning.size());
    }
    return "";
}

} // namespace cli
