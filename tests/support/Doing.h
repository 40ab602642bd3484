#pragma once

#include "support/ThreadState.h"

#include <atomic>
#include <thread>

namespace test {

/// A thread that runs one function. The destructor waits for its end.
class Doing {
public:
    template <typename Body>
    explicit Doing(Body body)
        : m_thread([this, body] {
              m_id = ownThread();
              body();
              m_done = true;
          }) {}
    ~Doing() { m_thread.join(); }

    Doing(const Doing&) = delete;
    Doing& operator=(const Doing&) = delete;

    /// Returns when the thread sleeps or the function has returned.
    void awaitRest() const {
        while (!m_done && (m_id == 0 || !isAsleep(m_id)))
            std::this_thread::yield();
    }

    /// Returns when the function has returned.
    void awaitEnd() const {
        while (!m_done)
            std::this_thread::yield();
    }

    bool isDone() const { return m_done; }

private:
    std::atomic<int> m_id{0};
    std::atomic<bool> m_done{false};
    std::thread m_thread; // last: it uses the others
};

} // namespace test
