#include "FailedRun.h"

#include "fuzz/ModelSupplicant.h"
#include "jni/ServiceFunctions.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/WifiUtil.h"
#include "support/AllNatives.h"
#include "support/FailingAllocator.h"
#include "support/FakeJni.h"
#include "support/FieldTable.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <future>
#include <memory>
#include <new>
#include <sys/wait.h>
#include <thread>
#include <tuple>
#include <unistd.h>
#include <utility>

using fuzz::ModelSupplicant;

namespace test {
namespace {

constexpr unsigned int TIME_LIMIT_S = 30; // then an alarm ends a process that hangs
constexpr const char* ADAPTER = "wlan0";
constexpr const char* LONG_TEXT = "a text that has to be allocated wherever it is copied to";
constexpr const char* EDITED = "home"; // the network that natives are called for
constexpr const char* OTHER = "work";  // which no native removes

// How a child ends.
enum Status : int { WORKED = 0, NOTHING_FAILED = 10, LOCK_STAYS = 11, DOES_NOT_WORK = 12 };

ModelSupplicant& model() {
    return ModelSupplicant::instance();
}

// The Java environment's own allocations are not those of the library.
const JNINativeInterface_* plainTable = nullptr;

// A function of the Java environment during which no allocation fails.
template <auto SLOT, typename Function = decltype(SLOT)>
struct Paused;

template <auto SLOT, typename Result, typename... Arguments>
struct Paused<SLOT, Result (JNICALL* JNINativeInterface_::*)(Arguments...)> {
    static Result JNICALL call(Arguments... arguments) {
        const FailingAllocator::Pause pause;
        return (plainTable->*SLOT)(arguments...);
    }
};

JNINativeInterface_ pausedTable() {
    using Table = JNINativeInterface_;
    Table table = *plainTable;
#define PAUSED(slot) table.slot = Paused<&Table::slot>::call
    PAUSED(FindClass);
    PAUSED(ThrowNew);
    PAUSED(ExceptionOccurred);
    PAUSED(ExceptionClear);
    PAUSED(ExceptionCheck);
    PAUSED(DeleteLocalRef);
    PAUSED(NewStringUTF);
    PAUSED(GetStringLength);
    PAUSED(GetStringUTFRegion);
    PAUSED(GetArrayLength);
    PAUSED(NewObjectArray);
    PAUSED(GetObjectArrayElement);
    PAUSED(SetObjectArrayElement);
#undef PAUSED
    return table;
}

FakeJni& java() {
    static FakeJni* const made = [] {
        auto* const environment = new FakeJni; // as long as the process
        plainTable = environment->environment()->functions;
        static const JNINativeInterface_ table = pausedTable();
        environment->environment()->functions = &table;
        return environment;
    }();
    return *made;
}

// Made before the failure, like the environment.
const NativeArguments* javaArguments() {
    static const NativeArguments arguments{java().javaString(ADAPTER), java().javaString(EDITED),
                                           java().javaString(LONG_TEXT), 2, true};
    return &arguments;
}

bool anotherThreadGetsTheLock() {
    std::promise<void> done;
    std::thread([&] {
        if (WifiHostSettings* const settings = WifiHostSettings::getInstance(nullptr)) {
            settings->lockSettings();
            settings->unlockSettings();
        }
        done.set_value();
    }).detach();
    return done.get_future().wait_for(std::chrono::seconds(TIME_LIMIT_S / 2)) ==
           std::future_status::ready;
}

bool worksAgain() {
    WifiHostSettings::reload(nullptr);
    const char* const names[] = {"phase2"};
    const char* const values[] = {"auth=PAP"};
    return setNetworkParameters(nullptr, ADAPTER, OTHER, names, values, 1) == 1 &&
           saveWifiHostSettings(nullptr) == 1;
}

// A virtual machine has no handler for a C++ exception that a native throws.
void runUnderFailure(int n, void (*work)(std::size_t), std::size_t which) {
    FailingAllocator::failAt(n);
    try {
        work(which);
    } catch (const std::bad_alloc&) {
    }
}

[[noreturn]] void runChild(int n, void (*prepare)(), void (*work)(std::size_t), std::size_t which) {
    alarm(TIME_LIMIT_S);
    prepare();
    javaArguments();
    runUnderFailure(n, work, which);
    if (!FailingAllocator::stop())
        _exit(NOTHING_FAILED);
    if (!anotherThreadGetsTheLock())
        _exit(LOCK_STAYS);
    _exit(worksAgain() ? WORKED : DOES_NOT_WORK);
}

std::pair<Outcome, std::string> outcomeOf(int status) {
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT)
        return {Outcome::ABORTED, "aborted"};
    if (WIFSIGNALED(status))
        return {Outcome::WRONG,
                WTERMSIG(status) == SIGALRM ? "hangs" : strsignal(WTERMSIG(status))};
    switch (WEXITSTATUS(status)) {
    case WORKED:
        return {Outcome::WORKS_ON, "works"};
    case NOTHING_FAILED:
        return {Outcome::NO_FAILURE, "nothing failed"};
    case LOCK_STAYS:
        return {Outcome::WRONG, "a lock stays"};
    case DOES_NOT_WORK:
        return {Outcome::WRONG, "the process does not work any more"};
    default:
        return {Outcome::WRONG, "ended with status " + std::to_string(WEXITSTATUS(status))};
    }
}

template <typename Body>
int runForked(Body body) {
    const pid_t child = fork();
    if (child == 0) {
        body();
        _exit(DOES_NOT_WORK);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return status;
}

// A process that uses what the one before has left, and unloads.
int runNextProcess() {
    return runForked([] {
        alarm(TIME_LIMIT_S);
        nothingYet();
        const bool works = worksAgain();
        WifiHostSettings::unload();
        WifiUtil::unload();
        _exit(works ? WORKED : DOES_NOT_WORK);
    });
}

} // namespace

FailedRun::FailedRun(int n, void (*prepare)(), void (*work)(std::size_t), std::size_t which) {
    std::tie(m_outcome, m_what) = outcomeOf(runForked([=] { runChild(n, prepare, work, which); }));
    if (m_outcome != Outcome::ABORTED)
        return;
    const auto [next, what] = outcomeOf(runNextProcess());
    if (next != Outcome::WORKS_ON) {
        m_outcome = Outcome::WRONG;
        m_what = "the next process: " + what;
    }
}

void nothingYet() {
    setenv("PLATFORM_KEY_FILE", "/tmp/key/of the test", 1);
    model().reset();
    model().configure(0, EDITED, true).values["psk"] = "\"a key of it\"";
    model().configure(1, OTHER, true);
}

void loaded() {
    nothingYet();
    WifiHostSettings::getInstance(nullptr);
}

void edited() {
    loaded();
    for (const FieldRow& row : fieldRows()) {
        if (row.property && isText(row) && !isEnciphered(row))
            setNetworkParameters(nullptr, ADAPTER, EDITED, &row.property, &LONG_TEXT, 1);
    }
}

void load(std::size_t /*which*/) {
    WifiHostSettings::getInstance(nullptr);
}

void save(std::size_t /*which*/) {
    saveWifiHostSettings(nullptr);
}

void reload(std::size_t /*which*/) {
    WifiHostSettings::reload(nullptr);
}

void callNative(std::size_t which) {
    NATIVES[which].call(java().environment(), *javaArguments());
}

std::string leftBehindTheNextProcess() {
    runNextProcess();
    std::string left;
    for (const char* const folder : {"/tmp", "/dev/shm"}) {
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            // Folders, the key's among them, are skipped.
            const bool isScan = entry.path().string().find("/wpa_cli_scan_result_") == 4;
            const bool holdsLocks =
                entry.path().extension() == ".lock"; // where POSIX alone is used
            if (entry.is_regular_file() && !isScan && !holdsLocks)
                left += entry.path().string() + "\n";
        }
    }
    return left;
}

} // namespace test
