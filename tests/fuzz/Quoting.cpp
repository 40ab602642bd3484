// What the client gets: quotes around values, arguments, names of result files.

#include "Input.h"
#include "Require.h"

#include "supplicant/Arguments.h"
#include "supplicant/ResultFile.h"
#include "supplicant/ValueQuoting.h"

#include <cstring>
#include <optional>
#include <vector>

using namespace platwifi;
using fuzz::Input;

namespace {

constexpr const char* KEYS[] = {
    "ssid",
    "psk",
    "identity",
    "anonymous_identity",
    "password",
    "phase1",
    "phase2",
    "wep_key0",
    "wep_key3",
    "ca_cert",
    "ca_cert2",
    "ca_path",
    "ca_path2",
    "client_cert",
    "client_cert2",
    "private_key",
    "private_key2",
    "private_key_passwd",
    "private_key2_passwd",
    "priority",
    "key_mgmt",
    "bssid",
    "disabled",
    "wep_tx_keyidx",
    "scan_ssid",
};
constexpr unsigned int KEY_COUNT = sizeof(KEYS) / sizeof(KEYS[0]);

bool beginsWith(const std::string& text, const char* beginning) {
    return text.rfind(beginning, 0) == 0;
}

bool isTextKey(const std::string& key) {
    for (const char* const prefix :
         {"wep_key", "ca_cert", "ca_path", "client_cert", "private_key"}) {
        if (beginsWith(key, prefix))
            return true;
    }
    for (const char* const name :
         {"ssid", "psk", "identity", "anonymous_identity", "password", "phase1", "phase2"}) {
        if (key == name)
            return true;
    }
    return false;
}

bool isHexadecimalKey(const std::string& key, std::size_t length) {
    return (key == "psk" && length == 64) ||
           (beginsWith(key, "wep_key") && (length == 10 || length == 26));
}

void quoting(Input& input) {
    const unsigned int choice = input.byte();
    const std::string key = choice < KEY_COUNT ? KEYS[choice] : input.text();
    const std::string value = input.text();
    const bool isQuoted = !value.empty() && (value.front() == '"' || value.back() == '"');
    const bool stays = !isTextKey(key) || isQuoted || isHexadecimalKey(key, value.size());
    const std::string sent = quotedFor(key.c_str(), value.c_str());
    REQUIRE_FOR(sent == (stays ? value : '"' + value + '"'), key + " " + value);
    REQUIRE(quoted(value.c_str()) == '"' + value + '"');
}

void options(Input& input) {
    const std::string text = input.text();
    const bool isNegative = text.size() > 1 && text[1] >= '0' && text[1] <= '9';
    // A lone "-" is no option; other tests cover it.
    if (text != "-")
        REQUIRE(isClientOption(text.c_str()) == (text[0] == '-' && !isNegative));
}

void interfaces(Input& input) {
    const std::string name = input.text();
    const InterfaceOption option(name.c_str());
    REQUIRE(option.isValid() == (name.size() <= 13));
    REQUIRE(option.namesInterface() == (option.isValid() && !name.empty()));
    REQUIRE(!option.isValid() || "-i" + name == option.text());
}

void networkIds(Input& input) {
    const std::uint8_t id = input.byte();
    REQUIRE(std::to_string(id) == NetworkIdArgument(id).text());
}

// The entries of a caller; one that begins with a NUL character is null.
std::optional<std::string> entryFrom(Input& input) {
    if (input.flag())
        return std::nullopt;
    return input.text(16);
}

const char* pointerTo(const std::optional<std::string>& text) {
    return text ? text->c_str() : nullptr;
}

void vectors(Input& input) {
    std::optional<std::string> entries[6];
    for (auto& entry : entries)
        entry = entryFrom(input);
    const ArgumentList arguments =
        argumentsOf(pointerTo(entries[0]), pointerTo(entries[1]), pointerTo(entries[2]),
                    pointerTo(entries[3]), pointerTo(entries[4]), pointerTo(entries[5]));
    std::vector<std::string> expected;
    for (int i = 0; i < 6; ++i) {
        if (entries[i])
            expected.push_back(*entries[i]);
        else if (i == 2 || i == 3) // the command, its first argument: nothing follows without it
            break;
    }
    std::size_t count = 0;
    for (; arguments.get()[count]; ++count)
        REQUIRE(count < expected.size() && expected[count] == arguments.get()[count]);
    REQUIRE(count == expected.size());
}

void resultFiles(Input& input) {
    const std::string prefix = "/tmp/" + input.text();
    ResultFile file(prefix.c_str());
    file.keep(); // no file was created, so none may be removed
    const std::string path = file.path();
    REQUIRE(path.size() <= 127);
    REQUIRE(beginsWith(path, prefix.substr(0, 127).c_str()));
    REQUIRE(prefix.size() >= 127 ||
            path.find_first_not_of("-0123456789", prefix.size()) == std::string::npos);
}

constexpr void (*PARTS[])(Input&) = {quoting,    options, interfaces,
                                     networkIds, vectors, resultFiles};

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    PARTS[input.below(sizeof(PARTS) / sizeof(PARTS[0]))](input);
    return 0;
}
