#pragma once

#include <atomic>
#include <chrono>
#include <mutex>

namespace cli {

/// Ends the waits and checks of an operation from another thread.
class Cancellation {
public:
    /// The reason of a cancellation that is not a signal.
    static constexpr int NO_SIGNAL = -1;

    /// @throws Failure if too many files are open
    Cancellation();
    ~Cancellation();

    Cancellation(const Cancellation&) = delete;
    Cancellation& operator=(const Cancellation&) = delete;

    /// Cancels the operation: from now on each wait and check throws Interrupted. Any thread may call it; the
    /// first call counts.
    /// @param signal  the reason: a signal, or NO_SIGNAL
    void cancel(int signal) noexcept;

    /// @throws Interrupted once the operation is cancelled
    void check() const;

    /// Waits that long. @throws Interrupted as soon as the operation is cancelled
    void pause(std::chrono::milliseconds time) const;

    /// Waits until the descriptor is readable. @throws Interrupted as soon as the operation is cancelled
    void waitForInput(int descriptor) const;

    /// Waits for the same, that long at most. @return whether the descriptor is readable
    bool waitForInput(int descriptor, std::chrono::milliseconds time) const;

    /// While an object exists, the program is not ended by force: it is changing the configuration,
    /// and must finish that.
    class Deferred {
    public:
        explicit Deferred(Cancellation& cancellation);
        ~Deferred();
        Deferred(const Deferred&) = delete;
        Deferred& operator=(const Deferred&) = delete;

    private:
        Cancellation& m_cancellation;
    };

protected:
    std::mutex m_mutex;          ///< guards m_deferred
    unsigned int m_deferred = 0; ///< count of Deferred objects

private:
    int m_pipe[2] = {-1, -1}; ///< readable once the operation is cancelled
    std::atomic<int> m_signal{0};
};

} // namespace cli
