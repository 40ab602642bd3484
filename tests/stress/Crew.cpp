#include "Crew.h"

#include "support/FakeJni.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <map>
#include <unistd.h>

namespace stress {
namespace {

using Clock = std::chrono::steady_clock;

constexpr auto LOOK_PAUSE = std::chrono::milliseconds(100);
constexpr unsigned int STUCK_CHECKS = 600; // without a completed call
constexpr std::uint32_t PROGRESS_SECONDS = 5;
constexpr int FATAL_SIGNALS[] = {SIGSEGV, SIGBUS, SIGABRT, SIGFPE, SIGILL};

std::vector<std::unique_ptr<Worker>>* watched = nullptr;
std::map<int, struct sigaction> earlierActions;

void writeError(const char* text) {
    static_cast<void>(!write(STDERR_FILENO, text, std::strlen(text)));
}

// For signal handlers as well.
void showCalls() {
    writeError("\nThe calls of the threads:\n");
    for (const auto& worker : *watched) {
        writeError("  ");
        writeError(worker->call());
        writeError("\n");
    }
}

// Restores the earlier actions first, so that a second fault, in a damaged list, ends the program.
// raise() then sends the signal again.
void onFatalSignal(int signal) {
    for (const auto& [number, action] : earlierActions)
        sigaction(number, &action, nullptr);
    showCalls();
    raise(signal);
}

void showCallsOnFatalSignals() {
    struct sigaction action {};
    action.sa_handler = onFatalSignal;
    action.sa_flags = SA_NODEFER;
    for (const int signal : FATAL_SIGNALS) {
        earlierActions[signal] = {};
        sigaction(signal, &action, &earlierActions[signal]);
    }
}

} // namespace

Worker::Worker(const Job& job, const Calls& calls, unsigned int number)
    : random(job.seed, number), guest("guest-" + std::to_string(number)), m_calls(calls) {
    for (const Call& call : m_calls)
        m_weights += call.weight;
}

const Call& Worker::choose() {
    std::uint32_t number = random.below(m_weights);
    const Call* call = m_calls.data();
    for (; number >= call->weight; ++call)
        number -= call->weight;
    return *call;
}

void Worker::run(const Call& call) {
    m_call = call.name;
    call.run(*this);
}

void Worker::step() {
    run(choose());
    m_java.reset();
    ++m_done;
}

void Worker::nest() {
    if (m_isNested)
        return;
    m_isNested = true;
    run(choose());
    m_isNested = false;
}

test::FakeJni& Worker::java() {
    m_java = std::make_unique<test::FakeJni>();
    return *m_java;
}

Crew::Crew(const Job& job, Calls calls, unsigned int threads, Numbers numbers)
    : m_job(job), m_calls(std::move(calls)), m_numbers(std::move(numbers)), m_start(Clock::now()) {
    for (unsigned int i = 0; i < threads; ++i)
        m_workers.push_back(std::make_unique<Worker>(job, m_calls, i));
    watched = &m_workers;
    showCallsOnFatalSignals();
}

Crew::~Crew() {
    for (const auto& [signal, action] : earlierActions)
        sigaction(signal, &action, nullptr);
}

std::uint32_t Crew::done() const {
    std::uint32_t sum = 0;
    for (const auto& worker : m_workers)
        sum += worker->done();
    return sum;
}

std::uint32_t Crew::seconds() const {
    const auto elapsed = std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - m_start);
    return static_cast<std::uint32_t>(elapsed.count());
}

bool Crew::isOver() const {
    return m_endSeconds != 0 && seconds() >= m_endSeconds;
}

void Crew::run(std::uint32_t calls, std::uint32_t untilSeconds) {
    m_endSeconds = untilSeconds;
    m_taken = 0;
    m_end = calls == 0 ? UINT32_MAX : calls;
    m_watched.assign(m_workers.size(), {});
    std::vector<std::thread> threads;
    threads.reserve(m_workers.size());
    for (const auto& worker : m_workers) {
        worker->setFinished(false);
        threads.emplace_back([this, &worker] { work(*worker); });
    }
    watch();
    for (std::thread& thread : threads)
        thread.join();
}

void Crew::work(Worker& worker) {
    while (m_taken++ < m_end && !isOver())
        worker.step();
    worker.setFinished(true);
}

bool Crew::isFinished() const {
    return std::all_of(m_workers.begin(), m_workers.end(),
                       [](const auto& worker) { return worker->isFinished(); });
}

void Crew::watch() {
    while (!isFinished()) {
        checkProgress();
        showProgress();
        std::this_thread::sleep_for(LOOK_PAUSE);
    }
}

void Crew::checkProgress() {
    for (std::size_t i = 0; i < m_workers.size(); ++i) {
        const Worker& worker = *m_workers[i];
        Watched& seen = m_watched[i];
        const bool rests = !worker.isFinished() && worker.done() == seen.done;
        seen = {worker.done(), rests ? seen.checksWithoutProgress + 1 : 0};
        if (seen.checksWithoutProgress == STUCK_CHECKS) {
            showCalls();
            fail("thread " + std::to_string(i) + " has made no progress for a minute");
        }
    }
}

void Crew::showProgress() {
    const std::uint32_t now = seconds();
    if (now < m_shown + PROGRESS_SECONDS)
        return;
    m_shown = now;
    std::printf("%s: %3u %%, %u calls, %s, %u s\n", m_job.name.c_str(), m_job.percent(done(), now),
                done(), m_numbers().c_str(), now);
    std::fflush(stdout);
}

} // namespace stress
