#include "process/Notifier.h"

#include "process/Interrupt.h"
#include "process/SharedBlock.h"
#include "watchdog/WifiHostSettingsWatchdog.h"

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <string>
#include <unistd.h>

namespace cli {
namespace {

constexpr const char* NOTIFIER = "--notify-other-processes";

} // namespace

void notifyOtherProcesses(char* const arguments[], int status) {
    if (!isBlockShared())
        return;
    const std::string ending = std::to_string(status);
    const char* const notifier[] = {arguments[0], NOTIFIER, ending.c_str(), nullptr};
    execv("/proc/self/exe", const_cast<char* const*>(notifier));
}

bool isNotifier(int count, char* const arguments[]) {
    return count == 3 && std::strcmp(arguments[1], NOTIFIER) == 0;
}

// The signal mask is inherited over exec, and blocks the signals that Interrupt handles. The process
// ends without detaching from the block, which would remove its name from those that share it.
void runNotifier(char* const arguments[]) {
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    WifiHostSettingsWatchdog watchdog;
    watchdog.initialize();
    watchdog.sendRefreshSettingsSignal();
    const int status = std::atoi(arguments[2]);
    if (status < 0)
        Interrupt::endBySignal(-status);
    _exit(status);
}

} // namespace cli
