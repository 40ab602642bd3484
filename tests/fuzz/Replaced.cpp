// The linker replaces functions of the library by these (see the options in CMakeLists.txt): the model of a
// supplicant replaces children, and there is no refresh thread and no shared memory. Sleeps take no time.

#include "ModelRunner.h"
#include "ModelSupplicant.h"

#include "platform/PlatformUtil.h"
#include "support/TestTime.h"

class WifiHostSettingsWatchdog;
class WifiUtil;

namespace {

const test::TestTime timeOfModel([](test::TestTime& time) {
    time.sleepsAre(std::chrono::milliseconds(0));
    time.clockIs(1000000);
});

} // namespace

bool modelChild(PlatformMutex&, const platwifi::ArgumentList&, const char*, const char*) __asm__(
    "__wrap__ZN8platwifi8runChildER15pthread_mutex_tRKNS_12ArgumentListEPKcS6_");
bool modelIsListed(WifiUtil*, const char*) __asm__("__wrap__ZN8WifiUtil13isWifiEnabledEPKc");
bool noWatchdog(WifiHostSettingsWatchdog*) __asm__(
    "__wrap__ZN24WifiHostSettingsWatchdog10initializeEv");

bool modelChild(PlatformMutex& /*launchMutex*/, const platwifi::ArgumentList& arguments,
                const char* /*command*/, const char* resultFile) {
    return fuzz::runOnModel(arguments, resultFile);
}

bool modelIsListed(WifiUtil* /*util*/, const char* /*iface*/) {
    return fuzz::ModelSupplicant::instance().isListed;
}

bool noWatchdog(WifiHostSettingsWatchdog* /*watchdog*/) {
    return false; // the settings continue without one
}
