#pragma once

#include "Job.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace test {
class FakeJni;
}

namespace stress {

class Worker;

/// A call that a thread may choose, with a probability in proportion to its weight.
struct Call {
    const char* name;
    unsigned int weight;
    void (*run)(Worker& worker);
};

using Calls = std::vector<Call>;

/// A thread that makes random calls, and its state for them.
class Worker {
public:
    Worker(const Job& job, const Calls& calls, unsigned int number);

    /// Makes one call.
    void step();

    /// Makes a call inside another call. Does nothing inside a nested call.
    void nest();

    /// A Java environment for one native, which leaves nothing behind.
    test::FakeJni& java();

    /// The name of the last call that was begun, and the number of completed calls.
    const char* call() const { return m_call; }
    std::uint32_t done() const { return m_done; }

    /// Whether the thread has made its last call.
    void setFinished(bool isFinished) { m_isFinished = isFinished; }
    bool isFinished() const { return m_isFinished; }

    Random random;
    std::string guest;     ///< the SSID of a network that this thread alone adds and removes
    bool hasGuest = false; ///< whether that network is configured now

private:
    const Call& choose();
    void run(const Call& call);

    const Calls& m_calls;
    unsigned int m_weights = 0;
    bool m_isNested = false;
    std::unique_ptr<test::FakeJni> m_java;
    std::atomic<const char*> m_call{"nothing yet"};
    std::atomic<std::uint32_t> m_done{0};
    std::atomic<bool> m_isFinished{false};
};

/// Threads that make random calls until the job is done. When a thread completes none for a minute,
/// the program ends with a list of the calls that the threads are in; so it does after a fatal
/// signal. The minute does not advance while this process is stopped.
class Crew {
public:
    /// Numbers for a line of progress, such as "12 loads".
    using Numbers = std::function<std::string()>;

    Crew(const Job& job, Calls calls, unsigned int threads, Numbers numbers);
    ~Crew();

    Crew(const Crew&) = delete;
    Crew& operator=(const Crew&) = delete;

    /// Returns after this many calls, or this many seconds after the construction; 0 is no limit.
    void run(std::uint32_t calls, std::uint32_t untilSeconds);

    /// All completed calls without nested ones.
    std::uint32_t done() const;

    std::uint32_t seconds() const;

private:
    /// The state of a worker at the last check.
    struct Watched {
        std::uint32_t done = 0;
        unsigned int checksWithoutProgress = 0;
    };

    void work(Worker& worker);
    void watch();
    void checkProgress();
    bool isFinished() const;
    bool isOver() const;
    void showProgress();

    const Job m_job;
    const Calls m_calls;
    Numbers m_numbers;
    std::vector<std::unique_ptr<Worker>> m_workers;
    std::vector<Watched> m_watched;
    std::atomic<std::uint32_t> m_taken{0}; ///< calls that were begun
    std::uint32_t m_end = 0;
    std::uint32_t m_endSeconds = 0;
    std::chrono::steady_clock::time_point m_start;
    std::uint32_t m_shown = 0; ///< seconds at the last line of progress
};

} // namespace stress
