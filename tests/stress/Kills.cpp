// Three processes save in a loop. At random moments one of them is killed and replaced, or stopped
// for some time, often while it holds a lock of the shared block. No operation of the others may take
// longer than documented, and files and shared objects must not accumulate.

#include "Job.h"
#include "OtherProcess.h"
#include "Runs.h"
#include "Slot.h"
#include "support/Leftovers.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <memory>
#include <new>
#include <sys/mman.h>
#include <thread>
#include <unistd.h>

namespace {

using namespace stress;
using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr std::uint32_t DEFAULT_KILLS = 2000;
constexpr std::size_t SAVERS = 3;
constexpr std::uint32_t LONGEST_PAUSE_MS = 60; // between two kills
constexpr std::uint32_t SHORT_STOP_MS = 200;
constexpr auto LONG_STOP =
    std::chrono::seconds(8); // longer than any documented wait plus ALLOWED_MILLISECONDS
constexpr std::uint32_t LONG_STOP_EVERY = 150; // actions
constexpr std::uint32_t FIRST_LONG_STOP = 20;
constexpr auto AIMING_TIME = milliseconds(100);
constexpr auto LONGEST_REFRESH = std::chrono::seconds(60);
constexpr std::size_t MOST_RESULT_FILES =
    24; // of running processes, and of killed ones until the next start
constexpr std::size_t MOST_SHARED_OBJECTS = 4;

struct Slots {
    Slots() {
        const int memory = memfd_create("slots", 0);
        expect(memory != -1 && ftruncate(memory, SLOTS * sizeof(Slot)) == 0, "no memory for slots");
        m_descriptor = memory;
        void* const mapped =
            mmap(nullptr, SLOTS * sizeof(Slot), PROT_READ | PROT_WRITE, MAP_SHARED, memory, 0);
        expect(mapped != MAP_FAILED, "the slots cannot be mapped");
        m_slots = static_cast<Slot*>(mapped);
    }

    Slot& operator[](std::size_t index) { return m_slots[index]; }
    std::string descriptor() const { return std::to_string(m_descriptor); }

private:
    int m_descriptor;
    Slot* m_slots;
};

/// The longest times of operations, in beats, over all processes.
using Longest = std::array<std::uint32_t, OPERATIONS>;

/// A process that saves, which may be stopped for some time.
class Saver {
public:
    Saver(Slots& slots, std::size_t index) : m_slots(slots), m_index(index) {}

    void start(std::uint32_t seed, bool staysLoaded = false) {
        new (&slot()) Slot{};
        slot().beats = 1;
        slot().staysLoaded = staysLoaded;
        m_process = std::make_unique<OtherProcess>(std::vector<std::string>{
            "--slot", m_slots.descriptor(), std::to_string(m_index), std::to_string(seed)});
        m_isStopped = false;
    }

    void kill(Longest& longest) {
        checkTimes(longest);
        m_process->kill();
    }

    void stopFor(milliseconds time) {
        m_process->signal(SIGSTOP);
        m_isStopped = true;
        m_resume = Clock::now() + time;
    }

    void resumeWhenDue() {
        if (m_isStopped && Clock::now() >= m_resume)
            resume();
    }

    void resume() {
        m_process->signal(SIGCONT);
        m_isStopped = false;
    }

    void end(Longest& longest) {
        if (m_isStopped)
            resume();
        slot().isToEnd = 1;
        while (slot().began != 0) {
            checkTimes(longest);
            std::this_thread::sleep_for(BEAT);
        }
        m_process->awaitEnd();
    }

    /// Fails when an operation took too long or is taking too long.
    void checkTimes(Longest& longest) {
        m_process->expectAlive();
        for (std::uint32_t i = 0; i < OPERATIONS; ++i)
            check(i, slot().longest[i], longest);
        const std::uint32_t began = slot().began;
        const std::uint32_t beats = slot().beats;
        if (began != 0 && beats > began)
            check(slot().operation, beats - began, longest);
    }

    bool isStopped() const { return m_isStopped; }
    Slot& slot() { return m_slots[m_index]; }

private:
    static void check(std::uint32_t operation, std::uint32_t beats, Longest& longest) {
        longest[operation] = std::max(longest[operation], beats);
        const Operation& row = OPERATION[operation];
        const auto time = static_cast<std::uint32_t>(beats * BEAT.count());
        if (time > row.documentedMilliseconds + ALLOWED_MILLISECONDS)
            fail(std::string(row.name) + ": one took " + std::to_string(time) + " ms");
    }

    Slots& m_slots;
    std::size_t m_index;
    std::unique_ptr<OtherProcess> m_process;
    bool m_isStopped = false;
    Clock::time_point m_resume;
};

/// The run: the sequence of kills and stops.
class Storm {
public:
    explicit Storm(const Job& job)
        : m_job(job), m_random(job.seed, 0), m_start(Clock::now()), m_savers{{
                                                                        {m_slots, 0},
                                                                        {m_slots, 1},
                                                                        {m_slots, 2},
                                                                    }} {
        for (Saver& saver : m_savers)
            replace(saver);
    }

    void run() {
        while (!isOver()) {
            pause(milliseconds(m_random.below(LONGEST_PAUSE_MS)));
            act();
            checkFiles();
            showProgress();
        }
    }

    /// Kills all processes. Two new ones must be able to share the block that is left, to notify
    /// each other of a save, and to leave nothing behind.
    void finish() {
        for (Saver& saver : m_savers) {
            saver.kill(m_longest);
            count(saver);
        }
        Saver& first = m_savers[0];
        Saver& second = m_savers[1];
        for (Saver* const saver :
             {&first, &second}) // without an unload, which removes the block's name
            saver->start(m_job.seed + ++m_started, true);
        awaitRefresh(first);
        awaitRefresh(second);
        end(first);
        end(second);
        expect(sharedObjects() == 0, "the last process has left a shared object");
        if (const std::size_t files = test::resultFiles().size())
            fail(std::to_string(files) + " result files are left by processes that were killed");
    }

    std::uint32_t seconds() const {
        const auto elapsed =
            std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - m_start);
        return static_cast<std::uint32_t>(elapsed.count());
    }

    std::string numbers() const {
        std::string text = std::to_string(m_kills) + " kills, " + std::to_string(m_aimed) +
                           " of them with a lock held, " + std::to_string(m_stops) + " stops, " +
                           std::to_string(m_longStops) + " of them for long with a lock held, " +
                           std::to_string(m_saves) + " saves, " + std::to_string(m_refreshes) +
                           " reloads; longest";
        for (std::uint32_t i = 0; i < OPERATIONS; ++i)
            text += std::string(i == 0 ? " " : ", ") + OPERATION[i].name + " " +
                    std::to_string(m_longest[i] * BEAT.count()) + " ms";
        return text;
    }

    std::uint32_t refreshes() const { return m_refreshes; }

private:
    bool isOver() const {
        return (m_job.count != 0 && m_kills >= m_job.count) ||
               (m_job.seconds != 0 && seconds() >= m_job.seconds);
    }

    void replace(Saver& saver) { saver.start(m_job.seed + ++m_started); }

    void count(Saver& saver) {
        m_saves += saver.slot().saves;
        m_refreshes += saver.slot().refreshes;
    }

    void kill(Saver& saver) {
        m_aimed += saver.slot().holdsShared;
        saver.kill(m_longest);
        count(saver);
        ++m_kills;
        replace(saver);
    }

    void end(Saver& saver) {
        saver.end(m_longest);
        count(saver);
    }

    // Limited in beats of the process, so a slow process has more time.
    void awaitRefresh(Saver& saver) {
        while (saver.slot().refreshes == 0) {
            saver.checkTimes(m_longest);
            expect(saver.slot().beats < LONGEST_REFRESH / BEAT,
                   "no save reaches a process that started after the kills");
            std::this_thread::sleep_for(BEAT);
        }
    }

    void stop(Saver& saver, milliseconds time) {
        saver.stopFor(time);
        ++m_stops;
    }

    // Checks the processes meanwhile.
    void pause(milliseconds time) {
        const auto end = Clock::now() + time;
        do {
            std::this_thread::sleep_for(std::min<Clock::duration>(BEAT, end - Clock::now()));
            for (Saver& saver : m_savers) {
                saver.resumeWhenDue();
                saver.checkTimes(m_longest);
            }
        } while (Clock::now() < end);
    }

    // A process that holds a lock of the shared block, if there is one within AIMING_TIME.
    Saver& aim() {
        const auto end = Clock::now() + AIMING_TIME;
        while (Clock::now() < end) {
            for (Saver& saver : m_savers) {
                if (!saver.isStopped() && saver.slot().holdsShared != 0)
                    return saver;
            }
            std::this_thread::sleep_for(std::chrono::microseconds(200));
        }
        return m_savers[0];
    }

    void act() {
        if (m_actions++ % LONG_STOP_EVERY == FIRST_LONG_STOP) {
            stopForLong(aim());
            return;
        }
        Saver& saver = m_random.oneIn(2) ? aim() : m_savers[m_random.below(SAVERS)];
        if (saver.isStopped() || !m_random.oneIn(5))
            kill(saver);
        else
            stop(saver, milliseconds(m_random.below(SHORT_STOP_MS)));
    }

    // Nothing is done to the other processes in that time. They must continue to save.
    void stopForLong(Saver& saver) {
        m_longStops += saver.slot().holdsShared;
        stop(saver, LONG_STOP);
        pause(LONG_STOP);
        if (m_random.oneIn(2))
            kill(saver);
    }

    static std::size_t sharedObjects() {
        namespace fs = std::filesystem;
        const auto count = std::distance(fs::directory_iterator("/dev/shm"), {});
        return static_cast<std::size_t>(count);
    }

    static void checkFiles() {
        const std::size_t files = test::resultFiles().size();
        if (files > MOST_RESULT_FILES)
            fail(std::to_string(files) + " result files have accumulated");
        expect(sharedObjects() <= MOST_SHARED_OBJECTS, "shared objects have accumulated");
    }

    void showProgress() {
        if (seconds() < m_shown + 5)
            return;
        m_shown = seconds();
        std::printf("kills: %3u %%, %s, %u s\n", m_job.percent(m_kills, m_shown), numbers().c_str(),
                    m_shown);
        std::fflush(stdout);
    }

    const Job& m_job;
    Random m_random;
    Clock::time_point m_start;
    Slots m_slots;
    std::array<Saver, SAVERS> m_savers;
    Longest m_longest{};
    std::uint32_t m_started = 0;
    std::uint32_t m_kills = 0;
    std::uint32_t m_aimed = 0;
    std::uint32_t m_stops = 0;
    std::uint32_t m_longStops = 0; ///< with a lock held
    std::uint32_t m_actions = 0;
    std::uint32_t m_saves = 0;
    std::uint32_t m_refreshes = 0;
    std::uint32_t m_shown = 0;
};

} // namespace

void stress::kills(char* arguments[]) {
    const Job job = Job::from("kills", DEFAULT_KILLS, arguments);
    Storm storm(job);
    storm.run();
    storm.finish();
    std::printf("kills: passed: %s, %u s, seed %u\n", storm.numbers().c_str(), storm.seconds(),
                job.seed);
}
