#include "supplicant/ClientCommand.h"

namespace platwifi {
namespace {

constexpr const char* CLIENT = "/proc/boot/wpa_cli";

} // namespace

bool runClient(WifiUtil& util, const ClientCommand& command, const InterfaceOption& interface,
               const ResultFile& result, const char* arg1, const char* arg2, const char* arg3) {
    return interface.namesInterface() && util.launchProcess(CLIENT, command.word, interface.text(),
                                                            arg1, arg2, arg3, result.path());
}

bool runClient(WifiUtil& util, const ClientCommand& command, const ResultFile& result) {
    return util.launchProcess(CLIENT, command.word, nullptr, nullptr, nullptr, nullptr,
                              result.path());
}

} // namespace platwifi
