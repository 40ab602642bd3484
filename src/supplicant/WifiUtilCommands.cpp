// What the supplicant is told: networks, connection and configuration.

#include "supplicant/Arguments.h"
#include "supplicant/ClientCommand.h"
#include "supplicant/Reply.h"
#include "supplicant/ValueQuoting.h"
#include "supplicant/WifiUtil.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

using namespace platwifi;

namespace {

// A new network's number as the client printed it; it goes back to the client as this text.
struct NewNetworkId {
    char text[8 + 1]; // eight characters count

    explicit NewNetworkId(const char* line) { std::snprintf(text, sizeof(text), "%.8s", line); }

    unsigned char number() const { return static_cast<unsigned char>(std::atoi(text)); }
};

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
    const NewNetworkId created(line.text);
    *id = created.number();
    return runAccepted(*this, command::SET_NETWORK, iface, created.text, "ssid",
                       quoted(ssid).c_str()) &&
           runAccepted(*this, command::ENABLE_NETWORK, iface, created.text);
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
