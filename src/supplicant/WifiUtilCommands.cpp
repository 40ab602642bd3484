// The commands that change something: networks, connection and configuration.

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

// The id of a new network as the client printed it. No value for any other text and for an id above
// 255: the next commands would change another network.
std::optional<unsigned char> newNetworkId(const char* text) {
    constexpr std::size_t MOST_DIGITS = 8;
    constexpr unsigned long LARGEST_ID = 255;
    const std::size_t digits = std::strspn(text, "0123456789");
    if (digits == 0 || digits > MOST_DIGITS || text[digits] != '\0')
        return {};
    const unsigned long id = std::strtoul(text, nullptr, 10);
    return id <= LARGEST_ID ? std::optional(static_cast<unsigned char>(id)) : std::nullopt;
}

// Reads the first line of the reply. It alone shows whether the command was refused.
bool readAccepted(ResultFile& result, ReplyLine& line) {
    if (!result.open())
        return false;
    line.readFrom(result);
    return isAccepted(line.text);
}

bool runAccepted(PlatformMutex& launchMutex, const ClientCommand& command, const char* iface,
                 ReplyLine& line, const ArgumentList& arguments = {}) {
    ResultFile result(command.resultPrefix);
    return runClient(launchMutex, command, InterfaceOption(iface), result, arguments) &&
           readAccepted(result, line);
}

bool runAccepted(PlatformMutex& launchMutex, const ClientCommand& command, const char* iface,
                 const ArgumentList& arguments = {}) {
    ReplyLine line;
    return runAccepted(launchMutex, command, iface, line, arguments);
}

// For commands whose reply is not read: a refusal counts as success.
bool runExited(PlatformMutex& launchMutex, const ClientCommand& command, const char* iface,
               const ArgumentList& arguments = {}) {
    const ResultFile result(command.resultPrefix);
    return runClient(launchMutex, command, InterfaceOption(iface), result, arguments);
}

} // namespace

bool WifiUtil::createNetwork(const char* iface, const char* ssid, unsigned char* id) {
    if (!ssid || !id)
        return false;
    ReplyLine line;
    if (!runAccepted(launchMutex, command::ADD_NETWORK, iface, line))
        return false;
    if (timestampedOutput == 1)
        ignoreTimestamp(line.text);
    const std::optional<unsigned char> created = newNetworkId(line.text);
    if (!created)
        return false;
    *id = *created; // the commands below send the client's own digits
    return runAccepted(launchMutex, command::SET_NETWORK, iface,
                       {line.text, "ssid", quotedSsid(ssid).c_str()}) &&
           runAccepted(launchMutex, command::ENABLE_NETWORK, iface, {line.text});
}

bool WifiUtil::setNetworkValue(const char* iface, unsigned char id, const char* key,
                               const char* value) {
    if (!key || !value)
        return false;
    const std::string sent = quotedFor(key, value);
    return !isClientOption(sent.c_str()) &&
           runAccepted(launchMutex, command::SET_NETWORK, iface,
                       {NetworkIdArgument(id).text(), key, sent.c_str()});
}

bool WifiUtil::unsetNetworkValue(const char* iface, unsigned char id, const char* key) {
    return key && runAccepted(launchMutex, command::SET_NETWORK, iface,
                              {NetworkIdArgument(id).text(), key, "NULL"});
}

bool WifiUtil::getNetworkValue(const char* iface, unsigned char id, const char* key, char* out,
                               unsigned int outSize) {
    ReplyLine line;
    if (!key || !out ||
        !runAccepted(launchMutex, command::GET_NETWORK, iface, line,
                     {NetworkIdArgument(id).text(), key}))
        return false;
    if (timestampedOutput == 1)
        ignoreTimestamp(line.text);
    stripQuotes(line.text);
    std::strncpy(out, line.text, outSize); // no NUL after a full buffer; quirk: REPLY-13
    return true;
}

bool WifiUtil::connectToNetwork(const char* iface, unsigned char id) {
    return runExited(launchMutex, command::SELECT, iface, {NetworkIdArgument(id).text()});
}

bool WifiUtil::disconnectFromNetwork(const char* iface, unsigned char /*id*/) {
    return runExited(launchMutex, command::DISCONNECT, iface);
}

bool WifiUtil::removeNetwork(const char* iface, unsigned char id) {
    return runAccepted(launchMutex, command::REMOVE_NETWORK, iface, {NetworkIdArgument(id).text()});
}

bool WifiUtil::saveConfiguration(const char* iface) {
    return runAccepted(launchMutex, command::SAVE_CONFIG, iface);
}

bool WifiUtil::reloadConfiguration(const char* iface) {
    return runAccepted(launchMutex, command::RECONFIGURE, iface);
}

bool WifiUtil::forceReassociation(const char* iface) {
    return runAccepted(launchMutex, command::REASSOCIATE, iface);
}

bool WifiUtil::executeCustom(const char* iface, unsigned char id, const char* command,
                             const char* value) {
    return command && !(value && isClientOption(value)) &&
           runAccepted(launchMutex, {command, command::CUSTOM_RESULT_PREFIX}, iface,
                       {NetworkIdArgument(id).text(), value});
}
