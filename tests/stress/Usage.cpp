#include "Usage.h"

#include "Job.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/WifiUtil.h"
#include "support/Leftovers.h"
#include "support/ThreadState.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <malloc.h>

namespace stress {
namespace {

constexpr std::size_t HEAP_SLACK = 64 * 1024;
constexpr std::size_t RESIDENT_SLACK_KIB = 2048;
constexpr std::size_t KEPT_FILES = 8; // of the last scan of each thread

#ifdef STRESS_SANITIZED
constexpr bool HAS_OWN_HEAP = false;
#else
constexpr bool HAS_OWN_HEAP = true;
#endif

std::size_t residentKiB() {
    std::ifstream file("/proc/self/status");
    for (std::string word; file >> word;) {
        std::size_t number = 0;
        if (word == "VmRSS:" && file >> number)
            return number;
    }
    fail("/proc/self/status does not show the resident memory");
}

std::size_t entriesOf(const char* folder) {
    const auto count = std::distance(std::filesystem::directory_iterator(folder),
                                     std::filesystem::directory_iterator());
    return static_cast<std::size_t>(count);
}

void expectAtMost(std::size_t later, std::size_t limit, const char* what) {
    if (later > limit)
        fail(std::string(what) + ": " + std::to_string(later) + " and not at most " +
             std::to_string(limit));
}

} // namespace

Usage Usage::now() {
    const test::Leftovers leftovers = test::Leftovers::now();
    Usage usage{};
    if (HAS_OWN_HEAP) {
        usage.heapBytes = mallinfo2().uordblks;
        usage.residentKiB = stress::residentKiB();
    }
    usage.threads = entriesOf("/proc/self/task");
    usage.descriptors = leftovers.descriptors;
    usage.children = leftovers.children;
    usage.resultFiles = leftovers.files.size();
    usage.sharedObjects = entriesOf("/dev/shm");
    return usage;
}

std::string Usage::text() const {
    return std::to_string(heapBytes) + " bytes of heap, " + std::to_string(residentKiB) +
           " KiB resident, " + std::to_string(threads) + " threads, " +
           std::to_string(descriptors) + " descriptors, " + std::to_string(children) +
           " children, " + std::to_string(resultFiles) + " result files, " +
           std::to_string(sharedObjects) + " shared objects";
}

void expectFlat(const Usage& earlier, const Usage& later) {
    expectAtMost(later.heapBytes, earlier.heapBytes + HEAP_SLACK, "bytes of heap");
    expectAtMost(later.residentKiB, earlier.residentKiB + RESIDENT_SLACK_KIB, "KiB of memory");
    expectAtMost(later.threads, earlier.threads, "threads");
    expectAtMost(later.descriptors, earlier.descriptors, "descriptors");
    expectAtMost(later.children, earlier.children, "children");
    expectAtMost(later.resultFiles, earlier.resultFiles + KEPT_FILES, "result files");
    expectAtMost(later.sharedObjects, earlier.sharedObjects, "shared objects");
}

void unloadAll() {
    WifiHostSettings::unload();
    WifiUtil::unload();
    test::awaitNoThreadNamed(test::REFRESH_THREAD);
}

} // namespace stress
