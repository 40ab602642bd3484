#include "supplicant/ValueQuoting.h"

#include "Profile.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace platwifi {
namespace {

enum class Match { PREFIX, WHOLE };

struct TextKey {
    const char* name;
    Match match;
};

// A prefix also covers the numbered fields and those of the second phase: wep_key0, ca_cert2,
// private_key2_passwd.
constexpr TextKey TEXT_KEYS[] = {
    {"wep_key", Match::PREFIX},            //
    {"ca_cert", Match::PREFIX},            //
    {"ca_path", Match::PREFIX},            //
    {"client_cert", Match::PREFIX},        //
    {"private_key", Match::PREFIX},        //
    {"private_key_passwd", Match::PREFIX}, //
    {"ssid", Match::WHOLE},                //
    {"psk", Match::WHOLE},                 //
    {"identity", Match::WHOLE},            //
    {"anonymous_identity", Match::WHOLE},  //
    {"password", Match::WHOLE},            //
    {"phase1", Match::WHOLE},              //
    {"phase2", Match::WHOLE},              //
};

// A value of this length is the key itself, in hexadecimal; any other length is a text.
struct RawKey {
    TextKey key;
    std::size_t length;
};

constexpr RawKey RAW_KEYS[] = {
    {{"wep_key", Match::PREFIX}, 10}, // 40 bits
    {{"wep_key", Match::PREFIX}, 26}, // 104 bits
    {{"psk", Match::WHOLE}, 64},
};

bool matches(const TextKey& wanted, const char* key) {
    if (wanted.match == Match::WHOLE)
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

// Inside quotes the supplicant takes every byte as it is, but an argument of the client ends at a line feed.
bool isPlain(const char* ssid) {
    return std::all_of(ssid, ssid + std::strlen(ssid), [](char byte) {
        return byte >= ' ' && byte <= '~' && byte != '"' && byte != '\\';
    });
}

std::string hexadecimal(const char* text) {
    const char* const digits = "0123456789abcdef";
    std::string result;
    for (; *text; ++text) {
        const auto byte = static_cast<unsigned char>(*text);
        result += digits[byte >> 4];
        result += digits[byte & 0xf];
    }
    return result;
}

bool hasQuote(const char* value, std::size_t length) {
    return length > 0 && (value[0] == '"' || value[length - 1] == '"');
}

} // namespace

std::string quotedFor(const char* key, const char* value) {
    if (rule::SSIDS_ARE_BYTES() && std::strcmp(key, "ssid") == 0)
        return quotedSsid(value);
    const std::size_t length = std::strlen(value);
    if (isText(key) && !hasQuote(value, length) && !isRaw(key, length))
        return quoted(value);
    return value;
}

std::string quotedSsid(const char* ssid) {
    return rule::SSIDS_ARE_BYTES() && !isPlain(ssid) ? hexadecimal(ssid) : quoted(ssid);
}

std::string quoted(const char* text) {
    std::string result = "\"";
    result += text;
    result += '"';
    return result;
}

} // namespace platwifi
