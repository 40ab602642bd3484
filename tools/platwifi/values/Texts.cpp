#include "values/Texts.h"

#include <sstream>

namespace cli {

std::string lineValue(const std::string& key, const std::string& lines) {
    const std::string beginning = key + "=";
    std::istringstream reply(lines);
    for (std::string line; std::getline(reply, line);) {
        if (beginsWith(line, beginning))
            return line.substr(beginning.size());
    }
    return "";
}

} // namespace cli
