// What the supplicant is told: networks, connection and configuration.

#include "supplicant/Arguments.h"
#include "supplicant/ClientCommand.h"
#include "supplicant/Reply.h"
#include "supplicant/ValueQuoting.h"
#include "supplicant/WifiUtil.h"

#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>

using namespace platwifi;

namespace {

// The id of a new network as the client printed it, or nothing: any other text, or an id that a network
// cannot hold, would make the next commands change another network.
std::optional<unsigned char> newNetworkId(const char* text) {
    constexpr std::size_t MOST_DIGITS = 8;
    constexpr unsigned long LARGEST_ID = 255;
    const std::size_t digits = std::strspn(text, "0123456789");
    if (digits == 0 || digits > MOST_DIGITS || text[digits] != '\0')
        return {};
    const unsigned long id = std::strtoul(text, nullptr, 10);
    return id <= LARGEST_ID ? std::optional(static_cast<unsigned char>(id)) : std::nullopt;
}

// Reads the reply's first line, which alone decides.
bool readAccepted(ResultFile& result, ReplyLine& line) {
    if (!result.open())
        return false;
    line.readFrom(result);
    return isAccepted(line.text);
}

bool runAccepted(WifiUtil& util, const ClientCommand& command, const char* iface, ReplyLine& line,
                 const char* arg1 = nullptr, const char* arg2 = nullptr,
                 const char* arg3 = nullptr) {
    ResultFile result(command.resultPrefix);
    return runClient(util, command, InterfaceOption(iface), result, arg1, arg2, arg3) &&
           readAccepted(result, line);
}

bool runAccepted(WifiUtil& util, const ClientCommand& command, const char* iface,
                 const char* arg1 = nullptr, const char* arg2 = nullptr,
                 const char* arg3 = nullptr) {
    ReplyLine line;
    return runAccepted(util, command, iface, line, arg1, arg2, arg3);
}

// For commands whose reply is not looked at, deliberately: a refusal counts as success.
bool runExited(WifiUtil& util, const ClientCommand& command, const char* iface,
               const char* arg1 = nullptr) {
    const ResultFile result(command.resultPrefix);
    return runClient(util, command, InterfaceOption(iface), result, arg1);
}

} // namespace

bool WifiUtil::createNetwork(const char* iface, const char* ssid, unsigned char* id) {
    if (!ssid || !id)
        return false;
    ReplyLine line;
    if (!runAccepted(*this, command::ADD_NETWORK, iface, line))
        return false;
    if (timestampedOutput == 1)
        ignoreTimestamp(line.text);
    const std::optional<unsigned char> created = newNetworkId(line.text);
    if (!created)
        return false;
    *id = *created; // the commands have the client's own text
    return runAccepted(*this, command::SET_NETWORK, iface, line.text, "ssid",
                       quoted(ssid).c_str()) &&
           runAccepted(*this, command::ENABLE_NETWORK, iface, line.text);
}

bool WifiUtil::setNetworkValue(const char* iface, unsigned char id, const char* key,
                               const char* value) {
    if (!key || !value)
        return false;
    const std::string sent = quotedFor(key, value);
    return !isClientOption(sent.c_str()) &&
           runAccepted(*this, command::SET_NETWORK, iface, NetworkIdArgument(id).text(), key,
                       sent.c_str());
}

bool WifiUtil::getNetworkValue(const char* iface, unsigned char id, const char* key, char* out,
                               unsigned int outSize) {
    ReplyLine line;
    if (!key || !out ||
        !runAccepted(*this, command::GET_NETWORK, iface, line, NetworkIdArgument(id).text(), key))
        return false;
    if (timestampedOutput == 1)
        ignoreTimestamp(line.text);
    stripQuotes(line.text);
    std::strncpy(out, line.text, outSize); // deliberately without a NUL where the value fills `out`
    return true;
}

bool WifiUtil::connectToNetwork(const char* iface, unsigned char id) {
    return runExited(*this, command::SELECT, iface, NetworkIdArgument(id).text());
}

bool WifiUtil::disconnectFromNetwork(const char* iface, unsigned char /*id*/) {
    return runExited(*this, command::DISCONNECT, iface);
}

bool WifiUtil::removeNetwork(const char* iface, unsigned char id) {
    return runAccepted(*this, command::REMOVE_NETWORK, iface, NetworkIdArgument(id).text());
}

bool WifiUtil::saveConfiguration(const char* iface) {
    return runAccepted(*this, command::SAVE_CONFIG, iface);
}

bool WifiUtil::reloadConfiguration(const char* iface) {
    return runAccepted(*this, command::RECONFIGURE, iface);
}

bool WifiUtil::forceReassociation(const char* iface) {
    return runAccepted(*this, command::REASSOCIATE, iface);
}

bool WifiUtil::executeCustom(const char* iface, unsigned char id, const char* command,
                             const char* value) {
    return command && !(value && isClientOption(value)) &&
           runAccepted(*this, {command, command::CUSTOM_RESULT_PREFIX}, iface,
                       NetworkIdArgument(id).text(), value);
}
