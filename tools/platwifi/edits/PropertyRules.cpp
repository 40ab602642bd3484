#include "edits/PropertyRules.h"

#include "display/Text.h"
#include "values/Failure.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <strings.h>

namespace cli {
namespace {

constexpr std::size_t MOST_DIGITS = 11; // of a number of 32 bits, with its sign
constexpr std::size_t LONGEST_TEXT = 255;
constexpr std::size_t MAC_ADDRESS = 17;

[[noreturn]] void refuse(const Property& property, const std::string& allowed) {
    throw WrongUse(std::string(property.name) + " takes " + allowed);
}

std::string joined(Words words) {
    std::string text;
    for (const Word& word : words)
        text += (text.empty() ? "" : ", ") + std::string(word.text);
    return text;
}

const Word& wordOf(const Property& property, const std::string& written) {
    for (const Word& word : property.words) {
        if (strcasecmp(word.text, written.c_str()) == 0 || std::to_string(word.number) == written)
            return word;
    }
    refuse(property, "one of " + joined(property.words));
}

bool isDecimal(const std::string& text) {
    const std::size_t digits = text.find_first_of("+-") == 0 ? 1 : 0;
    return text.size() > digits && text.size() <= MOST_DIGITS &&
           text.find_first_not_of("0123456789", digits) == std::string::npos;
}

bool isHex(const std::string& text) {
    return std::all_of(text.begin(), text.end(),
                       [](unsigned char character) { return std::isxdigit(character) != 0; });
}

bool isMacAddress(const std::string& text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isRight = i % 3 == 2 ? text[i] == ':' : isHex(text.substr(i, 1));
        if (!isRight)
            return false;
    }
    return text.size() == MAC_ADDRESS;
}

bool isControl(char character) {
    return std::iscntrl(static_cast<unsigned char>(character)) != 0;
}

// Certificates may also stand in the supplicant's configuration ("blob://"), be known by their digest
// ("hash://"), or be in a token ("pkcs11:").
bool isPath(const std::string& text) {
    return text.find("://") == std::string::npos && text.rfind("pkcs11:", 0) != 0;
}

// A file that this user may not see counts as present: the supplicant has other rights.
void requireFile(const Property& property, const std::string& path) {
    std::error_code error;
    if (std::filesystem::status(path, error).type() != std::filesystem::file_type::not_found)
        return;
    throw Failure(std::string(property.name) + ": there is no " + printable(path) +
                  "; nothing was changed; give the path of a file that exists");
}

bool isWepKey(const std::string& key) {
    const bool isText = key.size() == 5 || key.size() == 13;
    return isText || ((key.size() == 10 || key.size() == 26) && isHex(key));
}

} // namespace

std::string takeWord(const Property& property, const std::string& written) {
    return std::to_string(wordOf(property, written).number);
}

// Separated by blanks, commas or plus signs.
std::string takeWords(const Property& property, const std::string& written) {
    constexpr const char* SEPARATORS = " ,+";
    unsigned int set = 0;
    std::size_t end = 0;
    for (std::size_t start = written.find_first_not_of(SEPARATORS); start != std::string::npos;
         start = written.find_first_not_of(SEPARATORS, end)) {
        end = std::min(written.find_first_of(SEPARATORS, start), written.size());
        set |= wordOf(property, written.substr(start, end - start)).number;
    }
    return set != 0 ? std::to_string(set) : takeWord(property, written);
}

std::string takeBoolean(const Property& property, const std::string& written) {
    return wordOf(property, written).text;
}

std::string takeNumber(const Property& property, const std::string& written) {
    const long long value = isDecimal(written) ? std::stoll(written) : 0;
    if (!isDecimal(written) || value < property.lowest || value > property.highest)
        refuse(property, "a number from " + std::to_string(property.lowest) + " to " +
                             std::to_string(property.highest));
    return std::to_string(value);
}

// The library quotes a text for the client, unless the text begins or ends with a double quote itself.
std::string takeText(const Property& property, const std::string& written) {
    if (written.size() > LONGEST_TEXT)
        refuse(property, std::to_string(LONGEST_TEXT) + " bytes at most");
    if (std::any_of(written.begin(), written.end(), isControl))
        refuse(property, "no line feeds or other control characters");
    if (!written.empty() && (written.front() == '"' || written.back() == '"'))
        refuse(property, "no double quote at an end: the supplicant would not get it");
    return written;
}

// The supplicant runs in another folder, and looks for the file when it connects.
std::string takePath(const Property& property, const std::string& written) {
    takeText(property, written);
    if (written.empty() || !isPath(written))
        return written;
    requireFile(property, written);
    return takeText(property, std::filesystem::absolute(written).string());
}

std::string takeBssid(const Property& property, const std::string& written) {
    if (written != "any" && !isMacAddress(written))
        refuse(property, "a MAC address such as 02:00:00:00:01:00, or any");
    return written;
}

// Keys cannot be cleared: the supplicant refuses an empty one.
std::string takePsk(const Property& property, const std::string& written) {
    if (written.empty())
        refuse(property, "8 to 63 characters, or 64 hexadecimal digits");
    return takeText(property, written);
}

bool isPsk(const std::string& key) {
    return (key.size() >= 8 && key.size() <= 63) || (key.size() == 64 && isHex(key));
}

std::string takeWepKey(const Property& property, const std::string& written) {
    if (!isWepKey(written))
        refuse(property, "5 or 13 characters, or 10 or 26 hexadecimal digits");
    return takeText(property, written);
}

} // namespace cli
