// What the linker puts in the place of functions of the library (see the options in CMakeLists.txt): the
// model of a supplicant for children, and no refresh thread and no shared memory.

#include "ModelRunner.h"
#include "ModelSupplicant.h"

class WifiHostSettingsWatchdog;
class WifiUtil;

bool modelLaunch(WifiUtil*, const char*, const char*, const char*, const char*, const char*,
                 const char*,
                 const char*) __asm__("__wrap__ZN8WifiUtil13launchProcessEPKcS1_S1_S1_S1_S1_S1_");
bool modelIsListed(WifiUtil*, const char*) __asm__("__wrap__ZN8WifiUtil13isWifiEnabledEPKc");
bool noWatchdog(WifiHostSettingsWatchdog*) __asm__(
    "__wrap__ZN24WifiHostSettingsWatchdog10initializeEv");

bool modelLaunch(WifiUtil* /*util*/, const char* /*path*/, const char* command,
                 const char* interfaceArg, const char* arg1, const char* arg2, const char* arg3,
                 const char* resultFile) {
    return fuzz::launchOnModel(command, interfaceArg, arg1, arg2, arg3, resultFile);
}

bool modelIsListed(WifiUtil* /*util*/, const char* /*iface*/) {
    return fuzz::ModelSupplicant::instance().isListed;
}

bool noWatchdog(WifiHostSettingsWatchdog* /*watchdog*/) {
    return false; // the settings go on without one
}
