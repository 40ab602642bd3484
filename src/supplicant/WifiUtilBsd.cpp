// The instance, the launch of a child, and whether the supplicant runs.

#include "supplicant/WifiUtil.h"

#include "Paths.h"
#include "platform/MutexGuard.h"
#include "supplicant/Arguments.h"
#include "supplicant/ChildProcess.h"
#include "supplicant/ClientCommand.h"
#include "supplicant/LeftoverFiles.h"
#include "supplicant/ReplyLines.h"
#include "supplicant/ResultFile.h"
#include "supplicant/Timestamp.h"

#include <cstring>
#include <mutex>
#include <new>
#include <sys/stat.h>

using namespace platwifi;

namespace {

constexpr const char* SUPPLICANT = "wpa_supplicant";
constexpr int PROCESS_LINE_SIZE = 512;

// Guards INSTANCE and its isProbed: threads that call at the same time get one instance, probed
// once.
std::mutex& instanceMutex() {
    static std::mutex mutex;
    return mutex;
}

// Whether the client puts a time of day in front of the first adapter. A driver of its own asks,
// which expects no stamps: the instance may still expect them from an earlier probe, and would
// remove them.
bool answersWithTimestamps() {
    WifiUtil probe;
    ReplyLines adapters(1);
    if (!probe.getWifiAdapters(adapters.data(), adapters.capacity(), &adapters.count) ||
        adapters.count == 0)
        return false;
    return isStamped(adapters.data()[0]);
}

bool supplicantIsListed(ResultFile& processes) {
    char line[PROCESS_LINE_SIZE];
    while (processes.readLine(line, PROCESS_LINE_SIZE)) {
        if (std::strstr(line, SUPPLICANT))
            return true;
    }
    return false;
}

bool pidFileExists() {
    struct stat facts {};
    return stat(paths::PID_FILE, &facts) == 0;
}

} // namespace

WifiUtil* WifiUtil::INSTANCE = nullptr;

WifiUtil* WifiUtil::getInstance() {
    const std::lock_guard<std::mutex> guard(instanceMutex());
    if (!INSTANCE) {
        removeLeftoverFilesOnce();
        INSTANCE = new (std::nothrow) WifiUtil; // never deleted: other threads may use it
    }
    if (INSTANCE && !INSTANCE->isProbed) {
        const MutexGuard alone(INSTANCE->launchMutex); // children run one at a time
        INSTANCE->timestampedOutput = answersWithTimestamps() ? 1 : 0;
        INSTANCE->isProbed = true;
    }
    return INSTANCE;
}

void WifiUtil::unload() {
    const std::lock_guard<std::mutex> guard(instanceMutex());
    if (!INSTANCE)
        return;
    const MutexGuard idle(INSTANCE->launchMutex);
    INSTANCE->isProbed = false;
}

WifiUtil::WifiUtil() : timestampedOutput(0) {
    PlatformUtil::createMutex(&launchMutex);
}

WifiUtil::~WifiUtil() {
    cleanup();
}

void WifiUtil::cleanup() {
    PlatformUtil::lockMutex(&launchMutex); // waits for a launch in progress; never unlocked
    PlatformUtil::destroyMutex(&launchMutex);
}

bool WifiUtil::launchProcess(const char* path, const char* command, const char* interfaceArg,
                             const char* arg1, const char* arg2, const char* arg3,
                             const char* resultFile) {
    return path && runChild(launchMutex, argumentsOf(path, interfaceArg, command, arg1, arg2, arg3),
                            command, resultFile);
}

bool WifiUtil::ignoreTimestamp(char* line) {
    if (!line)
        return false;
    const char* colon = std::strchr(line, ':');
    for (int i = 1; colon && i < 3; ++i)
        colon = std::strchr(colon + 1, ':');
    if (!colon || colon[1] == '\0')
        return false;
    const char* const text = colon + 2; // also skips the character after the colon, a blank
    std::memmove(line, text, std::strlen(text) + 1);
    return true;
}

bool WifiUtil::isWifiEnabled(const char* iface) {
    if (!iface)
        return pidFileExists();
    ResultFile result(command::PROCESS_TABLE_PREFIX);
    return listProcesses(launchMutex, InterfaceOption(iface), result) && result.open() &&
           supplicantIsListed(result);
}

bool WifiUtil::hashCACertificates() {
    return true;
}
