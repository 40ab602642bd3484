#include "events/MessageFields.h"

#include <cctype>
#include <charconv>
#include <system_error>

namespace cli {
namespace {

constexpr std::size_t MAC_LENGTH = 17; // 6 bytes of 2 digits, 5 colons
constexpr const char* NO_MAC = "00:00:00:00:00:00";

bool isMac(const std::string& text) {
    if (text.size() != MAC_LENGTH)
        return false;
    for (std::size_t i = 0; i < MAC_LENGTH; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (i % 3 == 2 ? byte != ':' : std::isxdigit(byte) == 0)
            return false;
    }
    return true;
}

bool beginsField(const std::string& fields, std::size_t place) {
    return place == 0 || fields[place - 1] == ' ' || fields[place - 1] == '[';
}

} // namespace

std::optional<int> numberAt(const std::string& text) {
    int number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    return result.ec == std::errc() ? std::optional<int>(number) : std::nullopt;
}

std::string valueOf(const std::string& fields, const std::string& key) {
    for (std::size_t place = fields.find(key); place != std::string::npos;
         place = fields.find(key, place + 1)) {
        if (beginsField(fields, place)) {
            const std::size_t start = place + key.size();
            return fields.substr(start, fields.find(' ', start) - start);
        }
    }
    return "";
}

std::optional<int> numberOf(const std::string& fields, const std::string& key) {
    return numberAt(valueOf(fields, key));
}

std::string macAt(const std::string& text) {
    std::string mac = text.substr(0, MAC_LENGTH);
    return isMac(mac) && mac != NO_MAC ? mac : "";
}

std::string behind(const std::string& text, const std::string& mark) {
    const std::size_t place = text.find(mark);
    return place == std::string::npos ? "" : text.substr(place + mark.size());
}

std::string beforeLast(const std::string& text, const std::string& mark) {
    return text.substr(0, text.rfind(mark));
}

} // namespace cli
