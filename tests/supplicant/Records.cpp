#include "Records.h"

#include <algorithm>

namespace test {
namespace {

const std::string& fieldOf(const Record& record, const std::string& field) {
    static const std::string MISSING = "missing";
    const auto found = record.find(field);
    return found == record.end() ? MISSING : found->second;
}

void addDifferences(Lines& lines, const std::string& network, const Record& loaded,
                    const Record& expected) {
    for (const auto& [field, value] : expected) {
        if (fieldOf(loaded, field) != value)
            lines.push_back(network + " (" + fieldOf(expected, "ssid") + "): " + field + " is " +
                            fieldOf(loaded, field) + " instead of " + value);
    }
}

} // namespace

Lines differences(const Records& loaded, const Records& expected) {
    Lines lines;
    if (loaded.size() != expected.size())
        lines.push_back(std::to_string(loaded.size()) + " networks instead of " +
                        std::to_string(expected.size()));
    for (std::size_t i = 0; i < std::min(loaded.size(), expected.size()); ++i)
        addDifferences(lines, "network " + std::to_string(i), loaded[i], expected[i]);
    return lines;
}

Lines ssidsOf(const Records& records) {
    Lines ssids;
    for (const Record& record : records)
        ssids.push_back(fieldOf(record, "ssid"));
    return ssids;
}

std::string inWords(const char* text) {
    return text ? text : "not set";
}

std::string inWords(unsigned int number) {
    return std::to_string(number);
}

} // namespace test
