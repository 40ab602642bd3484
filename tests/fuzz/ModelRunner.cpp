// The library's children: what the linker puts in the place of WifiUtil::launchProcess() and
// WifiUtil::isWifiEnabled() (see the options in CMakeLists.txt), and of the watchdog's start, so that
// there is no refresh thread. Waits take no time.

#include "ModelSupplicant.h"

#include "platform/FileDescriptor.h"
#include "platform/PlatformUtil.h"
#include "supplicant/WifiUtil.h"
#include "watchdog/WifiHostSettingsWatchdog.h"

#include <fcntl.h>
#include <unistd.h>

using fuzz::ModelSupplicant;

namespace {

constexpr std::size_t OPTION_LENGTH = 2; // "-i"

void writeResult(const char* path, const std::string& output) {
    const platform::FileDescriptor file(
        open(path, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, S_IRUSR | S_IWUSR));
    static_cast<void>(!write(file.number(), output.data(), output.size()));
}

} // namespace

bool modelLaunch(WifiUtil*, const char*, const char*, const char*, const char*, const char*,
                 const char*,
                 const char*) __asm__("__wrap__ZN8WifiUtil13launchProcessEPKcS1_S1_S1_S1_S1_S1_");

bool modelLaunch(WifiUtil* /*util*/, const char* /*path*/, const char* command,
                 const char* interfaceArg, const char* arg1, const char* arg2, const char* arg3,
                 const char* resultFile) {
    ModelSupplicant::Command words{command};
    for (const char* const argument : {arg1, arg2, arg3}) {
        if (argument)
            words.emplace_back(argument);
    }
    const std::string iface = interfaceArg ? interfaceArg + OPTION_LENGTH : "";
    const ModelSupplicant::Answer answer = ModelSupplicant::instance().run(iface, words);
    writeResult(resultFile, answer.output);
    return answer.hasExited;
}

bool modelIsListed(WifiUtil*, const char*) __asm__("__wrap__ZN8WifiUtil13isWifiEnabledEPKc");

bool modelIsListed(WifiUtil* /*util*/, const char* /*iface*/) {
    return ModelSupplicant::instance().isListed;
}

bool noWatchdog(WifiHostSettingsWatchdog*) __asm__(
    "__wrap__ZN24WifiHostSettingsWatchdog10initializeEv");

bool noWatchdog(WifiHostSettingsWatchdog* /*watchdog*/) {
    return false;
}

void PlatformUtil::sleep(int /*milliseconds*/) noexcept {}
