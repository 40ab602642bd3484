#include "supplicant/ValueQuoting.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace platwifi {
namespace {

enum class Match { Prefix, Whole };

struct TextKey {
    const char* name;
    Match match;
};

// By prefix, the numbered and the second-phase variants are meant too: wep_key0, ca_cert2,
// private_key2_passwd.
constexpr TextKey TEXT_KEYS[] = {
    {"wep_key", Match::Prefix},            //
    {"ca_cert", Match::Prefix},            //
    {"ca_path", Match::Prefix},            //
    {"client_cert", Match::Prefix},        //
    {"private_key", Match::Prefix},        //
    {"private_key_passwd", Match::Prefix}, //
    {"ssid", Match::Whole},                //
    {"psk", Match::Whole},                 //
    {"identity", Match::Whole},            //
    {"anonymous_identity", Match::Whole},  //
    {"password", Match::Whole},            //
    {"phase1", Match::Whole},              //
    {"phase2", Match::Whole},              //
};

// A value of this length is the key itself, in hexadecimal; any other length is a text.
struct RawKey {
    TextKey key;
    std::size_t length;
};

constexpr RawKey RAW_KEYS[] = {
    {{"wep_key", Match::Prefix}, 10}, // 40 bits
    {{"wep_key", Match::Prefix}, 26}, // 104 bits
    {{"psk", Match::Whole}, 64},
};

bool matches(const TextKey& wanted, const char* key) {
    if (wanted.match == Match::Whole)
        return std::strcmp(key, wanted.name) == 0;
    return std::strncmp(key, wanted.name, std::strlen(wanted.name)) == 0;
}

bool isText(const char* key) {
    return std::any_of(std::begin(TEXT_KEYS), std::end(TEXT_KEYS),
                       [key](const TextKey& text) { return matches(text, key); });
}

bool isRaw(const char* key, std::size_t length) {
    return std::any_of(std::begin(RAW_KEYS), std::end(RAW_KEYS), [=](const RawKey& raw) {
        return raw.length == length && matches(raw.key, key);
    });
}

bool hasQuote(const char* value, std::size_t length) {
    return length > 0 && (value[0] == '"' || value[length - 1] == '"');
}

} // namespace

std::string quotedFor(const char* key, const char* value) {
    const std::size_t length = std::strlen(value);
    if (isText(key) && !hasQuote(value, length) && !isRaw(key, length))
        return quoted(value);
    return value;
}

std::string quoted(const char* text) {
    std::string result = "\"";
    result += text;
    result += '"';
    return result;
}

} // namespace platwifi
