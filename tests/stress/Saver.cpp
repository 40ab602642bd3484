// A process that keeps saving, and is killed when its parent ends. PARENT --again: it saves once,
// lets its refresh thread raise the signal, and executes itself again without detaching from the shared
// block, so that the block keeps its name. PARENT --slot DESCRIPTOR INDEX SEED: it saves until the
// slot asks it to end, records its progress in the slot, unloads from time to time, and holds the
// locks of the shared block for a long time.

#include "InProcessChild.h"
#include "Job.h"
#include "Lingering.h"
#include "Slot.h"
#include "Supplicant.h"
#include "jni/ServiceFunctions.h"
#include "settings/WifiHostSettings.h"
#include "support/TestTime.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <string>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <thread>
#include <unistd.h>

namespace {

using namespace stress;

constexpr auto SIGNAL_TIME = std::chrono::milliseconds(10); // some cycles of a quick refresh thread
// Pauses, because in a cycle with its own save a refresh thread does not wait for saves of others.
constexpr std::uint32_t LONGEST_PAUSE_MS = 80;
constexpr std::uint32_t SAVES_A_LOAD = 50;
constexpr std::uint32_t REAL_SHARE = 50;

void save(std::uint32_t number) {
    const std::string priority = std::to_string(number % 100);
    const char* const name = "priority";
    const char* const value = priority.c_str();
    expect(setNetworkParameters(nullptr, "wlan0", "home", &name, &value, 1) == 1,
           "a process that saves has lost its network");
    expect(saveWifiHostSettings(nullptr) == 1, "a save of another process failed");
}

[[noreturn]] void saveOnceAndAgain(char* arguments[]) {
    Job::named("saver", 0);
    save(1);
    std::this_thread::sleep_for(SIGNAL_TIME);
    execv("/proc/self/exe", arguments);
    fail("a process that saves could not execute itself again");
}

/// Records an operation and its length in the slot.
class Doing {
public:
    Doing(Slot& slot, OperationNumber operation)
        : m_slot(slot), m_operation(operation), m_began(slot.beats) {
        m_slot.operation = operation;
        m_slot.began = m_began;
    }
    ~Doing() {
        m_slot.began = 0;
        const std::uint32_t beats = m_slot.beats - m_began;
        std::atomic<std::uint32_t>& longest = m_slot.longest[m_operation];
        longest = std::max(longest.load(), beats);
    }
    Doing(const Doing&) = delete;
    Doing& operator=(const Doing&) = delete;

private:
    Slot& m_slot;
    OperationNumber m_operation;
    std::uint32_t m_began;
};

[[noreturn]] void beat(Slot& slot) {
    for (;;) {
        std::this_thread::sleep_for(BEAT);
        ++slot.beats;
    }
}

void loadAndSave(Slot& slot, Random& random) {
    {
        const Doing loading(slot, LOAD);
        WifiHostSettings::getInstance(nullptr);
    }
    const std::uint32_t saves = 1 + random.below(SAVES_A_LOAD);
    for (std::uint32_t i = 0; (i < saves || slot.staysLoaded != 0) && slot.isToEnd == 0; ++i) {
        {
            const Doing saving(slot, SAVE);
            save(++slot.saves);
        }
        slot.refreshes = Supplicant::get().refreshes();
        std::this_thread::sleep_for(std::chrono::milliseconds(random.below(LONGEST_PAUSE_MS)));
    }
    const Doing unloading(slot, UNLOAD);
    stopWifiService(nullptr);
}

Slot* mapSlots(const char* descriptor) {
    void* const memory = mmap(nullptr, SLOTS * sizeof(Slot), PROT_READ | PROT_WRITE, MAP_SHARED,
                              std::atoi(descriptor), 0);
    expect(memory != MAP_FAILED, "the slots cannot be mapped");
    return static_cast<Slot*>(memory);
}

void saveUntilTheEnd(char* arguments[]) {
    Slot& slot = mapSlots(arguments[3])[std::atoi(arguments[4])];
    const auto seed = static_cast<std::uint32_t>(std::strtoul(arguments[5], nullptr, 10));
    Job::named("saver", seed);
    std::thread([&slot] { beat(slot); }).detach();
    linger(seed, slot.holdsShared);
    useRealChildren(REAL_SHARE);
    Random random(seed, 0);
    while (slot.isToEnd == 0)
        loadAndSave(slot, random);
}

} // namespace

int main(int count, char* arguments[]) {
    if (count < 3)
        return 2;
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != std::atoi(arguments[1]))
        return 0; // the parent has ended before
    test::TestTime time;
    time.deadlinesAre(std::chrono::milliseconds(1));
    if (count == 3 && std::strcmp(arguments[2], "--again") == 0)
        saveOnceAndAgain(arguments);
    if (count != 6 || std::strcmp(arguments[2], "--slot") != 0)
        return 2;
    saveUntilTheEnd(arguments);
    return 0;
}
